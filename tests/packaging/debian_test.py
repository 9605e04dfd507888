"""The Debian package: its control fields, its contents and their rights."""
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

CPACK, BUILD, VERSION = sys.argv[1], pathlib.Path(sys.argv[2]), sys.argv[3]
del sys.argv[1:4]

FILES = """
usr/bin/tvx-cli usr/share/bash-completion/completions/tvx-cli usr/share/doc/tvx/README.md
usr/share/doc/tvx/changelog.gz usr/share/doc/tvx/copyright usr/share/doc/tvx/docs/formats/condition.md
usr/share/doc/tvx/examples/finishing.afa usr/share/doc/tvx/examples/pocket_arcs.nc
usr/share/doc/tvx/examples/machines/small_router.machine
usr/share/man/man1/tvx-cli.1.gz
""".split()
DESKTOP_FILES = """
usr/bin/tvx usr/share/applications/tvx.desktop usr/share/icons/hicolor/48x48/apps/tvx.png
usr/share/icons/hicolor/scalable/apps/tvx.svg usr/share/man/man1/tvx.1.gz usr/share/mime/packages/tvx.xml
""".split()
CALC_FILES = ("usr/libexec/tvx/tvx-calc", "usr/share/lintian/overrides/tvx",
              "usr/share/man/man1/tvx-calc.1.gz")


class Debian(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        temporary = tempfile.TemporaryDirectory()
        cls.addClassCleanup(temporary.cleanup)
        subprocess.run([CPACK, "--config", BUILD / "CPackConfig.cmake", "-B", temporary.name],
                       check=True, stdout=subprocess.DEVNULL)
        (cls.package,) = pathlib.Path(temporary.name).glob("*.deb")
        cls.has_desktop = (BUILD / "src" / "desktop" / "tvx").exists()
        cls.has_calc = (BUILD / "src" / "calc" / "tvx-calc").exists()

    def ask(self, *arguments):
        return subprocess.run(["dpkg-deb", *arguments], check=True, capture_output=True,
                              text=True).stdout

    def field(self, name):
        return self.ask("--field", self.package, name).strip()

    def test_control(self):
        self.assertEqual(self.field("Package"), "tvx")
        self.assertEqual(self.field("Version"), VERSION)
        self.assertEqual(self.field("Recommends"),
                         "libc-gconv-modules-extra, fonts-nanum, qt6-translations-l10n, libreoffice-calc")
        depends = self.field("Depends")
        for library in ["libc6", "libpng16-16"] + ["libqt6widgets6"] * self.has_desktop:
            self.assertRegex(depends, rf"(^|, ){library}\b")
        # A line of the long description begins with one blank, an empty one is a dot.
        lines = self.ask("--info", self.package, "control").split("Description: ")[1].splitlines()
        lines = lines[1:lines.index(next(l for l in lines[1:] if not l.startswith(" ")))]
        self.assertGreater(len(lines), 5)
        for line in lines:
            self.assertRegex(line, r"^ (\.|\w.*)$")

    def test_contents(self):
        listing = [line.split(maxsplit=5) for line in
                   self.ask("--contents", self.package).splitlines()]
        files = {name.removeprefix("./"): mode for mode, *_, name in listing if mode[0] != "d"}
        wanted = FILES + DESKTOP_FILES * self.has_desktop + [*CALC_FILES] * self.has_calc
        self.assertEqual(set(wanted) - set(files), set())
        for mode, owner, *_, name in listing:
            self.assertEqual(owner, "root/root", name)
            self.assertTrue(name.startswith("./usr/"), name)
            program = mode[0] == "d" or re.match(r"\./usr/(bin|libexec)/", name)
            self.assertEqual(mode[1:], "rwxr-xr-x" if program else "rw-r--r--", name)
        self.assertNotIn("usr/share/doc/tvx/examples/generate.py", files)

    def test_changelog_starts_with_this_version(self):
        tree = self.package.parent / "tree"
        self.ask("--extract", self.package, tree)
        text = subprocess.run(["zcat", tree / "usr/share/doc/tvx/changelog.gz"], check=True,
                              capture_output=True, text=True).stdout
        self.assertTrue(text.startswith(f"tvx ({VERSION}) "), text[:40])


unittest.main()
