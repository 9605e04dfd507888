"""tvx-calc with a real LibreOffice: what it fills, what it leaves alone, and how it fails.

usage: office_test.py TVX_CALC
The workbooks are read back by converting them to flat XML, without tvx-calc.
"""
import concurrent.futures
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import xml.etree.ElementTree as ElementTree

SKIPPED = 77
CALC = sys.argv[1] if len(sys.argv) > 1 else ""
WITHIN_SECONDS = 20  # what a failure may take on a loaded machine; far below the limits of the caller

# Sheet, cell -> content of the workbook before it is filled. "=" marks a formula and its value.
OLD = {
    "작업": {"A1": "old title", "B2": "old text", "A11": "gone", "C3": 42.0, "D4": ("of:=[.C3]*2", 84.0),
             "K3": "keep", "Z9": "먼 곳"},
    "둘째": {"A1": "other sheet", "B2": 7.0},
}
STEPS = [
    ("A1", "text NO"), ("B2", "number 1.2339999675750732"), ("B3", "number -3"),
    ("A2", "text =1+1"), ("A3", "text +5"), ("A4", "text -7"), ("A5", "text @SUM(1)"),
    ("A6", "text 절삭길이 (한글) <&> \"'"), ("A7", "text 12"), ("A8", "text 1/2"),
    ("A9", "text  two  blanks "), ("A10", "text c:\\\\그림\\\\a.emf"), ("A11", "text "),
    ("A12", "text 'quoted"), ("A13", "text TRUE"), ("F20:G21", "text r"), ("C301", "number 7800"),
]
NEW = {  # numbers as flat files have them, with 15 digits
    "A1": "NO", "B2": 1.23399996757507, "B3": -3.0, "A2": "=1+1", "A3": "+5", "A4": "-7",
    "A5": "@SUM(1)", "A6": "절삭길이 (한글) <&> \"'", "A7": "12", "A8": "1/2",
    "A9": " two  blanks ", "A10": "c:\\그림\\a.emf", "A12": "'quoted", "A13": "TRUE",
    "F20": "r", "G20": "r", "F21": "r", "G21": "r", "C301": 7800.0,
}
FILL = ["sheet 1"] + [line for cell, value in STEPS for line in (f"range {cell}", value)]

OFFICE = "urn:oasis:names:tc:opendocument:xmlns:office:1.0"
TABLE = "urn:oasis:names:tc:opendocument:xmlns:table:1.0"
FORMULA = "urn:oasis:names:tc:opendocument:xmlns:of:1.2"
TEXT = "urn:oasis:names:tc:opendocument:xmlns:text:1.0"


def column_name(index):
    name = ""
    while index >= 0:
        name = chr(ord("A") + index % 26) + name
        index = index // 26 - 1
    return name


def flat_workbook(sheets):
    """A workbook as flat XML; the caller's cells, every other one empty."""
    def cell(value):
        if value is None:
            return "<table:table-cell/>"
        formula = ""
        if isinstance(value, tuple):
            formula, value = f' table:formula="{value[0]}"', value[1]
        if isinstance(value, float):
            return f'<table:table-cell{formula} office:value-type="float" office:value="{value}"/>'
        return f'<table:table-cell office:value-type="string"><text:p>{value}</text:p></table:table-cell>'

    body = ""
    for name, cells in sheets.items():
        rows = "".join(
            "<table:table-row>"
            + "".join(cell(cells.get(f"{column_name(c)}{r}")) for c in range(26))
            + "</table:table-row>" for r in range(1, 12))
        body += f'<table:table table:name="{name}">{rows}</table:table>'
    return (f'<?xml version="1.0" encoding="UTF-8"?><office:document xmlns:office="{OFFICE}"'
            f' xmlns:table="{TABLE}" xmlns:text="{TEXT}" xmlns:of="{FORMULA}" office:version="1.3"'
            ' office:mimetype="application/vnd.oasis.opendocument.spreadsheet"><office:body>'
            f"<office:spreadsheet>{body}</office:spreadsheet></office:body></office:document>")


def paragraph(element):
    """The text of a paragraph, where runs of blanks are elements."""
    text = element.text or ""
    for child in element:
        if child.tag == f"{{{TEXT}}}s":
            text += " " * int(child.get(f"{{{TEXT}}}c", "1"))
        else:
            text += paragraph(child)
        text += child.tail or ""
    return text


