"""Bad input and full disks: a clear message with the file's name, status 1, and the next file is still done."""
import os
import resource
import socket
import struct
import sys
import threading

from support import (IMPLICIT, contains, element, equal, image, item, main, part10, run, sequence, tag)


def check(folder, name, reason, status=1, arguments=()):
    """The file fails for this reason; the good one after it is shown."""
    good = folder.write("good.dcm", image("Good^File"))
    path = folder(name)
    result = run("dump", *arguments, path, good, status=status)
    assert result.err.startswith(f"vdicom dump: {path}: "), result.err
    contains(result.err, reason)
    contains(result.out, "Good^File")
    result = run("dump", "--json", path, good, status=status)
    equal(result.json()[-1]["00100010"]["Value"], [{"Alphabetic": "Good^File"}])
    run("convert", path, folder("out.dcm"), status=status)
    equal(os.path.exists(folder("out.dcm")), status == 0)
    return result


def test_what_is_no_file(folder):
    check(folder, "missing", "No such file or directory")
    os.mkdir(folder("folder"))
    check(folder, "folder", "is a folder")
    os.symlink(folder("nowhere"), folder("dangling"))
    check(folder, "dangling", "No such file")
    server = socket.socket(socket.AF_UNIX)
    server.bind(folder("socket"))
    check(folder, "socket", "")
    server.close()
    folder.write("empty", b"")
    check(folder, "empty", "empty")
    folder.write("text", b"This is no DICOM file, but it is long enough to look into.\n" * 20)
    check(folder, "text", "")


def test_without_permission(folder):
    os.chmod(folder.path, 0o755)
    os.chmod(folder.write("secret", image()), 0)
    path = folder.write("a.dcm", image())
    os.mkdir(folder("folder"), 0o555)
    # Nothing is forbidden to the superuser.
    nobody = {"user": 65534} if os.geteuid() == 0 else {}
    try:
        contains(run("dump", folder("secret"), status=1, **nobody).err, f"{folder('secret')}: Permission denied")
    except PermissionError:
        return  # the program stands where nobody else may go
    contains(run("convert", path, folder("folder/x"), status=1, **nobody).err, "Permission denied")
    contains(run("convert", path, "--output", folder("folder/x"), status=1, **nobody).err, "Permission denied")
    equal(os.listdir(folder("folder")), [])


def test_pipes(folder):
    os.mkfifo(folder("pipe"))
    result = run("dump", folder("pipe"), status=1)  # nobody writes: no waiting for ever
    contains(result.err, "is empty")
    held = os.open(folder("pipe"), os.O_RDWR)
    threading.Timer(0.3, lambda: (os.write(held, image("Through^Pipe")), os.close(held))).start()
    contains(run("dump", folder("pipe")).out, "Through^Pipe")


def test_truncated_at_every_place(folder):
    content = image()
    start = content.index(tag(0x00080005))
    for end in range(start + 1, len(content), 7):
        path = folder.write("a.dcm", content[:end])
        result = run("dump", path, status=None)
        assert result.status in (0, 1), (end, result.err)
        if result.status == 1:
            contains(result.err, "at offset 0x")
        contains(result.out, "(0002,0010)")  # what was read is shown
        json = run("dump", "--json", path, status=None)
        equal(json.status, result.status)
        json.json()


def test_what_was_read_is_shown(folder):
    path = folder.write("a.dcm", image()[:-3])
    result = check(folder, "a.dcm", "at offset 0x")
    contains(result.err, "(7FE0,0010)")
    contains(run("dump", path, status=1).out, "Doe^Jane")


def test_lengths_that_lie(folder):
    for length in (0x7FFFFFFF, 0xFFFFFFFE, 0x80000000):
        folder.write("a.dcm", part10(element(0x00100020, "LO", "4711") + element(0x7FE00010, "OW", b"\0\0", length=length)))
        check(folder, "a.dcm", "(7FE0,0010)")
    folder.write("a.dcm", part10(element(0x00100020, "LO", "4711", implicit=True) +
                                 element(0x00104000, "LT", "abcd", implicit=True, length=0xFFFFFFF0), IMPLICIT))
    check(folder, "a.dcm", "(0010,4000)")


