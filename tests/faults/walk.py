#!/usr/bin/env python3
"""Fails the N-th system call or allocation of tvx-cli, for every N and every command that reads or writes a file.

usage: walk.py TVX_CLI FAULT_LIBRARY EXAMPLES [--short] [--kills N] [--only WORD]

A run passes if
- it ends with status 0 and the output and files of the run without a fault, or with status 1 and lines on
  standard error that name a file;
- each file to be written is the older one or the new one, whole, and nothing else is in the folders.
N rises until no fault happens; only some allocations fail. With --short only some calls of every kind do,
and only allocations fail "always".
With --kills so many runs are killed at random moments instead: by SIGKILL, after which the same command has to
remove what was left, and by signals that the tool handles, which leave nothing.
"""
import argparse
import concurrent.futures
import errno
import os
import pathlib
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time

# Kind of call, how it fails.
FAULTS = [
    ("open", "once", errno.EACCES), ("open", "always", errno.EIO),
    ("read", "once", errno.EIO), ("read", "always", errno.EIO),
    ("read", "once", errno.EINTR), ("read", "short", 0),
    ("write", "once", errno.ENOSPC), ("write", "always", errno.EIO),
    ("write", "once", errno.EINTR), ("write", "short", 0),
    ("sync", "once", errno.EIO), ("close", "once", errno.EIO), ("close", "always", errno.ENOSPC),
    ("rename", "once", errno.EACCES), ("stat", "once", errno.EIO), ("stat", "always", errno.EACCES),
    ("alloc", "once", errno.ENOMEM), ("alloc", "always", errno.ENOMEM),
]
LIST = "File part.nc Dir {0} RT OFF Afa ON MMA {0}\\m.mma TD 10 \r\nFile arcs.nc Dir {0} RT OFF Afa OFF \r\n"
# Each with the files that it writes; "home" starts without one.
COMMANDS = {
    "blocks": ("blocks --condition c.afa part.nc arcs.nc", []),
    "conversational": ("blocks --set InputFileType=2 part.hnc", []),
    "moves": ("moves --json part.nc arcs.nc", []),
    "check": ("check --lines 2 part.nc arcs.nc", []),
    "time": ("time --master m.mma --machine m.machine --json part.nc", []),
    "times": ("time --csv t.csv --bom part.nc arcs.nc", ["t.csv"]),
    "info": ("info arcs.nc", []),
    "draw": ("draw arcs.nc", []),
    "project": ("project --fit part.nc 1,2,3", []),
    "option line": ("option-line build part.nc", []),
    "condition show": ("condition show c.afa", []),
    "condition write": ("condition write c.afa", ["c.afa"]),
    "config": ("config show", []),
    "first start": ("--home new config show", []),
    "machine show": ("machine show m.machine", []),
    "machine fit": ("machine fit --measured times.csv -o f.machine m.machine", ["f.machine"]),
    "master build": ("master build -o m.mma part.nc", ["m.mma"]),
    "master dump": ("master dump m.mma", []),
    "master lookup": ("master lookup m.mma 1 0,0,-99", []),
    "master show": ("master show m.mma", []),
    "emf": ("picture -o p.emf arcs.nc", ["p.emf"]),
    "svg": ("picture -o p.svg arcs.nc", ["p.svg"]),
    "png": ("picture --size 80x60 -o p.png arcs.nc", ["p.png"]),
    "run": ("run --report r.tvx --list r.mcf --pictures list.txt", ["r.tvx", "r.mcf", "part.nc.emf", "arcs.nc.emf"]),
    "run pages": ("run --sheet-html s.html --csv s.csv list.txt", ["s.html", "s.csv"]),
    "run workbook": ("run --xlsx s.xlsx list.txt", ["s.xlsx"]),
    "causes": ("causes --top 2 part.nc", []),
    "run builds": ("run --machine m.machine --list-copy out/r.mcf build.txt",
                   ["n.mma", "out/r.mcf", "out/n.mma", "out/part.nc", "out/arcs.nc"]),
}
OWN_FILES = ["home", "new:", "drives.txt", "tvx.cfg", "tvx.par", "tvx.afa", "fileext.txt", "dirlist.txt", "UserKey.txt", "CP949",
             "standard output", "out of memory"]
