"""What the tests with other toolkits' programs share: the programs, real files, and the table of what was seen.
The caller's arguments begin with PROGRAM SHARED DOCUMENT PEER."""
import math
import os
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "program"))
os.environ["VDICOM_PROGRAM"], SHARED, DOCUMENT, PEER = sys.argv[1:5]
from support import BIG, DEFLATED, EXPLICIT, IMPLICIT, element, equal, free_port, part10, run, sequence, skip  # noqa: E402

HOST = "127.0.0.1"
SAMPLES = os.path.join(SHARED, "samples")
SYNTAXES = ("implicit", "explicit", "big", "deflated")
COMPRESSED = {"JPEG Baseline": "SC_rgb_jpeg_dcmtk.dcm", "JPEG lossless": "SC_rgb_jpeg_gdcm.dcm", "JPEG-LS": "MR_small_jpeg_ls_lossless.dcm",
              "JPEG 2000": "MR_small_jp2klossless.dcm", "RLE": "MR_small_RLE.dcm"}
WORK = tempfile.mkdtemp(prefix="vdicom-peer-")
ROWS = []
KINDS = {IMPLICIT: "implicit", EXPLICIT: "explicit", BIG: "big", DEFLATED: "deflated",
         "1.2.840.10008.1.2.4.50": "JPEG Baseline", "1.2.840.10008.1.2.4.51": "JPEG Extended",
         "1.2.840.10008.1.2.4.57": "JPEG lossless", "1.2.840.10008.1.2.4.70": "JPEG lossless",
         "1.2.840.10008.1.2.4.80": "JPEG-LS", "1.2.840.10008.1.2.4.81": "JPEG-LS near-lossless",
         "1.2.840.10008.1.2.4.90": "JPEG 2000", "1.2.840.10008.1.2.4.91": "JPEG 2000 lossy",
         "1.2.840.10008.1.2.5": "RLE"}


class Running:
    """A peer, started by its script, stopped at the end."""

    def __init__(self, script, *options):
        self.path = os.path.join(SHARED, "peers", script)
        self.folder = tempfile.mkdtemp(dir=WORK)
        self.port = free_port()
        if not os.path.exists(self.path):
            skip(f"{self.path} is not there")
        done = subprocess.run([self.path, "start", self.port, self.folder, *options], capture_output=True, text=True, check=False)
        if done.returncode == 77:
            skip(done.stderr.strip())
        assert done.returncode == 0, done.stderr

    def __enter__(self):
        return self

    def __exit__(self, *_):
        subprocess.run([self.path, "stop", self.folder], check=True)

    def vdicom(self, command, *arguments, called="ANY-SCP", status=0):
        return run(command, HOST, self.port, "--called", called, *arguments, status=status)


def sample(name):
    return os.path.join(SAMPLES, name)


def made(name, syntax=None):
    """A real file in a syntax (None: its own), as an instance of its own."""
    path = os.path.join(WORK, f"{syntax}-{name}")
    if not os.path.exists(path):
        run("edit", sample(name), path, "--set", f"SOPInstanceUID=1.2.826.0.2.{len(os.listdir(WORK))}")
        if syntax:
            run("convert", "--to", syntax, path, path)
    return path


def large():
    """An object whose pixel data go through many PDUs of every size."""
    path = os.path.join(WORK, "large.dcm")
    pixels = bytes(i * i % 251 for i in range(600_000))
    with open(path, "wb") as file:
        file.write(part10(element(0x00080016, "UI", "1.2.840.10008.5.1.4.1.1.7") + element(0x00080018, "UI", "1.2.826.0.1.9") +
                          element(0x00080060, "CS", "OT") + element(0x00100020, "LO", "LARGE") + element(0x0020000D, "UI", "1.2.826.0.1") +
                          element(0x0020000E, "UI", "1.2.826.0.1.1") + element(0x7FE00010, "OW", pixels)))
    return path


