"""vdicom serve with the program's own clients, and with peers that behave badly."""
import os
import random
import signal
import socket
import sqlite3
import struct
import subprocess
import sys
import threading
import time

from server import Server
from support import BIG, DEFLATED, EXPLICIT, IMPLICIT, PROGRAM, element, free_port, main, part10, run
from upper_layer import (RELEASE, RELEASED, VERIFICATION, accept, association, dimse, item, message, pdu, receive, receive_bytes,
                         respond)

CLASS = "1.2.840.10008.5.1.4.1.1.7"


def make(folder, name, patient, study, series, instance, *, pixels=b"", modality="OT", text="Doe^Jane"):
    content = (element(0x00080005, "CS", "ISO_IR 100") + element(0x00080016, "UI", CLASS) +
               element(0x00080018, "UI", instance) + element(0x00080020, "DA", "20240229") +
               element(0x00080060, "CS", modality) + element(0x00100010, "PN", text) +
               element(0x00100020, "LO", patient) + element(0x0020000D, "UI", study) +
               element(0x0020000E, "UI", series) + element(0x00200013, "IS", "1") +
               element(0x7FE00010, "OB", pixels))
    return folder.write(name, part10(content).replace(
        element(0x00020003, "UI", "1.2.3"), element(0x00020003, "UI", instance)))


def content(path):
    """What stands behind group 0002."""
    return [line.strip() for line in run("dump", path).lines if not line.strip().startswith(("(0002,", "#"))]


def files_below(folder):
    return sorted(os.path.join(at, name) for at, _, names in os.walk(folder) for name in names
                  if name.endswith(".dcm") and "/.vdicom" not in at)


def archived(server):
    """Its files, once those that were replaced are gone: a query brings index and files up to the last object."""
    run("find", *server.at, "--level", "study")
    return files_below(server.folder)


def fill(folder, server, count=3):
    paths = [make(folder, f"in/{i}.dcm", f"P{i % 2}", f"1.2.{i % 2}", f"1.2.{i % 2}.1", f"1.2.9.{i}",
                  pixels=bytes([i % 250] * 2000)) for i in range(count)]
    run("store", *server.at, folder("in"))
    return paths


def test_stores_finds_and_gives_back(folder):
    with Server(folder("archive")) as server:
        run("echo", *server.at)
        paths = fill(folder, server, 5)
        studies = run("find", *server.at, "--level", "study", "--json", "-k", "PatientID",
                      "-k", "NumberOfStudyRelatedInstances").json()
        assert sorted((s["00100020"]["Value"][0], s["00201208"]["Value"][0]) for s in studies) == [("P0", 3), ("P1", 2)]
        run("get", *server.at, "--level", "study", "-k", "StudyInstanceUID=1.2.0", "--to", folder("got"))
        got = {tuple(content(path)) for path in files_below(folder("got"))}
        assert got == {tuple(content(paths[i])) for i in (0, 2, 4)}, got
        assert len(server.log("store")) == 5 and len(files_below(server.folder)) == 5
        # The same again replaces, and is not doubled.
        run("store", *server.at, folder("in"))
        assert len(archived(server)) == 5
        assert server.stop() == 0 and server.log()[-1]["event"] == "stop"


def test_every_uncompressed_syntax_and_a_compressed_one(folder):
    with Server(folder("archive")) as server:
        first = make(folder, "first.dcm", "P", "1.2", "1.2.1", "1.2.9.1", pixels=b"\1\2" * 5000)
        for number, syntax in enumerate((IMPLICIT, EXPLICIT, BIG, DEFLATED)):
            run("convert", "--to", syntax, first, folder("one.dcm"))
            run("store", *server.at, folder("one.dcm"), "--max-pdu", "4096")
            (stored,) = archived(server)
            assert run("dump", "--tag", "TransferSyntaxUID", stored).out.count(syntax + " "), number
            assert content(stored) == content(folder("one.dcm")), number


