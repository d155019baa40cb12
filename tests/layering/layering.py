#!/usr/bin/env python3
"""Checks the rules of the source tree: layering.py ROOT, or layering.py --selftest.

- System headers and tests for a platform stand in Common/Platform and its tests alone.
- Includes point downwards: tools -> subsystems -> data set -> dictionaries and platform. Headers that call
  themselves pure include pure headers alone.
- A source has at most 900 lines (the rows of the tables aside).
- Words that mark unfinished work, and places of one machine, do not stand in the repository.
"""
import os
import re
import sys
import tempfile

MAX_LINES = 900
CODE_FOLDERS = ("include", "Common", "tools", "examples", "tests", "bench", "fuzz")
TEXT_FOLDERS = CODE_FOLDERS + ("docs", "cmake", "scripts", ".ci")

# The headers of which folders a folder may include, its own and include/ aside.
MAY_SEE = {
    "include": (),
    "Common/Platform": (),
    "Common/tables": (),
    "Common/Dictionary": ("Common/tables", "Common/Platform"),
    "Common/DataSet": ("Common/Dictionary", "Common/Platform"),
    "Common/Net": ("Common/DataSet", "Common/Dictionary", "Common/Platform"),
    "tools": (),
    "examples": (),
    "bench": ("tools", "Common/Net", "Common/DataSet", "Common/Dictionary", "Common/Platform"),
    "fuzz": ("Common/Net", "Common/DataSet", "Common/Dictionary", "Common/Platform"),
    "tests": ("tools", "Common/Net", "Common/DataSet", "Common/Dictionary", "Common/Platform", "Common/tables", "fuzz"),
}
# Libraries that a folder may include by angle brackets, the C++ standard library aside.
LIBRARIES = {
    "Common/DataSet": r"zlib\.h",
    "tools": r"(CLI|fmt|rapidjson|spdlog)/.*|(sqlite3|utf8proc)\.h",
    "examples": r"VDicom\w+\.h|glib-unix\.h",
    "bench": r"benchmark/.*",
    "tests": r"(gtest|gmock)/.*|zlib\.h|VDicom\w+\.h",
}
# Who may know the platform: its folder, the folder's tests, and the header with the mark of exported classes.
PLATFORM_ALLOWED = ("Common/Platform/", "tests/Platform/", "include/VDicomTypes.h")

STANDARD_HEADER = re.compile(r"^[a-z_]+$")  # no suffix: C++, C headers as <cstdint>
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
PLATFORM_TEST = re.compile(r"^\s*#\s*(if|ifdef|ifndef|elif)\b.*\b(_?_?WIN(32|64)\w*|__linux\w*|linux|__unix\w*|unix|"
                           r"__APPLE__|_MSC_VER|__MINGW\w*|__GLIBC__|__CYGWIN__|__FreeBSD__)\b")
# A class of one letter keeps each pattern from finding itself.
UNFINISHED = re.compile(r"\b(TOD[O]|FIXM[E]|XX[X]|HAC[K]|not implemente[d]|unimplemente[d]|stu[b])\b")
WORDS = re.compile(r"\bspe[c](ification|\.md)?\b|\bPar[t] [1-6]\.[1-6]\b|\bsee[d](s|ed)? doc|AI[- ]generate[d]|"
                   r"\bagen[t] session|/wor[k]/(main|rooms|shared)|/roo[t]/|\bdeb\.debia[n]\b", re.IGNORECASE)


def folder_of(path):
    parts = path.split("/")
    return "/".join(parts[:2]) if parts[0] == "Common" else parts[0]


def files_below(root, folders):
    for folder in folders:
        for place, subfolders, names in os.walk(os.path.join(root, folder)):
            subfolders[:] = sorted(s for s in subfolders if s not in ("build", "__pycache__", ".git"))
            for name in sorted(names):
                yield os.path.relpath(os.path.join(place, name), root).replace(os.sep, "/")


def read_lines(root, path):
    with open(os.path.join(root, path), encoding="utf-8", errors="replace") as file:
        return file.read().split("\n")


def is_pure(lines):
    head = "\n".join(line for line in lines[:30] if line.startswith("//"))
    return re.search(r"\bPure\b", head) is not None


