"""vdicom serve with other toolkits' programs as its clients. Prints what was seen as rows of docs/INTEROPERABILITY.md, and
fails for a row that is not there. Usage: serve_test.py PROGRAM SHARED DOCUMENT PEER"""
import glob
import json
import os
import shutil
import subprocess
import sys
import tempfile
import time
import urllib.error
import urllib.request

from peers import (COMPRESSED, HOST, PEER, ROWS, SYNTAXES, UIDS, WORK, Running, find_file, keys_of, kind_of, large, made, received, same, see,
                   uid_of, worklist)
from server import Server
from support import contains, element, equal, free_port, part10, run, sequence, skip

SIZES = ("4096", "16384", "131072")
# What dcmtk's clients call the syntaxes: what is proposed with -x, what is taken with +x.
LETTERS = {"implicit": "i", "explicit": "e", "big": "b", "deflated": "d", "JPEG Baseline": "y", "JPEG lossless": "s", "JPEG-LS": "t",
           "JPEG 2000": "v", "RLE": "r"}

# What many() has made.
IMAGES = ("-S", "-k", "QueryRetrieveLevel=IMAGE", "-k", "StudyInstanceUID=1.2.826.0.7", "-k", "SeriesInstanceUID=1.2.826.0.7.0", "-k",
          "SOPInstanceUID")


def row(what, syntax, pdu, result, peer=None):
    ROWS.append(f"| {peer or NAMES[PEER]} | {what} | {syntax} | {pdu} | {result} | peer.serve.{PEER} |")


def peer_run(program, *arguments, status=0):
    """Runs a peer's command in a folder of its own; a status of None: any. Returns what it printed, and the folder."""
    if not shutil.which(program):
        skip(f"{program} is not there")
    folder = tempfile.mkdtemp(dir=WORK)
    done = subprocess.run([program, *arguments], cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          timeout=120, check=False)
    text = done.stdout.decode("utf-8", "replace")
    assert status is None or done.returncode == status, f"{program} {arguments}: status {done.returncode}\n{text[-3000:]}"
    return text, folder


def archive(*arguments):
    return Server(tempfile.mkdtemp(dir=WORK), *arguments, title="ARCHIVE")


def peers_file(**ports):
    path = os.path.join(tempfile.mkdtemp(dir=WORK), "peers")
    with open(path, "w", encoding="ascii") as file:
        file.writelines(f"{title} {HOST} {port}\n" for title, port in ports.items())
    return path


def objects():
    """An object of each syntax."""
    return {syntax: made("CT_small.dcm", syntax) for syntax in SYNTAXES} | {name: made(file) for name, file in COMPRESSED.items()}


def arrived_in(folder, path):
    """An object came as it was sent."""
    stored = find_file(folder, uid_of(path))
    equal(kind_of(stored), kind_of(path))
    same(path, stored)


def many(count=1500):
    """A series of so many small objects that its answers are under way when a peer has second thoughts."""
    folder = tempfile.mkdtemp(dir=WORK)
    for i in range(count):
        uid = f"1.2.826.0.7.{i}"
        with open(os.path.join(folder, uid), "wb") as file:
            file.write(part10(element(0x00080016, "UI", "1.2.840.10008.5.1.4.1.1.7") + element(0x00080018, "UI", uid) +
                              element(0x00080060, "CS", "OT") + element(0x00100010, "PN", "Many^Images " + "x" * 40) +
                              element(0x00100020, "LO", "MANY") + element(0x0020000D, "UI", "1.2.826.0.7") +
                              element(0x0020000E, "UI", "1.2.826.0.7.0") + element(0x7FE00010, "OB", bytes(2000))))
    return folder


# Storing.

