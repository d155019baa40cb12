"""vdicom edit: paths, values, and what is refused."""
import os
import struct
import sys

from support import (BIG, contains, element, equal, image, main, part10, run, sequence)


def edited(folder, *arguments, source=None):
    """The JSON of a small image after an edit."""
    path = folder.write("in.dcm", image() if source is None else source)
    run("edit", path, folder("out.dcm"), *arguments)
    return run("dump", "--json", folder("out.dcm")).json()


def refused(folder, *arguments, status=1, source=None):
    path = folder.write("in.dcm", image() if source is None else source)
    result = run("edit", path, folder("out.dcm"), *arguments, status=status)
    assert not os.path.exists(folder("out.dcm"))
    assert result.err.startswith("vdicom edit: "), result.err
    return result.err


def test_values_by_keyword_and_tag(folder):
    found = edited(folder, "--set", "PatientName=Roe^Richard", "--set", "(0010,0020)=12", "--set", "0008,0050=A1",
                   "--set", "ImageType=ORIGINAL\\PRIMARY", "--set", "Modality=")
    equal(found["00100010"]["Value"], [{"Alphabetic": "Roe^Richard"}])
    equal(found["00100020"]["Value"], ["12"])
    equal(found["00080050"], {"vr": "SH", "Value": ["A1"]})
    equal(found["00080008"]["Value"], ["ORIGINAL", "PRIMARY"])
    equal(found["00080060"], {"vr": "CS"})


def test_binary_values(folder):
    found = edited(folder, "--set", "Rows=512", "--set", "LargestImagePixelValue=0xFFFF", "--set",
                   "FrameIncrementPointer=(0018,1063)\\FrameTimeVector", "--set", "DiffusionBValue=0.1\\-1e300",
                   "--set", "(0029,1020):SL=-5\\7", "--set", "(0029,1021):UV=18446744073709551615",
                   "--set", "(0029,1022):OB=1\\2\\0xFF")
    equal(found["00280010"]["Value"], [512])
    equal(found["00280107"]["Value"], [65535])
    equal(found["00280009"]["Value"], ["00181063", "00181065"])
    equal(found["00189087"]["Value"], [0.1, -1e300])
    equal(found["00291020"], {"vr": "SL", "Value": [-5, 7]})
    equal(found["00291021"]["Value"], ["18446744073709551615"])
    equal(found["00291022"], {"vr": "OB", "InlineBinary": "AQL/AA=="})


def test_binary_values_in_big_endian(folder):
    source = part10(element(0x00280010, "US", b"\0\2", big=True), BIG)
    found = edited(folder, "--set", "Columns=258", source=source)
    equal((found["00280010"]["Value"], found["00280011"]["Value"]), ([2], [258]))
    contains(run("dump", folder("out.dcm")).line("(0002,0010)"), BIG)


def test_bytes_of_a_file(folder):
    pixels = folder.write("pixels", struct.pack("<3H", 1, 2, 0xABCD) * 50_000)
    text = folder.write("text", b"Hello")
    found = edited(folder, "--set", f"PixelData=@{pixels}", "--set", f"PatientComments=@{text}", "--set",
                   "PatientID=@@home")
    equal(len(found["7FE00010"]["InlineBinary"]), 400_000)
    contains(run("dump", "--tag", "PixelData", folder("out.dcm")).out, " 300000  Pixel Data")
    equal(found["00104000"]["Value"], ["Hello"])
    equal(found["00100020"]["Value"], ["@home"])
    odd = folder.write("odd", b"123")
    os.remove(folder("out.dcm"))
    contains(refused(folder, "--set", f"PixelData=@{odd}"), "which is no multiple of 2")
    contains(refused(folder, "--set", "PixelData=@" + folder("missing")), "No such file")


def test_items(folder):
    found = edited(folder, "--set", "RequestAttributesSequence[1].ScheduledProcedureStepID=S2", "--set",
                   "(0040,0275)[2].(0040,0007)=third", "--set", "(0040,0275)[*].RequestedProcedureID=R", "--set",
                   "ReferencedStudySequence[0].ReferencedSeriesSequence[0].SeriesInstanceUID=1.2")
    items = found["00400275"]["Value"]
    equal([i["00400007"]["Value"][0] for i in items], ["first", "second", "third"])
    equal(["00400009" in i for i in items], [False, True, False])
    equal([i["00401001"]["Value"] for i in items], [["R"]] * 3)
    equal(found["00081110"]["Value"][0]["00081115"]["Value"][0]["0020000E"]["Value"], ["1.2"])
    os.remove(folder("out.dcm"))
    contains(refused(folder, "--set", "(0040,0275)[4].(0040,0007)=x"), "the sequence has 2 items; the next one is [2]")
    contains(refused(folder, "--set", "PatientName[0].PatientID=x"), "is no sequence")


def test_private_elements(folder):
    found = edited(folder, "--set", '(0029,xx10,"TEST MAKER")=changed', "--set", '(0029,xx20,"NEW ONE"):DS=1.5',
                   "--set", '(0029,xx08,"SIEMENS CSA HEADER")=IMAGE NUM')
    equal(found["00291010"], {"vr": "LO", "Value": ["changed"]})
    equal(found["00290011"]["Value"], ["NEW ONE"])
    equal(found["00291120"], {"vr": "DS", "Value": [1.5]})
    equal(found["00290012"]["Value"], ["SIEMENS CSA HEADER"])
    equal(found["00291208"], {"vr": "CS", "Value": ["IMAGE NUM"]})
    os.remove(folder("out.dcm"))
    contains(refused(folder, "--set", '(0029,xx20,"NEW ONE")=x'), "the value representation of (0029,1120) is not known")


