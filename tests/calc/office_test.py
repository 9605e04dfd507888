"""tvx-calc with a real LibreOffice: the cells that it fills, the files that it leaves alone, and its
failures.

usage: office_test.py TVX_CALC
The workbooks are read back by converting them to CSV, without tvx-calc.
"""
import concurrent.futures
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

SKIPPED = 77
CALC = sys.argv[1] if len(sys.argv) > 1 else ""
WITHIN_SECONDS = 20  # for a failure on a loaded machine; far below the limits of the caller

# Sheet, cell -> content of the workbook before it is filled. A tuple is a formula and its value.
OLD = {
    "작업": {"A1": "old title", "B2": "old text", "A11": "gone", "C3": 42.0,
             "D4": ("of:=[.B3]*2", 0.0), "K3": "keep", "Z9": "먼 곳"},
    "둘째": {"A1": "other sheet", "B2": 7.0},
}
STEPS = [
    ("A1", "text NO"), ("B2", "number 1.2339999675750732"), ("B3", "number -3"),
    ("A2", "text =1+1"), ("A3", "text +5"), ("A4", "text -7"), ("A5", "text @SUM(1)"),
    ("A6", "text 절삭길이 (한글) <&> \"'"), ("A7", "text 12"), ("A8", "text 1/2"),
    ("A9", "text  two  blanks "), ("A10", "text c:\\\\그림\\\\a.emf"), ("A11", "text "),
    ("A12", "text 'quoted"), ("A13", "text TRUE"), ("F20:G21", "text r"), ("C301", "number 7800"),
]
NEW = {  # numbers as CSV files have them, with 15 digits
    "A1": "NO", "B2": 1.23399996757507, "B3": -3.0, "A2": "=1+1", "A3": "+5", "A4": "-7",
    "A5": "@SUM(1)", "A6": "절삭길이 (한글) <&> \"'", "A7": "12", "A8": "1/2",
    "A9": " two  blanks ", "A10": "c:\\그림\\a.emf", "A12": "'quoted", "A13": "TRUE",
    "F20": "r", "G20": "r", "F21": "r", "G21": "r", "C301": 7800.0,
}
FILLED = {**OLD["작업"], **NEW, "D4": -6.0}  # the formula is still there: it follows B3
del FILLED["A11"]
FILL = ["sheet 1"] + [line for cell, value in STEPS for line in (f"range {cell}", value)]

# All sheets, in UTF-8, texts in quotes.
CSV = "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,true,true,false,false,false,-1"


def flat_workbook():
    """OLD as a workbook in flat XML."""
    def cell(value):
        formula = f' table:formula="{value[0]}"' if isinstance(value, tuple) else ""
        if formula or isinstance(value, float):
            number = value[1] if formula else value
            return (f'<table:table-cell{formula} office:value-type="float" '
                    f'office:value="{number}"/>')
        return ("<table:table-cell/>" if value is None else
                f'<table:table-cell office:value-type="string"><text:p>{value}</text:p>'
                "</table:table-cell>")

    body = ""
    for sheet, cells in OLD.items():
        rows = ("".join(cell(cells.get(f"{chr(65 + c)}{row}")) for c in range(26))
                for row in range(1, 12))
        body += (f'<table:table table:name="{sheet}"><table:table-row>'
                 + "</table:table-row><table:table-row>".join(rows)
                 + "</table:table-row></table:table>")
    name = "urn:oasis:names:tc:opendocument:xmlns:"
    spaces = " ".join(f'xmlns:{n}="{name}{n}:1.0"' for n in ("office", "table", "text"))
    return (f'<?xml version="1.0" encoding="UTF-8"?><office:document {spaces} xmlns:of="{name}of:1.2"'
            ' office:version="1.3" office:mimetype="application/vnd.oasis.opendocument.spreadsheet">'
            f"<office:body><office:spreadsheet>{body}</office:spreadsheet></office:body>"
            "</office:document>").encode()


