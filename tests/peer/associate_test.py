#!/usr/bin/env python3
"""Association requests of another toolkit's programs, decoded and encoded again to the same bytes; our answer, as those
programs understand it.

usage: associate_test.py HELPER FOLDER

HELPER is the program made of associate.cpp. Exit 77 when the other programs are not there.
"""
import contextlib
import os
import re
import shutil
import socket
import subprocess
import sys
import tempfile
from pathlib import Path

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "program"))
from upper_layer import ABORT, receive, receive_bytes  # noqa: E402

FIND = ["-S", "-k", "0008,0052=STUDY", "-k", "0020,000D=1.2"]
PROGRAMS = ["echoscu", "findscu", "getscu", "movescu", "storescu"]


def associate(helper, folder, command):
    """Lets `command` open an association here; what the helper says of its request, and what the command says."""
    with socket.socket() as listener:
        listener.bind(("127.0.0.1", 0))
        listener.listen(1)
        listener.settimeout(20)
        port = str(listener.getsockname()[1])
        log = open(os.path.join(folder, "log"), "w+b")  # a pipe would fill up before it connects
        peer = subprocess.Popen([port if word == "PORT" else word for word in command], stdout=log, stderr=log)
        try:
            connection, _ = listener.accept()
            with connection:
                connection.settimeout(20)
                request, answer = os.path.join(folder, "request"), os.path.join(folder, "answer")
                Path(request).write_bytes(receive_bytes(connection))
                ours = subprocess.run([helper, request, answer], capture_output=True, text=True, timeout=60)
                connection.sendall(Path(answer).read_bytes())
                with contextlib.suppress(EOFError, ConnectionError):  # it may be gone before it has read that
                    while receive(connection)[0] == 4:  # its first message; an abort is the answer
                        connection.sendall(ABORT)
            peer.wait(timeout=30)
        finally:
            peer.kill()
            peer.wait()
            log.seek(0)
            theirs = log.read().decode("latin-1")
            log.close()
    return ours.returncode, ours.stdout.strip(), theirs


def main():
    if len(sys.argv) != 3:
        print(__doc__)
        return 2
    if not all(shutil.which(program) for program in PROGRAMS):
        print("skipped: echoscu, findscu, getscu, movescu and storescu are not all installed")
        return 77
    here = ["127.0.0.1", "PORT"]
    image = next(iter(sorted(Path(sys.argv[2]).rglob("CT_small.dcm"))), None)
    commands = [
        (["echoscu", "-d", "--repeat", "1", "-aec", "SIXTEEN_LETTERS1", *here], 1, 0),
        (["echoscu", "-d", "-pts", "38", "-ppc", "100", *here], 100, 0),
        (["findscu", "-d", *FIND, *here], 1, 0),
        (["getscu", "-d", *FIND, *here], None, 100),
        (["movescu", "-d", "-aem", "ME", *FIND, *here], None, 0),
    ]
    if image is not None:
        commands.append((["storescu", "-d", *here, str(image)], None, 0))
        commands.append((["storescu", "-d", "--propose-lossless", *here, str(image)], None, 0))
    failures = 0
    with tempfile.TemporaryDirectory() as folder:
        for command, contexts, roles in commands:
            status, ours, theirs = associate(sys.argv[1], folder, command)
            print(" ".join(command[:2]), "->", ours)
            match = re.search(r"contexts (\d+) accepted (\d+) roles (\d+)", ours)
            problems = [] if status == 0 and match else ["not decoded and encoded to the same bytes"]
            if match and contexts is not None and int(match.group(1)) != contexts:
                problems.append(f"{contexts} contexts were proposed")
            if match and int(match.group(3)) < roles:
                problems.append("roles are missing")
            if match and theirs.count("(Accepted)") < int(match.group(2)):
                problems.append("the peer does not see what was accepted")
            if not re.search(r"Association Accepted", theirs):
                problems.append("the peer does not take the answer")
            for problem in problems:
                print("  ", problem)
            failures += bool(problems)
            if problems:
                print(theirs[-3000:])
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
