"""vdicom convert: every real file through all encodings and back, and what is refused."""
import base64
import os
import struct
import sys

from support import (BIG, DEFLATED, EXPLICIT, IMPLICIT, SHARED, contains, element, equal, image, item, main, part10,
                     run, samples, tag)

ENCODINGS = {"implicit": IMPLICIT, "explicit": EXPLICIT, "big": BIG, "deflated": DEFLATED}
COMPRESSED = part10(
    element(0x00100020, "LO", "4711") +
    element(0x7FE00010, "OB", item(struct.pack("<I", 0)) + item(b"\xff\xd8\xff\xd9") + tag(0xFFFEE0DD) + b"\0\0\0\0",
            length=0xFFFFFFFF), "1.2.840.10008.1.2.4.50")


def content(path):
    return run("dump", "--json", path, status=None).json()


def syntax(path):
    return run("dump", "--tag", "TransferSyntaxUID", path).out.split("UID", 2)[1].split()[0]


def test_each_encoding(folder):
    path = folder.write("a.dcm", image())
    wanted = content(path)
    for name, uid in ENCODINGS.items():
        result = run("convert", "--to", name, path, folder(name))
        equal((result.out, result.err), ("", ""))
        equal(syntax(folder(name)), uid)
        same(content(folder(name)), wanted, name)
        run("convert", "--to", uid, path, folder("by-uid"))
        equal(folder.read("by-uid"), folder.read(name), uid)
        for back in ENCODINGS:
            run("convert", "--to", back, folder(name), folder("back"))
            same(content(folder("back")), wanted, f"{name} to {back}")


def test_without_header(folder):
    path = folder.write("a.dcm", image())
    run("convert", "--to", "implicit", "--bare", path, folder("bare"))
    equal(folder.read("bare")[:4], tag(0x00080005))
    same(content(folder("bare")), content(path))
    run("convert", folder("bare"), folder("whole"))
    equal(folder.read("whole")[128:132], b"DICM")
    equal(syntax(folder("whole")), IMPLICIT)


def test_compressed_pixel_data_are_never_touched(folder):
    path = folder.write("a.dcm", COMPRESSED)
    for name in ENCODINGS:
        result = run("convert", "--to", name, path, folder("out"), status=1)
        contains(result.err, f"vdicom convert: {path}: not converted: the pixel data are compressed (JPEG Baseline")
        contains(result.err, "decompress")
        assert not os.path.exists(folder("out"))
    for arguments in ((), ("--to", "1.2.840.10008.1.2.4.50")):
        run("convert", *arguments, path, folder("out"))
        equal(content(folder("out")), content(path))
    plain = folder.write("plain.dcm", image())
    contains(run("convert", "--to", "1.2.840.10008.1.2.4.90", plain, folder("new"), status=1).err, "does not compress")
    assert not os.path.exists(folder("new"))


def test_into_a_folder_goes_on_after_a_failure(folder):
    one, two = folder.write("in/1.dcm", image("A")), folder.write("in/2.dcm", image("B"))
    bad = folder.write("in/bad.dcm", COMPRESSED)
    result = run("convert", "--to", "implicit", one, bad, folder("in/missing"), two, "--output", folder("out/new"), status=1)
    equal(sorted(os.listdir(folder("out/new"))), ["1.dcm", "2.dcm"])
    equal(len(result.err.splitlines()), 2, result.err)
    contains(result.err, "No such file or directory")
    again = folder.write("other/1.dcm", image("C"))
    result = run("convert", one, again, "--output", folder("out/two"), status=1)
    contains(result.err, "from another file of this name")
    contains(run("dump", folder("out/two/1.dcm")).line("(0010,0010)"), "A")


def test_whole_trees(folder):
    folder.write("in/1.dcm", image("A"))
    folder.write("in/x/y/2.dcm", image("B"))
    run("convert", "--recursive", folder("in"), "--to", "big", "--output", folder("out"))
    equal(syntax(folder("out/x/y/2.dcm")), BIG)
    equal(content(folder("out/1.dcm")), content(folder("in/1.dcm")))


