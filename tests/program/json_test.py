"""vdicom dump --json: the DICOM JSON Model (PS3.18 F)."""
import base64
import math
import struct
import sys

from support import (BIG, EXPLICIT, contains, element, equal, image, item, main, part10, run, sequence, tag)


def model(folder, content, *arguments, syntax=EXPLICIT, status=0):
    return run("dump", "--json", *arguments, folder.write("a.dcm", part10(content, syntax)), status=status).json()


def test_texts(folder):
    found = model(folder, element(0x00080000, "UL", b"\1\0\0\0") + element(0x00080005, "CS", "ISO_IR 100") +
                  element(0x00080008, "CS", "ORIGINAL\\\\AXIAL ") + element(0x00080018, "UI", "1.2.3") +
                  element(0x00080050, "SH", "") + element(0x00080054, "AE", " AE1 \\AE2 ") +
                  element(0x00080080, "LO", b"caf\xe9 \"q\" ") + element(0x00081030, "LO", "  ") +
                  element(0x001021B0, "LT", "  a\\b\r\n c  ") + element(0x0029FF01, "UR", "http://x/a\\b"))
    equal(found, {
        "00080005": {"vr": "CS", "Value": ["ISO_IR 192"]},
        "00080008": {"vr": "CS", "Value": ["ORIGINAL", None, "AXIAL"]},
        "00080018": {"vr": "UI", "Value": ["1.2.3"]},
        "00080050": {"vr": "SH"},
        "00080054": {"vr": "AE", "Value": ["AE1", "AE2"]},
        "00080080": {"vr": "LO", "Value": ["café \"q\""]},
        "00081030": {"vr": "LO"},
        "001021B0": {"vr": "LT", "Value": ["  a\\b\r\n c"]},
        "0029FF01": {"vr": "UR", "Value": ["http://x/a\\b"]},
    })


def test_person_names(folder):
    found = model(folder, element(0x00100010, "PN", "Doe^Jane=I=P") + element(0x00101001, "PN", "A^B\\\\C==D ") +
                  element(0x00101005, "PN", "=I"))
    equal(found["00100010"]["Value"], [{"Alphabetic": "Doe^Jane", "Ideographic": "I", "Phonetic": "P"}])
    equal(found["00101001"]["Value"], [{"Alphabetic": "A^B"}, None, {"Alphabetic": "C", "Phonetic": "D"}])
    equal(found["00101005"]["Value"], [{"Ideographic": "I"}])


def test_decimal_and_integer_strings(folder):
    result = run("dump", "--json", folder.write("a.dcm", part10(
        element(0x00101030, "DS", "+007.50 \\.5\\5.\\-0\\1e5\\1E400\\abc\\\\ 3.000") +
        element(0x00200013, "IS", "+007\\-12\\1.5\\\\99999999999\\99999999999999999999"))))
    found = result.json()
    equal(found["00101030"]["Value"], [7.5, 0.5, 5, 0, 1e5, "1E400", "abc", None, 3])
    contains(result.out, "3.000")  # the digits of the file
    equal(found["00200013"]["Value"], [7, -12, "1.5", None, 99999999999, "99999999999999999999"])


def test_binary_numbers(folder):
    found = model(folder, element(0x00189073, "FD", struct.pack("<5d", 0.1, -0.0, math.inf, -math.inf, math.nan)) +
                  element(0x00280009, "AT", struct.pack("<2H", 0x18, 0x1063)) +
                  element(0x00281101, "US", struct.pack("<3H", 1, 2, 65535)) +
                  element(0x00291011, "FL", struct.pack("<f", 0.1)) +
                  element(0x00291013, "SV", struct.pack("<2q", -2**53 + 1, -2**62)) +
                  element(0x00291014, "UV", struct.pack("<2Q", 2**53 - 1, 2**64 - 1)) +
                  element(0x0029101E, "SL", struct.pack("<i", -77)) + element(0x0029101F, "SS", struct.pack("<h", -7)) +
                  element(0x00291020, "US", b""))
    equal(found["00189073"]["Value"], [0.1, 0.0, "Infinity", "-Infinity", "NaN"])
    equal(math.copysign(1, found["00189073"]["Value"][1]), -1.0)
    equal(found["00280009"]["Value"], ["00181063"])
    equal(found["00281101"]["Value"], [1, 2, 65535])
    equal(found["00291011"]["Value"], [struct.unpack("<f", struct.pack("<f", 0.1))[0]])
    equal(found["00291013"]["Value"], [-2**53 + 1, "-4611686018427387904"])
    equal(found["00291014"]["Value"], [2**53 - 1, "18446744073709551615"])
    equal(found["0029101E"]["Value"], [-77])
    equal(found["0029101F"]["Value"], [-7])
    equal(found["00291020"], {"vr": "US"})


def test_inline_binary_is_little_endian(folder):
    words = struct.pack(">4H", 1, 2, 3, 0xABCD)
    found = model(folder, element(0x7FE00010, "OW", words, big=True), syntax=BIG)
    equal(base64.b64decode(found["7FE00010"]["InlineBinary"]), struct.pack("<4H", 1, 2, 3, 0xABCD))
    # Pieces of base64 join, whatever is left over at the end of each.
    for size in (1, 2, 3, 24 * 1024 - 1, 24 * 1024, 24 * 1024 + 1, 100_000):
        value = bytes(i % 251 for i in range(size))
        found = model(folder, element(0x00420011, "OB", value))
        equal(base64.b64decode(found["00420011"]["InlineBinary"]), value)