def content(path):
    """What an object holds, whatever its encoding; padding and private elements, whose VR an encoding may lose, left out."""
    elements = run("dump", "--json", path).json()
    # Fragments have VR OB, and not all files say so.
    elements.get("7FE00010", {}).pop("vr", None)
    return {tag: value for tag, value in elements.items() if tag != "FFFCFFFC" and int(tag[3], 16) % 2 == 0}


def same(left, right, rounded=False):
    """Both objects hold the same. `rounded`: a peer that writes decimal numbers anew may change their last digits."""
    ours, theirs = content(left), content(right)
    equal([], [(tag, str(ours.get(tag))[:200], str(theirs.get(tag))[:200]) for tag in sorted({*ours, *theirs})
               if ours.get(tag) != theirs.get(tag) and not (rounded and nearly(ours.get(tag), theirs.get(tag)))], f"{left} and {right}")


def nearly(one, other):
    return bool(one and other) and one["vr"] == other["vr"] == "DS" and len(one["Value"]) == len(other["Value"]) and all(
        math.isclose(a, b, rel_tol=1e-12) for a, b in zip(one["Value"], other["Value"]))


def syntax_of(path):
    return run("dump", "--json", "--meta", "--tag", "0002,0010", path).json()["00020010"]["Value"][0]


def uid_of(path, keyword="SOPInstanceUID"):
    return next(iter(run("dump", "--json", "--tag", keyword, path).json().values()))["Value"][0]


UIDS = ("StudyInstanceUID", "SeriesInstanceUID", "SOPInstanceUID")


def keys_of(path, level="image"):
    """The options with the unique keys of an object down to a level."""
    keywords = {"patient": ("PatientID",), "study": UIDS[:1], "series": UIDS[:2], "image": UIDS}[level]
    return [part for keyword in keywords for part in ("-k", f"{keyword}={uid_of(path, keyword)}")]


def worklist(folder, suffix):
    """Two worklist files in a folder."""
    for station, modality in (("one", "CT"), ("two", "MR")):
        step = b"".join(element(tag, vr, value) for tag, vr, value in (
            (0x00080060, "CS", modality), (0x00400001, "AE", "SCANNER"), (0x00400002, "DA", "20240131"), (0x00400003, "TM", "1200"),
            (0x00400006, "PN", "Doctor^Who"), (0x00400007, "LO", "a scan"), (0x00400009, "SH", station)))
        with open(os.path.join(folder, station + suffix), "wb") as file:
            file.write(part10(
                element(0x00080005, "CS", "ISO_IR 192") + element(0x00080050, "SH", "A1") + element(0x00100010, "PN", "Müller^Ümit ".encode()) +
                element(0x00100020, "LO", "P-" + station) + element(0x00100030, "DA", "19700101") + element(0x00100040, "CS", "M") +
                element(0x0020000D, "UI", "1.2.3.4") + element(0x00321060, "LO", "scan") +
                sequence(0x00400100, step) + element(0x00401001, "SH", "R1")))


def find_file(folder, uid):
    for place, _, names in os.walk(folder):
        for name in names:
            if name.endswith(uid) or name == uid + ".dcm":
                return os.path.join(place, name)
    raise AssertionError(f"{uid} is not in {folder}: {os.listdir(folder)}")


def received(peer, path):
    return find_file(os.path.join(peer.folder, "received"), uid_of(path))


def kind_of(path):
    """The transfer syntax of a file, in a word."""
    return KINDS[syntax_of(path)]


def see(test, is_ours):
    """Runs a test, prints the rows that it leaves in ROWS, and fails unless they are the test's own rows of the document."""
    if not os.path.isdir(SAMPLES):
        skip("the files are not there")
    try:
        test()
    finally:
        shutil.rmtree(WORK, ignore_errors=True)
    with open(DOCUMENT, encoding="utf-8") as document:
        known = document.read().splitlines()
    print("\n".join(ROWS))
    wrong = ["not in the document: " + line for line in ROWS if line not in known]
    wrong += ["not seen any more: " + line for line in known if is_ours(line) and line not in ROWS]
    if wrong:
        sys.exit("\n".join(wrong))
