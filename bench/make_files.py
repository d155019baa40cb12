#!/usr/bin/env python3
"""Makes the files that bench/peers.sh measures with: make_files.py FOLDER. Files that are there already stay.

small/      10,000 images of 64 x 64 pixels, 64 elements each, explicit VR little endian
headers/     2,000 files of 113 elements with sequences and no pixels
report.dcm   a structured report of 240,000 elements, six levels deep
groups.dcm   an enhanced multi-frame image with 5,000 per-frame functional groups, 70,000 elements
frames.dcm   500 frames of 512 x 512 pixels of 16 bits: 262 MB
sparse.dcm   an encapsulated file of 6 GiB, 96 fragments of 64 MiB, which takes next to no room on the disk
tiny.dcm     a file of a few elements: what is measured is the start of the program
store-small/    2,000 of small/
store-medium/   200 images of 512 x 512 pixels: 526 KB
store-large.dcm 2,048 frames of 512 x 512 pixels: 1 GiB

Everything is the same on each run: no clock and no chance is asked.
"""
import os
import struct
import sys

EXPLICIT = "1.2.840.10008.1.2.1"
JPEG_BASELINE = "1.2.840.10008.1.2.4.50"
CT_IMAGE = "1.2.840.10008.5.1.4.1.1.2"
ENHANCED_CT = "1.2.840.10008.5.1.4.1.1.2.1"
MULTIFRAME_WORD = "1.2.840.10008.5.1.4.1.1.7.3"
COMPREHENSIVE_SR = "1.2.840.10008.5.1.4.1.1.88.33"
LONG = {b"OB", b"OW", b"SQ", b"UN", b"UT"}
UNDEFINED = 0xFFFFFFFF


def element(tag, vr, value):
    """An element in explicit VR little endian; texts and numbers become bytes."""
    vr = vr.encode()
    if isinstance(value, str):
        value = value.encode()
        if len(value) % 2:
            value += b"\0" if vr == b"UI" else b" "
    elif isinstance(value, int):
        value = struct.pack("<H" if vr == b"US" else "<I", value)
    elif isinstance(value, float):
        value = struct.pack("<d", value)
    head = struct.pack("<HH", tag >> 16, tag & 0xFFFF) + vr
    return head + (struct.pack("<HI", 0, len(value)) if vr in LONG else struct.pack("<H", len(value))) + value


def sequence(tag, items, undefined=False):
    if undefined:
        body = b"".join(struct.pack("<HHI", 0xFFFE, 0xE000, UNDEFINED) + i + struct.pack("<HHI", 0xFFFE, 0xE00D, 0)
                        for i in items)
        return (struct.pack("<HH", tag >> 16, tag & 0xFFFF) + b"SQ" + struct.pack("<HI", 0, UNDEFINED) + body +
                struct.pack("<HHI", 0xFFFE, 0xE0DD, 0))
    return element(tag, "SQ", b"".join(struct.pack("<HHI", 0xFFFE, 0xE000, len(i)) + i for i in items))


def meta(sop_class, instance, syntax=EXPLICIT):
    body = (element(0x00020001, "OB", b"\0\1") + element(0x00020002, "UI", sop_class) +
            element(0x00020003, "UI", instance) + element(0x00020010, "UI", syntax) +
            element(0x00020012, "UI", "1.2.826.0.1.3680043.2.1143.9"))
    return bytes(128) + b"DICM" + element(0x00020000, "UL", len(body)) + body


def code(value, meaning):
    return (element(0x00080100, "SH", value) + element(0x00080102, "SH", "99BENCH") +
            element(0x00080104, "LO", meaning))


