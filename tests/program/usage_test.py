"""The command line: help, version, exit status, man pages, completion."""
import os
import re
import shutil
import subprocess
import sys

from support import contains, equal, image, main, run

COMMANDS = ("dump", "convert", "edit", "check", "new", "dict", "echo", "store", "find", "get", "move", "serve")
SOURCE = os.environ["VDICOM_SOURCE"]


def test_help_and_version(_):
    top = run("--help")
    for command in COMMANDS:
        contains(top.out, "  " + command)
        result = run(command, "--help")
        equal(run("help", command).out, result.out)
        equal(run(command, "-h").out, result.out)
        for part in (f"Usage: vdicom {command}", "Examples:\n  vdicom " + command, "Exit status:\n  0  "):
            contains(result.out, part)
        assert max(map(len, result.lines)) <= 120, max(result.lines, key=len)
        equal(result.err, "")
        equal(run(command, "--version").out, run("--version").out)
    assert re.fullmatch(r"vdicom \d+\.\d+\.\d+\n", run("--version").out)


def test_wrong_usage_is_2_and_says_where_help_is(folder):
    path = folder.write("a.dcm", image())
    for arguments in ((), ("nonsense",), ("dump",), ("dump", "--nonsense", path), ("dump", "--depth", "x", path),
                      ("dump", "--depth", "-1", path), ("dump", "--color", "red", path), ("dump", "--tag", "Nonsense", path),
                      ("dump", "--tag", "(0010,001)", path), ("dump", "--tag"), ("dump", "--no-bulk", path),
                      ("dump", "--json", "--full", path), ("convert",), ("convert", path), ("convert", path, "a", "b"),
                      ("convert", "--to", "nonsense", path, "out"), ("convert", "--to", "1.2.840.10008.1.1", path, "out"),
                      ("convert", "--recursive", path, "out"), ("edit", path, "out"), ("edit", path, "--set", "PatientID=1"),
                      ("edit", "--in-place", "-", "--set", "PatientID=1"), ("dict",), ("dict", "tag"),
                      ("new", "out"), ("new", "--class", "1"), ("new", "--class", "", "out"), ("new", "--class", "1", "-", "--json"),
                      ("new", "--class", "no such", "out"), ("new", "--class", "1", "a", "b"),
                      ("new", "--class", "1", "--set", "Nonsense=1", "out"),
                      ("echo",), ("echo", "localhost"), ("echo", "localhost", "0"), ("echo", "localhost", "x"), ("echo", "", "104"),
                      ("echo", "h", "1", "--called", ""), ("echo", "h", "1", "--calling", "seventeen letters"),
                      ("echo", "h", "1", "--max-pdu", "1023"), ("echo", "h", "1", "--repeat", "0"), ("store", "h", "1"),
                      ("echo", "h", "1", "--timeout", "-1"), ("store", "h", "1", path, "--repeat", "0"),
                      ("find", "h", "1", "-k", "Nonsense"), ("find", "h", "1", "--level", "frame"), ("find", "h", "1", "--limit", "0"),
                      ("find", "h", "1", "--level", "worklist", "--model", "study"),
                      ("get", "h", "1", "-k", "StudyInstanceUID=1.2"), ("get", "h", "1", "--to", "out"),
                      ("get", "h", "1", "--to", "out", "-k", "StudyInstanceUID=1.2", "--class", "Nonsense"),
                      ("move", "h", "1", "-k", "StudyInstanceUID=1.2"),
                      ("move", "h", "1", "-k", "StudyInstanceUID=1.2", "--to", "out"),
                      ("move", "h", "1", "-k", "StudyInstanceUID=1.2", "--destination", "X", "--listen", "1"),
                      ("move", "h", "1", "-k", "StudyInstanceUID=1.2", "--to", "out", "--listen", "70000"),
                      ("dict", "nonsense", "x"), ("dump", "help", "--json=x", path)):
        result = run(*arguments, status=2, cwd=folder.path)
        equal(result.out, "", arguments)
        assert re.fullmatch(r"vdicom( \w+)?: .+\nTry 'vdicom( \w+)? --help'\.\n", result.err), (arguments, result.err)
    equal(os.listdir(folder.path), ["a.dcm"])