def test_onto_itself_and_through_pipes(folder):
    path = folder.write("a.dcm", image())
    wanted = content(path)
    run("convert", "--to", "big", path, path)
    equal((syntax(path), content(path)), (BIG, wanted))
    equal(os.listdir(folder.path), ["a.dcm"])
    piped = run("convert", "--to", "implicit", "-", "-", stdin=folder.read("a.dcm"))
    same(content(folder.write("b.dcm", piped.raw)), wanted)


def test_damaged_files_are_not_converted(folder):
    path = folder.write("a.dcm", image()[:-4])
    result = run("convert", "--to", "implicit", path, folder("out"), status=1)
    contains(result.err, "at offset 0x")
    contains(result.err, "not converted: the file is damaged")
    assert not os.path.exists(folder("out"))


def contents(*paths):
    """The JSON of files that all can be read; one more keeps it an array."""
    result = run("dump", "--json", *paths, paths[0]).json()
    equal(len(result), len(paths) + 1)
    return result[:-1]


def test_every_sample_through_every_encoding(folder):
    """The real files go explicit, big, deflated, explicit, implicit, explicit: JSON and fragments stay equal."""
    root = os.path.join(SHARED, "samples")
    if not samples():
        return
    refused = run("convert", "--to", "explicit", "--recursive", root, "--output", folder("explicit"), status=1).err
    names = [os.path.relpath(path, root) for path in samples()]
    done = [name for name in names if os.path.exists(folder("explicit/" + name))]
    kept = [name for name in names if f"{os.path.join(root, name)}: not converted: the pixel data are compressed" in refused]
    assert len(done) > 100 and len(kept) > 20, (len(done), len(kept))

    wanted = [even(model) for model in contents(*(os.path.join(root, name) for name in done))]
    first = contents(*(folder("explicit/" + name) for name in done))
    at = "explicit"
    for syntax_name, place in (("big", "big"), ("deflated", "deflated"), ("explicit", "back")):
        run("convert", "--to", syntax_name, "--recursive", folder(at), "--output", folder(place))
        at = place
    last = contents(*(folder("back/" + name) for name in done))
    run("convert", "--to", "implicit", "--recursive", folder("back"), "--output", folder("implicit"))
    run("convert", "--to", "explicit", "--recursive", folder("implicit"), "--output", folder("again"))
    again = contents(*(folder("again/" + name) for name in done))
    for name, a, b, c, d in zip(done, wanted, first, last, again):
        equal(c, b, name)
        equal(even(c), a, name)
        same(even(d), a, name)

    # The JSON holds every fragment with its header.
    paths = [os.path.join(root, name) for name in kept]
    copies = []
    for number, path in enumerate(paths):
        copies.append(folder(f"copy-{number}"))
        run("convert", path, copies[-1])
    equal([even(m) for m in contents(*copies)], [even(m) for m in contents(*paths)])


def even(model):
    """Values of odd length are padded when they are written, and the offsets of a directory follow its records."""
    for key in ("00041200", "00041202", "00041400", "00041420"):
        model.pop(key, None)
    for member in model.values():
        if "InlineBinary" in member:
            data = base64.b64decode(member["InlineBinary"])
            member["InlineBinary"] = data + b"\0" * (len(data) % 2)
        for value in member.get("Value", []):
            if member["vr"] == "SQ":
                even(value)
    return model


def same(found, wanted, what=""):
    """Equality, but for value representations that implicit VR cannot carry (PS3.5 A.1)."""
    equal(found.keys(), wanted.keys(), what)
    for key, member in wanted.items():
        other = found[key]
        if member["vr"] == other["vr"] == "SQ":
            equal(len(other.get("Value", [])), len(member.get("Value", [])), f"{what} {key}")
            for a, b in zip(other.get("Value", []), member.get("Value", [])):
                same(a, b, f"{what} {key}")
        elif member["vr"] == other["vr"] or "InlineBinary" in member and "InlineBinary" in other:
            equal(dict(other, vr=""), dict(member, vr=""), f"{what} {key}")
        else:
            number = int(key, 16)
            known = run("dict", "tag", f"({key[:4]},{key[4:]})", status=None).out
            assert number >> 16 & 1 or member["vr"] not in known, f"{what} {key}: {member} became {other}"


main(sys.modules[__name__])
