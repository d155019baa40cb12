"""A running `vdicom serve`, for the scripts that need one."""
import json
import os
import signal
import subprocess
import time

from support import PROGRAM


class Server:
    """Starts on a free port; its log is read as JSON lines. Ends with the `with` block."""

    def __init__(self, folder, *arguments, title="ARCHIVE"):
        self.folder, self.title, self.last = folder, title, {}
        self.log_path = os.path.join(os.path.dirname(folder), os.path.basename(folder) + ".log")
        self.arguments = ["--folder", folder, "--port", "0", "--address", "127.0.0.1", "--ae", title, "--json",
                          "--log", self.log_path, *arguments]

    def __enter__(self):
        self.start()
        return self

    def __exit__(self, *_):
        self.stop()

    def start(self):
        before = len(self.log())
        self.process = subprocess.Popen([PROGRAM, "serve", *self.arguments], stdin=subprocess.DEVNULL,
                                        stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.port = str(self.wait("start", since=before)["port"])

    def stop(self, how=signal.SIGTERM):
        """@return the exit status"""
        if self.process.poll() is None:
            self.process.send_signal(how)
        out, err = self.process.communicate(timeout=30)
        if self.process.returncode > 0 or b"Sanitizer" in err:
            raise AssertionError(f"serve: status {self.process.returncode}\n{out!r}\n{err.decode(errors='replace')}")
        return self.process.returncode

    @property
    def at(self):
        return "127.0.0.1", self.port

    def log(self, event=None):
        if not os.path.exists(self.log_path):
            return []
        with open(self.log_path, encoding="utf-8") as lines:
            entries = [json.loads(line) for line in lines if line.endswith("}\n")]
        return [entry for entry in entries if event in (None, entry["event"])]

    def wait(self, event, since=0, **what):
        """The next line of the log with this event and these values, behind `since` and the last one of this event."""
        end = time.monotonic() + 20
        while time.monotonic() < end:
            for number, entry in enumerate(self.log(), 1):
                if (number > max(since, self.last.get(event, 0)) and entry["event"] == event and
                        all(entry.get(key) == value for key, value in what.items())):
                    self.last[event] = number
                    return entry
            if self.process.poll() is not None:
                raise AssertionError(f"serve has ended: {self.process.communicate()}")
            time.sleep(0.01)
        raise AssertionError(f"no {event} {what} in the log: {self.log()[-5:]}")
