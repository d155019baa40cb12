#!/usr/bin/env python3
"""What `vdicom check` and dciodvfy find in real files, finding by finding.

usage: conformance_test.py [--table] VDICOM FOLDER|FILE...

A finding is a kind ("missing 1") with an attribute; how often a file has it plays no part. Findings of one side alone
are explained by the rules below or fail the test. --table prints the table of docs/CONFORMANCE.md instead of failing.
Exit 77 when dciodvfy or the files are not there.
"""
import collections
import json
import re
import shutil
import subprocess
import sys
from pathlib import Path

# Our codes (VDicomTypes.h) as kinds. What the reader found has codes below 500.
KINDS = {501: "missing 1", 502: "empty 1", 503: "missing 2", 504: "forbidden", 505: "enumerated", 506: "defined term",
         507: "multiplicity", 508: "VR", 509: "value", 510: "value", 511: "value", 512: "value", 513: "odd length",
         514: "padding", 515: "extended", 516: "private owner", 517: "private block", 518: "extended", 519: "items",
         520: "items", 521: "character set", 522: "character set", 523: "retired", 524: "class", 525: "meta",
         526: "contradiction", 527: "reading"}

# dciodvfy's messages: pattern, kind, how the attribute is named (a group, or a fixed keyword).
MESSAGES = [
    (r"Error - Missing attribute Type 1C? \w+ Element=<(\w+)>", "missing 1"),
    (r"Error - Missing attribute Type 2C? \w+ Element=<(\w+)>", "missing 2"),
    (r"Error - Empty attribute \(no value\) Type 1C? \w+ Element=<(\w+)>", "empty 1"),
    (r"Error - Attribute present when condition unsatisfied.*Element=<(\w+)>", "forbidden"),
    (r"Error - Shall not be present .* attribute <(.*)>", "forbidden"),
    (r"Error - Unrecognized enumerated value .* attribute <(.*)>", "enumerated"),
    (r"Warning - Unrecognized defined term .* attribute <(.*)>", "defined term"),
    (r"Warning - Value is zero for value .* attribute <(.*)>", "zero"),
    (r"Warning - is only permitted to be empty .* attribute <(.*)>", "empty 2C"),
    (r"Error - A value is required for value .* attribute <(.*)>", "multiplicity"),
    (r"Error - Bad attribute Value Multiplicity.*Element=<(\w+)>", "multiplicity"),
    (r"Error - Bad Sequence number of Items.*Element=<(\w+)>", "items"),
    (r"Error - Value invalid for this VR - \((0x\w+,0x\w+)\).*Trailing character invalid", "padding"),
    (r"Error - Value invalid for this VR - \((0x\w+,0x\w+)\)", "value"),
    (r"Error - Illegal root for UID .* in \((0x\w+,0x\w+)\)", "value"),
    (r"Warning - Value dubious for this VR - \((0x\w+,0x\w+)\)", "dubious value"),
    (r"Warning - Attribute is not present in standard DICOM IOD - \((0x\w+,0x\w+)\)", "extended"),
    (r"Warning - Retired attribute - \((0x\w+,0x\w+)\)", "retired"),
    (r"\((0x\w+,0x\w+)\).*Bad private owner value - (?:empty|element)", "private owner"),
    (r"\((0x\w+,0x\w+)\).*Private tag without owner", "private owner"),
    (r"\((0x\w+,0x\w+)\).*Explicit value representation doesn't match", "VR"),
    (r"\((0x\w+,0x\w+)\).*(?:Tag read failed|Illegal zero bytes|Unrecognized tag|Bad Value Length|Bad Explicit|"
     r"Tags out of order)",
     "reading"),
    (r"Error - MediaStorage(SOP\w+UID) (?:but missing|different)", "meta"),
    (r"Error - PixelData has incorrect value length", "contradiction", "PixelData"),
    (r"Error - Number of items in (\w+) does not match NumberOfFrames", "contradiction"),
    (r"Error - StudyInstanceUID has same value as (\w+)", "contradiction"),
    (r"Warning - CodingSchemeDesignator", "codes", "CodingSchemeDesignator"),
    (r"Error - Referenced SOP Instance is not listed in Current", "report", "ReferencedSOPInstanceUID"),
    (r"Error - Coordinates Content Item has missing", "report", "ContentSequence"),
    (r"Error - Information Object Not found", "class", "SOPClassUID"),
    (r"Warning - Missing attribute or value that would be needed to build DICOMDIR - (.*)", "directory"),
    (r"Warning - Bad group length", "reading", "group length"),
    (r"Warning - Bad FileMetaInformationVersion", "meta", "FileMetaInformationVersion"),
    (r"Error - Metaheader present but doesn't contain (Transfer Syntax UID)", "reading"),
    (r"(?:Error|.*Assertion|.*terminate).*(?:failed|Tags out of order|Seek failed|giving up)", "reading", "whole file"),
]
# Sums of what other lines say, and parts of values.
PASSED_OVER = re.compile(r"Warning - Dicom dataset contains|Error - Dicom dataset contains|^\w+$|^\s|^<|^$|^.{0,200}>$")

