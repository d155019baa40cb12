#!/usr/bin/env python3
"""What starting and ending a process costs: runs a program many times.

usage: startup.py [--runs N] PROGRAM [ARGUMENT...]

Prints the smallest and the median processor time and wall time in milliseconds. vdicom --version does nothing but
load the library with its tables. (Memory: /usr/bin/time; a child of this program would seem as large as Python.)
"""
import os
import statistics
import sys
import time


def run(command):
    """-> processor time and wall time in milliseconds"""
    before = time.monotonic()
    child = os.posix_spawn(command[0], command, os.environ,
                           file_actions=[(os.POSIX_SPAWN_OPEN, 1, os.devnull, os.O_WRONLY, 0)])
    _, status, usage = os.wait4(child, 0)
    if status:
        sys.exit("startup.py: %s failed" % command[0])
    return 1000 * (usage.ru_utime + usage.ru_stime), 1000 * (time.monotonic() - before)


def main(arguments):
    runs = 200
    if arguments[:1] == ["--runs"] and len(arguments) > 2:
        runs = int(arguments[1])
        arguments = arguments[2:]
    if not arguments or arguments[0].startswith("-"):
        print(__doc__.strip(), file=sys.stderr)
        return 2
    cpu, wall = zip(*(run(arguments) for _ in range(runs)))
    print("processor %.2f ms (median %.2f), wall %.2f ms (median %.2f)" %
          (min(cpu), statistics.median(cpu), min(wall), statistics.median(wall)))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
