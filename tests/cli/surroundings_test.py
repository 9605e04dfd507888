"""tvx-cli in its surroundings: the terminal, a full disk, a home that cannot be written, the locale."""
import json
import os
import pathlib
import pty
import shlex
import signal
import subprocess
import sys
import tempfile
import time
import unittest

TOOL = str(pathlib.Path(sys.argv.pop(1)).resolve())


class Surroundings(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name)
        self.drive_folder = b"z:" + bytes(self.folder).replace(b"/", b"\\")
        self.program = self.folder / "part.nc"
        self.program.write_bytes(b"G01 X0 F500\r\nX0.1\r\n")

    def run_tool(self, *arguments, environment=None, stdout=subprocess.PIPE, stderr=subprocess.PIPE):
        environment = {**os.environ, "TVX_HOME": str(self.folder / "home"), **(environment or {})}
        return subprocess.run([TOOL, *map(str, arguments)], env=environment, timeout=60,
                              stdout=stdout, stderr=stderr)

    def run_on_terminal(self, *arguments):
        """The run with a terminal as its standard error, and the text shown there."""
        try:
            ours, theirs = pty.openpty()
        except OSError:
            self.skipTest("no terminal is available")
        run = self.run_tool(*arguments, stderr=theirs)
        os.close(theirs)
        shown = b""
        try:
            while True:
                shown += os.read(ours, 10000)
        except OSError:  # the end of a terminal whose other side is closed
            os.close(ours)
        self.assertTrue(shown.endswith(b"\r\x1b[K"), "the progress is erased at the end")
        return run, shown

    def test_progress_is_shown_on_a_terminal_only(self):
        quiet = self.run_tool("blocks", self.program)
        self.assertEqual(quiet.stderr, b"")
        watched, shown = self.run_on_terminal("blocks", self.program)
        self.assertEqual(watched.stdout, quiet.stdout)
        self.assertIn(b"part.nc: reading", shown)

    def write_list(self, *names, line=b"RT OFF Afa OFF "):
        """A saved list of files in the folder, named as bytes."""
        path = self.folder / "list.txt"
        path.write_bytes(b"".join(b"File %s Dir %s %s\r\n" % (name, self.drive_folder, line)
                                  for name in names))
        return path

    def test_failure_in_a_run_is_reported_before_the_next_file(self):
        run, shown = self.run_on_terminal("run", self.write_list(b"gone.nc", b"part.nc"))
        self.assertEqual(run.returncode, 1)
        failure = b"tvx-cli: " + self.drive_folder + b"\\gone.nc: no such file\r\n"
        places = [shown.find(text) for text in (b"1/2 gone.nc", failure, b"2/2 part.nc")]
        self.assertNotIn(-1, places)
        self.assertEqual(places, sorted(places), shown)

    def test_run_over_a_loop_a_folder_and_an_odd_name_creates_nothing(self):
        (self.folder / "again.nc").symlink_to("again.nc")
        (self.folder / "pipe.nc").mkdir()
        jobs = self.write_list(b"again.nc", b"pipe.nc", b"\xff.nc", b"part.nc")
        before = {*os.listdir(self.folder), "home"}
        run = self.run_tool("run", "--json", jobs)
        self.assertEqual([line.rsplit(b": ")[-1] for line in run.stderr.splitlines()],
                         [b"Too many levels of symbolic links", b"is a directory", b"no such file"])
        self.assertEqual([entry["cutLength"] > 0 for entry in json.loads(run.stdout)],
                         [False] * 3 + [True])
        self.assertEqual({*os.listdir(self.folder)}, before)

    def test_fresh_reads_each_program_as_the_only_one_and_dash_is_standard_input(self):
        incremental = self.folder / "g91.nc"
        incremental.write_bytes(b"G91\nG1 X10 F100\n")
        relies = self.folder / "g1.nc"
        relies.write_bytes(b"X0 F100\nX5\n")
        def cut(*arguments, stdin=None):
            run = subprocess.run([TOOL, "time", "--json", "--no-afa", *arguments], check=True, stdin=stdin,
                                 env={**os.environ, "TVX_HOME": str(self.folder)}, capture_output=True)
            return [file["before"]["cutLength"] for file in json.loads(run.stdout)]
        self.assertEqual(cut(incremental, relies), [10, 5])
        self.assertEqual(cut("--fresh", incremental, relies), [10, 0])
        with open(relies, "rb") as program:
            self.assertEqual(cut(incremental, "-", stdin=program), [10, 5])

    def test_standard_input_that_cannot_be_read_is_no_empty_program(self):
        for redirect, reason in ((". ", "Is a directory"), ("/dev/null TMPDIR=/nowhere ", "No such file or directory")):
            run = subprocess.run(["sh", "-c", f"<{redirect} {TOOL} time -"], cwd=self.folder, capture_output=True,
                                 env={**os.environ, "TVX_HOME": str(self.folder)})
            self.assertEqual((run.returncode, run.stdout), (1, b""), redirect)
            self.assertEqual(run.stderr.decode(), f"tvx-cli: -: cannot be copied to a temporary file: {reason}\n")

    def test_remark_quotes_a_file_name_with_an_apostrophe_for_the_shell(self):
        program = self.folder / "it's.nc"
        program.write_bytes(b"G83 X1 F100\n")
        run = self.run_tool("time", program)
        command = run.stderr.decode().split("; ")[1].removesuffix(" lists them\n")
        self.assertEqual(shlex.split(command), ["tvx-cli", "check", str(program)])

    def test_interrupt_ends_a_run_with_status_1_and_without_files(self):
        (self.folder / "long.nc").write_bytes(b"G1 X0 F500\n" + b"X1\nX0\n" * 2_000_000)
        report = self.folder / "week.tvx"
        run = subprocess.Popen([TOOL, "run", "--report", report, self.write_list(*[b"long.nc"] * 9)],
                               env={**os.environ, "TVX_HOME": str(self.folder)},
                               stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        time.sleep(0.5)
        run.send_signal(signal.SIGINT)
        _, errors = run.communicate(timeout=60)
        self.assertEqual(run.returncode, 1)
        self.assertIn(b" of 9 files", errors)
        self.assertEqual([*self.folder.glob("*week*")], [])

    def test_json_of_a_run_has_the_options_of_the_line(self):
        line = ("RT ON 3 20 -2.5 Afa ON TD 16 SD 3.5 CMIA 12 CMAR 0.27 SMIA 15 SMAR 0.2 CCC OFF "
                "ZUDC OFF MAT KP4 MAF 2400 AF 400 CW 0.9 0.65 0.3 SW 0.8 0.7 0.1 FCS ON XYR ON ")
        run = self.run_tool("run", "--json", self.write_list(b"part.nc", line=line.encode()))
        [entry] = json.loads(run.stdout)
        record = json.loads(self.run_tool("option-line", "parse", "Dir c: " + line).stdout)
        self.assertGreater(len(entry.keys() & record.keys()), 30)
        self.assertEqual(entry, {**entry, **{key: record[key] for key in entry if key in record}})

    def test_json_of_causes_adds_up_and_names_the_corner(self):
        self.program.write_bytes(b"G00 X0\r\nG01 X100 F500\r\n(\xb0\xa1)\r\nY100\r\nY900\r\n")
        run = self.run_tool("causes", "--json", "--top", "1", self.program)
        causes = json.loads(run.stdout)
        minutes = causes["atHighestFeed"] + sum(causes["rules"].values())
        self.assertAlmostEqual(minutes, causes["straightCuts"], 9)
        self.assertAlmostEqual(sum(b["minutes"] for b in causes["bands"]), causes["straightCuts"], 9)
        place = causes["places"][0]
        self.assertEqual(["XY corner", 2, 4, 2, "G01 X100 F500"],
                         [place[k] for k in ("rule", "firstLine", "lastLine", "line", "text")])

    def test_entries_left_out_of_a_long_list_are_reported(self):
        run = self.run_tool("run", "--json", self.write_list(*[b"part.nc"] * 302))
        self.assertEqual((run.returncode, len(json.loads(run.stdout))), (1, 300))
        self.assertIn(b"list.txt: a list holds 300 files, the last 2 of this one are left out",
                      run.stderr)
        run = self.run_tool("run", "--json", self.write_list(*[b"part.nc"] * 300))
        self.assertEqual((run.returncode, run.stderr), (0, b""))

    def test_full_disk_is_a_failure(self):
        for call in (["blocks", self.program], ["--help"], ["run", "--help"]):
            with open("/dev/full", "wb") as full:
                run = self.run_tool(*call, stdout=full)
            self.assertEqual((run.returncode, run.stderr), (
                1, b"tvx-cli: standard output: could not be written: No space left on device\n"))

    def test_closed_descriptor_does_not_become_a_file(self):
        pictures = []
        for name, closed in (("a.svg", ""), ("b.svg", "<&- >&- 2>&-")):
            subprocess.run(["sh", "-c", f'exec "$0" --home home picture -o {name} part.nc {closed}', TOOL],
                           cwd=self.folder, check=True)
            pictures.append((self.folder / name).read_bytes())
        self.assertEqual(*pictures)

    def test_what_is_there_and_cannot_be_used_is_reported_and_left_alone(self):
        home = self.folder / "home"
        self.run_tool("config", "show")
        settings = home / "drive_c/windows/tvx.cfg"
        large = self.folder / "large"
        large.write_bytes(b" " * (4 << 20) + b"\n")
        picture = self.folder / "part.nc.emf"
        cases = [
            (lambda: (settings.unlink(), settings.mkdir()), ["config", "show"], "is a directory"),
            (lambda: (settings.rmdir(), os.mkfifo(settings)), ["time", self.program],
             "is no plain file"),
            (lambda: (settings.unlink(), settings.write_bytes(large.read_bytes())),
             ["config", "show"], "is larger than 4 MiB"),
            (settings.unlink, ["run", large], "is larger than 4 MiB"),
            (lambda: None, ["condition", "show", large], "is larger than 4 MiB"),
            (picture.mkdir, ["run", "--pictures", self.write_list(b"part.nc")], "is a directory"),
            (lambda: ((home / "drives.txt").unlink(), os.mkfifo(home / "drives.txt")),
             ["config", "show"], "is no plain file"),
        ]
        for prepare, call, reason in cases:
            prepare()
            with self.subTest(call=call, reason=reason):
                environment = {**os.environ, "TVX_HOME": str(home)}
                run = subprocess.run([TOOL, *map(str, call)], env=environment, cwd=self.folder,
                                     timeout=60, capture_output=True, text=True)
                self.assertEqual(run.returncode, 1)
                self.assertTrue(run.stderr.endswith(reason + "\n"), run.stderr)
                self.assertEqual(run.stderr.count("\n"), 1)

    def test_json_has_numbers_only(self):
        run = self.run_tool("getfeed", "--diameter", "1e-45")
        self.assertTrue(all(isinstance(value, (int, float, str))
                            for value in json.loads(run.stdout).values()), run.stdout)

    def test_home_that_cannot_be_made_has_its_drives(self):
        (self.folder / "home").write_text("a file where a folder should be")
        run = self.run_tool("time", "--no-afa", "--json", self.program)
        self.assertEqual((run.returncode, run.stderr), (0, b""))

    def test_numbers_do_not_follow_the_locale(self):
        run = self.run_tool("time", "--no-afa", "--json", self.program,
                            environment={"LC_ALL": "de_DE.UTF-8"})
        self.assertEqual(json.loads(run.stdout)[0]["before"]["cutLength"], 0.1)

    def test_home_is_the_option_then_the_variables(self):
        unset = {"TVX_HOME": "", "XDG_DATA_HOME": "", "HOME": str(self.folder)}
        cases = [
            (["--home", self.folder / "mine"], {}, "mine"),
            ([], {**unset, "XDG_DATA_HOME": str(self.folder / "data")}, "data/tvx"),
            ([], unset, ".local/share/tvx"),
        ]
        for option, environment, place in cases:
            self.run_tool(*option, "config", "show", environment=environment)
            self.assertTrue((self.folder / place / "drives.txt").exists(), place)
        self.assertFalse((self.folder / "home").exists())

    def test_reader_that_closes_early_ends_the_tool(self):
        big = self.folder / "big.nc"
        big.write_bytes(b"G01 X1 F100\r\nX0\r\n" * 50000)
        tool = subprocess.Popen([TOOL, "--home", self.folder / "home", "blocks", big],
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        with tool:
            tool.stdout.readline()
            tool.stdout.close()
            self.assertEqual(tool.stderr.read(), b"")
        self.assertNotEqual(tool.returncode, 0)


unittest.main()