def test_get_brings_objects_of_one_class_each_as_it_is_stored(folder):
    syntaxes = (IMPLICIT, EXPLICIT, BIG, DEFLATED, "1.2.840.10008.1.2.5")
    with Server(folder("archive")) as server:
        for number, syntax in enumerate(syntaxes[:4]):
            os.makedirs(folder("in"), exist_ok=True)
            run("convert", "--to", syntax, make(folder, "one.dcm", "P", "1.2", "1.2.1", f"1.2.9.{number}"), folder(f"in/{number}.dcm"))
        folder.write("in/4.dcm", part10(b"".join(element(tag, "UI", uid) for tag, uid in (
            (0x00080016, CLASS), (0x00080018, "1.2.9.4"), (0x0020000D, "1.2"), (0x0020000E, "1.2.1"))), syntaxes[4]))
        run("store", *server.at, folder("in"))
        run("get", *server.at, "-k", "StudyInstanceUID=1.2", "--to", folder("got"))
        for number, syntax in enumerate(syntaxes):
            assert run("dump", "--tag", "TransferSyntaxUID", folder(f"got/1.2.9.{number}.dcm")).out.count(syntax + " "), number


def test_moves_to_known_peers_and_to_no_others(folder):
    with Server(folder("target")) as target:
        peers = folder.write("peers", f"TARGET 127.0.0.1 {target.port} # here\nDEAD 127.0.0.1 {free_port()}\n".encode())
        with Server(folder("archive"), "--peers", peers) as server:
            fill(folder, server)
            move = ("move", *server.at, "--level", "patient", "-k", "PatientID=P0", "--destination")
            run(*move, "TARGET")
            assert len(files_below(target.folder)) == 2
            for destination, status, why in (("DEAD", "A702", "nobody listens"), ("NOBODY", "A801", "")):
                run(*move, destination, status=1)
                assert why in server.wait("move", destination=destination, status=status).get("comment", ""), server.log("move")[-1]
            # The peers file is read again.
            folder.write("peers", f"NOBODY 127.0.0.1 {target.port}\n".encode())
            server.process.send_signal(signal.SIGHUP)
            server.wait("peers", known=1)
            run(*move, "NOBODY")


def test_refuses_whom_it_is_told_to(folder):
    peers = folder.write("peers", b"FRIEND 127.0.0.1 104\n")
    with Server(folder("archive"), "--peers", peers, "--known-callers", "--check-called") as server:
        run("echo", *server.at, "--calling", "FRIEND", "--called", "ARCHIVE")
        run("echo", *server.at, "--calling", "STRANGER", "--called", "ARCHIVE", status=1)
        run("echo", *server.at, "--calling", "FRIEND", "--called", "OTHER", status=1)
        assert len(server.log("rejected")) == 2


def test_wrong_usage_and_archives_that_cannot_be_used(folder):
    with Server(folder("archive")) as server:
        for arguments in ([], ["--folder", "x", "--port", "70000"], ["--folder", "x", "--known-callers"],
                          ["--folder", "x", "--max-pdu", "4097"], ["--folder", "x", "--ae", "LONGER THAN SIXTEEN"]):
            run("serve", *arguments, status=2)
        assert "use" in run("serve", "--folder", server.folder, status=1).err
        run("serve", "--folder", folder("other"), "--address", "127.0.0.1", "--port", server.port, status=1)
        bad = folder.write("peers", b"ONE 127.0.0.1 104\nTWO 127.0.0.1 none\n")
        assert "line 2" in run("serve", "--folder", folder("third"), "--peers", bad, status=1).err


