"""The files that run and time write for other programs, read back by other readers."""
import csv
import io
import json
import os
import pathlib
import resource
import signal
import subprocess
import sys
import tempfile
import unittest
import zipfile
from html.parser import HTMLParser
from xml.etree import ElementTree as ET

TOOL = str(pathlib.Path(sys.argv.pop(1)).resolve())


class Page(HTMLParser):
    """The tags that are left open, the texts by tag and class, and the pictures of a page."""

    def __init__(self, text):
        super().__init__()
        self.open, self.tags, self.texts, self.sources = [], set(), {}, []
        self.feed(text)
        self.close()

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        self.tags.add(tag)
        self.sources += [attributes["src"]] if "src" in attributes else []
        if tag not in ("meta", "img"):
            self.open.append((tag, attributes.get("class")))

    def handle_endtag(self, tag):
        assert self.open.pop()[0] == tag, self.getpos()

    def handle_data(self, data):
        for tag, name in self.open:
            self.texts.setdefault(tag if name is None else f"{tag}.{name}", []).extend(filter(None, [data.strip()]))


class ResultFiles(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name)
        self.write_list("part.nc")

    def write_list(self, *names, exists=False):
        for name in () if exists else names:
            (self.folder / name).write_text("G0 X0 Y0\nG1 X0.1 F500\nX10\nY-20\n")
        folder = "z:" + str(self.folder).replace("/", "\\")
        lines = [f"File {name} Dir {folder} FS 9 RT OFF Afa ON TD 10 MAF 1000 \r\n" for name in names]
        (self.folder / "list.txt").write_bytes("".join(lines).encode("cp949"))
        return "list.txt"

    def run_tool(self, *arguments, status=0, language="ko", largest_file=resource.RLIM_INFINITY, stdin=None):
        def limit():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (largest_file, largest_file))

        run = subprocess.run([TOOL, *arguments], cwd=self.folder, timeout=60, capture_output=True, stdin=stdin,
                             preexec_fn=limit,
                             env={**os.environ, "TVX_HOME": str(self.folder / "home"),
                                  "LC_ALL": "de_DE.UTF-8", "TVX_LANGUAGE": language})
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

    def test_order_of_the_programs_does_not_decide_whether_times_are_written(self):
        (self.folder / "folder").mkdir()
        (self.folder / "older.csv").write_text("older")
        unreadable = os.open(self.folder, os.O_RDONLY)  # a standard input whose reads fail
        self.addCleanup(os.close, unreadable)
        cases = (("", True), ("none.nc", True), ("part.nc/none.nc", True), ("folder", True), ("-", False))
        for name, written in cases:
            for programs in ((name, "part.nc"), ("part.nc", name)):
                out = self.folder / ("new.csv" if written else "older.csv")
                run = self.run_tool("time", "--csv", out.name, *programs, status=1, stdin=unreadable)
                if written:
                    self.assertEqual(run.stderr.count(b"\n"), 1, run.stderr)
                    rows = list(csv.DictReader(io.StringIO(out.read_text())))
                    self.assertEqual([row["file"] for row in rows], ["part.nc"], programs)
                    out.unlink()
                else:
                    self.assertIn(b"tvx-cli: older.csv: cannot be written: ", run.stderr)
                    self.assertEqual(out.read_text(), "older", programs)

    def test_page_is_whole_in_both_languages_and_loads_nothing(self):
        self.write_list("<b>&'.nc", "part.nc")
        for language, title in (("ko", "작업 시트"), ("en", "Job sheet")):
            self.run_tool("run", "--sheet-html", "s.html", "list.txt", language=language)
            page = Page((self.folder / "s.html").read_text("utf-8"))
            self.assertEqual(page.open, [])
            self.assertEqual(page.texts["title"], [title])
            self.assertEqual(page.texts["h2"], ["1", "<b>&'.nc", "2", "part.nc"])
            self.assertFalse(page.tags & {"script", "link", "iframe", "object"})
            self.assertEqual([source[:26] for source in page.sources], ["data:image/svg+xml;base64,"] * 2)
            # 10 + 20 mm at 500 mm/min; the adjustment runs at up to 1000.
            self.assertEqual(page.texts["div.value"][:2], ["2", "0.12 min"])

    def test_picture_of_a_long_path_is_an_image(self):
        (self.folder / "long.nc").write_text("".join(f"G1 X{i * 7919 % 500} Y{i * 104729 % 500} F500\n"
                                                     for i in range(50_000)))
        self.run_tool("run", "--sheet-html", "s.html", self.write_list("long.nc", exists=True))
        [source] = Page((self.folder / "s.html").read_text("utf-8")).sources
        self.assertTrue(source.startswith("data:image/png;base64,"), source[:40])

    def test_workbook_has_the_figures_a_picture_of_each_program_and_totals(self):
        self.write_list("=1+1.nc", "part.nc")
        run = self.run_tool("run", "--json", "--xlsx", "r.xlsx", "list.txt")
        entries = json.loads(run.stdout)
        with zipfile.ZipFile(self.folder / "r.xlsx") as book:
            sheet = ET.fromstring(book.read("xl/worksheets/sheet1.xml"))
            pictures = [name for name in book.namelist() if name.startswith("xl/media/")]
            anchors = book.read("xl/drawings/drawing1.xml").count(b"<xdr:from>")
        cells = {}
        for cell in sheet.findall(".//{*}c"):
            text = cell.findtext("{*}is/{*}t")
            cells[cell.get("r")] = text if text is not None else float(cell.findtext("{*}v"))
        self.assertEqual([cells[f"B{row}"] for row in range(2, 5)], ["=1+1.nc", "part.nc", "합계"])
        self.assertEqual((cells["D2"], cells["L3"], cells["T3"]), (entries[0]["cutMinutes"], 10, 1000))
        self.assertEqual([f.text for f in sheet.findall(".//{*}f")][1], "SUM(D2:D3)")
        self.assertAlmostEqual(cells["I4"], sum(entry["totalMinutes"] for entry in entries), 6)
        self.assertEqual((len(pictures) > 0, anchors), (True, 2))

    def test_file_that_cannot_be_written_is_one_line_and_leaves_the_older_one(self):
        (self.folder / "folder").mkdir()
        (self.folder / "older").write_text("older")
        full = ("older", b"File too large", 600)
        wrong = [("no_such_folder/out", b"No such file", -1), ("folder", b"directory", -1)]
        for option in ("--csv", "--sheet-html", "--xlsx"):
            for target, reason, limit in (*wrong, full):
                run = self.run_tool("run", option, target, "list.txt", status=1, largest_file=limit)
                self.assertEqual(run.stderr.count(b"\n"), 1, run.stderr)
                self.assertIn(b"tvx-cli: " + target.encode() + b": ", run.stderr)
                self.assertIn(reason.lower(), run.stderr.lower(), option)
        self.assertEqual((self.folder / "older").read_text(), "older")
        self.assertEqual(sorted(os.listdir(self.folder)), ["folder", "home", "list.txt", "older", "part.nc"])


unittest.main()
