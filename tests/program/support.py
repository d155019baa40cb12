"""Data sets as bytes, and the program under test: what the scripts of this folder share."""
import json
import os
import shutil
import socket
import struct
import subprocess
import sys
import tempfile
import traceback

PROGRAM = os.environ.get("VDICOM_PROGRAM", "vdicom")
SHARED = os.environ.get("VDICOM_SHARED", "")
SKIPPED = 77

LONG_HEADER = {"OB", "OD", "OF", "OL", "OV", "OW", "SQ", "SV", "UC", "UN", "UR", "UT", "UV"}
IMPLICIT, EXPLICIT, BIG, DEFLATED = (
    "1.2.840.10008.1.2", "1.2.840.10008.1.2.1", "1.2.840.10008.1.2.2", "1.2.840.10008.1.2.1.99")


def tag(number, big=False):
    return struct.pack(">HH" if big else "<HH", number >> 16, number & 0xFFFF)


def element(number, vr, value, *, implicit=False, big=False, length=None):
    """One element; `value` is bytes as they stand in the stream, texts are padded."""
    if isinstance(value, str):
        value = value.encode("latin-1")
        value += (b"\0" if vr == "UI" else b" ") * (len(value) % 2)
    length = len(value) if length is None else length
    order = ">" if big else "<"
    if implicit:
        return tag(number) + struct.pack("<I", length) + value
    if vr in LONG_HEADER:
        return tag(number, big) + vr.encode() + struct.pack(order + "HI", 0, length) + value
    return tag(number, big) + vr.encode() + struct.pack(order + "H", length) + value


def item(content, *, undefined=False):
    if undefined:
        return tag(0xFFFEE000) + b"\xff\xff\xff\xff" + content + tag(0xFFFEE00D) + b"\0\0\0\0"
    return tag(0xFFFEE000) + struct.pack("<I", len(content)) + content


def sequence(number, *items, undefined=False, implicit=False):
    content = b"".join(item(i, undefined=undefined) for i in items)
    if undefined:
        return element(number, "SQ", content + tag(0xFFFEE0DD) + b"\0\0\0\0", length=0xFFFFFFFF, implicit=implicit)
    return element(number, "SQ", content, implicit=implicit)


def part10(content, syntax=EXPLICIT):
    meta = (element(0x00020001, "OB", b"\0\1") + element(0x00020002, "UI", "1.2.840.10008.5.1.4.1.1.7") +
            element(0x00020003, "UI", "1.2.3") + element(0x00020010, "UI", syntax) +
            element(0x00020012, "UI", "1.2.3.4"))
    return b"\0" * 128 + b"DICM" + element(0x00020000, "UL", struct.pack("<I", len(meta))) + meta + content


def image(name="Doe^Jane", extra=b""):
    """A small data set with a sequence, private elements and pixel data."""
    return part10(
        element(0x00080005, "CS", "ISO_IR 100") + element(0x00080016, "UI", "1.2.840.10008.5.1.4.1.1.7") +
        element(0x00080018, "UI", "1.2.3") + element(0x00080060, "CS", "OT") + element(0x00100010, "PN", name) +
        element(0x00100020, "LO", "4711") + element(0x00280010, "US", struct.pack("<H", 2)) +
        element(0x00290010, "LO", "TEST MAKER") + element(0x00291010, "LO", "private") +
        sequence(0x00400275, element(0x00400007, "LO", "first"), element(0x00400007, "LO", "second")) + extra +
        element(0x7FE00010, "OW", struct.pack("<4H", 1, 2, 3, 0xABCD)))


class Result:
    def __init__(self, done):
        self.status = done.returncode
        self.raw = done.stdout
        self.err = done.stderr.decode("utf-8", "strict")

    @property
    def out(self):
        return self.raw.decode("utf-8", "strict")

    @property
    def lines(self):
        return self.out.split("\n")[:-1]

    def json(self):
        return json.loads(self.out)

    def line(self, start):
        """The only line that begins with `start`, blanks in front left out."""
        found = [line.strip() for line in self.lines if line.strip().startswith(start)]
        assert len(found) == 1, f"{len(found)} lines begin with {start!r}:\n{self.out}"
        return found[0]


def run(*arguments, status=0, stdin=None, environment=None, **options):
    """Runs the program; its status must be `status` (None: any)."""
    environ = dict(os.environ, **(environment or {}))
    if stdin is not None:
        options["input"] = stdin
    else:
        options.setdefault("stdin", subprocess.DEVNULL)
    options.setdefault("stdout", subprocess.PIPE)
    done = subprocess.run([PROGRAM, *map(os.fspath, arguments)], stderr=subprocess.PIPE, env=environ, timeout=120,
                          check=False, **options)
    if done.stdout is None:
        done.stdout = b""
    if status is not None and done.returncode != status:
        raise AssertionError(f"vdicom {' '.join(map(str, arguments))}: status {done.returncode}, not {status}\n"
                             f"{done.stdout[-2000:]!r}\n{done.stderr[-2000:].decode(errors='replace')}")
    return Result(done)


class Folder:
    """A folder that goes away with the test."""

    def __enter__(self):
        self.path = tempfile.mkdtemp(prefix="vdicom-test-")
        return self

    def __exit__(self, *_):
        subprocess.run(["chmod", "-R", "u+rwx", self.path], check=False)
        shutil.rmtree(self.path, ignore_errors=True)

    def __call__(self, name):
        return os.path.join(self.path, name)

    def write(self, name, content):
        os.makedirs(os.path.dirname(self(name)), exist_ok=True)
        with open(self(name), "wb") as file:
            file.write(content)
        return self(name)

    def read(self, name):
        with open(self(name), "rb") as file:
            return file.read()


def samples():
    """The real files, or nothing where they are not there."""
    root = os.path.join(SHARED, "samples")
    found = []
    for place, folders, names in os.walk(root):
        folders.sort()
        found += [os.path.join(place, name) for name in sorted(names)]
    return found


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return str(probe.getsockname()[1])


def skip(reason):
    print(f"skipped: {reason}")
    sys.exit(SKIPPED)


def equal(found, wanted, what=""):
    if found != wanted:
        raise AssertionError(f"{what}\n  found:  {repr(found)[:1000]}\n  wanted: {repr(wanted)[:1000]}")


def contains(text, part):
    assert part in text, f"{part!r} is not in\n{text}"


def main(module):
    """Runs every function test_... of the module, each in a folder of its own."""
    failed = 0
    tests = [(name, test) for name, test in sorted(vars(module).items()) if name.startswith("test_")]
    for name, test in tests:
        try:
            with Folder() as folder:
                test(folder)
        except Exception:  # each failure is shown, the next test is run
            failed += 1
            print(f"FAILED {name}")
            traceback.print_exc()
    print(f"{len(tests) - failed} passed, {failed} failed")
    sys.exit(1 if failed else 0)