def storescu():
    with archive() as server:
        peer_run("echoscu", "-aec", "ARCHIVE", *server.at)
        row("echo", "implicit", "16384", "answered", "`echoscu` (dcmtk)")
        for syntax, path in objects().items():
            peer_run("storescu", "-R", f"-x{LETTERS[syntax]}", *server.at, path)
            arrived_in(server.folder, path)
            row("C-STORE", syntax, "16384", "stored as it is")
    for size in SIZES:
        with archive() as server:
            for letter, path in (("e", large()), ("b", made("CT_small.dcm", "big")), ("v", made(COMPRESSED["JPEG 2000"]))):
                peer_run("storescu", "-R", f"-x{letter}", "-pdu", size, *server.at, path)
                arrived_in(server.folder, path)
            row("C-STORE of 600 kB, and of compressed and small objects", "explicit, big, JPEG 2000", size, "stored as they are")
    with archive("--max-pdu", "4096") as server:
        peer_run("storescu", "-R", "-xe", "-pdu", "131072", *server.at, large())
        arrived_in(server.folder, large())
        row("C-STORE, serve takes PDUs of 4096 alone (`--max-pdu`)", "explicit", "4096", "stored as it is")
        # All in one association, which ends with an abort.
        paths = [made("CT_small.dcm", "explicit"), made("MR_small.dcm", "explicit")]
        peer_run("storescu", "--abort", "-R", "-xe", *server.at, *paths, status=None)
        contains(server.wait("association", end="aborted by the peer: the peer's application aborted the association; its own log may say why",
                             stored=2)["calling"], "STORESCU")
        for path in paths:
            arrived_in(server.folder, path)
        row("C-STORE of two objects, then an abort instead of a release (`--abort`)", "explicit", "4096", "both are there")
    with archive("--known-callers", "--peers", peers_file(FRIEND=104), "--check-called") as server:
        contains(peer_run("echoscu", "-aet", "STRANGER", "-aec", "ARCHIVE", *server.at, status=1)[0], "Calling AE Title Not Recognized")
        row("echo of a caller who is not known (`--known-callers`)", "", "", "rejected: calling AE title not recognised", "`echoscu` (dcmtk)")
        contains(peer_run("echoscu", "-aet", "FRIEND", "-aec", "OTHER", *server.at, status=1)[0], "Called AE Title Not Recognized")
        row("echo to a wrong title (`--check-called`)", "", "", "rejected: called AE title not recognised", "`echoscu` (dcmtk)")
        peer_run("echoscu", "-aet", "FRIEND", "-aec", "ARCHIVE", *server.at)


# Queries.

def findscu_run(server, *arguments, size="16384"):
    """The responses as JSON, one after the other."""
    text, folder = peer_run("findscu", "-v", "-X", "-pdu", size, *arguments, *server.at)
    found = [run("dump", "--json", path).json() for path in sorted(glob.glob(os.path.join(folder, "rsp*.dcm")))]
    return found, text


def values(found, tag):
    return sorted(match[tag]["Value"][0] for match in found)


