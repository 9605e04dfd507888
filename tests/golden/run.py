#!/usr/bin/env python3
"""Runs the golden cases: whole behaviours of the program, seen through the command line.

usage: tests/golden/run.py [--accept] TVX_CLI [AREA[/CASE]...]

A case is a folder AREA/CASE with a file `cmd` and what it reads. Each line of `cmd` runs in a copy of
the folder, with a home of its own in home/ and the project's example programs in examples/:
  tvx-cli ARGUMENTS    the tool; with TVX_LANGUAGE=ko or =en in front, in that language
  copy FOLDER TO       what a folder holds into another, which is made if it is missing
  show FILE            the text of a file, decoded from CP949, each carriage return shown as \\r
  changed COMMAND      what one of these prints, without the lines that the last command without
                       this word printed: what is different from there
What is printed must be the text of `expect.txt`: the line itself after "$ ", standard output,
standard error after "! ", and the exit status if it is not 0. --accept takes the output as expected;
read the difference in review.
"""
import difflib
import os
import pathlib
import shlex
import shutil
import subprocess
import sys
import tempfile

GOLDEN = pathlib.Path(__file__).resolve().parent
EXAMPLES = GOLDEN.parents[1] / "examples"


def show(path):
    if not path.exists():
        return f"no file {path.name}\n"
    text = path.read_bytes().decode("cp949", "backslashreplace")
    return text.replace("\r", "\\r")


def run_tool(tool, arguments, folder, language):
    home = folder / "home"
    environment = dict(os.environ, TVX_HOME=str(home), LC_ALL="C.UTF-8", TVX_LANGUAGE=language)
    run = subprocess.run(
        [tool, *arguments], cwd=folder, env=environment, capture_output=True, timeout=60
    )
    output = run.stdout.decode("utf-8", "backslashreplace")
    for line in run.stderr.decode("utf-8", "backslashreplace").splitlines():
        output += f"! {line}\n"
    if run.returncode != 0:
        output += f"exit {run.returncode}\n"
    return output


def run_command(tool, words, folder):
    language = words[0].partition("=")[2]
    program, *arguments = words[1:] if language else words
    if program == "tvx-cli":
        return run_tool(tool, arguments, folder, language)
    if program == "show":
        return show(folder / arguments[0])
    if program == "copy":
        shutil.copytree(folder / arguments[0], folder / arguments[1], dirs_exist_ok=True)
        return ""
    raise ValueError(f"unknown command '{program}' in a case")


def run_case(tool, case):
    output = ""
    with tempfile.TemporaryDirectory() as temporary:
        folder = pathlib.Path(temporary).resolve() / case.name
        shutil.copytree(case, folder)
        (folder / "examples").symlink_to(EXAMPLES)
        reference = set()
        for line in (case / "cmd").read_text(encoding="utf-8").splitlines():
            words = shlex.split(line)
            changed = words[0] == "changed"
            text = run_command(tool, words[1:] if changed else words, folder)
            lines = text.splitlines(keepends=True)
            output += f"$ {line}\n"
            output += "".join(x for x in lines if x not in reference) if changed else text
            if not changed:
                reference = set(lines)
        return output.replace(str(folder), "CASE")


def find_cases(names):
    if not names:
        names = [p.name for p in GOLDEN.iterdir() if p.is_dir()]
    for name in sorted(names):
        path = GOLDEN / name
        cases = [path] if (path / "cmd").exists() else sorted(p.parent for p in path.glob("*/cmd"))
        if not cases:
            sys.exit(f"no case in {path}")
        yield from cases


def main():
    words = sys.argv[1:]
    accept = "--accept" in words
    words = [word for word in words if word != "--accept"]
    if not words:
        sys.exit(__doc__)
    tool = str(pathlib.Path(words[0]).resolve())
    failed = 0
    for case in find_cases(words[1:]):
        expect = case / "expect.txt"
        output = run_case(tool, case)
        expected = expect.read_text(encoding="utf-8") if expect.exists() else ""
        if output == expected:
            continue
        if accept:
            expect.write_text(output, encoding="utf-8")
            print(f"accepted {case.relative_to(GOLDEN)}")
            continue
        failed += 1
        print(f"FAILED {case.relative_to(GOLDEN)}")
        print("".join(difflib.unified_diff(
            expected.splitlines(True), output.splitlines(True), "expected", "output")))
    return 1 if failed else 0


sys.exit(main())
