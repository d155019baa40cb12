"""Whatever ends the process that stores, what it acknowledged is there and the index names whole files alone.

archive_writer (its path in ARCHIVE_WRITER) is killed at random moments, and runs into full disks.
"""
import os
import random
import resource
import signal
import subprocess
import sys
import tempfile

WRITER = os.environ["ARCHIVE_WRITER"]
VERSIONS = 1_000_000  # more than one round comes to


def note(lines, acknowledged):
    refusals = 0
    for line in lines:
        if not line.endswith("\n"):
            break  # killed while it was told
        uid, version = line.split()[:2]
        if uid == "refused":
            assert version == str(0xA700), line
            refusals += 1
        else:
            acknowledged[uid] = int(version)
    return refusals


def check(folder, acknowledged):
    listed = subprocess.run([WRITER, "--list", folder], capture_output=True, text=True, timeout=120)
    assert listed.returncode == 0, listed.stderr + listed.stdout
    there = {}
    for line in listed.stdout.splitlines():
        uid, indexed, filed = line.split()
        assert indexed == filed, f"{uid}: version {indexed} in the index, {filed} in the file"
        assert uid not in there, uid
        there[uid] = int(indexed)
    for uid, version in acknowledged.items():
        assert there.get(uid, -1) >= version, f"{uid}: version {version} was acknowledged, {there.get(uid)} is there"
    assert os.listdir(os.path.join(folder, ".vdicom", "unfinished")) == []
    return there


def test_kill(folder, sync):
    rounds = random.Random(4711)
    acknowledged = {}
    for number in range(1, 13):
        writer = subprocess.Popen([WRITER, folder, str(number * VERSIONS), *sync], stdout=subprocess.PIPE, text=True)
        # In the first round perhaps before its start is over.
        lines = [writer.stdout.readline() for _ in range(rounds.randrange(60) + 1 if number > 1 else 0)]
        writer.send_signal(signal.SIGKILL)
        lines += writer.stdout.readlines()
        writer.wait()
        note(lines, acknowledged)
        check(folder, acknowledged)
    assert len(acknowledged) > 20, acknowledged


def test_full(folder, limit):
    """A file cannot grow beyond `limit` bytes: those received, or the index."""
    acknowledged = {}
    subprocess.run([WRITER, "--list", folder], check=True, timeout=120)

    def bound():
        resource.setrlimit(resource.RLIMIT_FSIZE, (limit, limit))

    # Python ignores SIGXFSZ, and the writer has to as well.
    result = subprocess.run([WRITER, folder, "1"], capture_output=True, text=True, timeout=300, preexec_fn=bound,
                            restore_signals=False)
    assert result.returncode == 0, result.stderr
    refusals = note(result.stdout.splitlines(keepends=True), acknowledged)
    assert refusals == 20, result.stdout
    there = check(folder, acknowledged)
    assert there == acknowledged, "what was refused is in the index"
    files = sum(len([f for f in names if f.endswith(".dcm")]) for _, _, names in os.walk(folder))
    assert files == len(there), f"{files} files, {len(there)} in the index"


def main():
    for sync in ([], ["--sync"]):
        with tempfile.TemporaryDirectory() as folder:
            test_kill(folder, sync)
    for limit in (45_000, 400_000):
        with tempfile.TemporaryDirectory() as folder:
            test_full(folder, limit)


if __name__ == "__main__":
    sys.exit(main())