def read_flat(path):
    """Sheet -> cell -> content, as OLD has it."""
    sheets = {}
    for table in ElementTree.parse(path).iter(f"{{{TABLE}}}table"):
        cells = sheets[table.get(f"{{{TABLE}}}name")] = {}
        r = 0
        for row in table.iter(f"{{{TABLE}}}table-row"):
            c = 0
            for cell in row:
                kind = cell.get(f"{{{OFFICE}}}value-type")
                value = None
                if kind == "float":
                    value = float(cell.get(f"{{{OFFICE}}}value"))
                elif kind is not None:
                    value = "\n".join(paragraph(p) for p in cell.findall(f"{{{TEXT}}}p"))
                formula = cell.get(f"{{{TABLE}}}formula")
                if formula:
                    value = (formula, value)
                count = int(cell.get(f"{{{TABLE}}}number-columns-repeated", "1"))
                if value is not None:
                    for i in range(count):
                        cells[f"{column_name(c + i)}{r + 1}"] = value
                c += count
            r += int(row.get(f"{{{TABLE}}}number-rows-repeated", "1"))
    return sheets


class Place:
    """A folder for one case, with a home, a folder for temporary files and a mark that tells the
    processes of the case from others."""

    def __init__(self, name, top):
        self.folder = top / name
        self.temporary = self.folder / "temporary"
        (self.folder / "home").mkdir(parents=True)
        self.temporary.mkdir()
        self.environment = {k: v for k, v in os.environ.items()
                            if k not in ("DISPLAY", "WAYLAND_DISPLAY")}
        self.environment.update(HOME=str(self.folder / "home"), TMPDIR=str(self.temporary),
                                TVX_TEST_CASE=str(self.folder))

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

    def office(self):
        """The process of the office itself."""
        return next(p for p in self.processes()
                    if b"soffice.bin" in pathlib.Path(f"/proc/{p}/cmdline").read_bytes())

    def check_nothing_left(self):
        end = time.monotonic() + WITHIN_SECONDS
        while self.processes() and time.monotonic() < end:
            time.sleep(0.05)
        assert not self.processes(), "processes are left"
        assert not list(self.temporary.glob("tvx_*")), "a temporary profile is left"
        left = [str(p) for p in self.folder.glob(".*")]
        assert not left, f"files are left: {left}"


class Calc:
    """One tvx-calc, told line by line."""

    def __init__(self, place, form, **options):
        environment = dict(place.environment, **options.pop("environment", {}))
        self.process = subprocess.Popen([CALC, form], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        env=environment, encoding="utf-8", **options)
        self.first = self.answer()

    def answer(self):
        return self.process.stdout.readline().rstrip("\n")

    def step(self, line):
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()
        return self.answer()

    def all_done(self, lines):
        for line in lines:
            answer = self.step(line)
            assert answer == "done", f"{line}: {answer!r}"

    def end(self):
        self.process.stdin.close()
        return self.process.wait(timeout=WITHIN_SECONDS)


def convert(place, kind, *files):
    """The files in another format, beside them."""
    subprocess.run(["soffice", f"-env:UserInstallation=file://{place.folder}/home/profile",
                    "--headless", "--convert-to", kind, "--outdir", place.folder, *files],
                   env=place.environment, check=True, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL, timeout=120)


def filled():
    first = {cell: value for cell, value in OLD["작업"].items() if cell != "A11"}
    return {"작업": {**first, **NEW}, "둘째": OLD["둘째"]}


def check_content(path, expected):
    found = read_flat(path)
    for sheet, cells in expected.items():
        for cell in sorted(set(cells) | set(found[sheet])):
            old, new = cells.get(cell), found[sheet].get(cell)
            assert old == new, f"{path.name} {sheet} {cell}: {new!r} instead of {old!r}"


