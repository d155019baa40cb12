#!/usr/bin/env python3
"""Measures the network commands and the archive beside dcmtk's programs, over the loopback interface; bench/peers.sh
net net calls it. Each row runs every pair in turn, several times; medians and what they are to ours are printed.

What is stored is deleted at the very end: ext4 makes files several times slower for a minute after many were deleted.
With TMPDIR=/dev/shm the disk is left out."""
import argparse
import glob
import json
import os
import re
import resource
import shutil
import socket
import sqlite3
import statistics
import subprocess
import sys
import tempfile
import threading
import time

def free_port():
    with socket.socket() as one:
        one.bind(("127.0.0.1", 0))
        return one.getsockname()[1]


def wait_for(port, process):
    for _ in range(400):
        try:
            socket.create_connection(("127.0.0.1", port), 1).close()
            return
        except OSError:
            if process.poll() is not None:
                raise SystemExit(f"the server has ended: {process.args}")
            time.sleep(0.025)
    raise SystemExit(f"no server: {process.args}")


def configure(path, folder):
    """dcmqrscp's configuration, with its objects and index in `folder`."""
    os.makedirs(os.path.join(folder, "qr"))
    with open(path, "w", encoding="ascii") as file:
        file.write("NetworkTCPPort = 1\nMaxPDUSize = 131072\nMaxAssociations = 16\nHostTable BEGIN\nHostTable END\n"
                   "VendorTable BEGIN\nVendorTable END\nAETable BEGIN\n"
                   f"QRSCP {folder}/qr RW (100000, 1024mb) ANY\nAETable END\n")