def test_killed_at_any_moment_it_keeps_what_it_acknowledged(folder):
    random.seed(7)
    for i in range(300):
        make(folder, f"in/{i:03}.dcm", f"P{i % 7}", f"1.2.{i % 7}", f"1.2.{i % 7}.1", f"1.2.9.{i}",
             pixels=bytes(random.randrange(20000)))
    server = Server(folder("archive"))
    acknowledged = set()
    for round_ in range(6):
        server.start()
        client = subprocess.Popen([PROGRAM, "store", *server.at, folder("in"), "--json"], stdout=subprocess.DEVNULL,
                                  stderr=subprocess.DEVNULL)
        before, count = len(server.log("store")), random.randrange(100)
        while len(server.log("store")) < before + count and client.poll() is None:
            time.sleep(0.001)
        server.process.kill()
        server.process.communicate()
        client.wait(60)
        acknowledged |= {entry["instance"] for entry in server.log("store") if entry["status"] == "0000"}
        with Server(folder("archive")) as again:
            found = {one["00080018"]["Value"][0] for one in images(again)}
            assert acknowledged <= found, (round_, acknowledged - found)
            for path in files_below(server.folder):
                run("dump", "--tag", "PixelData", path)
            assert len(files_below(server.folder)) >= len(found)
    assert acknowledged


def images(server):
    found = []
    for study in run("find", *server.at, "--level", "study", "--json", "-k", "StudyInstanceUID").json():
        uid = study["0020000D"]["Value"][0]
        found += run("find", *server.at, "--level", "image", "--json", "-k", f"StudyInstanceUID={uid}",
                     "-k", f"SeriesInstanceUID={uid}.1", "-k", "SOPInstanceUID").json()
    return found


def test_the_index_is_made_anew_from_the_files(folder):
    with Server(folder("archive")) as server:
        fill(folder, server, 6)
        before = images(server)
    for name in os.listdir(os.path.join(server.folder, ".vdicom")):
        if name.startswith("index"):
            os.remove(os.path.join(server.folder, ".vdicom", name))
    assert "reindex" in run("serve", "--folder", server.folder, "--port", "0", status=1).err
    assert "6 objects" in run("serve", "--folder", server.folder, "--reindex").out
    for i in range(300):  # complaints that fill the pipe before the end is reached
        folder.write(f"archive/{i}.dcm", b"no object")
    with subprocess.Popen([PROGRAM, "serve", "--folder", server.folder, "--reindex"], stderr=subprocess.PIPE, pipesize=4096) as process:
        process.stderr.readline()
        process.send_signal(signal.SIGINT)
        assert b"interrupted; the old index stays\n" in process.stderr.read()
    assert process.returncode == 1
    with Server(folder("archive")) as server:
        key = lambda one: one["00080018"]["Value"][0]
        assert sorted(images(server), key=key) == sorted(before, key=key)


def test_bad_peers_disturb_nobody(folder):
    request = b"\1\0" + struct.pack(">I", 68) + b"\0\1\0\0" + b"A" * 64  # no application context, nothing
    attacks = [b"", b"GET / HTTP/1.1\r\n\r\n", b"\x16\3\1\2\0\1\0\1\xfc\3\3", b"\1\0\xff\xff\xff\xff", request,
               b"\1\0\0\0\0\0", b"\4\0\0\0\0\6\0\0\0\2\1\3", b"\4\0\0\0\0\12\xff\xff\xff\xff\1\3\0\0\0\0",
               b"\5\0\0\0\0\4\0\0\0\0", b"\6\0\0\0\0\4\0\0\0\0", b"\7\0\0\0\0\4\0\0\2\0", b"\x99\0\0\0\0\1\0",
               os.urandom(5000)]
    with Server(folder("archive")) as server:
        stop = threading.Event()

        def attack():
            while not stop.is_set():
                for bytes_ in attacks:
                    with socket.create_connection(server.at) as one:
                        one.sendall(bytes_)
                        one.settimeout(0.05)
                        try:
                            one.recv(100)
                        except OSError:
                            pass

        threads = [threading.Thread(target=attack) for _ in range(4)]
        silent = [socket.create_connection(server.at) for _ in range(200)]
        for thread in threads:
            thread.start()
        try:
            fill(folder, server, 40)
            run("echo", *server.at, "--repeat", "50")
        finally:
            stop.set()
            for thread in threads:
                thread.join()
            for one in silent:
                one.close()
        assert len(files_below(server.folder)) == 40
        descriptors = f"/proc/{server.process.pid}/fd"
        if os.path.isdir(descriptors):
            end = time.monotonic() + 10
            while len(os.listdir(descriptors)) > 40 and time.monotonic() < end:
                time.sleep(0.05)
            assert len(os.listdir(descriptors)) <= 40, len(os.listdir(descriptors))