def fills_every_format(place):
    source = place.folder / "source.fods"
    source.write_text(flat_workbook(OLD), encoding="utf-8")
    books = []
    for kind in ("ods", "xlsx", "xls"):
        convert(place, kind, source)
        book = place.folder / f"{kind} 통합 문서.{kind}"
        (place.folder / f"source.{kind}").rename(book)
        book.chmod(0o640)
        books.append(book)

    def fill(book):
        # In a plain locale too, names and texts are Korean.
        calc = Calc(place, "file", environment={"LC_ALL": "C"})
        assert calc.first == "done"
        calc.all_done([f"open {book}", *FILL, "save"])
        assert calc.end() == 0

    with concurrent.futures.ThreadPoolExecutor() as pool:
        list(pool.map(fill, books))
    place.check_nothing_left()
    convert(place, "fods", *books)
    for book in books:
        assert book.stat().st_mode & 0o777 == 0o640
        check_content(book.with_suffix(".fods"), filled())


def creates_a_workbook(place):
    book = place.folder / "새 통합 문서.FODS"
    calc = Calc(place, "file")
    calc.all_done([f"open {book}", *FILL, "save"])
    assert calc.end() == 0
    place.check_nothing_left()
    (cells,) = read_flat(book).values()
    assert cells == NEW, cells


def refuses(name, content, reason):
    """A case: a workbook that cannot be opened to be saved again stays as it is."""
    def case(place):
        book = place.folder / name
        if content is not None:
            book.write_bytes(content)
        calc = Calc(place, "file")
        answer = calc.step(f"open {book}")
        assert answer.startswith("failed ") and reason in answer, answer
        assert calc.end() == 1
        place.check_nothing_left()
        assert (book.read_bytes() if book.exists() else None) == content
    case.__name__ = f"refuses_{name}"
    return case


def keeps_a_read_only_workbook(place):
    book = place.folder / "a.fods"
    content = flat_workbook(OLD).encode()
    book.write_bytes(content)
    book.chmod(0o444)
    options = {}
    if os.geteuid() == 0:  # who may write everything
        options = {"user": 65534, "group": 65534, "extra_groups": []}
        for path in (place.folder.parent, place.folder, place.temporary, place.folder / "home"):
            path.chmod(0o777)
    calc = Calc(place, "file", **options)
    assert "may not be written" in calc.step(f"open {book}")
    calc.end()
    assert book.read_bytes() == content
    place.check_nothing_left()


def keeps_what_another_program_wrote(place):
    book = place.folder / "a.fods"
    book.write_text(flat_workbook(OLD), encoding="utf-8")
    calc = Calc(place, "file")
    calc.all_done([f"open {book}", *FILL])
    book.write_bytes(b"newer")
    assert "changed by another program" in calc.step("save")
    assert calc.end() == 1
    assert book.read_bytes() == b"newer"
    place.check_nothing_left()


def saves_nothing_without_the_last_step(place):
    book = place.folder / "a.fods"
    book.write_text(flat_workbook(OLD), encoding="utf-8")
    before = book.read_bytes()
    calc = Calc(place, "file")
    calc.all_done([f"open {book}", *FILL])
    assert calc.end() == 0
    assert book.read_bytes() == before
    place.check_nothing_left()


def refuses_steps_out_of_order(place):
    calc = Calc(place, "file")
    assert calc.step("range A1").startswith("failed ")
    assert calc.end() == 1
    place.check_nothing_left()


def notices_the_death_of_the_office(place):
    book = place.folder / "a.fods"
    book.write_text(flat_workbook(OLD), encoding="utf-8")
    before = book.read_bytes()
    calc = Calc(place, "file")
    calc.all_done([f"open {book}", "sheet 1"])
    os.kill(place.office(), signal.SIGKILL)
    start = time.monotonic()
    assert calc.step("range A1").startswith("failed ")
    assert calc.end() == 1
    assert time.monotonic() - start < WITHIN_SECONDS
    assert book.read_bytes() == before
    for lock in place.folder.glob(".~lock.*"):  # of the office, which had no chance
        lock.unlink()
    place.check_nothing_left()


def can_be_ended_while_the_office_hangs(place):
    calc = Calc(place, "file")
    os.kill(place.office(), signal.SIGSTOP)
    calc.process.stdin.write("open /nowhere/a.ods\n")
    calc.process.stdin.flush()
    time.sleep(0.2)
    start = time.monotonic()
    calc.process.send_signal(signal.SIGTERM)
    calc.process.wait(timeout=WITHIN_SECONDS)
    assert time.monotonic() - start < WITHIN_SECONDS
    place.check_nothing_left()


