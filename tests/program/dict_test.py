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


def test_nothing_found(_):
    for table in ("tag", "vr", "uid"):
        result = run("dict", table, "no such thing", status=1)
        equal((result.out, result.err), ("", "vdicom dict: nothing is known as 'no such thing'\n"))
    run("dict", "tag", "0029,1010", status=1)


main(sys.modules[__name__])
