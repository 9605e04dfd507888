"""The files that run and time write for other programs, read back by other readers."""
import csv
import io
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOL = str(pathlib.Path(sys.argv.pop(1)).resolve())


class ResultFiles(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name)
        self.write_list("part.nc")

    def write_list(self, *names):
        for name in names:
            (self.folder / name).write_text("G0 X0\nG1 X0.1 F500\nX10\nY-20\n")
        folder = "z:" + str(self.folder).replace("/", "\\")
        lines = [f"File {name} Dir {folder} FS 9 RT OFF Afa ON TD 10 MAF 1000 \r\n" for name in names]
        (self.folder / "list.txt").write_bytes("".join(lines).encode("cp949"))

    def run_tool(self, *arguments, status=0):
        run = subprocess.run([TOOL, *arguments], cwd=self.folder, timeout=60, capture_output=True,
                             env={**os.environ, "TVX_HOME": str(self.folder / "home"),
                                  "LC_ALL": "de_DE.UTF-8"})
        self.assertEqual(run.returncode, status, run.stderr)
        return run

    def test_csv_has_the_figures_of_the_json(self):
        self.write_list('+a,"b".nc', "형상.nc")
        (self.folder / "m.machine").write_text("Name M\n")
        machine = ("--machine", "m.machine")
        run = self.run_tool("run", "--json", "--csv", "r.csv", "--bom", *machine, "list.txt")
        [names, first, second] = csv.reader(io.StringIO((self.folder / "r.csv").read_text("utf-8-sig")))
        entries = json.loads(run.stdout)
        flat = {key: value for key, value in entries[1].items() if key != "machine"}
        flat |= {"machine." + key: value for key, value in entries[1]["machine"].items()}
        self.assertEqual(names, list(flat))
        self.assertEqual(second, [str(value) if isinstance(value, str) else json.dumps(value).removesuffix(".0")
                                  for value in flat.values()])
        self.assertEqual(first[names.index("fileName")], "'+a,\"b\".nc")

        run = self.run_tool("time", "--json", "--csv", "t.csv", *machine, "part.nc", "part.nc")
        rows = list(csv.DictReader(io.StringIO((self.folder / "t.csv").read_text("ascii"))))
        time = json.loads(run.stdout)[1]
        self.assertEqual(len(rows[0]), 1 + 2 * 14)
        for name, value in rows[1].items():
            for key in name.split("."):
                expected = (time if key in ("file", "before", "after") else expected)[key]
            self.assertEqual(value if name == "file" else float(value), expected, name)

    def test_file_that_cannot_be_written_is_one_line_and_leaves_the_older_one(self):
        for option in ("--csv",):
            for target in ("no_such_folder/out", "folder"):
                (self.folder / "folder").mkdir(exist_ok=True)
                run = self.run_tool("run", option, target, "list.txt", status=1)
                self.assertEqual(run.stderr.count(b"\n"), 1, run.stderr)
                self.assertIn(target.encode(), run.stderr)


unittest.main()