def findscu():
    worklists = tempfile.mkdtemp(dir=WORK)
    worklist(worklists, ".dcm")
    with archive() as server:
        contains(peer_run("findscu", "-W", "-k", "PatientName", *server.at, status=None)[0], "No Acceptable Presentation Contexts")
        row("worklist, which is not offered without `--worklist`", "", "", "the context is refused: abstract syntax not supported")
    with archive("--worklist", worklists) as server:
        path, other = made("CT_small.dcm", "explicit"), made("MR_small.dcm", "implicit")
        run("store", *server.at, path, other, large())
        tags = {"patient": "00100020", "study": "0020000D", "series": "0020000E", "image": "00080018"}
        for model, name, levels in (("-P", "patient root", list(tags)), ("-S", "study root", list(tags)[1:]),
                                    ("-O", "patient/study only", list(tags)[:2])):
            for level in levels:
                query = keys_of(path, level) + (["-k", f"PatientID={uid_of(path, 'PatientID')}"] if model != "-S" and level != "patient" else [])
                found, _ = findscu_run(server, model, "-k", f"QueryRetrieveLevel={level.upper()}", *query)
                keyword = {"patient": "PatientID"}.get(level, UIDS[list(tags).index(level) - 1])
                equal(values(found, tags[level]), [uid_of(path, keyword)], f"{model} {level}")
            row(f"C-FIND, {name}, every level", "explicit", "16384", "the match")
        for letter, syntax in (("i", "implicit"), ("e", "explicit"), ("b", "big"), ("d", "deflated")):
            found, _ = findscu_run(server, "-S", f"-x{letter}", "-k", "QueryRetrieveLevel=STUDY", *keys_of(path, "study"), "-k", "PatientName")
            equal(values(found, "0020000D"), [uid_of(path, UIDS[0])], syntax)
            row("C-FIND", syntax, "16384", "the match")
        both = sorted([uid_of(path, UIDS[0]), uid_of(other, UIDS[0])])
        for text, query, wanted in (("`*`", "PatientName=CompressedSamples*", both), ("`?`", "PatientName=CompressedSamples^?R1", both[1:]),
                                    ("without case", "PatientName=compressedSAMPLES*", both),
                                    ("a range of dates", "StudyDate=20040120-20041231", both[1:]),
                                    ("a list of UIDs", "StudyInstanceUID=" + "\\".join([*both, "1.2.3"]), both),
                                    ("no match", "PatientName=Nobody", [])):
            found, _ = findscu_run(server, "-S", "-k", "QueryRetrieveLevel=STUDY", "-k", query, *(
                [] if query.startswith("StudyInst") else ["-k", "StudyInstanceUID"]))
            equal(values(found, "0020000D"), wanted if len(wanted) != 1 else [uid_of(other, UIDS[0])], text)
            row(f"C-FIND, {text}", "explicit", "16384", "the matches" if wanted else "none")
        found, _ = findscu_run(server, "-W", "-k", "ScheduledProcedureStepSequence[0].Modality=MR", "-k", "PatientID", "-k", "PatientName")
        equal(values(found, "00100020"), ["P-two"])
        equal(found[0]["00100010"]["Value"][0]["Alphabetic"], "Müller^Ümit")
        row("worklist, by an attribute in a sequence", "explicit", "16384", "the match, in UTF-8")
        run("store", *server.at, many())
        cancelled(server)


def cancelled(server):
    killed_in_the_middle(server, "findscu", *IMAGES)
    row("C-FIND of 1,500 matches, the peer is killed behind the first", "explicit", "16384", "the query ends, the next peer is served")
    for size in SIZES:
        text, _ = peer_run("findscu", "-v", "-pdu", size, *IMAGES, *server.at)
        equal(text.count("Pending"), 1500)
        row("C-FIND of 1,500 matches", "explicit", size, "all of them")
    text, _ = peer_run("findscu", "-v", "--cancel", "3", *IMAGES, *server.at, status=None)
    contains(text, "Cancel")
    equal(server.wait("find", status="FE00")["calling"], "FINDSCU")
    row("C-FIND of 1,500 matches, cancelled behind the third (`--cancel`)", "explicit", "16384", "ended with FE00")


def killed_in_the_middle(server, program, *arguments):
    """A peer that goes while its answer is under way: the operation ends, the next one is served."""
    folder = tempfile.mkdtemp(dir=WORK)
    since = len(server.log())
    with subprocess.Popen(["stdbuf", "-oL", program, "-v", *arguments, *server.at], cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT) as peer:
        for line in peer.stdout:
            if b"Pending" in line or b"C-STORE Request" in line:
                break
        peer.kill()
    ended = server.wait("association", since=since)
    assert ended["end"] != "released", ended
    event = "find" if program == "findscu" else "get"
    told = server.wait(event, since=since)
    assert event == "find" or told.get("status") != "0000", told  # all matches may have left before
    peer_run("echoscu", *server.at)


# Retrieving.