def image_head(sop_class, instance, number, date="20240229"):
    """36 elements: patient, study, series, equipment and image, as modalities write them."""
    uid = "1.2.826.0.1.3680043.2.1143.9."
    return b"".join([
        element(0x00080005, "CS", "ISO_IR 100"), element(0x00080008, "CS", "ORIGINAL\\PRIMARY\\AXIAL"),
        element(0x00080016, "UI", sop_class), element(0x00080018, "UI", instance), element(0x00080020, "DA", date),
        element(0x00080021, "DA", date), element(0x00080022, "DA", date), element(0x00080023, "DA", date),
        element(0x00080030, "TM", "093012.5"), element(0x00080031, "TM", "093112"), element(0x00080032, "TM", "093113"),
        element(0x00080033, "TM", "093114.25"), element(0x00080050, "SH", f"A{number % 977:07d}"),
        element(0x00080060, "CS", "CT"), element(0x00080070, "LO", "Bench Maker"),
        element(0x00080080, "LO", "General Hospital"), element(0x00080090, "PN", "Referring^Doctor"),
        element(0x00081010, "SH", "STATION1"), element(0x00081030, "LO", "Chest routine"),
        element(0x0008103E, "LO", "Axial 5 mm"), element(0x00081090, "LO", "Scanner 64"),
        element(0x00100010, "PN", f"Patient{number % 977:04d}^Test"), element(0x00100020, "LO", f"{number % 977:08d}"),
        element(0x00100030, "DA", "19500101"), element(0x00100040, "CS", "F"), element(0x00101010, "AS", "074Y"),
        element(0x00180050, "DS", "5.0"), element(0x00180060, "DS", "120"), element(0x00181151, "IS", "220"),
        element(0x00185100, "CS", "HFS"), element(0x0020000D, "UI", uid + f"1.{number // 100}"),
        element(0x0020000E, "UI", uid + f"2.{number // 50}"), element(0x00200010, "SH", "1"),
        element(0x00200011, "IS", str(number // 50)), element(0x00200012, "IS", "1"),
        element(0x00200013, "IS", str(number % 50 + 1)),
    ])


def image_pixel(rows, columns, frames=None):
    return b"".join([
        element(0x00280002, "US", 1), element(0x00280004, "CS", "MONOCHROME2"),
        element(0x00280008, "IS", str(frames)) if frames else b"", element(0x00280010, "US", rows),
        element(0x00280011, "US", columns), element(0x00280030, "DS", "0.7\\0.7") if not frames else b"",
        element(0x00280100, "US", 16), element(0x00280101, "US", 12), element(0x00280102, "US", 11),
        element(0x00280103, "US", 0)])


def small(number, size=64, branch=3):
    instance = f"1.2.826.0.1.3680043.2.1143.9.{branch}.{number}"
    slice_position = f"{number % 50 * 5}.0"
    return meta(CT_IMAGE, instance) + in_order(b"".join([
        image_head(CT_IMAGE, instance, number), element(0x00200032, "DS", f"-180.5\\-170.25\\{slice_position}"),
        element(0x00200037, "DS", "1\\0\\0\\0\\1\\0"), element(0x00200052, "UI", "1.2.826.0.1.3680043.2.1143.9.4"),
        element(0x00201040, "LO", "SN"), element(0x00201041, "DS", slice_position), image_pixel(size, size),
        element(0x00281050, "DS", "40"), element(0x00281051, "DS", "400"), element(0x00281052, "DS", "-1024"),
        element(0x00281053, "DS", "1"), element(0x00321000, "DA", "20240228"), element(0x00321001, "TM", "1200"),
        element(0x00321010, "DA", "20240228"), element(0x7FE00010, "OW", struct.pack("<H", number % 4096) * size ** 2)]))


def headers(number):
    instance = f"1.2.826.0.1.3680043.2.1143.9.5.{number}"
    references = sequence(0x00081140, [element(0x00081150, "UI", CT_IMAGE) +
                                       element(0x00081155, "UI", f"{instance}.{i}") for i in range(4)])
    requests = sequence(0x00400275, [element(0x00400007, "LO", "Chest routine") +
                                     sequence(0x00400008, [code("CPA", "Chest"), code("LUNG", "Lung")], True) +
                                     element(0x00400009, "SH", f"SPS{i}") + element(0x00401001, "SH", "REQ")
                                     for i in range(2)], True)
    numbers = b"".join(element(0x00189301 + i, "FD", i * 1.25) for i in range(8))
    private = element(0x00190010, "LO", "BENCH MAKER 1.0") + b"".join(
        element(0x00191000 + i, "FD", i * 0.5) for i in range(12))
    return meta(CT_IMAGE, instance) + in_order(image_head(CT_IMAGE, instance, number) + references + numbers + private +
                                               image_pixel(512, 512) + element(0x00321000, "DA", "20240228") + requests)


def report():
    """Content items nested six levels deep: measurements with their concept codes."""
    def concept(tag, value, meaning):
        return sequence(tag, [code(value, meaning)])

    def measurement(number):
        unit = sequence(0x004008EA, [code("mm", "millimetre")])
        value = sequence(0x0040A300, [unit + element(0x0040A30A, "DS", f"{number % 1000 / 8:.3f}")])
        return (element(0x0040A010, "CS", "CONTAINS") + element(0x0040A040, "CS", "NUM") +
                concept(0x0040A043, f"M{number % 50}", f"Measurement {number % 50}") + value +
                element(0x0040A160, "UT", f"note {number}") + element(0x0040A032, "DT", "20240229093012") +
                element(0x0040A121, "DA", "20240229"))

    def group(number, content):
        return (element(0x0040A010, "CS", "CONTAINS") + element(0x0040A040, "CS", "CONTAINER") +
                concept(0x0040A043, f"G{number % 20}", f"Group {number % 20}") + element(0x0040A050, "CS", "SEPARATE") +
                sequence(0x0040A730, content, number % 2 == 0))

    count = 0
    sections = []
    for section in range(20):
        organs = []
        for organ in range(20):
            lesions = []
            for _ in range(31):
                lesions.append(in_order(measurement(count)))
                count += 1
            organs.append(in_order(group(organ, lesions)))
        sections.append(in_order(group(section, organs)))
    instance = "1.2.826.0.1.3680043.2.1143.9.6"
    return (meta(COMPREHENSIVE_SR, instance) + image_head(COMPREHENSIVE_SR, instance, 1) +
            element(0x0040A040, "CS", "CONTAINER") + concept(0x0040A043, "R", "Report") +
            element(0x0040A050, "CS", "SEPARATE") + sequence(0x0040A730, sections, True))


def in_order(content):
    """The elements of one level by ascending tag."""
    parts = []
    at = 0
    while at < len(content):
        size = element_size(content, at)
        parts.append(content[at:at + size])
        at += size
    return b"".join(sorted(parts, key=lambda part: struct.unpack_from("<HH", part)))


def element_size(data, at):
    vr = data[at + 4:at + 6]
    if vr not in LONG:
        return 8 + struct.unpack_from("<H", data, at + 6)[0]
    length = struct.unpack_from("<I", data, at + 8)[0]
    if length != UNDEFINED:
        return 12 + length
    # An undefined length: items of undefined length up to the delimiter.
    start, at = at, at + 12
    while data[at:at + 4] != b"\xFE\xFF\xDD\xE0":
        at += 8
        while data[at:at + 4] != b"\xFE\xFF\x0D\xE0":
            at += element_size(data, at)
        at += 8
    return at + 8 - start


def groups():
    """Per frame an item of 14 elements: content, position, plane measures, value transformation."""
    def frame(number):
        return (sequence(0x00209111, [element(0x00189074, "DT", "20240229093012.5") +
                                      element(0x00209056, "SH", "1") + element(0x00209057, "UL", number + 1)]) +
                sequence(0x00209113, [element(0x00200032, "DS", f"-180.5\\-170.25\\{number * 0.5}")]) +
                sequence(0x00289110, [element(0x00180050, "DS", "5.0") + element(0x00180088, "DS", "5.0") + element(0x00280030, "DS", "0.7\\0.7")]))

    instance = "1.2.826.0.1.3680043.2.1143.9.7"
    return (meta(ENHANCED_CT, instance) + image_head(ENHANCED_CT, instance, 1) + image_pixel(4, 4, 5000) +
            sequence(0x52009230, [frame(i) for i in range(5000)]) + element(0x7FE00010, "OW", bytes(4 * 4 * 2 * 5000)))


def write(path, data):
    if not os.path.exists(path):
        with open(path + ".new", "wb") as file:
            file.write(data)
        os.rename(path + ".new", path)


def write_frames(path, frames=500, branch=8):
    if os.path.exists(path):
        return
    instance = f"1.2.826.0.1.3680043.2.1143.9.{branch}"
    row = struct.pack("<512H", *((i * 7) % 4096 for i in range(512)))
    with open(path + ".new", "wb") as file:
        file.write(meta(MULTIFRAME_WORD, instance) + image_head(MULTIFRAME_WORD, instance, 1) +
                   image_pixel(512, 512, frames))
        file.write(struct.pack("<HH2sHI", 0x7FE0, 0x0010, b"OW", 0, 512 * 512 * 2 * frames))
        for _ in range(frames):
            file.write(row * 512)
    os.rename(path + ".new", path)


def write_sparse(path):
    if os.path.exists(path):
        return
    instance = "1.2.826.0.1.3680043.2.1143.9.9"
    fragment = 64 << 20
    with open(path + ".new", "wb") as file:
        file.write(meta(MULTIFRAME_WORD, instance, JPEG_BASELINE) + image_head(MULTIFRAME_WORD, instance, 1) +
                   image_pixel(512, 512, 96))
        file.write(struct.pack("<HH2sHI", 0x7FE0, 0x0010, b"OB", 0, UNDEFINED) + struct.pack("<HHI", 0xFFFE, 0xE000, 0))
        for _ in range(96):
            file.write(struct.pack("<HHI", 0xFFFE, 0xE000, fragment))
            file.seek(fragment, os.SEEK_CUR)
        file.write(struct.pack("<HHI", 0xFFFE, 0xE0DD, 0))
    os.rename(path + ".new", path)


def main():
    if len(sys.argv) != 2 or sys.argv[1].startswith("-"):
        print(__doc__)
        return 2
    folder = sys.argv[1]
    def medium(number):
        return small(number, 512, 11)

    for name, make, number in (("small", small, 10000), ("headers", headers, 2000), ("store-small", small, 2000),
                               ("store-medium", medium, 200)):
        os.makedirs(os.path.join(folder, name), exist_ok=True)
        for i in range(number):
            path = os.path.join(folder, name, f"{i:05d}.dcm")
            if not os.path.exists(path):
                write(path, make(i))
    for name, make in (("report.dcm", report), ("groups.dcm", groups), ("tiny.dcm", tiny)):
        if not os.path.exists(os.path.join(folder, name)):
            write(os.path.join(folder, name), make())
    write_frames(os.path.join(folder, "frames.dcm"))
    write_frames(os.path.join(folder, "store-large.dcm"), 2048, 12)
    write_sparse(os.path.join(folder, "sparse.dcm"))
    return 0


def tiny():
    instance = "1.2.826.0.1.3680043.2.1143.9.10"
    return meta(CT_IMAGE, instance) + element(0x00080016, "UI", CT_IMAGE) + element(
        0x00080018, "UI", instance) + element(0x00100010, "PN", "Tiny^File")


if __name__ == "__main__":
    sys.exit(main())
