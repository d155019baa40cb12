"""echo, store, find, get and move against peers that misbehave: each gets a sentence, and nothing hangs."""
import contextlib
import os
import queue
import re
import resource
import signal
import socket
import struct
import subprocess
import sys
import threading
import time

from support import BIG, DEFLATED, EXPLICIT, IMPLICIT, PROGRAM, contains, element, equal, free_port, image, main, part10, run
from terminal_test import on_terminal
from upper_layer import ABORT, RELEASE, accept, association, dimse, message, number_of, pdu, receive, respond, send_store

CT, FIND = "1.2.840.10008.5.1.4.1.1.2", b"\x20\0"


@contextlib.contextmanager
def peer(*talks):
    """Listens; each connection is handed to the next talk, the last of them to all that follow."""
    server = socket.create_server(("127.0.0.1", 0))
    left = list(talks)
    failures = []

    def serve():
        while True:
            try:
                connection, _ = server.accept()
            except OSError:
                return
            connection.settimeout(20)
            try:
                (left.pop(0) if len(left) > 1 else left[0])(connection)
            except (OSError, EOFError):
                pass
            except Exception as failure:  # told by the test's own thread
                failures.append(failure)
            connection.close()

    thread = threading.Thread(target=serve, daemon=True)
    thread.start()
    yield str(server.getsockname()[1])
    server.shutdown(socket.SHUT_RDWR)
    server.close()
    thread.join(20)
    if failures:
        raise failures[0]


def objects(folder, count, of=lambda i: CT):
    """So many small objects in the folder `in`."""
    return [folder.write(f"in/{i}.dcm", part10(element(0x00080016, "UI", of(i)) + element(0x00080018, "UI", f"1.2.{i}"))) for i in range(count)]


def echo(port, *arguments, status=1):
    return run("echo", "127.0.0.1", port, *arguments, status=status).err


def test_no_connection(_):
    contains(echo(free_port()), "check host and port")
    contains(run("echo", "no.such.host.invalid", "104", status=1).err, "check the host's name")
    result = run("echo", "127.0.0.1", free_port(), "--json", status=1).json()
    contains(result["error"], "no connection")


def test_peers_that_are_no_dicom_peers(_):
    talks = {
        "is it a DICOM port": lambda c: c.recv(1) and time.sleep(3),
        "closed the connection before": lambda c: receive(c),
        "cannot be understood|no DICOM|closed the connection": lambda c: receive(c) and c.sendall(b"HTTP/1.1 400 Bad Request\r\n\r\n"),
        "does not have the called AE title": lambda c: receive(c) and c.sendall(b"\3\0\0\0\0\4\0\1\1\7"),
        "busy": lambda c: receive(c) and c.sendall(b"\3\0\0\0\0\4\0\2\3\1"),
        "protocol machine aborted": lambda c: receive(c) and c.sendall(ABORT),
        "began a PDU|nothing went": lambda c: accept(c) and message(c) and c.sendall(b"\4\0\0\0\1") or time.sleep(3),
        "was not accepted": lambda c: accept(c, lambda *_: None) and receive(c),
        "not with success: status 0122": lambda c: accept(c) and respond(c, *message(c)[:2], 0x0122) or receive(c),
        "nothing went either way": lambda c: accept(c) and message(c) and time.sleep(3),
        "released the association": lambda c: accept(c) and message(c) and c.sendall(RELEASE) or receive(c),
    }
    for wanted, talk in talks.items():
        with peer(talk) as port:
            begin = time.monotonic()
            error = echo(port, "--timeout", "1")
            assert re.search(wanted, error), (wanted, error)
            assert time.monotonic() - begin < 10, wanted