def movescu():
    port = free_port()
    with archive("--peers", peers_file(MOVESCU=port)) as server:
        for syntax, path in objects().items():
            run("store", *server.at, path)
            _, folder = peer_run("movescu", "-S", "+P", port, f"+x{LETTERS[syntax]}", "-od", ".", "-k", "QueryRetrieveLevel=IMAGE", *keys_of(path),
                                 *server.at)
            arrived_in(folder, path)
            row("C-MOVE to itself", syntax, "16384", "arrived as it is")
        path = made("CT_small.dcm", "explicit")
        for model, levels in (("-P", ("patient", "study", "series", "image")), ("-S", ("study", "series", "image")), ("-O", ("patient", "study"))):
            for level in levels:
                query = keys_of(path, level) + ([] if model == "-S" or level == "patient" else keys_of(path, "patient"))
                _, folder = peer_run("movescu", model, "+P", port, "+xe", "-od", ".", "-k", f"QueryRetrieveLevel={level.upper()}", *query,
                                     *server.at)
                same(path, find_file(folder, uid_of(path)))
            row(f"C-MOVE, {({'-P': 'patient root', '-S': 'study root', '-O': 'patient/study only'})[model]}, every level", "explicit", "16384",
                "arrived as they are")
        text, _ = peer_run("movescu", "-v", "-S", "-aem", "NOBODY", "-k", "QueryRetrieveLevel=STUDY", *keys_of(path, "study"), *server.at, status=None)
        contains(text, "MoveDestinationUnknown")
        row("C-MOVE to a destination that the peers file does not name", "", "16384", "refused: A801")
    for size in SIZES:
        with Running("storescp.sh", "+xa", "-pdu", size) as target, archive("--peers", peers_file(TARGET=target.port)) as server:
            paths = [large(), made("CT_small.dcm", "big"), made(COMPRESSED["JPEG 2000"]), made("MR_small.dcm", "implicit")]
            run("store", *server.at, *paths)
            for path in paths:
                peer_run("movescu", "-S", "-pdu", size, "-aem", "TARGET", "-k", "QueryRetrieveLevel=STUDY", *keys_of(path, "study"), *server.at)
                same(path, received(target, path))
                equal(kind_of(received(target, path)), kind_of(path))
            row("C-MOVE to `storescp` of 600 kB, and of compressed and small objects", "explicit, big, JPEG 2000, implicit", size,
                "arrived as they are")
    with Running("storescp.sh", "+xi") as target, archive("--peers", peers_file(TARGET=target.port)) as server:
        for syntax, path in objects().items():
            run("store", *server.at, path)
            plain = syntax in SYNTAXES
            text, _ = peer_run("movescu", "-v", "-S", "-aem", "TARGET", "-k", "QueryRetrieveLevel=IMAGE", *keys_of(path), *server.at,
                               status=0 if plain else None)
            if plain:
                same(path, received(target, path))
                equal(kind_of(received(target, path)), "implicit")
            else:
                contains(str(server.wait("move", status="A702", failed=1)), "did not accept")
        row("C-MOVE to `storescp`, which takes implicit alone", ", ".join(SYNTAXES), "16384", "encoded anew, arrived")
        row("C-MOVE to `storescp`, which takes implicit alone", "compressed", "16384", "failed: A702, for no syntax that it takes")
        # Three objects, the second of which is damaged in the archive: its pixel data are compressed, and it names another syntax.
        folder = tempfile.mkdtemp(dir=WORK)
        for i, pixels in enumerate((b"12", bytes.fromhex("feff00e000000000 feff00e002000000ffd8 feffdde000000000"), b"12")):
            head = (element(0x00080016, "UI", "1.2.840.10008.5.1.4.1.1.7") + element(0x00080018, "UI", f"1.2.826.0.8.{i}") +
                    element(0x0020000D, "UI", "1.2.826.0.8") + element(0x0020000E, "UI", "1.2.826.0.8.9"))
            path = os.path.join(folder, "object")
            with open(path, "wb") as file:
                file.write(part10(head + element(0x7FE00010, "OB", b"12")))
            run("store", *server.at, path)
            with open(find_file(server.folder, f"1.2.826.0.8.{i}"), "wb") as file:
                file.write(part10(head + element(0x7FE00010, "OB", pixels, length=0xFFFFFFFF if i == 1 else None)))
        peer_run("movescu", "-S", "-aem", "TARGET", "-k", "QueryRetrieveLevel=STUDY", "-k", "StudyInstanceUID=1.2.826.0.8", *server.at, status=None)
        server.wait("move", status="B000", completed=2, failed=1)
        row("C-MOVE to `storescp`, which takes implicit alone, of three objects", "explicit, the second damaged", "16384",
            "the second failed, the others arrived: B000")
    with Running("storescp.sh") as target, archive("--peers", peers_file(TARGET=target.port)) as server:
        run("store", *server.at, many())
        text, _ = peer_run("movescu", "-v", "-S", "--cancel", "3", "-aem", "TARGET", "-k", "QueryRetrieveLevel=STUDY", "-k",
                           "StudyInstanceUID=1.2.826.0.7", *server.at, status=None)
        contains(text, "Cancel")
        entry = server.wait("move", status="FE00")
        assert 3 <= entry["completed"] < 1500, entry
        row("C-MOVE of 1,500 objects, cancelled behind the third response (`--cancel`)", "explicit", "16384", "ended with FE00")


