"""A screen with a window manager and the desktop program on it, driven by synthetic keys and mouse.

    with Screen(program, tool, folder) as screen:
        screen.start()
        screen.load(EXAMPLES / "finishing_raster.nc")
        screen.key("F6")
        screen.wait_for_drawing("--view", "6")

No step sleeps for a fixed time. Each step waits for a visible change, so a scenario takes longer on a slow
machine but does not fail. A Failure names what did not happen; the screen at that moment is saved as
failure.png in the folder of the scenario.
"""
import array
import functools
import os
import pathlib
import shutil
import subprocess
import time
import xml.etree.ElementTree
from typing import NamedTuple

ROOT = pathlib.Path(__file__).resolve().parents[2]
EXAMPLES = ROOT / "examples"
TOOLS = ("Xvfb", "openbox", "xdotool", "import")

PATIENCE = 20.0  # seconds; a step that waits longer fails
POLL = 0.03  # seconds
STILL = 0.25  # seconds; shorter than a cursor blinks

# The pens that draw on the black of the view, 0xRRGGBB.
PENS = {
    "penWhite": 0xFFFFFF, "penLightGrey": 0xC8C8C8, "penGreen": 0x00FF00,
    "penDarkGreen": 0x00C800, "penBlue": 0x0000FF, "penDarkBlue": 0x0000C8, "penRed": 0xFF0000,
}
WHITE, GREEN, RED = PENS["penWhite"], PENS["penGreen"], PENS["penRed"]


def missing_tools():
    return [tool for tool in TOOLS if shutil.which(tool) is None]


MENUS = ("file", "cut_time", "master", "graphics", "settings", "other", "view", "window", "help")

# The letter of the load in its menu.
LOAD_LETTERS = {"ko": "t", "en": "l"}


@functools.cache
def english_texts():
    """The texts of the English window by the Korean ones."""
    root = xml.etree.ElementTree.parse(ROOT / "translations" / "tvx_en.ts").getroot()
    return {message.findtext("source"): message.findtext("translation")
            for message in root.iter("message")}


class Failure(Exception):
    """An expected state of the screen did not appear."""


def expect(what, condition):
    if not condition:
        raise Failure(f"not so: {what}")


class Rect(NamedTuple):
    left: int
    top: int
    width: int
    height: int


class Picture:
    """The pixels of a part of the screen."""

    OPAQUE = 0xFF000000

    def __init__(self, rect, bgra):
        self.rect = rect
        self.pixels = array.array("I", bgra)
        if len(self.pixels) != rect.width * rect.height:
            raise Failure(f"no picture of {rect}: it reaches over the screen's edge")

    def __eq__(self, other):
        return self.rect == other.rect and self.pixels == other.pixels

    def colour(self, x, y):
        """The colour at a point relative to the corner of the picture; None outside it."""
        if not (0 <= x < self.rect.width and 0 <= y < self.rect.height):
            return None
        return self.pixels[y * self.rect.width + x] & 0xFFFFFF

    def count(self, colour):
        return self.pixels.count(self.OPAQUE | colour)

    def corner(self):
        """The first column and the first row that are not completely black."""
        width, height = self.rect.width, self.rect.height
        columns = (self.pixels[x::width] for x in range(width))
        rows = (self.pixels[y * width : (y + 1) * width] for y in range(height))
        return tuple(next(i for i, line in enumerate(lines) if line.count(self.OPAQUE) < len(line))
                     for lines in (columns, rows))