def test_files_are_encoded_as_the_peer_takes_them(folder):
    paths = [folder.write("implicit.dcm", part10(
        element(0x00080016, "UI", CT, implicit=True) + element(0x00080018, "UI", "1.2.7", implicit=True), IMPLICIT)),
             folder.write("big.dcm", part10(element(0x00080016, "UI", CT, big=True) +
                                            element(0x00080018, "UI", "1.2.8", big=True), BIG)),
             folder.write("deep/jpeg.dcm", part10(element(0x00080016, "UI", CT) + element(0x00080018, "UI", "1.2.9"),
                                                  "1.2.840.10008.1.2.4.50")),
             folder.write("deep/notes.txt", b"no DICOM at all, but a text that is long enough to be looked at\n" * 9)]
    seen = []

    def talk(connection):
        accepted = accept(connection, lambda _, syntaxes: IMPLICIT if IMPLICIT in syntaxes else None, limit=1024)
        while (got := message(connection)) is not None:
            context, command, data, largest = got
            seen.append((accepted[context], data[8:8 + len(CT) + 1].rstrip(b"\0").decode(), largest <= 1024))
            respond(connection, context, command, 0xB007 if seen[1:] else 0)

    with peer(talk) as port:
        result = run("store", "127.0.0.1", port, "--json", *paths[:2], folder("deep"), status=1).json()
    equal(seen, [((CT, IMPLICIT), CT, True)] * 2)
    equal((result["stored"], result["warnings"], result["failed"], result["passedOver"], result["associations"]), (2, 1, 1, 1, 1))
    problems = {problem["result"]: problem["text"] for problem in result["problems"]}
    equal(sorted(problems), ["failed", "warning"])
    contains(problems["failed"], "decompress the file")


def test_more_contexts_than_an_association_has_take_several(folder):
    objects(folder, 130, lambda i: f"1.2.3.{i}")
    seen = []

    def talk(connection):
        accepted = accept(connection)
        assert len(accepted) <= 128
        while (got := message(connection)) is not None:
            equal(accepted[got[0]][0], got[1][2].rstrip(b"\0").decode())
            seen.append(accepted[got[0]])
            respond(connection, *got[:2], 0)

    with peer(talk) as port:
        result = run("store", "127.0.0.1", port, "--json", "--repeat", "2", folder("in")).json()
    equal((result["stored"], result["associations"], len(seen), len(set(seen))), (260, 3, 260, 130))


def test_a_lost_connection_tells_what_is_stored_and_is_made_again_when_told_so(folder):
    objects(folder, 5)

    def talk(connection, answers=2):
        accept(connection)
        for _ in range(answers):
            got = message(connection)
            if got is None:
                return
            respond(connection, *got[:2], 0)
        message(connection)

    with peer(talk, lambda c: None) as port:
        result = run("store", "127.0.0.1", port, folder("in"), status=1)
        contains(result.out, "stored 2 files")
        contains(result.out, "3 not sent")
        equal(re.findall(r"(\d)\.dcm: not sent", result.err), ["2", "3", "4"])
    with peer(talk) as port:
        result = run("store", "127.0.0.1", port, "--retry", "1", "--json", folder("in")).json()
        equal((result["stored"], result["notSent"], result["associations"]), (5, 0, 3))


def test_an_object_that_is_refused_is_listed_with_its_status_and_not_sent_again(folder):
    objects(folder, 3)
    statuses = {"1.2.0": 0xA700, "1.2.1": 0xC123, "1.2.2": 0}
    seen = []

    def talk(connection):
        accept(connection)
        while (got := message(connection)) is not None:
            seen.append(got[1][0x1000].rstrip(b"\0").decode())
            status = statuses[seen[-1]]
            respond(connection, *got[:2], status, extra={0x0902: b"no room today "} if status else ())

    with peer(talk) as port:
        result = run("store", "127.0.0.1", port, "--retry", "3", "--json", folder("in"), status=1).json()
    equal((sorted(seen), result["stored"], result["failed"]), (sorted(statuses), 1, 2))
    equal({problem["sopInstanceUID"]: problem["status"] for problem in result["problems"]}, {"1.2.0": 0xA700, "1.2.1": 0xC123})
    for problem in result["problems"]:
        assert re.match(f"status {problem['status']:04X}, .*no room today", problem["text"]), problem