def needs_a_display_for_a_window(place):
    for display in ({}, {"DISPLAY": ":59999"}):
        start = time.monotonic()
        calc = Calc(place, "window", environment=display)
        assert calc.first.startswith("failed "), (display, calc.first)
        assert calc.end() == 1
        assert time.monotonic() - start < WITHIN_SECONDS
    place.check_nothing_left()


def leaves_the_workbook_to_the_user(place):
    if any(shutil.which(tool) is None for tool in ("Xvfb", "openbox", "xdotool")):
        print("no Xvfb, openbox and xdotool here: a workbook in the hands of the user is not tested")
        return
    # The number of the display is told before anything starts on it.
    read, write = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x800x24",
                               "-noreset"],
                              pass_fds=[write], stderr=subprocess.DEVNULL)
    display = {"DISPLAY": ":" + os.read(read, 16).decode().strip()}
    place.environment.update(display)
    manager = subprocess.Popen(["openbox"], env=dict(os.environ, **display),
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        in_the_hands_of_the_user(place)
    finally:
        for process in place.processes():
            os.kill(process, signal.SIGKILL)
        for helper in (manager, server):
            helper.terminate()
            helper.wait()


def in_the_hands_of_the_user(place):
    bad = place.folder / "bad.ods"
    bad.write_bytes(b"no workbook" * 100)
    calc = Calc(place, "window")
    assert calc.step(f"open {bad}").startswith("failed "), "a damaged workbook is opened"
    assert calc.end() == 1
    place.check_nothing_left()  # also not the office, which nobody asked for

    book = place.folder / "a.fods"
    book.write_text(flat_workbook(OLD), encoding="utf-8")
    before = book.read_bytes()
    calc = Calc(place, "window")
    calc.all_done([f"open {book}", *FILL, "visible yes", "leave"])
    assert calc.end() == 0
    # In the office that runs now, a second one: the same workbook is filled on.
    calc = Calc(place, "window")
    calc.all_done([f"open {book}", "sheet 1", "range B30", "text again", "visible yes", "leave"])
    assert calc.end() == 0

    def xdotool(*arguments):
        return subprocess.run(["xdotool", *arguments], env=place.environment, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout.split()

    windows = xdotool("search", "--onlyvisible", "--name", "a.fods")
    assert len(windows) == 1, f"{len(windows)} windows show the workbook"
    assert book.read_bytes() == before, "the workbook is saved before the user does it"
    end = time.monotonic() + WITHIN_SECONDS
    while book.read_bytes() == before and time.monotonic() < end:
        xdotool("windowactivate", "--sync", windows[0], "key", "ctrl+s")
        time.sleep(0.5)
    expected = filled()
    expected["작업"]["B30"] = "again"
    check_content(book, expected)


CASES = [
    fills_every_format,
    leaves_the_workbook_to_the_user,
    needs_a_display_for_a_window,
    creates_a_workbook,
    refuses("garbage.ods", b"no workbook" * 100, "cannot be read"),
    refuses("text.xls", b"a;b\n1;2\n", "is no workbook"),
    refuses("list.txt", None, "ending"),
    keeps_a_read_only_workbook,
    keeps_what_another_program_wrote,
    saves_nothing_without_the_last_step,
    refuses_steps_out_of_order,
    notices_the_death_of_the_office,
    can_be_ended_while_the_office_hangs,
]


def main():
    if not CALC or shutil.which("soffice") is None:
        print("tvx-calc is not built or LibreOffice is not installed: nothing is tested")
        return SKIPPED
    failed = 0
    with tempfile.TemporaryDirectory() as top, concurrent.futures.ThreadPoolExecutor(3) as pool:
        def run(case):
            place = Place(case.__name__.replace("/", "_"), pathlib.Path(top))
            start = time.monotonic()
            case(place)
            return time.monotonic() - start

        runs = [(case, pool.submit(run, case)) for case in CASES]
        for case, result in runs:
            error = result.exception()
            if error is None:
                print(f"{case.__name__}: passed, {result.result():.1f} s")
            else:
                failed += 1
                print(f"{case.__name__}: FAILED: {type(error).__name__}: {error}")
    return 1 if failed else 0


sys.exit(main())