def test_odd_file_names(folder):
    for name in ("-dash.dcm", "[list].dcm", "[0]", "a=b,c;d.dcm", "Übung 山.dcm", "--"):
        path = folder.write(name, image("Name"))
        contains(run("dump", "--tag", "PatientName", path).out, "Name")
        contains(run("dump", "--tag", "PatientName", "--", name, cwd=folder.path).out, "Name")


def test_progress_never_goes_into_a_pipe(folder):
    paths = [folder.write(f"{i}.dcm", image()) for i in range(50)]
    equal(run("convert", *paths, "--output", folder("out")).err, "")


def test_man_pages(_):
    pages = [f"vdicom{'-' + c if c else ''}.1" for c in ("", *COMMANDS)]
    equal(sorted(os.listdir(os.path.join(SOURCE, "docs", "man"))), sorted(pages))
    for page in pages:
        path = os.path.join(SOURCE, "docs", "man", page)
        if shutil.which("man"):
            done = subprocess.run(["man", "--warnings", "-l", path], capture_output=True, text=True, check=False,
                                  env=dict(os.environ, LC_ALL="C.UTF-8", MANROFFSEQ="", MANPAGER="cat"))
            equal((done.returncode, done.stderr), (0, ""), page)
            contains(done.stdout, "NAME")
    # Every option stands in the page and in both completions, and nothing else does.
    with open(os.path.join(SOURCE, "tools", "completion", "vdicom.bash"), encoding="utf-8") as file:
        bash = file.read()
    with open(os.path.join(SOURCE, "tools", "completion", "_vdicom"), encoding="utf-8") as file:
        zsh = file.read()
    for command in COMMANDS:
        with open(os.path.join(SOURCE, "docs", "man", f"vdicom-{command}.1"), encoding="utf-8") as file:
            page = file.read().replace("\\-", "-")
        wanted = set(re.findall(r"^  (?:-\w,)?(--[a-z-]+)", run(command, "--help").out, re.MULTILINE))
        listed = re.search(rf"    {command}\)\s+options='([^']*)'", bash)
        equal(set(listed.group(1).split()), wanted, f"bash: {command}")
        part = zsh[zsh.index(f"    {command})"):]
        part = part[:part.index(";;")]
        equal(set(re.findall(r"--[a-z-]+", part)), wanted, f"zsh: {command}")
        for option in wanted:
            assert re.search(rf"^\.(B|BR) .*{option}\b", page, re.MULTILINE), f"vdicom-{command}.1: {option}"


def test_completion_in_bash(folder):
    if not shutil.which("bash"):
        return
    folder.write("image.dcm", b"")
    os.mkdir(folder("images"))
    script = os.path.join(SOURCE, "tools", "completion", "vdicom.bash")

    def complete(*words):
        listed = " ".join(f"'{word}'" for word in words)
        done = subprocess.run(["bash", "-c", f"source '{script}'; compopt() {{ :; }}; COMP_WORDS=({listed}); "
                               f"COMP_CWORD={len(words) - 1}; _vdicom; printf '%s\\n' \"${{COMPREPLY[@]}}\""],
                              capture_output=True, text=True, check=True, cwd=folder.path)
        return done.stdout.split()

    equal(complete("vdicom", "d"), ["dump", "dict"])
    equal(complete("vdicom", "dump", "--o"), ["--offsets"])
    equal(sorted(complete("vdicom", "dump", "im")), ["image.dcm", "images"])
    equal(complete("vdicom", "serve", "--folder", "im"), ["images"])
    equal(complete("vdicom", "serve", "--port", ""), [])
    equal(complete("vdicom", "convert", "--to", "e"), ["explicit"])
    equal(complete("vdicom", "dict", ""), ["tag", "vr", "uid", "iod", "cid"])


main(sys.modules[__name__])