def test_matches_are_cut_behind_the_limit_and_control_characters_stay_off_the_terminal(_):
    seen = []

    def talk(connection):
        accept(connection)
        context, command, _, _ = message(connection)
        for i in range(3):
            respond(connection, context, command, 0xFF00, data=element(0x00100020, "LO", f"{i}\x1b[2J"))
        seen.append(number_of(message(connection)[1][0x0100]))
        respond(connection, context, command, 0xFE00)
        message(connection)

    with peer(talk) as port:
        result = run("find", "127.0.0.1", port, "--limit", "2", "--json")
        equal([match["00100020"]["Value"][0][0] for match in result.json()], ["0", "1"])
        contains(result.err, "more matches")
        assert "\x1b" not in run("find", "127.0.0.1", port, "--limit", "2").out
    equal(seen, [0x0FFF] * 2)


def test_an_interrupt_cancels_a_query_and_aborts_a_store(folder):
    path = folder.write("a.dcm", image())
    running = queue.SimpleQueue()
    seen, final = [], [0xFE00, 0]  # a peer may be done before the cancel reaches it

    def query(connection):
        accept(connection)
        message(connection)
        running.get(timeout=20).send_signal(signal.SIGINT)
        context, command, _, _ = message(connection)
        seen.append(number_of(command[0x0100]))
        command = {0x0100: struct.pack("<H", 0x0020), 0x0110: command[0x0120]}
        respond(connection, context, command, final.pop())
        message(connection)

    def store(connection):
        accept(connection)
        message(connection)
        running.get(timeout=20).send_signal(signal.SIGINT)
        seen.append(receive(connection)[0])

    for talk, arguments in ((query, ("find",)), (query, ("find",)), (store, ("store",))):
        with peer(talk) as port:
            files = [path] if talk is store else []
            with subprocess.Popen([PROGRAM, *arguments, "127.0.0.1", port, *files], stdout=subprocess.PIPE,
                                  stderr=subprocess.PIPE, text=True) as process:
                running.put(process)
                _, error = process.communicate(timeout=30)
            equal(process.returncode, 1)
            contains(error, "interrupted")
    equal(seen, [0x0FFF, 0x0FFF, 7])


def retrieval(status, numbers, *objects):
    """A peer of get and move: sends objects, waits for their answers, and says how many there were."""
    answers = []

    def talk(connection):
        accepted = accept(connection)
        context, command, _, _ = message(connection)
        while command[0x0100] == FIND:  # it has nothing to tell
            respond(connection, context, command, 0)
            if (following := message(connection)) is None:
                return
            context, command, _, _ = following
        stores = [number for number, (abstract, _) in accepted.items() if abstract == CT]
        for i, content in enumerate(objects):
            send_store(connection, stores[0], i + 1, CT, f"1.2.{i}", content)
            answers.append(number_of(message(connection)[1][0x0900]))
        respond(connection, context, command, status, extra=enumerate(numbers, 0x1020), data=element(0x00080058, "UI", ""))
        message(connection)

    return talk, answers


def stores(port, *objects):
    """Stores objects over an association with the program; their statuses, one after the other."""
    with socket.create_connection(("127.0.0.1", port)) as store:
        store.sendall(association(1, [(1, CT, EXPLICIT)], called="VDICOM"))
        equal(receive(store)[0], 2)
        for i, content in enumerate(objects):
            send_store(store, 1, i + 1, CT, f"1.2.{i}", content)
            yield number_of(message(store)[1][0x0900])


