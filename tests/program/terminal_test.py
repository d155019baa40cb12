"""What the program does on a terminal: colours, width, indented JSON, progress."""
import fcntl
import os
import pty
import re
import struct
import subprocess
import sys
import termios
import threading
import time

from support import PROGRAM, contains, element, equal, image, main, part10, skip


def on_terminal(*arguments, columns=60, environment=None, errors_only=False, meanwhile=None):
    """Everything that the program writes to a terminal, escape sequences included."""
    try:
        leader, follower = pty.openpty()
    except OSError as error:  # a container without /dev/pts
        skip(f"no pseudo terminal: {error}")
    fcntl.ioctl(follower, termios.TIOCSWINSZ, struct.pack("HHHH", 25, columns, 0, 0))
    environ = {k: v for k, v in os.environ.items() if k != "NO_COLOR"}
    environ.update({"TERM": "xterm"}, **(environment or {}))
    process = subprocess.Popen([PROGRAM, *arguments], stdin=subprocess.DEVNULL, env=environ, stderr=follower,
                               stdout=subprocess.DEVNULL if errors_only else follower)
    os.close(follower)
    if meanwhile:
        threading.Thread(target=meanwhile, daemon=True).start()
    written = b""
    while True:
        try:
            part = os.read(leader, 65536)
        except OSError:  # the other side is closed
            break
        if not part:
            break
        written += part
    os.close(leader)
    return process.wait(60), written.decode().replace("\r\n", "\n")


def test_lines_fit_and_have_colours(folder):
    path = folder.write("a.dcm", image("x" * 64, element(0x00420010, "ST", "y" * 500)))
    status, written = on_terminal("dump", path, columns=100)
    equal(status, 0)
    contains(written, "\x1b[36m(0010,0010)\x1b[0m")
    plain = re.sub(r"\x1b\[\d+m", "", written)
    assert max(map(len, plain.split("\n"))) == 100, max(plain.split("\n"), key=len)
    contains(plain, "y…\n")
    # However narrow it is, something of the value is shown.
    contains(re.sub(r"\x1b\[\d+m", "", on_terminal("dump", path, columns=10)[1]), "y" * 19 + "…")
    for environment, arguments in (({"NO_COLOR": "1"}, ()), ({}, ("--color", "never")), ({"TERM": "dumb"}, ())):
        assert "\x1b" not in on_terminal("dump", *arguments, path, environment=environment)[1]


def test_json_is_indented(folder):
    path = folder.write("a.dcm", part10(element(0x00100020, "LO", "4711")))
    equal(on_terminal("dump", "--json", path)[1].split("\n")[:2], ["{", '    "00100020": {'])


def test_progress_of_long_work(folder):
    slow = folder("pipe")
    os.mkfifo(slow)
    held = os.open(slow, os.O_RDWR)  # a pipe that nobody writes to would be empty
    paths = [folder.write(f"{i}.dcm", image()) for i in range(10)]

    def feed():
        time.sleep(1)
        os.write(held, image())
        os.close(held)

    status, written = on_terminal("convert", slow, *paths, folder("missing"), "--output", folder("out"),
                                  errors_only=True, meanwhile=feed)
    equal(status, 1)
    contains(written, " of 12 files")
    # The line is taken away before a message and at the end.
    assert re.search(r"\r\x1b\[Kvdicom convert: .*missing: No such file", written), repr(written)
    equal(len(os.listdir(folder("out"))), 11)


if __name__ == "__main__":
    main(sys.modules[__name__])