# Why one side alone has a finding: side, pattern of "kind attribute file", reason. "stopped": only where dciodvfy did
# not come to the end. The first that fits counts.
EXPLAINED = [
    ("they", r"^directory ", "advice for media, no rule of the class; we check directories when they are checked"),
    ("they", r"^zero ", "a measured value may be zero; no rule forbids it"),
    ("they", r"^dubious value ", "a name of one component is allowed (PS3.5 6.2.1)"),
    ("they", r"^codes ", "coding schemes beyond the reports' syntax are not judged"),
    ("they", r"^report ", "whether references agree across a report is not judged"),
    ("they", r"(2C|missing 2|forbidden) Laterality", "whether the body part is paired cannot be told from the data set"),
    ("they", r"^forbidden MultiplexGroupTimeOffset", "the condition is about other multiplex groups, and not judged"),
    ("they", r"^forbidden ReferencedFrameNumber", "whether the image referred to has frames cannot be told here"),
    ("they", r"^forbidden PixelAspectRatio", "the element is empty, which both say"),
    ("they", r"^multiplicity ImageType", "the element is missing, which both say"),
    ("they", r"^enumerated PhotometricInterpretation", "YBR_FULL and YBR_FULL_422 may stand there uncompressed "
                                                       "(PS3.3 C.7.6.3.1.2)"),
    ("they", r"^contradiction PixelData SC_ybr_full_422", "pixels of YBR_FULL_422 share their colour: 4 bytes for two"),
    ("they", r"^enumerated NumberOfFrames", "we say that the element is not the class's"),
    ("they", r"^enumerated DirectoryRecordType", "the types of records grow with every edition"),
    ("they", r"^defined term (CodingSchemeDesignator|RescaleType|ImageType)", "terms that may be extended, of VRs and "
     "values for which our facts have none"),
    ("they", r"^VR \(", "the VR of a private element is the vendor's; the explicit header decides"),
    ("they", r"^value \(0019,1060\)", "a TAB in UT, which PS3.5 6.2 allows"),
    ("they", r"^reading \((0019|1455|4453|7001),", "a private element that it does not know; the explicit header decides"),
    ("they", r"^reading group length", "group lengths outside group 0002 are retired and left unread"),
    ("they", r"^(reading|missing|extended|private owner|class|meta) .* (SC_rgb_jpeg|image_dfl|zipMR|README|rtplan\.dump|.*\.gz)",
     "it cannot read the file: headers that contradict the transfer syntax, deflated data, or no DICOM at all"),
    ("they", r"^reading whole file", "it crashes or gives up in the file; we read on"),
    ("they", r"^missing 1 PixelData MR_truncated", "the value is cut off; we keep what is there"),
    ("they", r"^reading DirectoryRecordSequence DICOMDIR-nooffset", "an item's length that it adds up otherwise"),
    ("they", r"^extended \w+ DICOMDIR", "records of a directory take any attribute as a key (PS3.3 F.5)"),
    ("they", r"^extended (OtherPatientIDs|BeamDoseSpecificationPoint)", "retired since, and of the class when our table "
                                                                        "was made; both say retired"),
    ("they", r"^extended (ContrastBolus\w+|FrameIncrementPointer|CodingSchemeUID|TemporalRangeType|ReferencedTimeOffsets)",
     "of a module or content item that the class may have, though the rest of it is not there"),
    ("they", r"^extended (VectorGridData|SimpleFrameList|ExaminedBodyThickness)",
     "newer than our tables: which modules hold it is not known"),
    ("they", r"^missing 1 Deidentification", "newer than our tables"),
    ("they", r"^missing . (FrameOfReferenceUID|PositionReferenceIndicator) rtstruct", "the module came into the class later"),
    ("they", r"^missing 2 OperatorsName", "came into the module of the class later"),
    ("they", r"^missing . \w+ (ExplVR_\w+NoMeta|liver\w*)\.dcm", "the class is newer than our table: modules that every "
                                                                 "class has are checked, its own are not"),
    ("they", r"(Palette\w+|extended SOPInstanceUID) (spring|summer|fall|winter)\.dcm", "the class is newer than our table"),
    ("they", r"^class SOPClassUID", "no SOP Class UID in the data set: we take that of the file meta information"),
    ("they", r"^meta SOP(Class|Instance)UID (image_dfl|meta_missing|nested_priv)", "it gave up reading before it came there"),
    ("they", r"^value ReferencedSOPInstanceUID rtdose_rle", "inside a sequence written as UN of defined length, which "
                                                            "stays a value here"),
    ("we", r"^(missing|meta|padding|value|enumerated|contradiction|odd length|extended|items|multiplicity) ",
     "it crashes, gives up reading, or finds no class in the data set; we take that of the file meta information",
     "stopped"),
    ("we", r"^missing 1 NumberOfFrames rtdose_rle_1frame", "half of a module is there; a warning"),
    ("we", r"^meta SOP(Class|Instance)UID rtdose_rle", "the UIDs do differ; it misses it"),
    ("we", r"^value NumberOfFrames rtdose_expb_1frame|^odd length IsocenterPosition", "it does not say it of this file"),
    ("we", r"^class SOPClassUID", "a class that is newer than our table"),
    ("we", r"^reading ", "what our reader found, said otherwise there"),
    ("we", r"^private block ", "creators that our table of private elements lacks are noted"),
    ("we", r"^private owner \(0001,", "groups 0001 to 0007 are not for private elements (PS3.5 7.8.1)"),
    ("we", r"^odd length ", "it does not look at lengths there"),
    ("we", r"^retired ", "retired by an edition that is newer than it"),
    ("we", r"^extended (CodeValue|RequestedProcedureCodeSequence)", "known to it from macros, though no module of the class "
                                                                   "has it there"),
    ("we", r"^extended ", "came into a module of the class after our table was made; a note"),
]


