"""tvx-cli in its surroundings: the terminal, a full disk, a home that cannot be written, the locale."""
import json
import os
import pathlib
import pty
import subprocess
import sys
import tempfile
import unittest

TOOL = str(pathlib.Path(sys.argv.pop(1)).resolve())


def read_all(terminal):
    """What came to a terminal whose other side is closed: reading on then is an error."""
    text = b""
    try:
        while True:
            text += os.read(terminal, 10000)
    except OSError:
        os.close(terminal)
        return text


class Surroundings(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name)
        self.program = self.folder / "part.nc"
        self.program.write_bytes(b"G01 X0 F500\r\nX0.1\r\n")

    def run_tool(self, *arguments, environment=None, **options):
        home = {"TVX_HOME": str(self.folder / "home")}
        environment = {**os.environ, **home, **(environment or {})}
        options.setdefault("stdout", subprocess.PIPE)
        options.setdefault("stderr", subprocess.PIPE)
        return subprocess.run([TOOL, *map(str, arguments)], env=environment, timeout=60, **options)

    def test_progress_shows_on_a_terminal_only(self):
        quiet = self.run_tool("blocks", self.program)
        self.assertEqual(quiet.stderr, b"")

        try:
            ours, theirs = pty.openpty()
        except OSError:
            self.skipTest("this machine has no terminals to give")
        watched = self.run_tool("blocks", self.program, stderr=theirs)
        os.close(theirs)
        shown = read_all(ours)
        self.assertEqual(watched.stdout, quiet.stdout)
        self.assertIn(b"part.nc: reading", shown)
        # The line is taken away again, so nothing is left on the screen.
        self.assertTrue(shown.endswith(b"\r\x1b[K"), shown)

    def write_list(self, *entries):
        """A saved list of names and directories, as bytes, with no options."""
        path = self.folder / "list.txt"
        path.write_bytes(b"".join(b"File %s Dir %s RT OFF Afa OFF \r\n" % job for job in entries))
        return path

    def test_a_run_names_what_fails_while_it_goes_on(self):
        here = b"z:" + bytes(self.folder).replace(b"/", b"\\")
        jobs = self.write_list((b"gone.nc", here), (b"part.nc", here))
        try:
            ours, theirs = pty.openpty()
        except OSError:
            self.skipTest("this machine has no terminals to give")
        run = self.run_tool("run", jobs, stderr=theirs)
        os.close(theirs)
        shown = read_all(ours)
        self.assertEqual(run.returncode, 1)
        places = [shown.find(text) for text in (b"1/2 gone.nc", b"tvx-cli: ", b"2/2 part.nc")]
        self.assertNotIn(-1, places)
        self.assertEqual(places, sorted(places), shown)
        self.assertTrue(shown.endswith(b"\r\x1b[K"), shown)
        self.assertIn(here + b"\\gone.nc: no such file\r\n", shown)

    def test_a_run_over_entries_that_cannot_be(self):
        here = b"z:" + bytes(self.folder).replace(b"/", b"\\")
        (self.folder / "again.nc").symlink_to("again.nc")
        (self.folder / "pipe.nc").mkdir()
        odd = [
            (b"again.nc", here),
            (b"pipe.nc", here),
            (b"n" * 10000, here),
            (b"a.nc", here + b"\\" + b"d" * 10000),
            (b"a.nc", b"q:\\.."),
            (b"..\\" * 40 + b"a.nc", here),
            (b"\x00\x01\xff.nc", here),
            (b"a.nc", b"FS"),
        ]
        before = sorted(os.listdir(self.folder))
        jobs = self.write_list(*odd, (b"part.nc", here))
        run = self.run_tool("run", "--json", jobs)
        results = json.loads(run.stdout)
        self.assertEqual(run.returncode, 1)
        reasons = [line.rsplit(b": ")[-1].decode() for line in run.stderr.splitlines()]
        self.assertEqual(reasons, ["no such file", "is a directory"] + ["no such file"] * 6)
        self.assertEqual([entry["cutLength"] > 0 for entry in results], [False] * len(odd) + [True])
        after = sorted(os.listdir(self.folder))
        self.assertEqual([name for name in after if name not in ("home", "list.txt")], before)

    def test_a_list_that_is_too_long_is_not_cut_in_silence(self):
        here = b"z:" + bytes(self.folder).replace(b"/", b"\\")
        run = self.run_tool("run", "--json", self.write_list(*[(b"part.nc", here)] * 302))
        self.assertEqual((run.returncode, len(json.loads(run.stdout))), (1, 300))
        self.assertIn(b"list.txt: a list holds 300 files, the last 2 of this one are left out",
                      run.stderr)
        run = self.run_tool("run", "--json", self.write_list(*[(b"part.nc", here)] * 300))
        self.assertEqual((run.returncode, run.stderr), (0, b""))

    def test_output_that_cannot_be_written_is_a_failure(self):
        with open("/dev/full", "wb") as full:
            run = self.run_tool("blocks", self.program, stdout=full)
        self.assertEqual(run.returncode, 1)
        self.assertEqual(run.stderr, b"tvx-cli: standard output: could not be written\n")

    def test_a_home_that_cannot_be_made_still_has_its_drives(self):
        (self.folder / "home").write_text("a file where a folder should be")
        run = self.run_tool("time", "--no-afa", "--json", self.program)
        self.assertEqual((run.returncode, run.stderr), (0, b""))

    def test_numbers_do_not_follow_the_locale(self):
        run = self.run_tool("time", "--no-afa", "--json", self.program,
                            environment={"LC_ALL": "de_DE.UTF-8"})
        self.assertEqual(json.loads(run.stdout)[0]["before"]["cutLength"], 0.1)

    def test_home_of_the_call_comes_before_that_of_the_environment(self):
        self.run_tool("--home", self.folder / "mine", "config", "show")
        self.assertTrue((self.folder / "mine" / "drives.txt").exists())
        self.assertFalse((self.folder / "home").exists())

    def test_default_home(self):
        cases = [
            ({"XDG_DATA_HOME": str(self.folder / "data")}, "data/tvx"),
            ({"XDG_DATA_HOME": "", "HOME": str(self.folder)}, ".local/share/tvx"),
        ]
        for environment, place in cases:
            with self.subTest(place):
                run = self.run_tool("config", "show", environment={"TVX_HOME": "", **environment})
                self.assertEqual(run.returncode, 0)
                self.assertTrue((self.folder / place / "drives.txt").exists())

    def test_many_loads_in_one_call(self):
        run = self.run_tool("time", "--no-afa", "--json", *[self.program] * 200)
        self.assertEqual(len(json.loads(run.stdout)), 200)

    def test_a_reader_that_leaves_early(self):
        big = self.folder / "big.nc"
        big.write_bytes(b"G01 X1 F100\r\nX0\r\n" * 50000)
        tool = subprocess.Popen([TOOL, "--home", self.folder / "home", "blocks", big],
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        tool.stdout.readline()
        tool.stdout.close()
        self.assertEqual(tool.stderr.read(), b"")
        tool.stderr.close()
        self.assertNotEqual(tool.wait(timeout=60), 0)


unittest.main()
