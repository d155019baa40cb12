#!/usr/bin/env python3
"""usage: unload.py LIBRARY: loads and unloads a shared library, and fails when it stays in the process."""
import _ctypes
import ctypes
import os
import sys

library = os.path.realpath(sys.argv[1])
_ctypes.dlclose(ctypes.CDLL(library)._handle)
with open("/proc/self/maps", encoding="utf-8") as maps:
    sys.exit("still loaded" if library in maps.read() else 0)