def plain(name):
    return re.sub(r"[^a-z0-9]", "", name.replace("'s", "").lower())


class Names:
    """Keywords by the names and tags that both sides write."""

    def __init__(self, program):
        rows = json.loads(subprocess.run([program, "dict", "--json", "tag", ""], capture_output=True, check=True).stdout)
        self.names, self.tags = {}, {}
        for row in rows:
            keyword = row.get("keyword") or row["name"]
            self.names.setdefault(plain(row["name"]), keyword)
            self.names.setdefault(plain(keyword), keyword)
            self.tags.setdefault(row["tag"].lower(), keyword)

    def of_tag(self, tag):
        group, element = (int(part, 16) for part in tag.strip("()").split(","))
        if group >> 8 in (0x50, 0x60):
            return f"{group >> 8:02x}xx,{element:04x}"
        written = f"({group:04x},{element:04x})"
        return self.tags.get(written, written)

    def of_name(self, name):
        if name.startswith("0x"):
            return self.of_tag(name)
        return self.names.get(plain(name), name)


def ours(program, path, names):
    result = subprocess.run([program, "check", "--json", path], capture_output=True, timeout=120)
    if result.returncode not in (0, 1) or not result.stdout.strip():
        return {("reading", "whole file"): result.stderr.decode(errors="replace")}
    found = {}
    for finding in json.loads(result.stdout)["findings"]:
        kind = KINDS.get(finding["code"], "reading")
        tag = finding["path"][-11:]
        found.setdefault((kind, names.of_tag(tag) if tag else "whole file"), finding["text"])
    return found