class Place:
    """A folder for one case, with its own home and temporary files. Its path in the environment marks
    the processes of the case."""

    def __init__(self, name, top):
        self.folder = top / name
        self.temporary = self.folder / "temporary"
        (self.folder / "home").mkdir(parents=True)
        self.temporary.mkdir()
        self.environment = {k: v for k, v in os.environ.items()
                            if k not in ("DISPLAY", "WAYLAND_DISPLAY")}
        self.environment.update(HOME=str(self.folder / "home"), TMPDIR=str(self.temporary),
                                TVX_TEST_CASE=str(self.folder))

    def book(self, content=None, name="a.fods"):
        path = self.folder / name
        path.write_bytes(flat_workbook() if content is None else content)
        return path

    def convert(self, kind, *files):
        """Writes the files in another format beside them."""
        subprocess.run(["soffice", f"-env:UserInstallation=file://{self.folder}/home/profile",
                        "--headless", "--convert-to", kind, "--outdir", self.folder, *files],
                       env=self.environment, check=True, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, timeout=120)

    def check_sheet(self, book, sheet, expected):
        """Compares a sheet of a converted workbook: numbers are floats, texts are strings."""
        text = (self.folder / f"{book.stem}-{sheet}.csv").read_text(encoding="utf-8")
        found = {}
        for row, line in enumerate(text.splitlines(), 1):
            fields = re.findall(r'(?:"((?:[^"]|"")*)"|([^,]*))(?:,|$)', line)
            for column, (string, number) in enumerate(fields[:26]):
                if string or number:
                    value = float(number) if number else string.replace('""', '"')
                    found[f"{chr(65 + column)}{row}"] = value
        assert found == expected, f"{book.name}: {set(found.items()) ^ set(expected.items())}"

    def processes(self):
        mark = f"TVX_TEST_CASE={self.folder}\0".encode()
        found = []
        for entry in pathlib.Path("/proc").iterdir():
            try:
                if entry.name.isdigit() and mark in (entry / "environ").read_bytes():
                    found.append(int(entry.name))
            except OSError:
                pass  # ended, or of another user
        return found

    def signal_office(self, number):
        for process in self.processes():
            if b"soffice.bin" in pathlib.Path(f"/proc/{process}/cmdline").read_bytes():
                os.kill(process, number)

    def check_nothing_left(self):
        end = time.monotonic() + WITHIN_SECONDS
        while self.processes() and time.monotonic() < end:
            time.sleep(0.05)
        assert not self.processes(), "processes are left"
        left = [*self.temporary.glob("*tvx-office-*"), *self.folder.glob(".*")]
        assert not left, f"files are left: {left}"


class Calc:
    """A running tvx-calc."""

    def __init__(self, place, form="file", environment=(), **options):
        self.process = subprocess.Popen([CALC, form], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        env={**place.environment, **dict(environment)},
                                        encoding="utf-8", **options)
        self.first = self.process.stdout.readline().rstrip("\n")

    def step(self, line):
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()
        return self.process.stdout.readline().rstrip("\n")

    def all_done(self, *lines):
        for line in lines:
            answer = self.step(line)
            assert answer == "done", f"{line}: {answer!r}"

    def end(self, status):
        self.process.stdin.close()
        assert self.process.wait(timeout=WITHIN_SECONDS) == status


def fills_every_format_and_creates_a_workbook(place):
    source = place.book(name="source.fods")
    books = []
    for kind in ("ods", "xlsx", "xls"):
        place.convert(kind, source)
        books.append((place.folder / f"source.{kind}").rename(
            place.folder / f"{kind} 통합 문서.{kind}"))
        books[-1].chmod(0o640)
    books.append(place.folder / "새 통합 문서.FODS")

    def fill(book):
        calc = Calc(place, environment={"LC_ALL": "C"})  # names and texts are Korean all the same
        calc.all_done(f"open {book}", *FILL, "save")
        calc.end(0)

    with concurrent.futures.ThreadPoolExecutor() as pool:
        list(pool.map(fill, books))
    place.check_nothing_left()
    new_sheet = re.search('table:name="(.*?)"', books[3].read_text(encoding="utf-8"))[1]
    place.convert(CSV, *books)
    for book in books[:3]:
        assert book.stat().st_mode & 0o777 == 0o640
        place.check_sheet(book, "작업", FILLED)
        place.check_sheet(book, "둘째", OLD["둘째"])
    place.check_sheet(books[3], new_sheet, NEW)


def refuses(name, content, reason):
    """A case: a file that cannot be opened to be saved again is not changed."""
    def case(place):
        book = place.book(content, name)
        calc = Calc(place)
        answer = calc.step(f"open {book}")
        assert answer.startswith("failed ") and reason in answer, answer
        calc.end(1)
        place.check_nothing_left()
        assert book.read_bytes() == content
    case.__name__ = f"refuses_{name}"
    return case


def keeps_a_read_only_workbook(place):
    book = place.book()
    book.chmod(0o444)
    options = {}
    if os.geteuid() == 0:  # who may write every file
        options = {"user": 65534, "group": 65534, "extra_groups": []}
        for path in (place.folder.parent, place.folder, place.temporary, place.folder / "home"):
            path.chmod(0o777)
    calc = Calc(place, **options)
    assert "may not be written" in calc.step(f"open {book}")
    calc.end(1)
    assert book.read_bytes() == flat_workbook()
    place.check_nothing_left()


def refuses_steps_out_of_order(place):
    calc = Calc(place)
    assert calc.step("range A1").startswith("failed ")
    calc.end(1)
    place.check_nothing_left()


def keeps_the_file(name, interfere, last_step, reason, content=None):
    """A case: the file of a filled workbook is not changed without a successful save."""
    def case(place):
        book = place.book()
        calc = Calc(place)
        calc.all_done(f"open {book}", *FILL)
        interfere(place, book)
        assert reason in (calc.step(last_step) if last_step else "")
        calc.end(1 if last_step else 0)
        assert book.read_bytes() == (content or flat_workbook())
        for lock in place.folder.glob(".~lock.*"):  # of an office that was killed
            lock.unlink()
        place.check_nothing_left()
    case.__name__ = f"keeps_the_file_{name}"
    return case