def getscu():
    with archive() as server:
        for syntax, path in objects().items():
            run("store", *server.at, path)
            _, folder = peer_run("getscu", "-S", "+B", f"+x{LETTERS[syntax]}", "-k", "QueryRetrieveLevel=IMAGE", *keys_of(path), *server.at)
            got = find_file(folder, uid_of(path))
            same(path, got)
            equal(kind_of(got), "explicit" if syntax == "implicit" else syntax) # its storage contexts never propose implicit
            row("C-GET", syntax, "16384", f"arrived as {kind_of(got)}")
        path = made("CT_small.dcm", "explicit")
        for model, name, levels in (("-P", "patient root", ("patient", "study", "series", "image")), ("-S", "study root", ("study", "series", "image")),
                                    ("-O", "patient/study only", ("patient", "study"))):
            for level in levels:
                query = keys_of(path, level) + ([] if model == "-S" or level == "patient" else keys_of(path, "patient"))
                _, folder = peer_run("getscu", model, "+B", "+xe", "-k", f"QueryRetrieveLevel={level.upper()}", *query, *server.at)
                same(path, find_file(folder, uid_of(path)))
            row(f"C-GET, {name}, every level", "explicit", "16384", "arrived as they are")
        run("store", *server.at, large())
        for size in SIZES:
            _, folder = peer_run("getscu", "-S", "+B", "-pdu", size, "-k", "QueryRetrieveLevel=STUDY", *keys_of(large(), "study"), *server.at)
            arrived_in(folder, large())
            row("C-GET of 600 kB", "explicit", size, "arrived as it is")
        run("store", *server.at, many())
        killed_in_the_middle(server, "getscu", "-S", "+B", "-k", "QueryRetrieveLevel=STUDY", "-k", "StudyInstanceUID=1.2.826.0.7")
        row("C-GET of 1,500 objects, the peer is killed behind the first", "explicit", "16384", "the retrieval ends, the next peer is served")
        path = made(COMPRESSED["RLE"])
        text, _ = peer_run("getscu", "-v", "-S", "-k", "QueryRetrieveLevel=IMAGE", *keys_of(path), *server.at, status=None)
        contains(str(server.wait("get", status="A702", failed=1)), "did not accept")
        row("C-GET by a peer that takes no compressed syntax", "RLE", "16384", "failed: A702, for no syntax that it takes")


# Other implementations.

