"""dump --json against what other toolkits write for every real file: dcm2json and pydicom, where they are there.

Where the two differ from each other, or from the standard, both sides are brought to one form first; the reasons stand
beside each rule. Nothing else may differ.
"""
import base64
import json
import os
import shutil
import struct
import subprocess
import sys

import support

STRIPPED = {"AE", "AS", "CS", "DA", "DS", "DT", "IS", "LO", "PN", "SH", "TM", "UC", "UI"}
NUMBERS = {"DS", "IS", "SV", "UV", "FL", "FD"}

# Files that a peer reads differently, each with the reason why it is the peer that is left aside.
OTHER_ELEMENTS = {
    ("dcm2json", "nested_priv_SQ.dcm"): "takes elements before group 0002 for the start of the data set",
    ("dcm2json", "UN_sequence.dcm"): "keeps the sequence as bytes of VR UN",
    ("dcm2json", "priv_SQ.dcm"): "keeps the sequence as bytes of VR UN",
}


def plain(value, vr):
    """One value in the common form."""
    if isinstance(value, dict):
        # Components that are empty at the end of a name may be left out.
        groups = {group: text.strip(" \0").rstrip("^") for group, text in value.items()}
        return {group: text for group, text in groups.items() if text} or None
    if isinstance(value, str):
        # Blanks at the ends mean nothing in these VRs: one peer keeps those in front.
        value = value.strip(" \0") if vr in STRIPPED else value.rstrip(" \0")
        if value == "":
            return None
        if vr in NUMBERS:
            try:
                return float(value)
            except ValueError:
                return value
    if isinstance(value, (int, float)) and not isinstance(value, bool):
        # One peer writes single precision with nine digits, and double precision not exactly.
        if vr == "FL":
            return struct.unpack("<f", struct.pack("<f", value))[0]
        return float(f"{value:.14g}") if vr == "FD" else float(value)
    return value


def common(dataset):
    """A data set in the common form: group lengths are left out by the standard, and by one peer kept."""
    out = {}
    for key, member in dataset.items():
        if key.endswith("0000") or key.startswith("0002"):
            continue
        vr = member["vr"]
        if vr == "SQ":
            out[key] = ("SQ", [common(i or {}) for i in member.get("Value", [])])
        elif "InlineBinary" in member:
            data = member["InlineBinary"]
            data = data[0] if isinstance(data, list) else data
            data = base64.b64decode(data)
            out[key] = (vr, data + b"\0" * (len(data) % 2))  # one peer pads values of odd length
        else:
            values = [plain(v, vr) for v in member.get("Value", [])]
            # Values that are all empty are no values for one peer, empty texts for another.
            out[key] = (vr, values if any(v is not None for v in values) else [])
        if key == "00080005":
            out[key] = (vr, [])  # says UTF-8 in one, what the file says in the other
    return out


def differences(peer, ours, theirs, path=""):
    found = []
    for key in sorted(ours.keys() | theirs.keys()):
        if key not in ours or key not in theirs:
            found.append(f"{path}{key} only in {'ours' if key in ours else 'theirs'}")
            continue
        (vr, mine), (other_vr, other) = ours[key], theirs[key]
        # One peer reads UN in explicit VR with the VR that a private dictionary has for it.
        if vr == "UN" and other_vr != "UN" and peer == "pydicom":
            continue
        if vr == other_vr == "SQ" and len(mine) == len(other):
            for number, (a, b) in enumerate(zip(mine, other)):
                found += differences(peer, a, b, f"{path}{key}[{number}].")
        elif (vr, mine) != (other_vr, other):
            found.append(f"{path}{key} {vr}/{other_vr}: {str(mine)[:150]} / {str(other)[:150]}")
    return found


PYDICOM = """
import sys, json, warnings
warnings.simplefilter('ignore')
import pydicom
for line in sys.stdin:
    path = line.rstrip('\\n')
    try:
        dataset = pydicom.dcmread(path, force=False)
        out = {}
        for e in dataset:
            try:
                # It leaves words as the file has them.
                if not dataset.is_little_endian and e.VR == 'OW' and e.value:
                    words = bytearray(e.value)
                    words[0::2], words[1::2] = words[1::2], words[0::2]
                    e.value = bytes(words)
                out['%08X' % e.tag] = e.to_json_dict(None, 1 << 60)
            except Exception as error:
                out['%08X' % e.tag] = None
        print(json.dumps(out))
    except Exception as error:
        print('null')
"""


def python_with_pydicom():
    for python in (sys.executable, "/usr/bin/python3"):
        if subprocess.run([python, "-c", "import pydicom"], capture_output=True, check=False).returncode == 0:
            return python
    return None


def by_dcm2json(path):
    done = subprocess.run(["dcm2json", "-q", "-ee", path], capture_output=True, check=False)
    try:
        return json.loads(done.stdout, strict=False)
    except ValueError:
        return None


def compare(peer, path, theirs):
    name = os.path.basename(path)
    if theirs is None or (peer, name) in OTHER_ELEMENTS:
        return None
    ours = support.run("dump", "--json", path, status=None)
    if not ours.out:
        return [f"{name}: {peer} reads it, we do not: {ours.err[:300]}"]
    ours = common(ours.json())
    failed = [key for key, member in theirs.items() if member is None]  # the peer could not write these itself
    theirs = common({key: member for key, member in theirs.items() if member is not None})
    for key in failed:
        ours.pop(key, None)
    return [f"{name}: {peer}: {d}" for d in differences(peer, ours, theirs)]


def main():
    files = support.samples()
    if not files:
        support.skip("the folder of samples is not there")
    python = python_with_pydicom()
    has_dcm2json = shutil.which("dcm2json") is not None
    if not python and not has_dcm2json:
        support.skip("neither dcm2json nor pydicom is there")
    compared, wrong = 0, []
    if python:
        done = subprocess.run([python, "-c", PYDICOM], input="\n".join(files) + "\n", capture_output=True, text=True,
                              check=True)
        for path, line in zip(files, done.stdout.splitlines()):
            result = compare("pydicom", path, json.loads(line))
            compared += result is not None
            wrong += result or []
    if has_dcm2json:
        for path in files:
            result = compare("dcm2json", path, by_dcm2json(path))
            compared += result is not None
            wrong += result or []
    print("\n".join(wrong))
    print(f"{compared} comparisons, {len(wrong)} differences")
    sys.exit(1 if wrong or compared < 100 else 0)


main()
