"""vdicom new: objects of every class against what the tables hold, chosen classes, what is refused."""
import shutil
import subprocess
import sys

from support import contains, equal, main, run

OWN_UIDS = {"(0008,0018)", "(0008,1195)", "(0020,000D)", "(0020,000E)", "(0020,0052)", "(0020,0200)"}
KEYS = ("unique", "required", "optional")
CONTENT = ["Modality=OT", "ConversionType=WSD", "SamplesPerPixel=1", "PhotometricInterpretation=MONOCHROME2", "Rows=2",
           "Columns=2", "BitsAllocated=8", "BitsStored=8", "HighBit=7", "PixelRepresentation=0"]


def made(folder, *arguments):
    """The report of a new object, and the object."""
    report = run("new", "--json", *arguments, folder("out.dcm"))
    equal(report.err, "")
    return report.json(), run("dump", "--json", folder("out.dcm")).json()


def only_value(description):
    values = description.partition("Enumerated values: ")[2].partition(";")[0]
    return values if values and "," not in values else None


def expected(entries, path, empty):
    """The elements that a level has to have, by tag; what must be empty and of type 1 goes to `empty`."""
    level = {}
    for entry in entries:
        kind = entry.get("type") or entry["key"]
        if kind in ("1", "2", *KEYS):
            level.setdefault(entry["tag"], []).append(entry)
    found = {}
    for tag, listed in level.items():
        kinds = {entry.get("type") or entry["key"] for entry in listed}
        has_item = "elements" in listed[0] and (listed[0].get("type") == "1" or "key" in listed[0])
        place = (*path, tag)
        found[tag] = expected(listed[0]["elements"], place, empty) if has_item else None
        has_value = (any(entry.get("type") == "1" and only_value(entry.get("description", "")) for entry in listed) or
                     tag in ("(0008,0016)", "(0008,0060)", "(0020,9164)") or (not path and tag in OWN_UIDS))
        if "1" in kinds and not has_item and not has_value:
            empty.add(place)
    return found


def shown(elements):
    found = {}
    for tag, content in elements.items():
        items = content["Value"] if content["vr"] == "SQ" and content.get("Value") else None
        found[f"({tag[:4]},{tag[4:]})"] = shown(items[0]) if items else None
    return found


def test_every_class_has_its_mandatory_content(folder):
    missing_modality = 0
    for entry in run("dict", "iod", "--json", "").json():
        modules = [module for module in entry.get("modules", ()) if module["usage"] == "M"]
        entries = entry.get("elements") or [one for module in modules for one in module.get("elements", ())]
        report, content = made(folder, "--class", str(entry["class"]), "--no-optional")
        equal((report["class"], report["name"]), (entry["class"], entry["name"]))
        if entry["class"] == 71:
            equal((report["missing"], content["00041212"]["Value"]), ([], [0]))
            continue
        if "elements" in entry:
            entries = [one for one in entries if one["key"] != "optional"]
        empty = set()
        wanted = expected(entries, (), empty)
        if entry["uids"]:
            equal(report["sopClassUID"], entry["uids"][0])
            assert report["sopInstanceUID"].startswith("2.25."), report
        if "elements" not in entry:
            equal(shown(content), wanted, entry["name"])
            found = {one["path"].count(".") == 0 and one["tag"] for one in report["missing"]} - {False}
            missing_modality += "(0008,0060)" in found
            equal(found - {"(0008,0060)"}, {place[0] for place in empty if len(place) == 1}, entry["name"])
        else:
            equal(set(shown(content)), set(wanted), entry["name"])
    equal(missing_modality, 20, "classes that may be of several modalities")


def test_what_is_named_is_what_is_missing(folder):
    report, _ = made(folder, "--class", "secondary capture image storage")
    paths = [one["path"] for one in report["missing"]]
    equal(set(paths), {setting.split("=")[0] for setting in CONTENT})
    plain = run("new", "--class", "6", folder("out.dcm"))
    equal([line.split()[1] for line in plain.err.split("\n")[1:-1]], paths)
    contains(plain.err, "10 elements still need a value")
    sets = [word for setting in CONTENT for word in ("--set", setting)]
    # In the items that --set makes too, and in modules that come with it.
    report, content = made(folder, "--class", "6", *sets, "--set", "ReferencedStudySequence[0].ReferencedSOPClassUID=1.2",
                           "--set", "OverlayRows=2", "--set", "PatientName=Müller^Jörg", "--set", "StudyInstanceUID=1.2.3")
    equal({one["path"] for one in report["missing"]},
          {"ReferencedStudySequence[0].ReferencedSOPInstanceUID", "OverlayColumns", "OverlayType", "OverlayOrigin",
           "OverlayBitsAllocated", "OverlayBitPosition", "OverlayData"})
    equal((content["00080005"]["Value"], content["0020000D"]["Value"]), (["ISO_IR 192"], ["1.2.3"]))
    equal(content["00100010"]["Value"], [{"Alphabetic": "Müller^Jörg"}])
    assert len(content["00080012"]["Value"][0]) == 8 and "00080012" not in made(folder, "--class", "6", "-n")[1]


def test_a_finished_object_is_what_a_validator_wants(folder):
    if not shutil.which("dciodvfy"):
        return
    pixels = folder.write("pixels", bytes(4))
    sets = [word for setting in (*CONTENT, f"PixelData=@{pixels}") for word in ("--set", setting)]
    equal(run("new", "--class", "6", "-n", *sets, folder("out.dcm")).err, "")
    said = subprocess.run(["dciodvfy", folder("out.dcm")], capture_output=True, text=True, check=False)
    errors = [line for line in (said.stdout + said.stderr).split("\n") if line.startswith("Error")]
    equal([line for line in errors if "Type 2C" not in line], [])


def test_classes_by_number_uid_keyword_and_part_of_the_name(folder):
    for text in ("1", "1.2.840.10008.5.1.4.1.1.2", "CTImageStorage", "ct image storage", "CT", "ct im"):
        equal(made(folder, "--class", text)[0]["class"], 1, text)
    several = run("new", "--class", "rt", folder("x.dcm"), status=2)
    contains(several.err, "'rt' may mean 7 classes:\n  RT Image Storage\n")
    contains(run("new", "--class", "1.2.840.10008.5.1.4.1.1.130", folder("x.dcm"), status=2).err,
             "the table of classes does not hold Enhanced PET Image Storage")
    level = made(folder, "--class", "Study Root Query/Retrieve - Series Level")[1]
    equal(level["00080052"]["Value"], ["SERIES"])
    assert folder.read("out.dcm")[128:132] != b"DICM"
    equal(run("dump", "-", stdin=run("new", "--class", "1", "-").raw).line("(0008,0060)").split()[-1], "CT")


def test_failures_write_nothing(folder):
    folder.write("out.dcm", b"old")
    contains(run("new", "--class", "1", "--set", "Rows=x", folder("out.dcm"), status=1).err, "nothing was written")
    equal(folder.read("out.dcm"), b"old")
    run("new", "--class", "1", folder("none/out.dcm"), status=1)


main(sys.modules[__name__])