def talk(server, *pdus, until=b""):
    """Sends all, and reads until the server closes, or until `until` has come."""
    with socket.create_connection(server.at) as one:
        one.settimeout(15)
        received = b""
        try:
            for bytes_ in pdus:
                one.sendall(bytes_)
                time.sleep(0.05)
            while (piece := one.recv(65536)) and (not until or until not in received + piece):
                received += piece
            received += piece
        except ConnectionError:
            pass
        return received


def next_kind(connection):
    """The type of the next PDU; None: the other side has closed."""
    try:
        return receive(connection)[0]
    except (EOFError, ConnectionError):
        return None


def ask(connection, service, field):
    """C-FIND, C-GET or C-MOVE of the objects of a series."""
    find = field == 0x0020
    keys = ((0x00080018, "UI", ""), (0x00080052, "CS", "IMAGE" if find else "SERIES"), (0x00100010, "PN", ""),
            (0x00100020, "LO", "P0"), (0x0020000D, "UI", "1.2.0"), (0x0020000E, "UI", "1.2.0.1"))
    identifier = b"".join(element(*key, implicit=True) for key in keys if key[2] or find)
    connection.sendall(dimse(1, {0x0002: service, 0x0100: field, 0x0110: 7, 0x0700: 0,
                                 **({0x0600: "TARGET"} if field == 0x0021 else {})}, identifier))


MOVE, GET, FIND = (f"1.2.840.10008.5.1.4.1.2.1.{i}" for i in (2, 3, 1))


def requestor(server, service):
    """A peer with an association for a service and, as a provider, for storage."""
    peer = socket.create_connection(server.at)
    peer.settimeout(20)
    peer.sendall(association(1, [(1, service, IMPLICIT), (3, CLASS, EXPLICIT)], calling="ASKER",
                             more=item(0x54, struct.pack(">H", len(CLASS)) + CLASS.encode() + b"\1\1")))
    assert receive(peer)[0] == 2
    return peer


def destination(listener, server):
    """Has a C-MOVE sent to a listener. @return the requestor, and the destination with the first C-STORE request"""
    asker = requestor(server, MOVE)
    ask(asker, MOVE, 0x0021)
    target, _ = listener.accept()
    target.settimeout(20)
    accept(target)
    return asker, target, message(target)


def listening():
    listener = socket.create_server(("127.0.0.1", 0))
    listener.settimeout(20)
    return listener, f"TARGET 127.0.0.1 {listener.getsockname()[1]}\nNAMED localhost {{}}\nNOWHERE no-such-host.invalid 104\n"


def test_objects_of_a_move_name_who_asked_and_warnings_are_told(folder):
    listener, lines = listening()
    with Server(folder("target")) as other, listener:
        peers = folder.write("peers", lines.format(other.port).encode())
        with Server(folder("archive"), "--peers", peers, "--timeout", "1") as server:
            fill(folder, server, 1)
            asker, target, (context, command, _, _) = destination(listener, server)
            assert (command[0x1030], command[0x1031]) == (b"ASKER ", b"\7\0"), command
            respond(target, context, command, 0xB000)
            assert server.wait("move", status="B000")["warnings"] == 1
            asker.sendall(RELEASE)
            # One that answers no request for an association, names, and one that cannot be found.
            move = ("move", *server.at, "--level", "patient", "-k", "PatientID=P0", "--destination")
            run(*move, "TARGET", status=1)
            assert "did not answer" in str(server.wait("move", status="A702")), server.log("move")
            run(*move, "NAMED")
            assert len(files_below(other.folder)) == 1
            run(*move, "NOWHERE", status=1)
            assert "no-such-host.invalid" in server.log("move")[-1]["comment"]