def can_be_ended_while_the_office_hangs(place):
    calc = Calc(place)
    place.signal_office(signal.SIGSTOP)
    calc.process.stdin.write("open /nowhere/a.ods\n")
    calc.process.stdin.flush()
    time.sleep(0.2)
    calc.process.send_signal(signal.SIGTERM)
    calc.process.wait(timeout=WITHIN_SECONDS)
    place.check_nothing_left()


def ends_with_its_parent_and_the_office_with_it(place):
    parent = subprocess.Popen(["sh", "-c", f"'{CALC}' file; :"], stdin=subprocess.PIPE,
                              stdout=subprocess.PIPE, env=place.environment)
    assert parent.stdout.readline() == b"done\n"
    parent.kill()  # its input stays open
    parent.wait()
    place.check_nothing_left()
    calc = Calc(place)
    calc.process.kill()
    calc.process.wait()
    Calc(place).end(0)  # removes the folder that was left
    place.check_nothing_left()


def needs_a_display_for_a_window(place):
    for display in ({}, {"DISPLAY": ":59999"}):
        start = time.monotonic()
        calc = Calc(place, "window", display)
        assert calc.first.startswith("failed "), (display, calc.first)
        calc.end(1)
        assert time.monotonic() - start < WITHIN_SECONDS
    place.check_nothing_left()


def leaves_the_workbook_to_the_user(place):
    if any(shutil.which(tool) is None for tool in ("Xvfb", "openbox", "xdotool")):
        print("no Xvfb, openbox and xdotool here: leaving a workbook to the user is not tested")
        return
    read, write = os.pipe()  # the server writes the number of its display
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x800x24",
                               "-noreset"], pass_fds=[write], stderr=subprocess.DEVNULL)
    place.environment["DISPLAY"] = ":" + os.read(read, 16).decode().strip()
    manager = subprocess.Popen(
        ["openbox"], env={**os.environ, "DISPLAY": place.environment["DISPLAY"]},
        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        user_gets_the_workbook(place)
    finally:
        for process in place.processes():
            os.kill(process, signal.SIGKILL)
        for helper in (manager, server):
            helper.terminate()
            helper.wait()


def user_gets_the_workbook(place):
    bad = place.book(b"no workbook" * 100, "bad.ods")
    calc = Calc(place, "window")
    assert calc.step(f"open {bad}").startswith("failed "), "a damaged workbook is opened"
    calc.end(1)
    place.check_nothing_left()  # nor the office

    book = place.book()
    # The second tvx-calc finds the office running and continues in the same workbook.
    for lines in (FILL, ["sheet 1", "range B30", "text again"]):
        calc = Calc(place, "window")
        calc.all_done(f"open {book}", *lines, "visible yes", "leave")
        calc.end(0)

    def xdotool(*arguments):
        return subprocess.run(["xdotool", *arguments], env=place.environment, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout.split()

    windows = xdotool("search", "--onlyvisible", "--name", "a.fods")
    assert len(windows) == 1, f"{len(windows)} windows show the workbook"
    assert book.read_bytes() == flat_workbook(), "the workbook is saved before the user does it"
    end = time.monotonic() + WITHIN_SECONDS
    while book.read_bytes() == flat_workbook() and time.monotonic() < end:
        xdotool("windowactivate", "--sync", windows[0], "key", "ctrl+s")
        time.sleep(0.5)
    place.convert(CSV, book)
    place.check_sheet(book, "작업", {**FILLED, "B30": "again"})


CASES = [
    fills_every_format_and_creates_a_workbook,
    leaves_the_workbook_to_the_user,
    needs_a_display_for_a_window,
    refuses("garbage.ods", b"no workbook" * 100, "cannot be read"),
    refuses("text.xls", b"a;b\n1;2\n", "is no workbook"),
    refuses("list.txt", b"a", "ending"),
    keeps_a_read_only_workbook,
    keeps_the_file("without_a_save", lambda place, book: None, "", ""),
    keeps_the_file("of_another_program", lambda place, book: book.write_bytes(b"newer"), "save",
                   "changed by another program", b"newer"),
    keeps_the_file("when_the_office_dies", lambda place, book: place.signal_office(signal.SIGKILL),
                   "save", "failed "),
    refuses_steps_out_of_order,
    can_be_ended_while_the_office_hangs,
    ends_with_its_parent_and_the_office_with_it,
]


def main():
    if not CALC or shutil.which("soffice") is None:
        print("tvx-calc is not built or LibreOffice is not installed: nothing is tested")
        return SKIPPED
    with tempfile.TemporaryDirectory() as top, concurrent.futures.ThreadPoolExecutor(3) as pool:
        runs = [pool.submit(case, Place(case.__name__, pathlib.Path(top))) for case in CASES]
        for case, run in zip(CASES, runs):
            print(f"{case.__name__}: {repr(run.exception()) if run.exception() else 'passed'}")
        return int(any(run.exception() for run in runs))


sys.exit(main())
