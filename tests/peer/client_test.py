"""vdicom as client of other DICOM programs. Prints what was seen as rows of docs/INTEROPERABILITY.md, and fails for a row
that is not there. Usage: client_test.py PROGRAM SHARED DOCUMENT PEER"""
import os
import re
import shutil
import socket
import subprocess
import tempfile
import time

from peers import (COMPRESSED, HOST, PEER, ROWS, SYNTAXES, WORK, Running, find_file, keys_of, kind_of, large, made, received, sample, same,
                   see, syntax_of, uid_of, worklist)
from support import contains, element, equal, free_port, part10, run, skip


def row(what, syntax, pdu, result):
    ROWS.append(f"| {NAMES[PEER]} | {what} | {syntax} | {pdu} | {result} |")


def storescp():
    with Running("storescp.sh", "+xa") as peer:
        contains(peer.vdicom("echo").out, "answered")
        row("echo", "", "16384", "answered")
        for syntax in SYNTAXES:
            path = made("CT_small.dcm", syntax)
            peer.vdicom("store", path)
            equal(syntax_of(received(peer, path)), syntax_of(path))
            same(path, received(peer, path))
            row("store", syntax, "16384", "stored as it is")
        for name, file in COMPRESSED.items():
            peer.vdicom("store", sample(file))
            equal(syntax_of(received(peer, sample(file))), syntax_of(sample(file)))
            same(sample(file), received(peer, sample(file)))
            row("store", name, "16384", "stored as it is")
        private = os.path.join(WORK, "private.dcm")
        with open(private, "wb") as file:
            file.write(part10(element(0x00080016, "UI", "1.2.826.0.1.3.99") + element(0x00080018, "UI", "1.2.826.0.1.8")))
        result = peer.vdicom("store", private, sample("CT_small.dcm"), status=1)
        contains(result.err, "does not support the SOP class")
        contains(result.out, "stored 1 file,")
        row("store of a class that it does not know, and another", "explicit", "16384", "the one named with the peer's reason, the other stored")
    with Running("storescp.sh", "+xi") as peer:
        for syntax in SYNTAXES:
            path = made("CT_small.dcm", syntax)
            peer.vdicom("store", path)
            equal(syntax_of(received(peer, path)), "1.2.840.10008.1.2")
            same(path, received(peer, path))
            row("store, the peer takes implicit alone", syntax, "16384", "encoded anew and stored" if syntax != "implicit" else "stored as it is")
        contains(peer.vdicom("store", sample(COMPRESSED["RLE"]), status=1).err, "the peer supports none of the transfer syntaxes; decompress")
        row("store, the peer takes implicit alone", "RLE", "16384", "named with the reason")
    for size in ("4096", "16384", "131072"):
        with Running("storescp.sh", "+xa", "-pdu", size) as peer:
            for path in (large(), made("CT_small.dcm", "big"), sample(COMPRESSED["JPEG 2000"])):
                peer.vdicom("store", path, "--max-pdu", size)
                same(path, received(peer, path))
            row("store of 600 kB, and of compressed and small objects", "explicit, big, JPEG 2000", size, "stored as they are")
    with Running("storescp.sh", "--refuse") as peer:
        contains(peer.vdicom("echo", status=1).err, "the peer rejected the association")
        row("echo, the association is rejected (`--refuse`)", "", "", "told with the reason")
    with Running("storescp.sh", "--abort-during", "+xa", "--fork") as peer:
        result = peer.vdicom("store", large(), sample("CT_small.dcm"), status=1)
        assert re.search("aborted the association|the connection broke|closed the connection", result.err), result.err
        contains(result.out, "stored 0 files")
        contains(result.out, "2 not sent")
        row("store, the association is aborted on the way (`--abort-during`)", "explicit", "16384", "told, with the files that are not stored")
    with Running("storescp.sh", "--abort-after", "+xa", "--fork") as peer:
        result = peer.vdicom("store", sample("CT_small.dcm"), sample("MR_small.dcm"), status=1)
        assert re.search("aborted the association|the connection broke|closed the connection", result.err), result.err
        contains(result.out, "not sent")
        row("store, the association is aborted behind the first object (`--abort-after`)", "explicit", "16384", "told, with the files that are not stored")