class Running:
    """A server in a folder of its own, for one measurement."""

    def __init__(self, command, nodelay, folder):
        self.folder, self.port = folder, free_port()
        command = [part.format(port=self.port, folder=folder) for part in command]
        if command[0] == "dcmqrscp":
            configure(command[2], folder)
        self.process = subprocess.Popen(command, env=environment(nodelay), stdin=subprocess.DEVNULL,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_for(self.port, self.process)

    def peak(self):
        """Peak memory in MB."""
        with open(f"/proc/{self.process.pid}/status", encoding="ascii") as status:
            return int(re.search(r"VmHWM:\s+(\d+)", status.read())[1]) / 1024

    def descriptors(self):
        return len(os.listdir(f"/proc/{self.process.pid}/fd"))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        try:
            self.process.wait(10)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()


def environment(nodelay):
    return dict(os.environ, TCP_NODELAY="1") if nodelay else {k: v for k, v in os.environ.items() if k != "TCP_NODELAY"}


def client(command, nodelay, port):
    """Runs a client. @return seconds, and its peak memory in MB"""
    command = [part.format(port=port) for part in command]
    started = time.perf_counter()
    process = subprocess.Popen(command, env=environment(nodelay), stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    if status != 0:
        raise SystemExit(f"failed: {command[:6]}")
    return time.perf_counter() - started, usage.ru_maxrss / 1024


def benchmark(programs, name, port, more=None):
    """Runs one of bench_NetBench's against a server. @return its counters"""
    program = os.path.join(os.path.dirname(programs.vdicom), "bench_NetBench")
    done = subprocess.run([program, f"--benchmark_filter=^{name}/", "--benchmark_format=json"], check=True,
                          env=dict(os.environ, VDICOM_BENCH_PORT=str(port), **(more or {})), capture_output=True)
    result = json.loads(done.stdout)["benchmarks"][0]
    if result.get("error_occurred"):
        raise SystemExit(result["error_message"])
    return result


class Programs:
    def __init__(self, vdicom, work):
        self.vdicom, self.work = vdicom, work
        self.servers = {
            "serve": [vdicom, "serve", "--folder", "{folder}/archive", "--port", "{port}", "--address", "127.0.0.1",
                      "--log", "{folder}/log"],
            "storescp sink": ["storescp", "--ignore", "-pdu", "131072", "{port}"],
            "storescp": ["storescp", "-od", "{folder}", "-pdu", "131072", "{port}"],
            "dcmqrscp": ["dcmqrscp", "-c", "{folder}/dcmqrscp.cfg", "{port}"]}

    def echo(self, ours, count):
        return ([self.vdicom, "echo", "127.0.0.1", "{port}", "--repeat", str(count)] if ours else
                ["echoscu", "--repeat", str(count), "127.0.0.1", "{port}"])

    def store(self, ours, folder):
        return ([self.vdicom, "store", "127.0.0.1", "{port}", "--called", "QRSCP", folder] if ours else
                ["storescu", "-aec", "QRSCP", "-pdu", "131072", "+sd", "127.0.0.1", "{port}", folder])


def rate_row(programs, title, unit, count, pairs, runs):
    """pairs: name -> (server, client command, TCP_NODELAY)"""
    print(f"\n{title}")
    times = {name: [] for name in pairs}
    for _ in range(runs):
        for name, (server, command, nodelay, amount) in pairs.items():
            folder = tempfile.mkdtemp(dir=programs.work)
            with Running(programs.servers[server], nodelay, folder) as running:
                seconds, _ = client(command, nodelay, running.port)
            times[name].append(amount / seconds)
    first = None
    for name, rates in times.items():
        rate = statistics.median(rates)
        first = first or rate
        print(f"  {name:44} {rate:12,.0f} {unit}/s   {rate / first:6.2f}")


def echo_row(programs, runs):
    ours = {f"vdicom echo -> serve": ("serve", programs.echo(True, 5000), False, 5000),
            "vdicom echo -> storescp": ("storescp", programs.echo(True, 5000), False, 5000),
            "echoscu -> serve": ("serve", programs.echo(False, 4999), False, 5000),
            "vdicom echo -> storescp, TCP_NODELAY": ("storescp", programs.echo(True, 5000), True, 5000),
            "echoscu -> serve, TCP_NODELAY": ("serve", programs.echo(False, 4999), True, 5000),
            "echoscu -> storescp, TCP_NODELAY": ("storescp", programs.echo(False, 4999), True, 5000),
            "echoscu -> storescp": ("storescp", programs.echo(False, 49), False, 50)}
    rate_row(programs, "5,000 C-ECHO on one association (50 of the last)", "echoes", 5000, ours, runs)


def store_row(programs, title, folder, unit, amount, few, runs):
    def pair(ours, server, nodelay, where=folder, much=amount):
        return server, programs.store(ours, where), nodelay, much

    rate_row(programs, title, unit, amount, {
        "vdicom store -> serve": pair(True, "serve", False),
        "vdicom store -> storescp sink": pair(True, "storescp sink", True),
        "storescu -> serve": pair(False, "serve", True),
        "storescu -> storescp sink": pair(False, "storescp sink", True),
        "storescu -> storescp": pair(False, "storescp", True),
        "vdicom store -> storescp sink, by default": pair(True, "storescp sink", False),
        "storescu -> serve, by default": pair(False, "serve", False)}, runs)
    rate_row(programs, f"{title}: {few[1]:g} of them into an archive with an index", unit, few[1], {
        "vdicom store -> serve": pair(True, "serve", False, *few),
        "vdicom store -> dcmqrscp": pair(True, "dcmqrscp", True, *few),
        "storescu -> dcmqrscp": pair(False, "dcmqrscp", True, *few)}, runs)


def plain_copy(source, target):
    """The file through a socket into a file, in another thread. @return seconds"""
    listener = socket.create_server(("127.0.0.1", 0))

    def receive():
        connection, _ = listener.accept()
        buffer = memoryview(bytearray(1 << 18))
        with connection, open(target, "wb", buffering=0) as out:
            while (size := connection.recv_into(buffer)) > 0:
                out.write(buffer[:size])

    thread = threading.Thread(target=receive)
    thread.start()
    started = time.perf_counter()
    with socket.create_connection(listener.getsockname()) as connection, open(source, "rb", buffering=0) as file:
        buffer = memoryview(bytearray(1 << 18))
        while (size := file.readinto(buffer)) > 0:
            connection.sendall(buffer[:size])
    thread.join()
    listener.close()
    return time.perf_counter() - started


def large_row(programs, source, runs):
    print("\none object of 1 GiB")
    folder = tempfile.mkdtemp(dir=programs.work)
    rows = {"vdicom store -> serve": [], "plain copy through a socket into a file": [], "storescu -> storescp": []}
    peaks = []
    for _ in range(runs):
        with Running(programs.servers["serve"], False, folder) as running:
            seconds, peak = client(programs.store(True, source), False, running.port)
            peaks.append((peak, running.peak()))
        rows["vdicom store -> serve"].append(seconds)
        shutil.rmtree(folder)
        os.makedirs(folder)
        rows["plain copy through a socket into a file"].append(plain_copy(source, os.path.join(folder, "copy")))
        os.remove(os.path.join(folder, "copy"))
        with Running(programs.servers["storescp"], True, folder) as running:
            rows["storescu -> storescp"].append(client(
                ["storescu", "-pdu", "131072", "127.0.0.1", "{port}", source], True, running.port)[0])
        shutil.rmtree(folder)
        os.makedirs(folder)
    first = statistics.median(rows["vdicom store -> serve"])
    for name, seconds in rows.items():
        print(f"  {name:44} {statistics.median(seconds):12.3f} s   {statistics.median(seconds) / first:6.2f}")
    print(f"  peak memory: sender {max(p[0] for p in peaks):.1f} MB, receiver {max(p[1] for p in peaks):.1f} MB")
    shutil.rmtree(folder)


def many_rows(programs):
    """Associations with serve: a thousand at a time, ten thousand one after the other."""
    with Running(programs.servers["serve"], True, tempfile.mkdtemp(dir=programs.work)) as running:
        before = running.peak()
        result = benchmark(programs, "ManyStore", running.port)
        print("\n1,000 associations open at once on one thread, each storing into serve: 100,000 objects of 10 KB\n"
              f"  {result['items_per_second']:,.0f} objects/s; an association stored {result['least']:.0f} to "
              f"{result['most']:.0f}; {result['refused']:.0f} refused; serve's memory grew by "
              f"{(running.peak() - before) * 1.024:.0f} KB for each")
    with Running(programs.servers["serve"], True, tempfile.mkdtemp(dir=programs.work)) as running:
        client(programs.echo(True, 1), True, running.port)
        before, opened = running.peak(), running.descriptors()
        result = benchmark(programs, "AssociationsInTurn", running.port)
        print("\n10,000 associations with serve, one after the other\n"
              f"  {result['items_per_second']:,.0f}/s; the first thousand {result['first_thousand']:,.0f}/s, the last "
              f"{result['last_thousand']:,.0f}/s; serve: {before:.1f} MB and {opened} descriptors before, "
              f"{running.peak():.1f} MB and {running.descriptors()} after")


def fill_index(path, instances):
    """Puts patients, studies, series of 2,000 and instances without files into an index that serve has made."""
    database = sqlite3.connect(path)
    database.execute("PRAGMA synchronous = OFF")

    def insert(table, rows):
        columns = [row[1] for row in database.execute(f"PRAGMA table_info({table})")]
        kinds = {row[1]: row[2] for row in database.execute(f"PRAGMA table_info({table})")}
        marks = ",".join("?" * len(columns))
        database.executemany(f"INSERT INTO {table} VALUES ({marks})",
                             ([row.get(c, 0 if kinds[c] == "INTEGER" else "") for c in columns] for row in rows))

    series = instances // 2000
    uid = "1.2.840.999001.7"
    insert("patient", ({"id": i + 1, "identity": f"P{i}", "PatientID": f"P{i}", "PatientName": f"Name{i}^Given"}
                       for i in range(series)))
    insert("study", ({"id": i + 1, "patient": i + 1, "StudyInstanceUID": f"{uid}.{i}", "StudyDate": "20240229"}
                     for i in range(series)))
    insert("series", ({"id": i + 1, "study": i + 1, "SeriesInstanceUID": f"{uid}.{i}.1", "Modality": "CT",
                       "instances": 2000} for i in range(series)))
    insert("instance", ({"id": i + 1, "series": i // 2000 + 1, "SOPInstanceUID": f"{uid}.{i // 2000}.1.{i % 2000}",
                         "SOPClassUID": "1.2.840.10008.5.1.4.1.1.2", "InstanceNumber": str(i % 2000)}
                        for i in range(series * 2000)))
    database.commit()
    database.execute("PRAGMA wal_checkpoint(TRUNCATE)")
    database.close()


def find_row(programs, instances, runs):
    folder = tempfile.mkdtemp(dir=programs.work)
    with Running(programs.servers["serve"], False, folder):
        pass
    fill_index(os.path.join(folder, "archive/.vdicom/index.sqlite"), instances)
    uid = f"1.2.840.999001.7.{instances // 4000}"
    keys = ["-k", f"StudyInstanceUID={uid}", "-k", f"SeriesInstanceUID={uid}.1"]
    print(f"\nC-FIND at image level over an index of {instances:,}: a series of 2,000")
    with Running(programs.servers["serve"], True, folder) as running:
        ours = [programs.vdicom, "find", "127.0.0.1", "{port}", "--level", "image", *keys]
        theirs = ["findscu", "-S", "-k", "QueryRetrieveLevel=IMAGE", *keys, "-k", "SOPInstanceUID", "127.0.0.1",
                  "{port}"]
        one = [*ours, "-k", f"SOPInstanceUID={uid}.1.7"]
        for name, command, count in (("vdicom find -> serve, one match", one, None),
                                     ("vdicom find -> serve", ours, 2000), ("findscu -> serve", theirs, 2000)):
            seconds = statistics.median(client(command, True, running.port)[0] for _ in range(runs))
            rate = f"   {count / seconds:10,.0f} responses/s" if count else ""
            print(f"  {name:44} {seconds * 1000:10.1f} ms, the client's start among it{rate}")
        first = benchmark(programs, "FirstMatch", running.port, {"VDICOM_BENCH_STUDY": uid})
        print(f"  first match on an open association {first['real_time'] / 1000:20.2f} ms")
    shutil.rmtree(folder)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    parser.add_argument("--files", required=True, help="folder of bench/make_files.py")
    parser.add_argument("--runs", type=int, default=3)
    parser.add_argument("--instances", type=int, default=1_000_000, help="in the index that is searched")
    parser.add_argument("rows", nargs="*", help="echo, small, medium, large, many, find; all unless given")
    arguments = parser.parse_args()
    wanted = arguments.rows or ["echo", "small", "medium", "large", "many", "find"]
    soft, hard = resource.getrlimit(resource.RLIMIT_NOFILE)
    resource.setrlimit(resource.RLIMIT_NOFILE, (hard, hard))
    with tempfile.TemporaryDirectory(prefix="vdicom-net-") as work:
        programs = Programs(os.path.abspath(arguments.program), work)
        files = os.path.abspath(arguments.files)

        def few(folder, count):
            part = os.path.join(work, os.path.basename(folder) + "-few")
            os.makedirs(part)
            for path in sorted(glob.glob(os.path.join(folder, "*.dcm")))[:count]:
                shutil.copy(path, part)
            return part

        for row in wanted:
            if row == "echo":
                echo_row(programs, arguments.runs)
            elif row == "small":
                folder = os.path.join(files, "store-small")
                store_row(programs, "2,000 objects of 10 KB", folder, "objects", 2000, (few(folder, 300), 300),
                          arguments.runs)
            elif row == "medium":
                folder = os.path.join(files, "store-medium")
                store_row(programs, "200 objects of 526 KB", folder, "MB", 200 * 0.526, (few(folder, 50), 50 * 0.526),
                          arguments.runs)
            elif row == "large":
                large_row(programs, os.path.join(files, "store-large.dcm"), arguments.runs)
            elif row == "many":
                many_rows(programs)
            elif row == "find":
                find_row(programs, arguments.instances, arguments.runs)
            else:
                parser.error(f"no row '{row}'")


if __name__ == "__main__":
    sys.exit(main())