def gdcmscu():
    """It ends with an exception at every release, whoever the peer is: what counts is what arrived, and the log."""
    names = ("--call", "ARCHIVE", "--aetitle", "GDCMSCU")
    with archive() as server:
        since = len(server.log())
        peer_run("gdcmscu", "--echo", *server.at, *names, status=None)
        server.wait("association", since=since, end="released")
        row("echo", "implicit", "16384", "answered")
        paths = {syntax: path for syntax, path in objects().items() if syntax not in ("big", "deflated")}
        for syntax, path in paths.items():
            peer_run("gdcmscu", "--store", *server.at, *names, path, status=None)
            same(path, find_file(server.folder, uid_of(path)))
            row("C-STORE", syntax, "16384", f"stored as {kind_of(find_file(server.folder, uid_of(path)))}")
        text, _ = peer_run("gdcmscu", "-D", "--find", *server.at, *names, "--study", "--studyroot", "--key", "10,10=*", status=None)
        contains(text, "C-Find was successful")
        equal(server.wait("find", status="0000")["matches"], len({uid_of(path, UIDS[0]) for path in paths.values()}))
        row("C-FIND, study root, with a wildcard", "implicit", "16384", "all responses taken; it ends before it prints them")
    port = free_port()
    for syntax, path in paths.items():
        with archive("--peers", peers_file(GDCMSCU=port)) as server:
            run("store", *server.at, path)
            _, folder = peer_run("gdcmscu", "--move", *server.at, *names, "--port-scp", port, "--studyroot", "--study", "--key",
                                 "20,d=" + uid_of(path, UIDS[0]), "-o", ".", status=None)
            if syntax in SYNTAXES:
                same(path, find_file(folder, uid_of(path)))
                row("C-MOVE to itself", syntax, "16384", f"arrived as {kind_of(find_file(folder, uid_of(path)))}")
            else:
                contains(str(server.wait("move", status="A702")), "did not accept")
    row("C-MOVE to itself", "compressed", "16384", "failed: A702, for no syntax that it takes")


def odil():
    with archive() as server:
        names = ("ODIL", "ARCHIVE")
        peer_run("odil", "echo", *server.at, *names)
        row("echo", "implicit", "16384", "answered")
        for syntax in ("implicit", "explicit", "big"):
            path = made("CT_small.dcm", syntax)
            peer_run("odil", "store", *server.at, *names, path)
            same(path, find_file(server.folder, uid_of(path)), rounded=True)
            row("C-STORE", syntax, "16384", f"stored as {kind_of(find_file(server.folder, uid_of(path)))}")
        text, _ = peer_run("odil", "find", *server.at, *names, "study", "QueryRetrieveLevel=STUDY", "PatientName=Compressed*", "StudyInstanceUID")
        contains(text, uid_of(path, UIDS[0]))
        row("C-FIND, study root, with a wildcard", "explicit", "16384", "the matches")
        path = made("CT_small.dcm", "explicit")
        _, folder = peer_run("odil", "get", "-d", ".", *server.at, *names, "study", "QueryRetrieveLevel=IMAGE",
                             *[f"{keyword}={uid_of(path, keyword)}" for keyword in UIDS])
        same(path, find_file(folder, uid_of(path)), rounded=True)
        row("C-GET", "explicit", "16384", "arrived as it is")


def orthanc():
    with archive() as server, Running("orthanc.sh", "ARCHIVE", server.port) as peer:
        for syntax, path in objects().items():
            peer.vdicom("store", path, called="ORTHANC")
            peer_run("movescu", "-S", "-aec", "ORTHANC", "-aem", "ARCHIVE", "-k", "QueryRetrieveLevel=IMAGE", *keys_of(path), HOST, peer.port)
            stored = find_file(server.folder, uid_of(path))
            same(path, stored)
            row("C-STORE", syntax, "16384", f"stored as {kind_of(stored)}")
    orthanc_asks()


