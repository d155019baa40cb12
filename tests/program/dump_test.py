"""vdicom dump: lines for people."""
import struct
import sys

from support import (BIG, contains, element, equal, image, item, main, part10, run, sequence, tag)


def test_one_line_per_element(folder):
    result = run("dump", folder.write("a.dcm", image()))
    equal(result.line("(0008,0060)").split(None, 3), ["(0008,0060)", "CS", "2", "Modality" + " " * 27 + "OT"])
    contains(result.line("(0008,0016)"), "1.2.840.10008.5.1.4.1.1.7 (Secondary Capture Image Storage)")
    contains(result.line("(0002,0010)"), "1.2.840.10008.1.2.1 (Explicit VR")
    contains(result.line("(7FE0,0010)"), "0001 0002 0003 ABCD")
    contains(result.line("(0029,0010)"), "Private Creator")
    contains(result.line("(0040,0275)"), "2 items")
    at = result.lines.index(next(line for line in result.lines if "(0040,0275)" in line))
    equal(result.lines[at + 1], "  [0]")
    assert result.lines[at + 2].startswith("    (0040,0007) LO"), result.lines[at + 2]
    equal(result.lines[at + 3], "  [1]")
    contains(result.lines[at + 4], "second")
    equal(result.err, "")


def test_values_by_representation(folder):
    content = (element(0x00081160, "IS", "1\\-2") + element(0x00280009, "AT", struct.pack("<4H", 0x18, 0x1063, 9, 8)) +
               element(0x00281101, "US", struct.pack("<3H", 256, 0, 16)) +
               element(0x00189073, "FD", struct.pack("<2d", 0.1, -1e300)) +
               element(0x00291020, "UN", b"made of text\0\0") + element(0x00291021, "UN", b"\1\2text") +
               element(0x00291022, "SV", struct.pack("<q", -2**62)) + element(0x00291023, "UV", struct.pack("<Q", 2**64 - 1)) +
               element(0x00291024, "OF", struct.pack("<f", 1.5)) + element(0x00291025, "OV", struct.pack("<Q", 255)) +
               element(0x00291026, "US", b"\1\0\2"))
    result = run("dump", folder.write("a.dcm", part10(content)))
    for start, value in (("(0008,1160)", "1\\-2"), ("(0028,0009)", "(0018,1063) Frame Time\\(0009,0008)"),
                         ("(0028,1101)", "256\\0\\16"), ("(0018,9073)", "0.1\\-1e+300"), ("(0029,1020)", '"made of text"'),
                         ("(0029,1021)", "01 02 74 65 78 74"), ("(0029,1022)", "-4611686018427387904"),
                         ("(0029,1023)", "18446744073709551615"), ("(0029,1024)", "1.5"),
                         ("(0029,1025)", "00000000000000FF"), ("(0029,1026)", "1 (and a part of a number)")):
        assert result.line(start).endswith(value), result.line(start)


def test_values_are_cut_and_whole_on_request(folder):
    path = folder.write("a.dcm", part10(element(0x0040A160, "UT", "x" * 100_000) + element(0x0042FF01, "OB", b"\xaa" * 70_000)))
    result = run("dump", path)
    assert result.line("(0040,A160)").endswith("x" * 79 + "…"), result.line("(0040,A160)")
    assert len(result.line("(0042,FF01)")) < 145
    result = run("dump", "--full", path)
    assert result.line("(0040,A160)").endswith(" " + "x" * 100_000)
    equal(result.line("(0042,FF01)").count("AA"), 70_000)


def test_nothing_in_a_value_reaches_the_terminal(folder):
    evil = b"\x1b]0;title\x07\x1b[2J a\r\nb\x9b31m\x7f "
    path = folder.write("a\x1b[31m.dcm", part10(element(0x00080005, "CS", "ISO_IR 100") + element(0x00104000, "LT", evil) +
                                                 element(0x00100010, "PN", b"caf\xe9 ") + element(0x00291020, "UN", evil)))
    for arguments in (("dump", path), ("dump", path, path), ("dump", "--tag", "PatientComments", path, path)):
        result = run(*arguments)
        for byte in (b"\x1b", b"\x07", b"\r", b"\x7f", "\x9b".encode()):
            assert byte not in result.raw, (byte, result.out)
        contains(result.out, "]0;title␇")
        contains(result.out, "␍␊b")
    result = run("dump", path + "?", status=1)
    assert "\x1b" not in result.err
    contains(run("dump", path).line("(0010,0010)"), "café")


def test_turned_and_wide_texts(folder):
    text = "\u202eabc\u202c 山田太郎" + "山" * 60
    raw = text.encode()
    path = folder.write("a.dcm", part10(element(0x00080005, "CS", "ISO_IR 192") +
                                         element(0x00104000, "LT", raw + b" " * (len(raw) % 2))))
    line = run("dump", path).line("(0010,4000)")
    contains(line, "<U+202E>abc<U+202C> 山田太郎")
    value = line[line.index("<U+202E>"):]
    columns = sum(2 if c > "\u2e80" else 1 for c in value)
    assert 78 <= columns <= 80 and value.endswith("…"), (columns, value)


