"""vdicom check: findings, severities, exit status, JSON, folders, classes."""
import json
import os
import sys

from support import EXPLICIT, element, equal, contains, item, main, part10, run

CT = "1.2.840.10008.5.1.4.1.1.2"


def image(folder, name, *, sop_class="1.2.840.10008.5.1.4.1.1.7", sex="M", more=b"", before=b""):
    """A secondary capture that has nothing wrong unless it is asked for."""
    content = before + b"".join(element(*row) for row in [
        (0x00080005, "CS", "ISO_IR 192"), (0x00080016, "UI", sop_class), (0x00080018, "UI", "1.2.3.4"),
        (0x00080020, "DA", "20040229"), (0x00080030, "TM", "1020"), (0x00080050, "SH", ""), (0x00080064, "CS", "WSD"),
        (0x00080070, "LO", ""), (0x00080090, "PN", ""), (0x00100010, "PN", "Doe^Jane"), (0x00100020, "LO", "1"),
        (0x00100030, "DA", ""), (0x00100040, "CS", sex), (0x0020000D, "UI", "1.2.3.1"), (0x0020000E, "UI", "1.2.3.2"),
        (0x00200010, "SH", ""), (0x00200011, "IS", ""), (0x00200013, "IS", ""), (0x00200020, "CS", ""),
        (0x00280002, "US", b"\1\0"), (0x00280004, "CS", "MONOCHROME2"), (0x00280010, "US", b"\1\0"),
        (0x00280011, "US", b"\2\0"), (0x00280100, "US", b"\x08\0"), (0x00280101, "US", b"\x08\0"),
        (0x00280102, "US", b"\7\0"), (0x00280103, "US", b"\0\0")])
    meta = b"".join(element(*row) for row in [
        (0x00020001, "OB", b"\0\1"), (0x00020002, "UI", sop_class), (0x00020003, "UI", "1.2.3.4"),
        (0x00020010, "UI", EXPLICIT), (0x00020012, "UI", "1.2.3.9")])
    meta = element(0x00020000, "UL", len(meta).to_bytes(4, "little")) + meta
    pixels = element(0x7FE00010, "OB", b"\0\0")
    return folder.write(name, bytes(128) + b"DICM" + meta + content + more + pixels)


def test_findings_and_severities(folder):
    good = image(folder, "good.dcm")
    result = run("check", good)
    equal(result.lines[-1] or result.lines[-2], "  0 errors, 0 warnings, 0 notes")
    contains(result.lines[0], "good.dcm: Secondary Capture Image Storage")
    bad = image(folder, "bad.dcm", sex="Q\x1b", more=element(0x00291001, "LO", "x"))
    result = run("check", bad, status=1)
    contains(result.line("error    (0029,1001)"), "no private creator")
    contains(result.line("error    (0010,0040)"), "capital letters")
    assert "\x1b" not in result.out
    # Files one after the other; a warning or note alone is no failure.
    note = image(folder, "note.dcm", more=element(0x00541001, "CS", "BQML"))
    run("check", note)
    result = run("check", "--severity", "error", note, bad, good, status=1)
    assert "  note " not in result.out
    contains(result.out, "0 errors, 0 warnings, 1 note\n")
    equal([line.split(": ")[0].split("/")[-1] for line in result.lines if line.startswith("/")],
          ["note.dcm", "bad.dcm", "good.dcm"])


def test_json(folder):
    inside = element(0x00081140, "SQ", item(element(0x00081150, "UI", "1.02")))
    bad = image(folder, "bad.dcm", more=b"", before=b"")
    bad = folder.write("bad.dcm", folder.read("bad.dcm").replace(element(0x0020000D, "UI", "1.2.3.1"), inside))
    found = json.loads(run("check", "--json", bad, status=1).out)
    equal(found["class"], "Secondary Capture Image Storage")
    by_path = {finding["path"]: finding for finding in found["findings"]}
    missing = by_path["(0008,1140)[0].(0008,1155)"]
    equal([missing[k] for k in ("severity", "code", "name", "module", "type", "section")],
          ["error", 501, "Referenced SOP Instance UID", "General Image", "1", "PS3.5 7.4.1"])
    uid = by_path["(0008,1140)[0].(0008,1150)"]
    equal([uid[k] for k in ("code", "valueNumber", "value")], [512, 1, "1.02"])
    equal(by_path["(0020,000D)"]["code"], 501)
    # What the reader found stands there too: (0008,1140) behind (0010,...).
    contains(by_path["(0008,1140)"]["text"], "at offset 0x")
    equal([found[k] for k in ("warnings", "notes")], [0, 0])
    equal(found["errors"], len(found["findings"]))
    several = json.loads(run("check", "--json", bad, bad, status=1).out)
    equal(several, [found, found])


def test_what_cannot_be_read(folder):
    good = image(folder, "good.dcm")
    cut = folder.write("cut.dcm", folder.read("good.dcm")[:-1])
    result = run("check", cut, status=1)
    contains(result.line("error    (7FE0,0010) at offset"), "stream ends")
    text = folder.write("text.txt", b"This is no data set at all, but some text.")
    contains(run("check", text, status=1).out, "1 error,")
    result = run("check", folder("none.dcm"), good, status=1)
    contains(result.err, "none.dcm")
    contains(result.out, "0 errors")
    run("check", status=2)
    run("check", "--severity", "fatal", good, status=2)


def test_folders_and_classes(folder):
    for name in ("a/1.dcm", "a/b/2.dcm"):
        image(folder, name)
    result = run("check", "--recursive", folder("a"))
    equal(result.out.count("0 errors"), 2)
    equal(len(json.loads(run("check", "-r", "-j", folder("a")).out)), 2)
    good = folder("a/1.dcm")
    for name in ("CT Image Storage", CT, "1"):
        result = run("check", "--class", name, good, status=1)
        contains(result.out, "(0018,0060) KVP is missing: type 2 in module CT Image")
    contains(run("check", "--class", "Storage", good, status=2).err, "may mean")
    contains(run("check", "--class", "no such", good, status=2).err, "no class is known")


if __name__ == "__main__":
    main(sys.modules[__name__])