def test_a_release_ends_what_is_under_way(folder):
    listener, lines = listening()
    with listener, Server(folder("archive"), "--peers", folder.write("peers", lines.format(1).encode())) as server:
        fill(folder, server, 400)
        # In the middle of an object of a C-GET, and of a C-MOVE whose destination is silent.
        peer = requestor(server, GET)
        ask(peer, GET, 0x0010)
        assert message(peer)[1][0x0100] == b"\1\0"
        peer.sendall(RELEASE)
        assert receive_bytes(peer) == RELEASED
        assert server.wait("get", end="released")["completed"] == 0
        asker, target, _ = destination(listener, server)
        asker.sendall(RELEASE)
        assert receive_bytes(asker) == RELEASED
        assert server.wait("move", end="released")["destination"] == "TARGET"
        assert next_kind(target) is None
        # More answers of C-FIND than the connection holds.
        peer = requestor(server, FIND)
        for _ in range(15):
            ask(peer, FIND, 0x0020)
        message(peer)
        peer.sendall(RELEASE)
        run("echo", *server.at)
        answers = 1
        while (kind := next_kind(peer)) == 4:
            answers += 1
        assert kind == RELEASED[0]
        assert server.wait("find", end="released") and answers < 15 * 201, answers


def test_a_peer_cannot_accept_itself_and_gets_an_answer_to_every_request(folder):
    peers = folder.write("peers", b"FRIEND 127.0.0.1 104\n")
    with Server(folder("archive"), "--peers", peers, "--known-callers") as server:
        echo = dimse(1, {0x0002: VERIFICATION, 0x0100: 0x0030, 0x0110: 7})
        assert talk(server, association(1), association(2), echo)[:1] == b"\3"  # rejected, and nothing after it
        for forged in (association(2), pdu(3, b"\0\1\1\1"), RELEASED):
            assert talk(server, forged, echo) == b"", forged
        friend = association(1, calling="FRIEND")
        status = element(0x00000900, "US", struct.pack("<H", 0x0211), implicit=True)
        for field in (0x0100, 0x0110, 0x0120, 0x0140, 0x0150, 0x7777):
            assert status in talk(server, friend, dimse(1, {0x0002: VERIFICATION, 0x0100: field, 0x0110: 9}), until=status), hex(field)
            assert server.log("refused")[-1]["command"] == f"{field:04X}"
        # Releases without end are answered once, and the connection ends.
        assert talk(server, friend, RELEASE * 1000).count(RELEASED) == 1


def test_what_is_stored_while_the_index_is_locked_is_kept(folder):
    query = ["--level", "image", "-k", "StudyInstanceUID=1.2.9", "-k", "SeriesInstanceUID=1.2.9.1"]
    with Server(folder("archive")) as server:
        fill(folder, server, 1)
        run("find", *server.at, *query)
        other = sqlite3.connect(os.path.join(server.folder, ".vdicom/index.sqlite"), isolation_level=None)
        other.execute("BEGIN IMMEDIATE")
        late = [make(folder, f"late{i}.dcm", "P9", "1.2.9", "1.2.9.1", f"1.2.9.9{i}") for i in range(2)]
        run("store", *server.at, late[0])
        run("find", *server.at, *query, status=1)  # rather than leave it out
        run("store", *server.at, late[1], status=1)
        assert server.log("store")[-1]["status"] == "A700"
        other.execute("ROLLBACK")
        other.close()
        run("store", *server.at, late[1])
        assert len(run("find", *server.at, *query, "--json").json()) == 2


main(sys.modules[__name__])