def test_deep_and_wide(folder):
    deep = element(0x00100020, "LO", "4711")
    head = tag(0x00400275) + b"SQ\0\0" + struct.pack("<I", 0xFFFFFFFF) + tag(0xFFFEE000) + struct.pack("<I", 0xFFFFFFFF)
    folder.write("deep.dcm", part10(deep + head * 10_000))
    check(folder, "deep.dcm", "nested")
    wide = tag(0xFFFEE000) + b"\0\0\0\0"
    path = folder.write("wide.dcm", part10(sequence(0x00400275) +
                                           element(0x00400555, "SQ", wide * 200_000)))
    contains(run("dump", "--depth", "0", path).line("(0040,0555)"), "200000 items")
    equal(len(run("dump", "--json", path).json()["00400555"]["Value"]), 200_000)


def test_memory_is_not_taken_on_a_claim(folder):
    path = folder.write("a.dcm", part10(element(0x00104000, "UT", "abc", length=0xFFFFFFF0)))
    result = run("dump", "--full", path, status=1)
    contains(result.err, "at offset 0x")
    most = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss
    assert most < 1024 * 1024, f"{most} KB"


def test_full_disks(folder):
    path = folder.write("a.dcm", image())
    for arguments in (("dump", path), ("dump", "--json", path), ("dict", "tag", "patient"), ("--help",), ("dump", "--help")):
        with open("/dev/full", "wb") as full:
            result = run(*arguments, status=1, stdout=full)
        contains(result.err, "standard output: No space left on device")
    for arguments in (("convert", path, "/dev/full"), ("edit", path, "/dev/full", "--set", "PatientID=1")):
        contains(run(*arguments, status=1).err, "No space left on device")
    with open("/dev/full", "wb") as full:
        contains(run("convert", path, "-", status=1, stdout=full).err, "No space left")
    # What a limit on the size of files stops leaves the old file as it was.
    big = folder.write("big.dcm", part10(element(0x7FE00010, "OW", b"\1\2" * 100_000)))
    before = folder.read("big.dcm")

    def limit():
        import signal
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
        resource.setrlimit(resource.RLIMIT_FSIZE, (50_000, 50_000))

    result = run("convert", "--to", "implicit", big, big, status=1, preexec_fn=limit)
    contains(result.err, "File too large")
    equal(folder.read("big.dcm"), before)
    equal(sorted(os.listdir(folder.path)), ["a.dcm", "big.dcm"])


def test_outputs_that_cannot_be_made(folder):
    path = folder.write("a.dcm", image())
    os.mkdir(folder("folder"))
    contains(run("convert", path, folder("folder"), status=1).err, f"{folder('folder')}: is a folder")
    contains(run("convert", path, folder("no/where"), status=1).err, "the folder that it should be in does not exist")
    contains(run("convert", path, "--output", path, status=1).err, path)


def test_unreadable_headers(folder):
    cases = {
        "wrong vr": part10(element(0x00100020, "LO", "4711") + tag(0x00100030) + b"\1\2\3\4" + b"abcd"),
        "item alone": part10(element(0x00100020, "LO", "4711") + item(element(0x00100030, "DA", "20200101"))),
        "delimiters": part10(element(0x00100020, "LO", "4711") + (tag(0xFFFEE0DD) + b"\0\0\0\0") * 3),
        "odd": part10(element(0x00100020, "LO", b"471") + element(0x00100030, "DA", b"2020010")),
        "doubled": part10(element(0x00100020, "LO", "4711") * 2),
        "no meta": element(0x00080005, "CS", "ISO_IR 100") + element(0x00100020, "LO", "4711"),
    }
    for name, content in cases.items():
        result = run("dump", folder.write(name, content), status=None)
        assert result.status in (0, 1), (name, result.err)
        contains(result.out, "(0010,0020)")
        if name not in ("no meta",):
            contains(result.err, "at offset 0x")
        run("dump", "--json", folder(name), status=result.status).json()


main(sys.modules[__name__])