class OrthancClient:
    """Orthanc with its REST interface on, which makes it ask others."""

    def __init__(self, port):
        if not (program := shutil.which("Orthanc", path=os.environ.get("PATH", "") + ":/usr/sbin")):
            skip("Orthanc is not there")
        self.program, self.port, self.http = program, int(port), free_port()
        self.folder = tempfile.mkdtemp(dir=WORK)

    def start(self, archive_port):
        config = {"StorageDirectory": self.folder, "IndexDirectory": self.folder, "Plugins": [], "HttpPort": int(self.http),
                  "RemoteAccessAllowed": False, "AuthenticationEnabled": False, "DicomAet": "ORTHANC", "DicomPort": self.port,
                  "DicomModalities": {"archive": {"AET": "ARCHIVE", "Host": HOST, "Port": int(archive_port)}}}
        path = os.path.join(self.folder, "orthanc.json")
        with open(path, "w", encoding="ascii") as file:
            json.dump(config, file)
        self.process = subprocess.Popen([self.program, path], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.until(self.is_up)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait(30)

    def until(self, condition):
        end = time.monotonic() + 30
        while not (found := condition()):
            assert time.monotonic() < end and self.process.poll() is None, condition
            time.sleep(0.05)
        return found

    def is_up(self):
        try:
            return self.rest("system")
        except OSError:
            return None

    def rest(self, path, body=None):
        """The answer of its REST interface; a body makes it a POST."""
        data = body if body is None or isinstance(body, bytes) else json.dumps(body).encode()
        with urllib.request.urlopen(f"http://{HOST}:{self.http}/{path}", data, 60) as answer:
            text = answer.read()
        return json.loads(text) if text[:1] in b"{[" else text

    def empty(self):
        for study in self.rest("studies"):
            urllib.request.urlopen(urllib.request.Request(f"http://{HOST}:{self.http}/studies/{study}", method="DELETE")).close()


def orthanc_asks():
    port = free_port()
    with OrthancClient(port) as peer, archive("--peers", peers_file(ORTHANC=port)) as server:
        peer.start(server.port)
        path, packed = made("CT_small.dcm", "explicit"), made(COMPRESSED["JPEG 2000"])
        # What it is given by a client of its REST interface, it stores with us.
        for one in (path, packed):
            with open(one, "rb") as file:
                peer.rest("modalities/archive/store", peer.rest("instances", file.read())["ID"].encode())
            arrived_in(server.folder, one)
        row("C-STORE (`/modalities/.../store`)", "explicit, JPEG 2000", "16384", "stored as they are")
        wanted = {"Patient": "PatientID", "Study": UIDS[0], "Series": UIDS[1], "Instance": UIDS[2]}
        for level, unique in wanted.items():
            peer.empty()
            keys = {keyword: uid_of(path, keyword) for keyword in list(wanted.values())[:list(wanted).index(level) + 1]}
            query = peer.rest("modalities/archive/query", {"Level": level, "Query": {**keys, "PatientName": ""}})["ID"]
            (answer,) = [peer.rest(f"queries/{query}/answers/{one}/content?simplify") for one in peer.rest(f"queries/{query}/answers")]
            equal(answer[unique], uid_of(path, unique))
            if level == "Patient":
                try:
                    peer.rest(f"queries/{query}/retrieve", {"TargetAet": "ORTHANC", "Synchronous": True})
                except urllib.error.HTTPError:
                    server.wait("move", status="A900")
                    continue
                raise AssertionError("Orthanc moves patients now: a row for it")
            peer.rest(f"queries/{query}/retrieve", {"TargetAet": "ORTHANC", "Synchronous": True})
            (instance,) = peer.rest("instances")
            got = os.path.join(WORK, "got.dcm")
            with open(got, "wb") as file:
                file.write(peer.rest(f"instances/{instance}/file"))
            same(path, got)
        row("C-FIND, every level (`/modalities/.../query`)", "", "16384", "the match")
        row("C-MOVE of a study, a series, an instance found (`/queries/.../retrieve`)", kind_of(got), "16384", "arrived as they are")
        row("C-MOVE of a patient found: it asks in the study root, which has no patients", "", "16384", "refused: A900")
        peer.rest("modalities/archive/move", {"Level": "Study", "TargetAet": "ORTHANC", "Resources": [{UIDS[0]: uid_of(packed, UIDS[0])}]})
        (study,) = [one for one in peer.rest("studies?expand") if one["MainDicomTags"][UIDS[0]] == uid_of(packed, UIDS[0])]
        (instance,) = peer.rest(f"studies/{study['ID']}/instances")
        with open(got, "wb") as file:
            file.write(peer.rest(f"instances/{instance['ID']}/file"))
        same(packed, got)
        equal(kind_of(got), kind_of(packed))
        row("C-MOVE (`/modalities/.../move`)", kind_of(got), "16384", "arrived as it is")
        there, missing = [uid_of(path, "SOPClassUID"), uid_of(path)], [uid_of(path, "SOPClassUID"), "1.2.826.0.99"]
        for asked, status in (([there], "Success"), ([there, missing], "Failure")):
            report = peer.rest("modalities/archive/storage-commitment", {"DicomInstances": asked})["Path"][1:]
            found = peer.until(lambda at=report: (got := peer.rest(at))["Status"] != "Pending" and got)
            equal(found["Status"], status)
            equal([one["SOPInstanceUID"] for one in found["Success"]], [there[1]])
            equal([(one["SOPInstanceUID"], one["FailureReason"]) for one in found["Failures"]], [(missing[1], 0x0112)] if missing in asked else [])
            row("N-ACTION, report over a new association (`/modalities/.../storage-commitment`)", "explicit", "16384",
                "all committed" if status == "Success" else "one committed, one failed: 0112")


# Storage commitment.

def commit():
    """With a small client of ours, as no program here asks for it."""
    port = free_port()
    references = [item_of(made("CT_small.dcm", "explicit")), item_of(made("MR_small.dcm", "implicit"))]
    missing = element(0x00081150, "UI", "1.2.840.10008.5.1.4.1.1.2") + element(0x00081155, "UI", "1.2.826.0.99")
    with archive("--peers", peers_file(COMMITTER=port)) as server:
        run("store", *server.at, made("CT_small.dcm", "explicit"), made("MR_small.dcm", "implicit"))
        for own, where in (("0", "over the association that asked"), (port, "over a new one, after a release")):
            for asked, event, result in ((references, 1, "all committed"), ([*references, missing], 2, "two committed, one failed: 0112")):
                folder = tempfile.mkdtemp(dir=WORK)
                with open(os.path.join(folder, "request"), "wb") as file:
                    file.write(part10(element(0x00081195, "UI", "1.2.826.0.1.77") + sequence(0x00081199, *asked)))
                text, _ = peer_run(sys.argv[5], server.port, own, os.path.join(folder, "request"), os.path.join(folder, "report"))
                contains(text, f"event {event}")
                report = run("dump", "--json", os.path.join(folder, "report")).json()
                equal(report["00081195"]["Value"], ["1.2.826.0.1.77"])
                equal(len(report["00081199"]["Value"]), 2)
                equal([(one["00081155"]["Value"], one["00081197"]["Value"]) for one in report.get("00081198", {}).get("Value", [])],
                      [(["1.2.826.0.99"], [0x0112])] if event == 2 else [])
                row(f"N-ACTION, report {where}", "explicit", "16384", result)


def item_of(path):
    return element(0x00081150, "UI", uid_of(path, "SOPClassUID")) + element(0x00081155, "UI", uid_of(path))


NAMES = {"storescu": "`storescu` (dcmtk)", "findscu": "`findscu` (dcmtk)", "movescu": "`movescu` (dcmtk)", "getscu": "`getscu` (dcmtk)",
         "orthanc": "Orthanc", "gdcmscu": "`gdcmscu` (gdcm)", "odil": "`odil`",
         "commit": "a client of this library"}
see(globals()[PEER], lambda line: line.endswith(f"| peer.serve.{PEER} |"))
