"""The screen of the window tests in other styles, for the scripts that take pictures: dark, in English, with
twice the density."""
import pathlib
import sys
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path.insert(0, str(ROOT / "tests" / "window"))
sys.dont_write_bytecode = True
from driver import Screen  # noqa: E402

BUILD = ROOT / "build" / "release"
MENUS = ("file", "cut_time", "master", "graphics", "settings", "other", "view", "window", "help")


class PictureScreen(Screen):
    def __init__(self, folder, scale=1, dark=False, language="ko"):
        super().__init__(BUILD / "src/desktop/tvx", BUILD / "src/cli/tvx-cli", folder, scale)
        self.dark = dark
        self.environment["TVX_LANGUAGE"] = language
        self.texts = {}
        if language == "en":
            self.load_letter = "l"
            root = xml.etree.ElementTree.parse(ROOT / "translations" / "tvx_en.ts").getroot()
            self.texts = {message.findtext("source"): message.findtext("translation")
                          for message in root.iter("message")}

    def prepare_home(self):
        super().prepare_home()
        if self.dark:
            self._choose_dark_desktop()

    def _choose_dark_desktop(self):
        """Writes desktop settings with a dark colour scheme, which the program uses."""
        colours = {"BackgroundNormal": "42,46,50", "BackgroundAlternate": "49,54,59",
                   "ForegroundNormal": "252,252,252", "ForegroundInactive": "161,169,177",
                   "ForegroundLink": "29,153,243", "ForegroundVisited": "155,89,182"}
        selection = colours | {"BackgroundNormal": "61,174,233"}
        lines = []
        for group in ("Window", "View", "Button", "Tooltip", "Selection"):
            lines.append(f"[Colors:{group}]")
            values = selection if group == "Selection" else colours
            lines += [f"{key}={value}" for key, value in values.items()]
        (self.home / "config").mkdir()
        (self.home / "config" / "kdeglobals").write_text("\n".join(lines), encoding="utf-8")
        self.environment |= {"XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true",
                             "KDE_SESSION_VERSION": "5"}

    def active_window(self):
        """The number of the window with the keyboard focus."""
        return self._ask("getactivewindow")

    def resize_active_window(self, width, height):
        self._run("xdotool", "getactivewindow", "windowmove", 0, 0, "windowsize", width, height)

    def wait_for_window(self, title):
        """The title is given in Korean, whatever the language of the screen."""
        super().wait_for_window(self.texts.get(title, title))

    def menu(self, name, *keys):
        """Opens a menu from the nearer end of the menu bar and presses keys in it."""
        place = MENUS.index(name)
        ways = ["Right"] * place if place < 4 else ["Left"] * (len(MENUS) - place)
        for step in (["alt+f", *ways], keys):
            if step:
                self.key(*step)
                self.wait_until_still()