def test_a_retrieval_is_well_only_when_the_objects_are_here(folder):
    keys = ("-k", "StudyInstanceUID=1.2")
    talk, _ = retrieval(0, (0, 3, 0, 0))
    with peer(talk) as port:
        result = run("get", "127.0.0.1", port, "--to", folder("none"), *keys, status=1)
        contains(result.err, "says it sent 3 objects; 0 arrived here")
        result = run("move", "127.0.0.1", port, "--to", folder("none"), "--listen", free_port(), *keys, "--json", status=1)
        contains(result.json()["error"], "name this host and port?")
        run("move", "127.0.0.1", port, "--destination", "OTHER", *keys)
    talk, _ = retrieval(0, (0, 0, 0, 0))
    with peer(talk) as port:  # its response has a data set, which is no object
        run("get", "127.0.0.1", port, "--to", folder("none"), *keys)
    for status, numbers, wanted in ((0xB000, (0, 0, 0, 1), 0), (0xB000, (0, 0, 1, 1), 1), (0xB000, (1, 0, 0, 1), 1), (0, (1, 1, 0, 0), 1)):
        talk, _ = retrieval(status, numbers)
        with peer(talk) as port:
            run("move", "127.0.0.1", port, "--destination", "OTHER", *keys, status=wanted)


def archive(answers, offers):
    """A peer of get: answers queries by (level, series in the query), and notes what is offered for storage."""
    def talk(connection):
        accepted = accept(connection, lambda _, syntaxes: (offers.append((_, syntaxes)), syntaxes[0])[1])
        while (got := message(connection)) is not None:
            context, command, data, _ = got
            if command[0x0100] != FIND:
                respond(connection, context, command, 0, data=element(0x00080058, "UI", ""))
                continue
            level = next(name for name in ("IMAGE", "SERIES", "STUDY") if element(0x00080052, "CS", name) in data)
            status, *matches = answers.get((level, element(0x0020000E, "UI", "1.2.1") in data), (0xA900,))
            for match in matches:
                respond(connection, context, command, 0xFF00, data=b"".join(element(*one) for one in match))
            respond(connection, context, command, status)

    return talk


def test_get_offers_what_the_archive_says_that_it_has(folder):
    study, series, rle = (0x0020000D, "UI", "1.2"), (0x0020000E, "UI", "1.2.1"), "1.2.840.10008.1.2.5"
    image = ((0x00080016, "UI", CT), (0x00080018, "UI", "1.2.9"), (0x00083002, "UI", rle), study, series)
    classes = (0, ((0x00080062, "UI", CT), study))
    foreign = ((0x00080016, "UI", "1.3"), (0x0020000D, "UI", "1.2.0"), series)
    many = "\\".join(f"1.3.{i}" for i in range(3000))
    flood = ((0x00080016, "UI", f"{CT}\\{many}"), (0x00083002, "UI", f"{rle}\\{many}"), study, series)
    others = [(CT, sorted([EXPLICIT, IMPLICIT, BIG, DEFLATED]))]
    for answers, wanted in (
            ({("IMAGE", False): (0, image, foreign)}, [(CT, [rle])] + others),  # at once
            ({("IMAGE", False): (0, flood)}, 2 * [CT]),
            ({("IMAGE", True): (0, image), ("SERIES", False): (0, (study, series)), ("STUDY", False): classes}, [(CT, [rle])] + others),
            ({("SERIES", False): (0, (study, series)), ("STUDY", False): classes}, 2 * [CT]),  # images are refused
            ({("IMAGE", False): (0, image, (study, series)), ("STUDY", False): (0, (study,))}, 127),  # one is not told
            ({("IMAGE", False): (0xA700, image)}, 127), ({}, 127)):
        offers = []
        with peer(archive(answers, offers)) as port:
            run("get", "127.0.0.1", port, "--to", folder("in"), "-k", "StudyInstanceUID=1.2")
        stored = [(name, sorted(syntaxes)) for name, syntaxes in offers if ".1.2.2." not in name]
        if wanted == 127:
            equal(len({name for name, _ in stored}), 127)
        elif wanted == 2 * [CT]:
            assert len(stored) > 20 and {name for name, _ in stored} == {CT} and (CT, [rle]) in stored, stored
        else:
            equal(stored, wanted)