def test_offsets_name_the_header(folder):
    content = image()
    path = folder.write("a.dcm", content)
    for line in run("dump", "--offsets", path).lines:
        offset, rest = line.split(None, 1)
        if rest.startswith("("):
            number = int(rest[1:5] + rest[6:10], 16)
            equal(content[int(offset, 16):int(offset, 16) + 4], tag(number), line)
        else:
            equal(content[int(offset, 16):int(offset, 16) + 4], tag(0xFFFEE000), line)


def test_encapsulated_pixel_data(folder):
    fragments = element(0x7FE00010, "OB", item(struct.pack("<I", 0)) + item(b"\xff\xd8\xff\xd9") + item(b"\1\2") +
                        tag(0xFFFEE0DD) + b"\0\0\0\0", length=0xFFFFFFFF)
    result = run("dump", folder.write("a.dcm", part10(fragments, "1.2.840.10008.1.2.4.50")))
    contains(result.line("(7FE0,0010)"), "encapsulated, 2 fragments, 6 bytes")
    equal([line.strip() for line in result.lines[-3:]],
          ["[0] offset table, 4 bytes: 00 00 00 00", "[1] fragment, 4 bytes: FF D8 FF D9", "[2] fragment, 2 bytes: 01 02"])


def test_depth(folder):
    inner = sequence(0x00400275, element(0x00400007, "LO", "deep"))
    path = folder.write("a.dcm", part10(sequence(0x00400275, inner + element(0x00400007, "LO", "flat"))))
    assert "flat" not in run("dump", "--depth", "0", path).out
    one = run("dump", "--depth", "1", path).out
    assert "flat" in one and "deep" not in one
    contains(run("dump", "--depth", "2", path).out, "deep")


def test_chosen_elements(folder):
    path = folder.write("a.dcm", image())
    lines = run("dump", "--tag", "PatientName", "--tag", "0010,0020", path).lines
    equal([line[:11] for line in lines], ["(0010,0010)", "(0010,0020)"])
    equal(run("dump", "--tag", "(0040,0275)[1].(0040,0007)", path).lines[1:],
          ["  [1]", run("dump", path).lines[-2]])
    contains(run("dump", "--tag", '(0029,xx10,"TEST MAKER")', path).out, "(0029,1010) LO        8")
    equal(run("dump", "--tag", '(0029,xx10,"ANOTHER")', path).out, "")
    equal([line[:11] for line in run("dump", "--tag", "(0028,xxxx)", "--tag", "(0029,xx10)", path).lines],
          ["(0028,0010)", "(0029,0010)", "(0029,1010)"])
    equal(len(run("dump", "--tag", "RequestAttributesSequence", path).lines), 5)


def test_chosen_elements_of_several_files(folder):
    one = folder.write("1.dcm", image("Doe^Jane"))
    two = folder.write("2.dcm", image("Roe^Richard"))
    keys = ["--tag", "PatientName", "--tag", "AccessionNumber", "--tag", "RequestAttributesSequence.ScheduledProcedureStepDescription"]
    equal(run("dump", *keys, one, two).lines,
          [f"{one}\tDoe^Jane\t-\tfirst | second", f"{two}\tRoe^Richard\t-\tfirst | second"])


def test_reading_stops_behind_the_last_chosen_element(folder):
    # What follows is damaged: whoever reads on finds it out.
    damaged = part10(element(0x00100020, "LO", "4711") + element(0x00200010, "SH", "x") +
                     sequence(0x00400275, b"\xff" * 30))
    path = folder.write("a.dcm", damaged)
    equal(run("dump", path, status=None).status, 1)
    result = run("dump", "--tag", "PatientID", path)
    equal(result.err, "")
    contains(result.out, "4711")


def test_colour_only_where_it_is_wanted(folder):
    path = folder.write("a.dcm", image())
    assert "\x1b" not in run("dump", path).out
    assert "\x1b" not in run("dump", "--color", "never", path).out
    contains(run("dump", "--color=always", path, environment={"NO_COLOR": "1"}).out, "\x1b[")


def test_folders_and_standard_input(folder):
    folder.write("tree/b/2.dcm", image("Second"))
    folder.write("tree/a.dcm", image("First"))
    result = run("dump", folder("tree"), status=1)
    contains(result.err, f"vdicom dump: {folder('tree')}: is a folder")
    equal(run("dump", "--recursive", "--tag", "PatientName", folder("tree")).lines,
          [folder("tree/a.dcm") + "\tFirst", folder("tree/b/2.dcm") + "\tSecond"])
    contains(run("dump", "-", stdin=image("Piped")).line("(0010,0010)"), "Piped")


def test_other_encodings(folder):
    big = (element(0x00100010, "PN", "Doe^Jane", big=True) +
           element(0x00281101, "US", struct.pack(">3H", 256, 0, 16), big=True))
    contains(run("dump", folder.write("b.dcm", part10(big, BIG))).line("(0028,1101)"), "256\\0\\16")
    implicit = element(0x00100010, "PN", "Doe^Jane", implicit=True) + element(0x00280010, "US", b"\2\0", implicit=True)
    result = run("dump", folder.write("i", implicit))
    equal(result.line("(0028,0010)").split()[1:3], ["US", "2"])


main(sys.modules[__name__])