class Screen:
    """A separate X server with openbox, and the program with a separate home in `folder`."""

    WIDTH, HEIGHT = 1280, 800

    def __init__(self, program, tool, folder, scale=1, dark=False, language="ko"):
        self.program, self.tool = pathlib.Path(program), pathlib.Path(tool)
        self.folder = pathlib.Path(folder)
        self.scale, self.dark, self.language = scale, dark, language
        self.home = self.folder / "home"
        self.data = self.home / "drive_c" / "marlo" / "ncdata"
        self.view_rect = None  # of the black view, known once the program has started
        self._processes = []

    def __enter__(self):
        shutil.rmtree(self.folder, ignore_errors=True)
        self.home.mkdir(parents=True)
        self.environment = {
            "PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "HOME": str(self.home),
            "XDG_RUNTIME_DIR": str(self.folder), "XDG_CONFIG_HOME": str(self.home / "config"),
            "XDG_CACHE_HOME": str(self.home / "cache"), "TVX_HOME": str(self.home),
            "QT_QPA_PLATFORM": "xcb", "QT_SCALE_FACTOR": str(self.scale),
            "TVX_LANGUAGE": self.language,
        }
        if self.dark:
            self._choose_dark_desktop()
        try:
            self._start_server()
            self._spawn("openbox", "openbox")
            self.wait_until("the window manager runs", lambda: self._ask("get_num_desktops"))
        except BaseException:
            self._stop()
            raise
        return self

    def __exit__(self, kind, error, trace):
        if isinstance(error, Failure):
            self.save("failure.png")
        self._stop()

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

    def _start_server(self):
        size = f"{self.WIDTH * self.scale}x{self.HEIGHT * self.scale}x24"
        read, write = os.pipe()
        # A server that resets when its last client leaves could drop a client that is just connecting.
        self._spawn("server", "Xvfb", "-displayfd", str(write), "-screen", "0", size,
                    "-nolisten", "tcp", "-noreset", pass_fds=[write])
        os.close(write)
        with os.fdopen(read) as pipe:
            number = pipe.readline().strip()  # ends when the server is ready, or has ended
        if not number:
            raise Failure(f"Xvfb does not start, see {self.folder}/server.log")
        self.environment["DISPLAY"] = f":{number}"

    def _spawn(self, name, *command, **options):
        log = open(self.folder / f"{name}.log", "w", encoding="utf-8")
        process = subprocess.Popen(command, env=self.environment, stdin=subprocess.DEVNULL,
                                   stdout=log, stderr=log, **options)
        self._processes.append(process)
        return process

    def _stop(self):
        for process in reversed(self._processes):
            process.terminate()
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        self._processes.clear()

    def _xdotool(self, *arguments):
        subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, check=True,
                       capture_output=True, timeout=PATIENCE)

    def _ask(self, *arguments):
        """The output of xdotool, or None if it fails."""
        run = subprocess.run(["xdotool", *arguments], env=self.environment, capture_output=True,
                             text=True, timeout=PATIENCE, check=False)
        return run.stdout.strip() if run.returncode == 0 else None

    # --- waiting -------------------------------------------------------------------------------

    def wait_until(self, what, condition):
        """Polls until the condition is true and returns its value."""
        end = time.monotonic() + PATIENCE
        while True:
            value = condition()
            if value:
                return value
            if time.monotonic() > end:
                raise Failure(f"not within {PATIENCE:.0f} s: {what}")
            for process in self._processes:
                if process.poll() is not None:
                    raise Failure(f"{process.args[0]} has ended while waiting: {what}")
            time.sleep(POLL)

    def active_window(self):
        """The number of the window with the keyboard focus."""
        return self._ask("getactivewindow")

    def title(self):
        """The title of the window with the keyboard focus."""
        return self._ask("getactivewindow", "getwindowname")

    def text(self, korean):
        """A text of the program in the language of this screen."""
        return english_texts().get(korean, korean) if self.language == "en" else korean

    def wait_for_window(self, title):
        """Waits until the window with this title has the keyboard focus; earlier keys would go to another
        window. The title is given in Korean, whatever the language of the screen."""
        title = self.text(title)
        self.wait_until(f"the window “{title}” (“{self.title()}” has the keys)",
                        lambda: self.title() == title)

    def wait_for_change(self, what, before):
        """Waits until the view shows a different picture and returns it."""
        return self.wait_until(what, lambda: (now := self.view()) != before and now)

    # --- keys and mouse ------------------------------------------------------------------------

    def key(self, *keys):
        self._xdotool("key", "--delay", 4, *keys)

    def menu(self, name, *keys):
        """Opens a menu from the nearer end of the menu bar and presses keys in it."""
        place = MENUS.index(name)
        ways = ["Right"] * place if place < 4 else ["Left"] * (len(MENUS) - place)
        for step in (["alt+f", *ways], keys):
            if step:
                self.key(*step)
                self.wait_until_still()

    def type(self, text):
        self._xdotool("type", "--delay", 2, text)

    def fill(self, text):
        """Replaces the text of the field with the focus."""
        self.key("ctrl+a")
        self.type(text)

    def move_to(self, x, y):
        """Moves the mouse to a point relative to the corner of the view."""
        self._xdotool("mousemove", self.view_rect.left + x, self.view_rect.top + y)

    def click(self, x, y, button=1):
        self.move_to(x, y)
        self._xdotool("click", button)

    def press(self, x, y, button):
        self.move_to(x, y)
        self._xdotool("mousedown", button)

    def release(self, button):
        self._xdotool("mouseup", button)

    # --- looking -------------------------------------------------------------------------------

    def picture(self, rect):
        place = f"{rect.width}x{rect.height}+{rect.left}+{rect.top}"
        run = subprocess.run(["import", "-silent", "-window", "root", "-crop", place, "-depth", "8",
                              "BGRA:-"], env=self.environment, capture_output=True, check=True,
                             timeout=PATIENCE)
        return Picture(rect, run.stdout)

    def view(self):
        return self.picture(self.view_rect)

    def wait_until_still(self):
        """Waits until the whole screen does not change for a moment."""
        whole = Rect(0, 0, self.WIDTH * self.scale, self.HEIGHT * self.scale)
        last = [self.picture(whole), time.monotonic()]

        def is_still():
            now = self.picture(whole)
            if now != last[0]:
                last[:] = now, time.monotonic()
            return time.monotonic() - last[1] > STILL

        self.wait_until("the screen stays as it is", is_still)

    def save(self, name, window="root"):
        """Saves the whole screen, or a window with its frame, in the folder of the scenario."""
        subprocess.run(["import", "-silent", "-frame", "-window", window, self.folder / name],
                       env=self.environment, check=False, timeout=PATIENCE)

    def drawing(self, *options, program):
        """Points and colours of a drawing, computed by the command-line tool: each end point of a line
        inside the view, with the colour of the last line that touches it."""
        size = f"{self.view_rect.width}x{self.view_rect.height}"
        run = subprocess.run([self.tool, "--home", self.home, "draw", "--size", size, *options,
                              program], capture_output=True, check=True, text=True,
                             timeout=PATIENCE)
        points, pen, place = {}, None, None
        for line in run.stdout.splitlines():
            call, *words = line.split()
            if call == "pen":
                pen = words[0]
            if call not in ("move", "line"):
                continue
            start, place = place, (int(words[0]), int(words[1]))
            if call == "line" and pen in PENS:
                points[start] = points[place] = PENS[pen]
        width, height = self.view_rect.width, self.view_rect.height
        placed = [(x + width // 2, y + height // 2, points[x, y]) for x, y in points]
        return [(x, y, colour) for x, y, colour in placed if 0 <= x < width and 0 <= y < height]

    def shows(self, drawing):
        """True if at least 90 % of the points have their colour in the view. A few are crossed by a line
        that is drawn later."""
        view = self.view()
        right = sum(view.colour(x, y) == colour for x, y, colour in drawing)
        return 0 < 0.9 * len(drawing) <= right

    def wait_for_drawing(self, *options, program):
        drawing = self.drawing(*options, program=program)
        self.wait_until(f"the drawing {' '.join(options)} of {len(drawing)} points",
                        lambda: self.shows(drawing))

    # --- the program ---------------------------------------------------------------------------

    def start(self, *arguments):
        """Starts the program, with an empty view, maximised."""
        self._spawn("tvx", self.program, *map(str, arguments))
        self.wait_for_window("TVX - [TVX1]")
        self.wait_until("the black view", self._find_view)

    def _find_view(self):
        """Finds the black area at the left edge. An empty view shows only the axes in its middle."""
        whole = self.picture(Rect(0, 0, self.WIDTH * self.scale, self.HEIGHT * self.scale))
        is_black = lambda x, y: whole.colour(x, y) == 0
        top = bottom = whole.rect.height // 2
        if not is_black(0, top):
            return False
        while is_black(0, top - 1):
            top -= 1
        while is_black(0, bottom):
            bottom += 1
        right = 0
        while is_black(right, top):
            right += 1
        self.view_rect = Rect(0, top, right, bottom - top)
        # A window that has not been painted yet is completely black, without axes.
        return any(whole.colour(x, y) == WHITE for y in range(top, bottom) for x in range(right))

    def leave(self):
        """Ends the program with the menu."""
        program = self._processes.pop()
        self.key("alt+f", "x")
        try:
            status = program.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            self._processes.append(program)
            raise Failure("the program does not end") from None
        expect(f"the program ends well, not with {status}", status == 0)

    def choose_file(self, path, over):
        """Types a file name into the chooser that opens over the window with this title, and waits until
        the window has the focus again."""
        self.wait_until(f"a file chooser over “{over}”", lambda: self.title() not in (over, "", None))
        self.fill(str(path))
        self.key("Return")
        self.wait_for_window(over)
        self.wait_until_still()  # keys are lost while the chooser closes

    def load(self, program):
        """Loads a program with the menu and the file chooser."""
        self.key("alt+f", LOAD_LETTERS[self.language])
        self.wait_for_window("불러오기")
        self.fill(str(program))
        self.key("Return")
        self.wait_for_window(f"TVX - [{pathlib.Path(program).name}]")