def check_includes(path, sources, headers, pure, complain):
    folder = folder_of(path)
    for number, line in enumerate(sources[path], 1):
        if not path.startswith(PLATFORM_ALLOWED) and PLATFORM_TEST.match(line):
            complain(path, number, "tests for a platform outside Common/Platform")
        match = INCLUDE.match(line)
        if not match:
            continue
        bracket, name = match.groups()
        if bracket == "<":
            library = LIBRARIES.get(folder)
            if not path.startswith(PLATFORM_ALLOWED) and not STANDARD_HEADER.match(name) and not (
                    library and re.fullmatch(library, name)):
                complain(path, number, f"<{name}>: system headers and other libraries belong to Common/Platform")
            continue
        # Two folders may have headers of one name: what stands beside, then what the folder may see.
        beside = os.path.dirname(path) + "/" + name
        seen = ("include", folder) + MAY_SEE.get(folder, ())
        candidates = sorted(headers.get(os.path.basename(name), ()),
                            key=lambda p: (p != beside, folder_of(p) not in seen))
        if not candidates:
            complain(path, number, f'"{name}": no such header in the repository')
            continue
        target = candidates[0]
        if folder_of(target) not in seen:
            complain(path, number, f"{folder} must not include from {folder_of(target)} ({name})")
        if path in pure and target not in pure and target != "include/VDicomTypes.h":
            complain(path, number, f"a pure header includes {target}, which is not pure")


def check(root):
    complaints = []

    def complain(path, number, text):
        complaints.append(f"{path}:{number}: {text}")

    sources = {p: read_lines(root, p) for p in files_below(root, CODE_FOLDERS) if p.endswith((".cpp", ".h"))}
    headers = {}
    for path in sources:
        if path.endswith(".h"):
            headers.setdefault(os.path.basename(path), []).append(path)
    pure = {p for p, lines in sources.items() if p.endswith(".h") and is_pure(lines)}
    for path, lines in sources.items():
        check_includes(path, sources, headers, pure, complain)
        if len(lines) - 1 > MAX_LINES and not path.startswith("Common/tables/"):
            complain(path, MAX_LINES + 1, f"{len(lines) - 1} lines; split by responsibility")
    top = [name for name in sorted(os.listdir(root)) if os.path.isfile(os.path.join(root, name)) and name != ".git"]
    for path in list(files_below(root, TEXT_FOLDERS)) + top:
        if path.endswith((".dcm", ".png", ".bin", ".gz")) or "/corpus/" in path:
            continue
        for number, line in enumerate(read_lines(root, path), 1):
            if path.startswith("Common/tables/"):
                break  # the standard's own names, which may be of any words
            for pattern in (UNFINISHED, WORDS) if path.endswith((".cpp", ".h", ".py", ".sh")) else (WORDS,):
                found = pattern.search(line)
                if found:
                    complain(path, number, f"'{found.group(0)}' must not stand here")
    return complaints


def selftest():
    files = {
        "include/VDicomA.h": '#include "B.h"\n',
        "Common/DataSet/B.h": "/// Pure.\n#include \"C.h\"\n",
        "Common/DataSet/C.h": "#include <unistd.h>\n",
        "Common/Platform/P.h": "#ifdef _WIN32\n#include <windows.h>\n#endif\n",
        "Common/Platform/Q.cpp": '#include "C.h"\n',
        "Common/Dictionary/D.cpp": "#if defined(__linux__)\n#endif\n#include <vector>\n",
        "tools/t.cpp": '#include "C.h"\n#include <fmt/format.h>\n',
        "tests/long.cpp": "\n" * (MAX_LINES + 1),
        "docs/w.md": "the spe" + "c says\n",
        "bench/u.py": "# TO" + "DO\n",
    }
    expected = ["include/VDicomA.h:1", "Common/DataSet/B.h:2", "Common/DataSet/C.h:1", "Common/Platform/Q.cpp:1",
                "Common/Dictionary/D.cpp:1", "tools/t.cpp:1", f"tests/long.cpp:{MAX_LINES + 1}", "docs/w.md:1",
                "bench/u.py:1"]
    with tempfile.TemporaryDirectory() as root:
        for path, text in files.items():
            os.makedirs(os.path.join(root, os.path.dirname(path)), exist_ok=True)
            with open(os.path.join(root, path), "w", encoding="utf-8") as file:
                file.write(text)
        found = [":".join(line.split(":")[:2]) for line in check(root)]
    if sorted(found) != sorted(expected):
        print("expected:", sorted(expected), "found:", sorted(found), sep="\n")
        return 1
    return 0


def main():
    if sys.argv[1:] == ["--selftest"]:
        return selftest()
    if len(sys.argv) != 2:
        print(__doc__)
        return 2
    complaints = check(sys.argv[1])
    for line in complaints:
        print(line)
    print(f"{len(complaints)} breaches of the rules" if complaints else "the rules hold")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
