"""The tree of `cmake --install`: programs that run from there, man pages, completion, desktop files and pages.
Man pages and completion are compared with the help texts of the programs."""
import json
import os
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import unittest

CMAKE, BUILD = sys.argv[1], pathlib.Path(sys.argv[2])
del sys.argv[1:3]


def output_of(*command, **options):
    run = subprocess.run(command, capture_output=True, text=True, timeout=60, **options)
    return run.stdout + run.stderr


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        temporary = tempfile.TemporaryDirectory()
        cls.addClassCleanup(temporary.cleanup)
        cls.root = pathlib.Path(temporary.name) / "root"
        cls.home = pathlib.Path(temporary.name) / "home"
        subprocess.run([CMAKE, "--install", BUILD, "--prefix", cls.root],
                       check=True, stdout=subprocess.DEVNULL)
        cls.share = cls.root / "share"
        cls.doc = cls.share / "doc" / "tvx"
        cls.tool = cls.root / "bin" / "tvx-cli"
        cls.environment = {**os.environ, "TVX_HOME": str(cls.home), "QT_QPA_PLATFORM": "offscreen"}
        cls.commands = re.findall(r"^  ([a-z-]+(?: [a-z-]+)?)  ",
                                  output_of(cls.tool, "--help").split("Commands", 1)[1], re.M)

    def options_of(self, command):
        text = output_of(self.tool, *command.split(), "--help").split("Options:", 1)[1]
        names = re.findall(r"^  (?:-h,)?(--?[a-z][a-z-]*)", text, re.M)
        self.assertIn("--help", names)
        return names

    def desktop_only(self):
        if not (self.root / "bin" / "tvx").exists():
            self.skipTest("built without the desktop program")

    def test_tool_times_an_installed_example(self):
        example = self.doc / "examples" / "pocket_arcs.nc"
        (figures,) = json.loads(output_of(self.tool, "time", "--json", example, env=self.environment))
        self.assertGreater(min(figures[key]["cutMinutes"] for key in ("before", "after")), 1)

    def test_window_opens_an_installed_example(self):
        self.desktop_only()
        example = self.doc / "examples" / "pocket_arcs.nc"
        program = subprocess.Popen([self.root / "bin" / "tvx", example], env=self.environment,
                                   stderr=subprocess.DEVNULL)
        # The program is in the list of recent files once it is loaded.
        recent = self.home / "desktop.ini"
        end = time.monotonic() + 30
        while time.monotonic() < end and program.poll() is None:
            if recent.exists() and "pocket_arcs.nc" in recent.read_text():
                break
            time.sleep(0.05)
        self.assertIsNone(program.poll(), "the window is gone")
        program.terminate()
        program.wait(timeout=30)
        self.assertIn("pocket_arcs.nc", recent.read_text())

    def test_helper_of_the_spreadsheet_finds_its_libraries(self):
        helper = self.root / "libexec" / "tvx" / "tvx-calc"
        if not helper.exists():
            self.skipTest("built without LibreOffice")
        self.assertEqual(output_of(helper), "usage: tvx-calc window|file\n")

    def test_man_pages_are_clean(self):
        pages = sorted((self.share / "man").rglob("*.[18]"))
        self.assertIn("tvx-cli.1", [page.name for page in pages])
        for page in pages:
            self.assertEqual(output_of("mandoc", "-T", "lint", "-W", "warning", page), "", page)
            run = subprocess.run(["man", "--warnings", "-l", "-E", "UTF-8", page],
                                 capture_output=True, text=True, timeout=60)
            self.assertEqual((run.returncode, run.stderr), (0, ""), page)

    def test_man_pages_describe_every_command_and_option(self):
        manual = self.share / "man"
        wanted = {manual / "man1" / "tvx-cli.1": [rf"\n +{command}\b" for command in self.commands] +
                  [option for command in self.commands for option in self.options_of(command)]}
        window = self.root / "bin" / "tvx"
        if window.exists():
            options = re.findall(r"--[a-z-]+", output_of(window, "--help", env=self.environment))
            self.assertIn("--language", options)
            wanted |= {page: options for page in manual.rglob("tvx.1")}
        for page, patterns in wanted.items():
            text = re.sub(".\b", "", output_of("mandoc", "-T", "utf8", page))
            missing = [p for p in patterns if not re.search(rf"(?<![a-z-]){p}(?![a-z-])", text)]
            self.assertEqual(missing, [], page)

    def complete(self, *words):
        script = f"""
            source '{self.share}/bash-completion/completions/tvx-cli'
            compopt() {{ :; }}
            COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
            _tvx_cli '{self.tool}' "${{@: -1}}" "${{@: -2:1}}"
            printf '%s\\n' "${{COMPREPLY[@]}}"
        """
        text = output_of("bash", "-c", script, "bash", "tvx-cli", *words, cwd=self.doc)
        return sorted(set(text.split()))

    def test_completion_offers_what_the_tool_takes(self):
        self.assertEqual(self.complete(""), sorted({c.split()[0] for c in self.commands}))
        for words in map(str.split, self.commands):
            if len(words) == 2:
                second = sorted(c.split()[1] for c in self.commands if c.startswith(words[0] + " "))
                self.assertEqual(self.complete(words[0], ""), second, words)
                self.assertEqual(self.complete("--home", "x", words[0], ""), second, words)
            self.assertEqual(self.complete(*words, "-"), sorted(self.options_of(" ".join(words))), words)

    def test_completion_of_values_and_files(self):
        for words, expected in (
            (["-"], ["--help", "--home", "--version"]),
            (["pic"], ["picture"]),
            (["time", "--set", "Slope"], ["SlopeMaxRatio=", "SlopeMinAngle="]),
            (["getfeed", "--change", "work"], ["workMaterial="]),
            (["picture", "--view", ""], []),
            (["picture", "--size", ""], []),
            (["time", "--condition", "examples/f"], ["examples/finishing.afa"]),
            (["condition", "show", "examples/f"], ["examples/finishing.afa"]),
            (["time", "--afa", "examples/pocket"],
             ["examples/pocket_arcs.hnc", "examples/pocket_arcs.nc"]),
            (["master", "dump", "ex"], ["examples"]),
            (["no-such-command", "-"], []),
            (["mas/ter", "["], []),
        ):
            self.assertEqual(self.complete(*words), expected, words)

    def test_completion_knows_every_field(self):
        record = json.loads(output_of(self.tool, "option-line", "parse", "", env=self.environment))
        settable = {name for name, value in record.items() if not isinstance(value, list)}
        settable -= {"currentDirectory", "fileSize"}  # told by the line, no fields of the record
        self.assertEqual(self.complete("time", "--set", ""), sorted(f"{n}=" for n in settable))

        def takes(change):
            return subprocess.run([self.tool, "getfeed", "--change", change], env=self.environment,
                                  capture_output=True, timeout=60).returncode == 0

        calculator = json.loads(output_of(self.tool, "getfeed", env=self.environment))
        changeable = [f"{name}=" for name, value in calculator.items()
                      if takes(f"{name}={value:g}" if isinstance(value, (int, float))
                               else f"{name}={value}")]
        self.assertEqual(self.complete("getfeed", "--change", ""), sorted(changeable))

    def test_desktop_files(self):
        self.desktop_only()
        entry = self.share / "applications" / "tvx.desktop"
        self.assertEqual(output_of("desktop-file-validate", entry), "")
        self.assertEqual(output_of("update-mime-database", self.share / "mime",
                                   env={**os.environ, "XDG_DATA_DIRS": str(self.share)}), "")
        known = (self.share / "mime" / "types").read_text().split()
        mimes = re.search(r"^MimeType=(.*);$", entry.read_text(), re.M).group(1).split(";")
        self.assertEqual(set(mimes) - set(known), set())
        icons = self.share / "icons" / "hicolor"
        self.assertTrue((icons / "scalable" / "apps" / "tvx.svg").exists())
        for size in (16, 24, 32, 48, 64, 128, 256):
            data = (icons / f"{size}x{size}" / "apps" / "tvx.png").read_bytes()
            self.assertEqual(data[:8], b"\x89PNG\r\n\x1a\n")
            self.assertEqual(struct.unpack(">II", data[16:24]), (size, size))

    def test_links_of_pages_exist(self):
        pages = sorted(self.doc.rglob("*.md"))
        self.assertGreater(len(pages), 10)
        links = [(page, target) for page in pages for target in
                 re.findall(r"\]\(([^)#]+)[^)]*\)", page.read_text(encoding="utf-8"))]
        self.assertEqual([link for page, link in links
                          if not re.match(r"[a-z]+:", link) and not (page.parent / link).exists()], [])

    def test_every_page_is_linked(self):
        docs = self.doc / "docs"
        indexes = {self.doc / "README.md": docs}
        indexes |= {docs / folder / "README.md": docs / folder
                    for folder in ("formats", "guide/en", "guide/ko")}
        for index, folder in indexes.items():
            links = re.findall(r"\]\(([^)#]+)", index.read_text(encoding="utf-8"))
            linked = {(index.parent / link).resolve() for link in links} | {index.resolve()}
            self.assertEqual([page for page in folder.glob("*.md") if page.resolve() not in linked], [])

    def test_guide_is_the_same_in_both_languages(self):
        """Page for page: the headings down to their depth, the tables, the pictures."""
        def outline(language, page):
            text = (self.doc / "docs" / "guide" / language / page).read_text(encoding="utf-8")
            text = text.replace(f"/{language}/", "/")
            return re.findall(r"^(#+) |^(\|)|\]\(([^)]+\.png)\)", text, re.M)

        pages = sorted(page.name for page in (self.doc / "docs" / "guide" / "en").glob("*"))
        self.assertEqual(pages, sorted(p.name for p in (self.doc / "docs/guide/ko").glob("*")))
        for page in pages:
            self.assertEqual(outline("ko", page), outline("en", page), page)

    def test_every_picture_is_shown(self):
        shown = {(page.parent / target).resolve() for page in self.doc.rglob("*.md") for target in
                 re.findall(r"\]\(([^)]+\.(?:png|svg))\)", page.read_text(encoding="utf-8"))}
        pictures = {path.resolve() for path in (self.doc / "docs" / "pictures").rglob("*.*")}
        self.assertEqual(pictures - shown, set())


for wanted in ("mandoc", "man", "desktop-file-validate", "update-mime-database"):
    if shutil.which(wanted) is None:
        sys.exit(f"{wanted} is missing: scripts/setup installs it")
unittest.main()