def retrieve(peer, called, mover, port, path, syntax, sizes):
    """Finds an object at every level, gets and moves it."""
    uid, keys = uid_of(path), keys_of(path)
    for level, number in (("patient", "00100020"), ("study", "0020000D"), ("series", "0020000E"), ("image", "00080018")):
        own = keys_of(path, level)
        found = peer.vdicom("find", "--level", level, "--json", *own, called=called).json()
        equal([match[number]["Value"] for match in found], [[own[-1].split("=")[1]]], level)
    row("find, every level", syntax, "16384", "the match")
    equal(peer.vdicom("find", "-k", "PatientID=no such patient", "--json", called=called).json(), [])
    row("find without a match", "", "16384", "an empty list")
    for size in sizes:
        into = tempfile.mkdtemp(dir=WORK)
        result = peer.vdicom("get", "--to", into, *keys, "--class", uid_of(path, "SOPClassUID"), "--max-pdu", size, "--json", called=called).json()
        equal((result["status"], result["completed"], result["written"], result["failed"]), (0, 1, 1, 0))
        same(path, find_file(into, uid))
        equal(os.listdir(into), [uid + ".dcm"])
        row("get", syntax, size, f"written as {kind_of(find_file(into, uid))}")
        into = tempfile.mkdtemp(dir=WORK)
        result = peer.vdicom("move", "--to", into, "--listen", port, "--destination", mover, *keys, "--max-pdu", size, "--json", called=called).json()
        equal((result["status"], result["completed"], result["written"]), (0, 1, 1))
        same(path, find_file(into, uid))
        row("move to this program", syntax, size, f"written as {kind_of(find_file(into, uid))}")
    into = tempfile.mkdtemp(dir=WORK)
    peer.vdicom("get", "--to", into, *keys[:2], called=called)
    same(path, find_file(into, uid))
    row("get of a study", syntax, "131072", "written as " + ", ".join(sorted({kind_of(os.path.join(into, name)) for name in os.listdir(into)})))


def study_of_many_classes():
    """One study, a series for each of six classes."""
    paths = {}
    for i, name in enumerate(("CT_small.dcm", COMPRESSED["JPEG 2000"], COMPRESSED["JPEG Baseline"], "rtplan.dcm", "rtdose.dcm", "reportsi.dcm")):
        path = os.path.join(WORK, f"many-{name}")
        run("edit", sample(name), path, *[text for key, value in (
            ("PatientID", "MANY"), ("StudyInstanceUID", "1.2.826.0.3"), ("SeriesInstanceUID", f"1.2.826.0.3.{i}"), ("SOPInstanceUID", f"1.2.826.0.3.{i}.1"))
            for text in ("--set", f"{key}={value}")])
        paths[f"1.2.826.0.3.{i}.1"] = path
    return paths


def dcmqrscp():
    port = free_port()
    with Running("dcmqrscp.sh", "MOVER", port) as peer:
        files = [made("CT_small.dcm", "explicit"), made("MR_small.dcm", "implicit"), large()]
        peer.vdicom("store", *files, called="QRSCP")
        row("store", "implicit, explicit", "16384", "stored as they are")
        retrieve(peer, "QRSCP", "MOVER", port, files[0], "explicit", ("4096", "16384", "131072"))
        retrieve(peer, "QRSCP", "MOVER", port, files[1], "implicit", ("16384",))
        retrieve(peer, "QRSCP", "MOVER", port, files[2], "explicit, 600 kB", ("4096", "131072"))
        result = peer.vdicom("find", "--limit", "1", "--json", called="QRSCP")
        equal(len(result.json()), 1)
        contains(result.err, "more matches than --limit 1")
        row("find cancelled behind a match (`--limit`)", "", "16384", "ended in order")
        result = peer.vdicom("move", "--destination", "NOBODY", "-k", "StudyInstanceUID=1.2.826.0.1", called="QRSCP", status=1)
        contains(result.err, "status A801, the peer does not know the destination")
        row("move to a destination that it does not know", "", "16384", "told with the reason")
        contains(peer.vdicom("echo", called="NOBODY", status=1).err, "give its own with --called")
        row("echo with a wrong title", "", "", "told with the reason")