def test_an_object_that_the_disk_has_no_room_for_is_answered_and_the_next_one_taken(folder):
    large, small = (element(0x00080018, "UI", f"1.2.{i}") + element(0x7FE00010, "OW", bytes(size))
                    for i, size in enumerate((900_000, 10)))
    own, (talk, answers) = free_port(), retrieval(0xB000, (0, 1, 1, 0), large, small)

    def move(connection):
        """The objects go to the program over an association of its own."""
        accept(connection)
        context, command, _, _ = message(connection)
        answers.extend(stores(own, large, small))
        respond(connection, context, command, 0xB000, extra={0x1021: 1, 0x1022: 1})
        message(connection)

    for name, script, arguments in (("get", talk, ("--class", CT)), ("move", move, ("--listen", own))):
        for json in ((), ("--json",)):
            with peer(script) as port:
                result = run(name, "127.0.0.1", port, "--to", folder(name), "--overwrite", "-k", "StudyInstanceUID=1.2", *arguments, *json,
                             status=1, restore_signals=False,  # SIGXFSZ stays ignored: the limit is an error, as a full disk is
                             preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (20000, 20000)))
            if json:
                equal(result.json()["problems"], [{"sopInstanceUID": "1.2.0", "status": 0xA700, "text": "not written: File too large"}])
            text = result.json()["error"] if json else result.err
            contains(text, f"{folder(name)}: 1 object could not be written: File too large" + ("" if json else "; put that right"))
            equal(os.listdir(folder(name)), ["1.2.1.dcm"])
    equal(answers, [0xA700, 0] * 4)


def test_objects_that_arrive_keep_a_move_alive_and_silence_ends_it(folder):
    own, count = free_port(), 4

    def move(connection):
        accept(connection)
        context, command, _, _ = message(connection)
        for status in stores(own, *(element(0x00080018, "UI", f"1.2.{i}") for i in range(count))):
            equal(status, 0)
            time.sleep(0.5)  # in all longer than the time-out, and no response meanwhile
            if count == 1:
                equal(connection.recv(1), b"\7")  # it is aborted
                return
        respond(connection, context, command, 0, extra={0x1021: count})
        message(connection)

    with peer(move) as port:
        arguments = ("move", "127.0.0.1", port, "--to", folder("in"), "--listen", own, "-k", "StudyInstanceUID=1.2", "--timeout", "1", "--overwrite")
        contains(run(*arguments).out, "4 objects written")
        count = 1
        contains(run(*arguments, status=1).err, "nothing went either way for 1 s")


def test_a_refused_object_has_an_end_and_silent_peers_make_way(folder):
    own = free_port()

    def store(connection, context):
        announced = dimse(context, {0x0002: CT, 0x0100: 1, 0x0110: 1, 0x0700: 0, 0x1000: "1..2"}, b"")
        piece = pdu(4, struct.pack(">IBB", (1 << 19) + 2, context, 0) + bytes(1 << 19))
        connection.sendall(announced[:-12] + 33 * piece)  # an object without a file is no longer than an identifier
        equal(message(connection)[1][0x0900], b"\x17\1")
        connection.sendall(announced[-12:])  # the last piece
        send_store(connection, context, 2, CT, "1.2.3", element(0x00080018, "UI", "1.2.3"))
        equal(message(connection)[1][0x0900], b"\0\0")

    def get(connection):
        accept(connection)
        context, command, _, _ = message(connection)
        store(connection, 3)
        end(connection, context, command)

    def end(connection, context, command):
        respond(connection, context, command, 0xB000, extra={0x1021: 1, 0x1022: 1})
        message(connection)

    def move(connection):
        accept(connection)
        context, command, _, _ = message(connection)
        with contextlib.ExitStack() as stack:
            for attempt in range(164):
                silent = stack.enter_context(socket.create_connection(("127.0.0.1", own)))
                try:
                    silent.sendall(association(1, [(1, CT, EXPLICIT)], called="VDICOM"))
                    equal(receive(silent)[0], 2)
                except (OSError, EOFError):
                    time.sleep(0.1)
                    continue
                if attempt >= 64:
                    store(silent, 1)
                    break
        end(connection, context, command)

    for name, script, arguments in (("get", get, ("--class", CT)), ("move", move, ("--listen", own))):
        with peer(script) as port:
            result = run(name, "127.0.0.1", port, "--to", folder(name), "-k", "StudyInstanceUID=1.2", *arguments, status=1)
        contains(result.out, "1 object written")
        equal(os.listdir(folder(name)), ["1.2.3.dcm"])