OLD = b"an older file\r\n"


class Walk:
    def __init__(self, arguments, folder):
        self.tool, self.library = (str(pathlib.Path(p).resolve()) for p in (arguments.tool, arguments.library))
        self.folder, self.short = folder, arguments.short
        self.prepare(pathlib.Path(arguments.examples))

    def prepare(self, examples):
        start = self.folder / "start"
        (start / "out").mkdir(parents=True)
        part = "".join(f"G01 X{x % 7} Y{x % 40 / 4} Z{-x % 3} F{500 + x}\r\n" for x in range(120))
        (start / "part.nc").write_text("G90 G00 X0 Y0 Z5\r\n" + part + "G04 P500\r\n")
        (start / "arcs.nc").write_text("G00 X0 Y0\r\n" + "G02 X1 Y0 I1 J0 F300\r\nG01 Z-1\r\n" * 20)
        shutil.copy(examples / "pocket_arcs.hnc", start / "part.hnc")
        (start / "m.machine").write_text("RapidFeed 12000\n")
        (start / "times.csv").write_text("program,minutes\npart.nc,0.4\narcs.nc,0.5\n")
        self.call("condition write c.afa", start)
        for extra in ("tvx.par", "afa/tvx.afa"):
            shutil.copy(start / "c.afa", start / "home/drive_c/marlo" / extra)
        for name, text in (("fileext.txt", "*.nc\r\n"), ("dirlist.txt", "c:\\x\r\n"), ("UserKey.txt", "=\r\nM3\r\n")):
            (start / "home/drive_c/marlo" / name).write_text(text)
        (start / "home/drives.txt").write_text("c: drive_c\nz: /\nw: ..\n")
        self.call("master build -o m.mma part.nc", start)
        for name, model in (("list.txt", "m.mma"), ("build.txt", "n.mma")):
            (start / name).write_text(LIST.format("w:").replace("m.mma", model))
        shutil.copy(start / "part.nc", start / "n")
        self.start = start

    def call(self, command, folder, environment=None):
        home = [] if "--home" in command else ["--home", "home"]
        return subprocess.run([self.tool, *home, *command.split()], cwd=folder, capture_output=True, timeout=60,
                              env={"PATH": "/usr/bin", **(environment or {})})

    def fresh(self, outputs):
        folder = pathlib.Path(tempfile.mkdtemp(dir=self.folder))
        shutil.copytree(self.start, folder, dirs_exist_ok=True)
        for name in outputs:
            if not (folder / name).exists() and not name.endswith(".mma"):
                (folder / name).write_bytes(OLD)
        return folder

    @staticmethod
    def tree(folder):
        return {str(path.relative_to(folder)): path.read_bytes() for path in folder.rglob("*") if path.is_file()}

    def judge(self, name, run, folder, before, good):
        """What is wrong with a run, or None."""
        command, outputs = COMMANDS[name]
        after = self.tree(folder)
        status, output, files = good
        for path in sorted(after.keys() | before.keys() | files.keys()):
            if after.get(path) not in (before.get(path), files.get(path)):
                return f"{path} is neither old nor new"
        if run.returncode == 0:
            # A first start that cannot create its files runs on the defaults, without a word.
            missing = {path for path in files.keys() - after.keys() if os.path.basename(path) not in OWN_FILES}
            return "status 0, other output" if run.stdout != output or missing else None
        if run.returncode != 1:
            return f"status {run.returncode}"
        lines = run.stderr.decode().splitlines()
        names = [os.path.basename(word) for word in command.split() if "." in word] + outputs + OWN_FILES
        names += ["part.nc", "arcs.nc"] if "run" in command or "fit" in command else []
        if not lines or not all(line.startswith("tvx-cli: ") for line in lines):
            return "no line on standard error"
        return None if any(word in lines[-1] for word in names) else "no file named"

    def without_fault(self, name):
        """The files before a run, and its status, output and files."""
        command, outputs = COMMANDS[name]
        folder = self.fresh(outputs)
        before = self.tree(folder)
        run = self.call(command, folder)
        assert run.returncode == 0, (name, run.stderr)
        good = run.returncode, run.stdout, self.tree(folder)
        shutil.rmtree(folder)
        return before, good

    def walk(self, name, fault, before, good):
        command, outputs = COMMANDS[name]
        kind, mode, number = fault
        n, faults, violations = 1, 0, []
        while True:
            folder = self.fresh(outputs)
            mark = folder.with_suffix(".mark")
            try:
                run = self.call(command, folder, {"LD_PRELOAD": self.library, "TVX_FAULT_MARK": str(mark),
                                                  "TVX_FAULT": f"{kind}:{n}:{mode}:{number}"})
                wrong = self.judge(name, run, folder, before, good)
            except subprocess.TimeoutExpired:
                wrong = "hangs"
            shutil.rmtree(folder)
            if not mark.exists():
                return faults, violations
            mark.unlink()
            faults += 1
            if wrong:
                violations.append(f"{name}: {kind} {n} {mode} {errno.errorcode.get(number, '')}: {wrong}: "
                                  f"{run.stderr.decode(errors='replace')[:300]!r}")
            n += max(1, n // 2) if self.short else max(1, n // 40) if kind == "alloc" else 1

    def kill(self, number):
        """Kills a run of a writing command. Returns what is wrong, or None."""
        name = random.choice([name for name, (_, outputs) in COMMANDS.items() if outputs])
        command, outputs = COMMANDS[name]
        folder = self.fresh(outputs)
        before = self.tree(folder)
        tool = subprocess.Popen([self.tool, "--home", "home", *command.split()], cwd=folder,
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        time.sleep(random.random() * 0.01)
        tool.send_signal(number)
        tool.wait()
        killed = self.tree(folder)
        run = self.call(command, folder)
        after = self.tree(folder)
        shutil.rmtree(folder)
        torn = [path for path in before.keys() | after.keys() if killed.get(path) not in (before.get(path), after.get(path))]
        left = sorted(path for path in killed.keys() - before.keys() - after.keys() if number != signal.SIGKILL)
        left += sorted(path for path in after if ".tvx-" in path)
        wrong = torn or left or run.returncode != 0
        return tool.returncode < 0, f"{name}: {number}: torn {torn}, left {left}: {run.stderr}" if wrong else None


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    for name in ("tool", "library", "examples"):
        parser.add_argument(name)
    parser.add_argument("--short", action="store_true")
    parser.add_argument("--kills", type=int, default=0)
    parser.add_argument("--only", default="", help="the commands whose name contains the word")
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder, concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        walk = Walk(arguments, pathlib.Path(folder))
        if arguments.kills:
            ends = list(pool.map(walk.kill, random.choices(
                [signal.SIGKILL, signal.SIGTERM, signal.SIGHUP, signal.SIGXCPU], k=arguments.kills)))
            print("\n".join(wrong for _, wrong in ends if wrong))
            print(f"{len(ends)} kills, {sum(killed for killed, _ in ends)} before the end of the run")
            sys.exit(any(wrong for _, wrong in ends))
        names = [name for name in COMMANDS if arguments.only in name]
        walks = [pool.submit(walk.walk, name, fault, *unharmed)
                 for name, unharmed in zip(names, pool.map(walk.without_fault, names)) for fault in FAULTS
                 if not arguments.short or fault[0] == "alloc" or fault[1] != "always"]
        results = [walk.result() for walk in walks]
    violations = [violation for _, found in results for violation in found]
    print("\n".join(violations))
    print(f"{sum(faults for faults, _ in results)} faults, {len(violations)} violations")
    sys.exit(1 if violations else 0)


main()