def orthanc():
    port = free_port()
    with Running("orthanc.sh", "MOVER", port) as peer:
        objects = {syntax: made("CT_small.dcm", syntax) for syntax in SYNTAXES} | {name: made(file) for name, file in COMPRESSED.items()}
        for syntax, path in objects.items():
            peer.vdicom("store", path, called="ORTHANC")
            into = tempfile.mkdtemp(dir=WORK)
            peer.vdicom("get", "--to", into, *keys_of(path), "--class", uid_of(path, "SOPClassUID"), called="ORTHANC")
            same(path, find_file(into, uid_of(path)))
            row("store, and get of the same", syntax, "16384", f"came back as {kind_of(find_file(into, uid_of(path)))}")
        files = [objects["JPEG 2000"], large()]
        peer.vdicom("store", files[1], called="ORTHANC")
        retrieve(peer, "ORTHANC", "MOVER", port, files[0], "JPEG 2000", ("16384",))
        retrieve(peer, "ORTHANC", "MOVER", port, files[1], "explicit, 600 kB", ("4096", "16384", "131072"))
        many = study_of_many_classes()
        peer.vdicom("store", *many.values(), called="ORTHANC")
        for level, key in (("study", "StudyInstanceUID=1.2.826.0.3"), ("patient", "PatientID=MANY")):
            into = tempfile.mkdtemp(dir=WORK)
            result = peer.vdicom("get", "--to", into, "--level", level, "-k", key, "--json", called="ORTHANC").json()
            equal((result["status"], result["completed"], result["written"]), (0, 6, 6))
            for uid, path in many.items():
                same(path, find_file(into, uid))
                equal(kind_of(find_file(into, uid)), kind_of(path))
            row(f"get of a {level} of six classes", "explicit, implicit, JPEG Baseline, JPEG 2000", "131072", "written as they are")
        contains(peer.vdicom("find", "-k", "PatientName=Compressed*", "-k", "StudyDate=20040101-20041231", called="ORTHANC").out, "CompressedSamples^CT1")
        row("find with a wildcard and a range of dates", "", "16384", "the matches")


def wlmscpfs():
    if not shutil.which("wlmscpfs"):
        skip("wlmscpfs is not there (Debian package dcmtk)")
    folder = os.path.join(WORK, "worklist", "WORKLIST")
    os.makedirs(folder)
    worklist(folder, ".wl")
    open(os.path.join(folder, "lockfile"), "wb").close()
    port = free_port()
    with subprocess.Popen(["wlmscpfs", "-csk", "-dfp", os.path.dirname(folder), port], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as process:
        try:
            end = time.monotonic() + 20
            while process.poll() is None and time.monotonic() < end:
                with socket.socket() as probe:
                    if probe.connect_ex((HOST, int(port))) == 0:
                        break
            found = run("find", HOST, port, "--called", "WORKLIST", "--level", "worklist", "--json", "-k",
                        "ScheduledProcedureStepSequence.Modality=MR", "-k",
                        "ScheduledProcedureStepSequence.ScheduledProcedureStepStartDate=20240101-20241231").json()
            equal([match["00100020"]["Value"] for match in found], [["P-two"]])
            equal(found[0]["00100010"]["Value"][0]["Alphabetic"], "Müller^Ümit")
            equal(found[0]["00400100"]["Value"][0]["00400009"]["Value"], ["two"])
            row("find on the worklist, by an attribute in a sequence", "", "16384", "the match, in UTF-8")
        finally:
            process.terminate()


NAMES = {"storescp": "`storescp` (dcmtk)", "dcmqrscp": "`dcmqrscp` (dcmtk)", "orthanc": "Orthanc", "wlmscpfs": "`wlmscpfs` (dcmtk)"}
see(globals()[PEER], lambda line: line.startswith(f"| {NAMES[PEER]} |") and "| peer." not in line)