def theirs(path, names):
    result = subprocess.run(["dciodvfy", path], capture_output=True, timeout=120)
    found = {}
    for line in (result.stderr + result.stdout).decode("latin-1").split("\n"):
        for pattern, kind, *fixed in MESSAGES:
            if match := re.match(pattern, line):
                name = fixed[0] if fixed else names.of_name(match.group(1))
                found.setdefault((kind, name), line)
                break
        else:
            if not PASSED_OVER.search(line) and ("Error" in line or "Warning" in line):
                found.setdefault(("unknown message", line[:80]), line)
    if result.returncode < 0:
        found[("reading", "whole file")] = "it crashed"
    return found


def explain(side, kind, name, path, stopped):
    for wanted, pattern, reason, *only in EXPLAINED:
        if wanted == side and re.search(pattern, f"{kind} {name} {path.name}") and (stopped or not only):
            return reason
    return None


def files_of(arguments):
    for argument in map(Path, arguments):
        if argument.is_dir():
            yield from (path for path in sorted(argument.rglob("*")) if path.is_file())
        elif argument.is_file():
            yield argument


def main(arguments):
    table = "--table" in arguments
    arguments = [a for a in arguments if a != "--table"]
    program, files = arguments[0], [p for p in files_of(arguments[1:]) if p.suffix not in (".py", ".pyc", ".json", ".md", ".txt")]
    if not shutil.which("dciodvfy") or not files:
        print("skipped: dciodvfy (package dicom3tools) is not installed" if files else "skipped: no files")
        return 77
    names = Names(program)
    both, reasons, failed = collections.Counter(), collections.Counter(), 0
    for path in files:
        we, they = ours(program, path, names), theirs(path, names)
        for kind, _ in we.keys() & they.keys():
            both[kind] += 1
        stopped = bool({("class", "SOPClassUID"), ("reading", "whole file")} & they.keys())
        for side, found, other in (("we", we, they), ("they", they, we)):
            for key in sorted(found.keys() - other.keys()):
                reason = explain(side, *key, path, stopped)
                reasons[side, key[0], reason] += 1
                if reason is None:
                    failed += 1
                    print(f"{path.name}: {side} alone: {key[0]} {key[1]}: {found[key][:160]}")
    print(f"{len(files)} files, {sum(both.values())} findings of both, {sum(reasons.values())} of one alone, "
          f"{failed} not explained")
    if table:
        print("\n| kind | both | we alone | it alone |\n|---|---|---|---|")
        for kind in sorted({k for k in both} | {k for _, k, _ in reasons}):
            sides = [sum(n for (s, k, _), n in reasons.items() if (s, k) == (side, kind)) for side in ("we", "they")]
            print(f"| {kind} | {both[kind]} | {sides[0]} | {sides[1]} |")
        for side in ("we", "they"):
            print(f"\n| {side} alone | times | why |\n|---|---|---|")
            for (s, kind, reason), n in sorted(reasons.items(), key=lambda r: (r[0][1], -r[1])):
                if s == side:
                    print(f"| {kind} | {n} | {reason} |")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