def test_sequences(folder):
    content = (sequence(0x00400275) + sequence(0x00400555, b"", element(0x00080100, "SH", "a")) +
               sequence(0x00400556, sequence(0x00400555, element(0x00080100, "SH", "b"), undefined=True), undefined=True))
    equal(model(folder, content), {
        "00400275": {"vr": "SQ"},
        "00400555": {"vr": "SQ", "Value": [{}, {"00080100": {"vr": "SH", "Value": ["a"]}}]},
        "00400556": {"vr": "SQ", "Value": [
            {"00400555": {"vr": "SQ", "Value": [{"00080100": {"vr": "SH", "Value": ["b"]}}]}}]},
    })
    equal(model(folder, content, "--depth", "1")["00400556"],
          {"vr": "SQ", "Value": [{"00400555": {"vr": "SQ", "Value": [{}]}}]})


def test_private_and_unknown(folder):
    found = model(folder, element(0x00290010, "LO", "MAKER") + element(0x00291010, "UN", b"abc ") +
                  element(0x00291012, "UN", item(element(0x00080100, "SH", "a", implicit=True)) + tag(0xFFFEE0DD) +
                          b"\0\0\0\0", length=0xFFFFFFFF))
    equal(found["00291010"], {"vr": "UN", "InlineBinary": "YWJjIA=="})
    equal(found["00291012"], {"vr": "SQ", "Value": [{"00080100": {"vr": "SH", "Value": ["a"]}}]})


def test_encapsulated_pixel_data_keep_their_items(folder):
    items = item(struct.pack("<I", 0)) + item(b"\xff\xd8\xff\xd9") + item(b"\1\2")
    content = element(0x7FE00010, "OB", items + tag(0xFFFEE0DD) + b"\0\0\0\0", length=0xFFFFFFFF)
    found = model(folder, content, syntax="1.2.840.10008.1.2.4.50")
    equal(base64.b64decode(found["7FE00010"]["InlineBinary"]), items)


def test_bulk_is_left_out_only_where_asked(folder):
    path = folder.write("a b.dcm", image())
    equal(len(base64.b64decode(run("dump", "--json", path).json()["7FE00010"]["InlineBinary"])), 8)
    equal(len(base64.b64decode(run("dump", "--json", "--bulk-limit", "8", path).json()["7FE00010"]["InlineBinary"])), 8)
    for arguments in (("--bulk-limit", "7"), ("--no-bulk",)):
        member = run("dump", "--json", *arguments, path).json()["7FE00010"]
        uri = member.pop("BulkDataURI")
        equal(member, {"vr": "OW"})
        contains(uri, "/a%20b.dcm?offset=")
        offset = int(uri.split("offset=")[1].split("&")[0])
        equal(folder.read("a b.dcm")[offset:], struct.pack("<4H", 1, 2, 3, 0xABCD))
        assert uri.endswith("&length=8"), uri
    equal(run("dump", "--json", "--no-bulk", "-", stdin=image()).json()["7FE00010"], {"vr": "OW"})


def test_several_files_are_an_array(folder):
    one, two = folder.write("1.dcm", image("A")), folder.write("2.dcm", image("B"))
    result = run("dump", "--json", one, folder("missing"), two, status=1)
    equal([d["00100010"]["Value"][0]["Alphabetic"] for d in result.json()], ["A", "B"])
    equal(run("dump", "--json", folder("missing"), folder("gone"), status=1).json(), [])
    equal(len(run("dump", "--json", "--recursive", folder.path).json()), 2)


def test_meta_and_pretty(folder):
    path = folder.write("a.dcm", image())
    assert not any(key.startswith("0002") for key in run("dump", "--json", path).json())
    equal(run("dump", "--json", "--meta", path).json()["00020010"]["Value"], ["1.2.840.10008.1.2.1"])
    plain, pretty = run("dump", "--json", path), run("dump", "--json", "--pretty", path)
    equal(plain.json(), pretty.json())
    assert len(plain.lines) == 1 and len(pretty.lines) > 50


def test_chosen_elements(folder):
    path = folder.write("a.dcm", image())
    equal(run("dump", "--json", "--tag", "PatientID", "--tag", "(0040,0275)[1].(0040,0007)", path).json(), {
        "00100020": {"vr": "LO", "Value": ["4711"]},
        "00400275": {"vr": "SQ", "Value": [{}, {"00400007": {"vr": "LO", "Value": ["second"]}}]},
    })


def test_large_lists_pass_in_pieces(folder):
    numbers = list(range(40_000))
    found = model(folder, element(0x00291010, "UC", "\\".join(map(str, numbers))) +
                  element(0x7FE00010, "OW", b""))
    equal(found["00291010"]["Value"], [str(n) for n in numbers])
    implicit = element(0x00101030, "DS", "\\".join(map(str, numbers)), implicit=True)
    found = run("dump", "--json", folder.write("b", element(0x00080060, "CS", "OT", implicit=True) + implicit)).json()
    equal(found["00101030"]["Value"], numbers)


main(sys.modules[__name__])
