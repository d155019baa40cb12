#!/usr/bin/env python3
"""Tags, value representations, lengths, nesting and fragments of real files, as vdicom and as another toolkit's dump
program read them.

usage: elements_test.py VDICOM dcmdump|gdcmdump FOLDER

Differences that are known are listed with their reason; any other difference fails, and so does a file that only the
other program reads. Exit 77 when the other program or the folder is not there.
"""
import re
import shutil
import subprocess
import sys
from pathlib import Path

OURS = re.compile(r"^( *)\(([0-9A-F]{4}),([0-9A-F]{4})\) (\S\S) +(\d+|-)")
FRAGMENT = re.compile(r"^ *\[\d+\] (?:offset table|fragment), (\d+) bytes?")
PEER = re.compile(r"^( *)\(([0-9a-f]{4}),([0-9a-f]{4})\) (\S\S)(?: \((\S\S)\))?(.*)")
LENGTH = re.compile(r"# +(\d+|u/l) ?,")
DELIMITERS = {"fffee00d", "fffee0dd"}

# What is known of a difference, by file name and peer.
KNOWN = {
    ("SC_rgb_jpeg.dcm", "gdcmdump"): "Transfer Syntax UID and encoding contradict each other: it stops, we read on",
    ("nested_priv_SQ.dcm", "gdcmdump"): "a value of odd length, which it leaves out and we pad",
    ("nested_priv_SQ.dcm", "dcmdump"): "a value of odd length, which it shows padded",
    ("meta_missing_tsyntax.dcm", "dcmdump"): "a value of odd length, which it shows padded",
    ("MR_truncated.dcm", "gdcmdump"): "the value is cut off: we give the bytes that are there, it gives the header's length",
    ("rtdose_rle.dcm", "gdcmdump"): "it opens sequences in UN of defined length, which stay values here",
    ("rtdose_rle_1frame.dcm", "gdcmdump"): "it opens sequences in UN of defined length, which stay values here",
}


def run(*command):
    return subprocess.run(command, capture_output=True, timeout=120)


def ours(program, path):
    result = run(program, "dump", "--color", "never", "--full", str(path))
    rows = []
    for line in result.stdout.decode("utf-8").split("\n"):
        if match := OURS.match(line):
            indent, group, element, vr, length = match.groups()
            rows.append((len(indent) // 4, (group + element).lower(), vr, length))
        elif match := FRAGMENT.match(line):
            rows.append((0, "fragment", "", match.group(1)))
    return result.returncode, rows


def theirs(peer, path):
    options = ["-q", "+L"] if peer == "dcmdump" else []
    result = run(peer, *options, str(path))
    rows = []
    for line in result.stdout.decode("latin-1").split("\n"):
        match = PEER.match(line)
        if not match:
            continue
        indent, group, element, vr, resolved, rest = match.groups()
        tag = group + element
        if tag in DELIMITERS:
            continue
        lengths = LENGTH.findall(rest)
        length = lengths[-1] if lengths else "-"
        if tag == "fffee000":
            # Fragments are values; the items of sequences have lines of their own on neither side.
            if vr in ("pi", "??"):
                rows.append((0, "fragment", "", length))
            continue
        vr = resolved if vr == "??" and resolved else vr
        if vr == "SQ" or length == "u/l" or rest.startswith((" (Sequence", " (PixelSequence")):
            length = "-"
        rows.append((len(indent) // 4, tag, vr if vr.isupper() else "??", length))
    return result.returncode, rows


def same(left, right):
    if left[:2] != right[:2]:
        return False
    # Texts with line ends are broken over lines there, and the length is not found.
    if left[3] != right[3] and not (right[3] == "-" and left[2] in ("UT", "LT", "ST")):
        return False
    # A sequence written as UN keeps its VR here; fragments written as OW too.
    kept = {("UN", "SQ"), ("OW", "OB")} if left[3] == "-" else set()
    return right[2] in ("??", left[2]) or (left[2], right[2]) in kept


def meta_first(rows):
    """Groups below 0002 stand before it in a tree ordered by tags, and behind it in a file."""
    return sorted(rows, key=lambda row: 0 if row[1].startswith("0002") and row[0] == 0 else 1)


def main():
    program, peer, folder = sys.argv[1], sys.argv[2], Path(sys.argv[3])
    if not shutil.which(peer) or not folder.is_dir():
        print("skipped: no", peer if not shutil.which(peer) else folder)
        return 77
    equal = different = 0
    only = []
    for path in sorted(p for p in folder.rglob("*") if p.is_file()):
        our_code, our_rows = ours(program, path)
        peer_code, peer_rows = theirs(peer, path)
        if not our_rows or not peer_rows:
            if our_rows:
                only.append(path.name)
            elif peer_rows:
                different += 1
                print("%s: not read here, %d rows there" % (path.name, len(peer_rows)))
            continue
        wrong = [(a, b) for a, b in zip(meta_first(our_rows), meta_first(peer_rows)) if not same(a, b)]
        if not wrong and len(our_rows) == len(peer_rows):
            equal += 1
            continue
        if (path.name, peer) in KNOWN:
            print("%s: %s" % (path.name, KNOWN[path.name, peer]))
            continue
        different += 1
        print("%s: %d rows here, %d there; %d differ, first %s" %
              (path.name, len(our_rows), len(peer_rows), len(wrong), wrong[:1]))
    print("read here alone:", ", ".join(only) or "none")
    print("%d files equal, %d different" % (equal, different))
    return 1 if different or equal == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
