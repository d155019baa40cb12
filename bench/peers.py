#!/usr/bin/env python3
"""Runs the rows of the comparison; bench/peers.sh prepares and calls it."""
import argparse
import glob
import os
import shutil
import statistics
import subprocess
import sys
import time

TAGS = ("0008,0018", "0010,0020", "0020,000d")  # instance, patient, study: what an index needs


def rows(vdicom, files):
    """name: (what is done, how many of what, {program: command})."""
    def at(*path):
        return os.path.join(files, *path)

    small = sorted(glob.glob(at("small", "*.dcm")))
    headers = sorted(glob.glob(at("headers", "*.dcm")))
    out = at("out.dcm")
    scan = [argument for tag in TAGS for argument in ("-t", tag)]
    show = [argument for tag in TAGS for argument in ("+P", tag)]
    ours = [argument for tag in TAGS for argument in ("--tag", f"({tag})")]
    return {
        "tags": ("chosen tags of 10,000 small files", (len(small), "files"), {
            "vdicom": [vdicom, "dump", *ours, *small],
            "gdcmscanner": ["gdcmscanner", "-d", at("small"), *scan, "-p"],
            "dcmdump": ["dcmdump", "-q", *show, *small]}),
        "parse": ("one tag of 2,000 files of 113 elements behind all others", (113 * len(headers), "elements"), {
            "vdicom": [vdicom, "dump", "--tag", "(7fe0,0010)", *headers],
            "dcmdump": ["dcmdump", "-q", "+P", "7fe0,0010", *headers]}),
        "dump": ("full dump of 2,000 files of 113 elements", (113 * len(headers), "elements"), {
            "vdicom": [vdicom, "dump", *headers],
            "dcmdump": ["dcmdump", "-q", *headers],
            "gdcmdump": ["gdcmdump", "-r", at("headers")]}),
        "report": ("dump of a report of 240,000 elements", (239850, "elements"), {
            "vdicom": [vdicom, "dump", at("report.dcm")],
            "dcmdump": ["dcmdump", "-q", at("report.dcm")],
            "gdcmdump": ["gdcmdump", at("report.dcm")]}),
        "groups": ("dump of 5,000 functional groups", (70053, "elements"), {
            "vdicom": [vdicom, "dump", at("groups.dcm")],
            "dcmdump": ["dcmdump", "-q", at("groups.dcm")],
            "gdcmdump": ["gdcmdump", at("groups.dcm")]}),
        "frames": ("dump of a 262 MB multi-frame file", None, {
            "vdicom": [vdicom, "dump", at("frames.dcm")],
            "dcmdump -M": ["dcmdump", "-q", "-M", at("frames.dcm")],
            "gdcmdump": ["gdcmdump", at("frames.dcm")]}),
        "sparse": ("dump of a sparse file of 6 GiB", None, {
            "vdicom": [vdicom, "dump", at("sparse.dcm")],
            "dcmdump -M": ["dcmdump", "-q", "-M", at("sparse.dcm")]}),
        "convert": ("explicit to implicit VR of the 262 MB file", (262.144, "MB"), {
            "vdicom": [vdicom, "convert", "--to", "implicit", at("frames.dcm"), out],
            "dcmconv": ["dcmconv", "+ti", at("frames.dcm"), out],
            "gdcmconv": ["gdcmconv", "--raw", "--implicit", at("frames.dcm"), out],
            "cp": ["cp", at("frames.dcm"), out]}),
        "json": ("JSON of the report", (239850, "elements"), {
            "vdicom": [vdicom, "dump", "--json", at("report.dcm")],
            "dcm2json": ["dcm2json", at("report.dcm")]}),
        "start": ("start of the program: a file of 9 elements", None, {
            "vdicom": [vdicom, "dump", at("tiny.dcm")],
            "dcmdump": ["dcmdump", at("tiny.dcm")],
            "gdcmdump": ["gdcmdump", at("tiny.dcm")],
            "dcdump": ["dcdump", at("tiny.dcm")]}),
    }


def run(command, null):
    """Wall time in seconds and exit status of one run."""
    started = time.perf_counter()
    child = os.posix_spawnp(command[0], command, os.environ,
                            file_actions=[(os.POSIX_SPAWN_DUP2, null, 1), (os.POSIX_SPAWN_DUP2, null, 2)])
    _, status = os.waitpid(child, 0)
    return time.perf_counter() - started, os.waitstatus_to_exitcode(status)


def peak_memory(command):
    """Peak memory of one run in MB. By a program smaller than this one: a child's peak counts from the fork."""
    done = subprocess.run(["/usr/bin/time", "-f", "%M", *command], stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
                          text=True, errors="replace", check=False)
    return int(done.stderr.split()[-1]) / 1024


def read_into_cache(files):
    for path in glob.glob(os.path.join(files, "**", "*.dcm"), recursive=True):
        with open(path, "rb") as file:
            while os.path.getsize(path) < 1 << 30 and file.read(1 << 20):
                pass


def measure(name, row, runs, null, out):
    what, amount, commands = row
    print(f"\n{name}: {what}")
    print(f"  {'program':<14}{'wall':>12}{'memory':>12}{'time/ours':>12}{'memory/ours':>14}  rate")
    present = {p: c for p, c in commands.items() if shutil.which(c[0])}
    samples = {program: [] for program in present}
    failed = {}
    for _ in range(runs):
        for program, command in present.items():
            if program in failed:
                continue
            if os.path.exists(out):
                os.remove(out)
            wall, status = run(command, null)
            if status != 0:
                failed[program] = status
            samples[program].append(wall)
    ours = None
    for program in present:
        if program in failed:
            print(f"  {program:<14}failed with exit status {failed[program]}")
            continue
        wall = statistics.median(samples[program])
        memory = peak_memory(present[program])
        ours = ours or (wall, memory)
        rate = f"{amount[0] / wall:,.0f} {amount[1]}/s" if amount else ""
        print(f"  {program:<14}{wall * 1000:>9,.1f} ms{memory:>9,.1f} MB{wall / ours[0]:>12.2f}"
              f"{memory / ours[1]:>14.2f}  {rate}")
    for program in commands:
        if program not in present:
            print(f"  {program:<14}not installed")
    return "vdicom" not in failed


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", default="build/release/bin/vdicom")
    parser.add_argument("--files", default="build/bench-files")
    parser.add_argument("--runs", type=int, default=7)
    parser.add_argument("--list", action="store_true", help="show the rows and their commands, run nothing")
    parser.add_argument("row", nargs="*")
    options = parser.parse_args()
    table = rows(os.path.abspath(options.program), options.files)
    unknown = [name for name in options.row if name not in table]
    if unknown:
        parser.error(f"no such row: {', '.join(unknown)}; there are {', '.join(table)}")
    if options.list:
        for name, (what, _, commands) in table.items():
            print(f"{name}: {what}")
            for command in commands.values():
                print("    " + " ".join(command[:12]) + (" ..." if len(command) > 12 else ""))
        return 0
    if not os.path.exists("/usr/bin/time"):
        parser.error("peak memory is measured with /usr/bin/time: install the package time")
    read_into_cache(options.files)
    null = os.open(os.devnull, os.O_WRONLY)
    good = True
    for name in options.row or table:
        good &= measure(name, table[name], options.runs, null, os.path.join(options.files, "out.dcm"))
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