def test_a_peer_that_ignores_the_cancel_is_left(_):
    def talk(connection):
        accept(connection)
        context, command, _, _ = message(connection)
        for i in range(3):
            respond(connection, context, command, 0xFF00, data=element(0x00100020, "LO", str(i)))
        while receive(connection)[0] != 7:
            pass

    with peer(talk) as port:
        result = run("find", "127.0.0.1", port, "--limit", "2", "--json")
    equal(len(result.json()), 2)
    contains(result.err, "more matches")


def test_progress_is_drawn_on_a_terminal_alone(folder):
    paths = objects(folder, 2)

    def store(connection):
        accept(connection)
        time.sleep(1)  # a moment's work draws nothing
        while (got := message(connection)) is not None:
            respond(connection, *got[:2], 0)
            time.sleep(0.2)

    def get(connection):
        stores = [number for number, (name, _) in accept(connection).items() if name == CT]
        context, command, _, _ = message(connection)
        time.sleep(1)
        for i in range(2):
            pixels = element(0x7FE00010, "OW", bytes(300_000))
            send_store(connection, stores[0], i + 1, CT, f"1.2.{i}", element(0x00080018, "UI", f"1.2.{i}") + pixels)
            message(connection)
            time.sleep(0.2)  # the response is drawn, too
            respond(connection, context, command, 0 if i else 0xFF00, extra=enumerate((1 - i, 1 + i, 0, 0), 0x1020))
        message(connection)

    for script, shown, arguments in ((store, "1 of 2 files, 0 of 0 MB", paths),
                                     (get, "1 of 2 objects, 0 MB", ("--class", CT, "--to", folder("in"), "--overwrite", "-k", "StudyInstanceUID=1.2"))):
        with peer(script) as port:
            for columns in (30, 100):
                status, written = on_terminal(script.__name__, "127.0.0.1", port, *arguments, columns=columns)
                lines = written.split("\r\x1b[K")
                equal((status, "[###" in written), (0, columns == 100))
                contains(written, shown)
                assert max(map(int, re.findall(r"(\d+) MB/s", written))) < 100, written
                assert max(map(len, lines[:-1])) < columns and "#" not in lines[-1] and " of " not in lines[-1], lines
            assert "\x1b" not in run(script.__name__, "127.0.0.1", port, *arguments).err
            assert "\x1b" not in on_terminal(script.__name__, "127.0.0.1", port, *arguments, "--json")[1]


def test_an_answer_before_the_whole_object_is_no_success(folder):
    folder.write("a.dcm", part10(element(0x00080016, "UI", CT) + element(0x00080018, "UI", "1.2.3") +
                                 element(0x7FE00010, "OW", bytes(64 << 20))))

    def talk(connection):
        accepted = accept(connection)
        receive(connection)
        respond(connection, next(iter(accepted)), {0x0100: b"\1\0", 0x0110: b"\1\0"}, 0)
        time.sleep(3)  # reads no more, so that the rest cannot leave

    with peer(talk) as port:
        contains(run("store", "127.0.0.1", port, folder("a.dcm"), status=1).err, "acknowledged an object that it had not")


main(sys.modules[__name__])