def test_deleting(folder):
    found = edited(folder, "--delete", "PatientName", "--delete", "(0029,xxxx)", "--delete", "(0040,0275)[0]",
                   "--delete", "AccessionNumber", "--delete", "(60xx,xxxx)")
    assert not {"00100010", "00290010", "00291010"} & found.keys(), found.keys()
    equal(found["00400275"]["Value"], [{"00400007": {"vr": "LO", "Value": ["second"]}}])
    found = edited(folder, "--delete", "(0040,0275)[*].(0040,0007)", "--delete", '(0029,xx10,"TEST MAKER")')
    equal(found["00400275"]["Value"], [{}, {}])
    assert "00291010" not in found and "00290010" in found
    found = edited(folder, "--set", "RequestAttributesSequence=")
    equal(found["00400275"], {"vr": "SQ"})


def test_changes_are_made_in_order(folder):
    found = edited(folder, "--set", "PatientID=1", "--delete", "PatientID", "--set", "PatientID=2", "--set",
                   "AccessionNumber=3", "--delete", "AccessionNumber")
    equal(found["00100020"]["Value"], ["2"])
    assert "00080050" not in found


def test_character_sets(folder):
    found = edited(folder, "--set", "PatientName=Müller^Jörg")
    equal(found["00100010"]["Value"], [{"Alphabetic": "Müller^Jörg"}])
    contains(run("dump", folder("out.dcm")).line("(0010,0010)"), "PN       12")  # one byte a letter: Latin-1
    os.remove(folder("out.dcm"))
    contains(refused(folder, "--set", "PatientName=山田^太郎"), "cannot express the text")
    latin = image("M\xfcller", sequence(0x00400555, element(0x00100010, "PN", "J\xf6rg")))
    found = edited(folder, "--set", "SpecificCharacterSet=ISO_IR 192", "--set", "OtherPatientNames=山田^太郎",
                   source=latin)
    equal(found["00100010"]["Value"], [{"Alphabetic": "Müller"}])
    equal(found["00400555"]["Value"][0]["00100010"]["Value"], [{"Alphabetic": "Jörg"}])
    equal(found["00101001"]["Value"], [{"Alphabetic": "山田^太郎"}])
    contains(folder.read("out.dcm").decode("latin-1"), "Müller".encode().decode("latin-1"))
    os.remove(folder("out.dcm"))
    contains(refused(folder, "--delete", "SpecificCharacterSet", source=latin), "(0010,0010) cannot be expressed")


def test_values_are_checked(folder):
    for change, reason in (("PatientBirthDate=2020-01-01", "a date as yyyymmdd"), ("StudyTime=2500", "a time as"),
                           ("PatientAge=34", "three digits"), ("Modality=ct", "capital letters"),
                           ("SOPInstanceUID=1.02.3", "a UID"), ("SeriesNumber=1.5", "an integer"),
                           ("PatientWeight=heavy", "a decimal number"), ("PatientID=" + "x" * 65, "64 characters"),
                           ("Rows=65536", "no value of VR US"), ("Rows=x", "no value of VR US"),
                           ("AcquisitionDateTime=20200101250000", "a date and time"),
                           ("RequestAttributesSequence=x", "a sequence has items")):
        contains(refused(folder, "--set", change), reason)
    for change in ("PatientBirthDate=20200101", "StudyTime=2359", "StudyTime=235959.123456", "PatientAge=034Y",
                   "AcquisitionDateTime=20200101235959.1+0100", "AcquisitionDateTime=2020", "PatientWeight=-1.5E-3",
                   "PatientName=" + "x" * 64 + "=" + "y" * 64):
        edited(folder, "--set", change)


def test_wrong_usage(folder):
    for arguments, reason in ((("--set", "PatientNam=x"), "did you mean PatientName?"), (("--set", "patientname=x"), "PatientName"),
                              (("--set", "PatientName"), "PATH=VALUE is needed"), ((), "nothing to do"),
                              (("--set", "(0040,0275).(0040,0007)=x"), "which item is meant?"),
                              (("--set", "(0040,0275)[0]=x"), "an item has no value"),
                              (("--set", "(0029,xx10)=x"), "goes with --delete only"),
                              (("--set", "TransferSyntaxUID=1.2"), "vdicom convert --to"),
                              (("--set", "(0008,0000)=1"), "group lengths"), (("--set", "(FFFE,E000)=1"), "no attributes"),
                              (("--delete", "(0010,0010)x"), "'x' behind the path"),
                              (("--set", "(0010,0010=x"), "parenthesis"), (("--set", "(0040,0275)[x].PatientID=1"), "an item is [0]")):
        contains(refused(folder, *arguments, status=2), reason)


def test_in_place(folder):
    one, two = folder.write("1.dcm", image("A")), folder.write("2.dcm", image("B"))
    before = folder.read("2.dcm")
    result = run("edit", "--in-place", one, folder("missing"), two, "--set", "PatientID=new", status=1)
    equal(len(result.err.splitlines()), 1, result.err)
    for path in (one, two):
        equal(run("dump", "--json", path).json()["00100020"]["Value"], ["new"])
    assert before != folder.read("2.dcm")
    equal(sorted(os.listdir(folder.path)), ["1.dcm", "2.dcm"])


def test_the_rest_of_the_file_stays(folder):
    path = folder.write("in.dcm", image())
    before = run("dump", "--json", path).json()
    after = edited(folder, "--set", "PatientComments=x")
    equal(after.pop("00104000"), {"vr": "LT", "Value": ["x"]})
    equal(after, before)


main(sys.modules[__name__])
