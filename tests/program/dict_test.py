"""vdicom dict."""
import sys

from support import contains, equal, main, run


def test_attributes(_):
    for text in ("0010,0010", "(0010,0010)", "00100010"):
        result = run("dict", "tag", text)
        equal(result.lines[0].split(None, 3)[:3], ["(0010,0010)", "PN", "1"])
        contains(result.out, "PatientName")
        equal(len(result.lines), 1)
    contains(run("dict", "tag", "6002,0010").out, "(60xx,0010)")
    assert len(run("dict", "tag", "patient's").lines) > 10
    contains(run("dict", "tag", "patientname").out, "(0010,0010)")
    contains(run("dict", "tag", "patient", "id").out, "(0010,0020)")
    newer = run("dict", "tag", "ExtendedOffsetTable")  # later than the built-in rows
    contains(newer.out, "(7FE0,0001)")
    contains(newer.out, "OV")
    contains(run("dict", "tag", '(0029,xx10,"SIEMENS CSA HEADER")').out, "OB")
    contains(run("dict", "tag", "0008,0040").out, "(retired)")


def test_value_representations(_):
    contains(run("dict", "vr", "lo").line("LO"), "Long String")
    equal(len(run("dict", "vr", "LO").lines), 1)
    contains(run("dict", "vr", "UC").out, "Unlimited Characters")
    assert len(run("dict", "vr", "string").lines) > 5


def test_uids(_):
    equal(len(run("dict", "uid", "1.2.840.10008.1.2").lines), 1)
    contains(run("dict", "uid", "1.2.840.10008.1.2.1").out, "transfer syntax")
    contains(run("dict", "uid", "CTImageStorage").out, "1.2.840.10008.5.1.4.1.1.2 ")
    contains(run("dict", "uid", "htj2k").out, "1.2.840.10008.1.2.4.201")  # later than the built-in rows


def test_json(_):
    equal(run("dict", "tag", "--json", "0010,0010").json(),
          [{"tag": "(0010,0010)", "vr": "PN", "vm": "1", "name": run("dict", "tag", "--json", "0010,0010").json()[0]["name"],
            "keyword": "PatientName", "retired": False}])
    equal([entry["uid"] for entry in run("dict", "uid", "--json", "1.2.840.10008.1.2").json()], ["1.2.840.10008.1.2"])
    equal(run("dict", "vr", "--json", "no such", status=1).json(), [])


def below(lines, start):
    """The lines that stand deeper than the one that begins with `start`, directly below it."""
    at = next(i for i, line in enumerate(lines) if line.strip().startswith(start))
    depth = len(lines[at]) - len(lines[at].lstrip())
    found = []
    for line in lines[at + 1:]:
        if len(line) - len(line.lstrip()) <= depth:
            break
        found.append(line)
    return found


def test_classes(_):
    tree = run("dict", "iod", "CT Image Storage")
    contains(tree.lines[0], "1.2.840.10008.5.1.4.1.1.2")
    equal([line for line in tree.lines if not line.startswith(" ")], tree.lines[:1])
    for text in ("1", "1.2.840.10008.5.1.4.1.1.2", "ctimagestorage", "ct image storage"):
        equal(run("dict", "iod", text).out, tree.out)
    contains(tree.out, "\n  M  Patient module (0)\n    (0010,0010) PN 2  Patient's Name\n")
    modules = [line.split()[0] for line in tree.lines[1:] if not line.startswith("   ")]
    assert set(modules) == {"M", "C", "U"} and len(modules) > 10, modules
    # Elements of a sequence stand below it.
    sequence = below(tree.lines, "(0008,1140)")
    contains("\n".join(sequence), "(0008,1155) UI 1")
    contains(run("dict", "iod", "0").out, "Enumerated values: ")
    several = run("dict", "iod", "storage")
    assert len(several.lines) > 30 and "module" not in several.out
    query = run("dict", "iod", "72")
    contains(query.out, "(0010,0020) LO unique Patient ID")
    directory = run("dict", "iod", "71")
    assert any(" module (184)" in line for line in below(directory.lines, "(0004,1220)")), "a module below a sequence"


def test_classes_as_json(_):
    found = run("dict", "iod", "--json", "1").json()
    equal([(entry["class"], entry["name"], entry["uids"]) for entry in found],
          [(1, "CT Image Storage", ["1.2.840.10008.5.1.4.1.1.2"])])
    patient = found[0]["modules"][0]
    equal((patient["module"], patient["name"], patient["usage"]), (0, "Patient", "M"))
    equal(patient["elements"][0], {"tag": "(0010,0010)", "vr": "PN", "name": "Patient's Name", "type": "2"})

    def count(node):
        return sum(1 + count(child) for kind in ("modules", "elements") for child in node.get(kind, ()))

    equal(len(run("dict", "iod", "1").lines), 1 + count(found[0]))
    everything = run("dict", "iod", "--json", "").json()
    equal((len(everything), sum(map(count, everything))), (112, 1368 + 44251))
    keys = next(entry for entry in everything if entry["class"] == 72)["elements"]
    equal({key["key"] for key in keys}, {"unique", "required", "optional"})


def test_context_groups(_):
    tree = run("dict", "cid", "CID 30")
    for text in ("30", "cid 30", "dicom devices"):
        equal(run("dict", "cid", text).out, tree.out)
    equal(tree.lines[0], "CID 30  DICOM Devices  (extensible, 2003-01-08)")
    own = [line for line in tree.lines[1:] if not line.startswith("   ")]
    equal(len(own), 11)
    assert own[-1].startswith("  includes CID 29  "), own[-1]
    included = run("dict", "cid", "CID 29")
    equal(["  " + line for line in included.lines[1:]], below(tree.lines, "includes CID 29"))
    contains(run("dict", "cid", "2").out, "SNM3  G-A100  Right\n")
    assert len(run("dict", "cid", "anatomic").lines) > 1
    entry, = run("dict", "cid", "--json", "30").json()
    equal((entry["cid"], entry["extensible"], len(entry["concepts"])), ("CID 30", True, 10))
    equal(entry["includes"], run("dict", "cid", "--json", "29").json())
    groups = run("dict", "cid", "--json", "").json()
    equal((len(groups), sum(len(group["concepts"]) for group in groups), sum(len(group["includes"]) for group in groups),
           sum(not group["extensible"] for group in groups)), (197, 2635, 40, 18))


def test_nothing_found(_):
    for table in ("tag", "vr", "uid", "iod", "cid"):
        result = run("dict", table, "no such thing", status=1)
        equal((result.out, result.err), ("", "vdicom dict: nothing is known as 'no such thing'\n"))
    run("dict", "tag", "0029,1010", status=1)


main(sys.modules[__name__])
