"""A screen with a window manager and the desktop program on it, driven by synthetic keys and mouse. No step
sleeps for a fixed time; each waits for a visible change. A Failure names what did not happen, and the screen
at that moment is saved as failure.png in the folder of the scenario."""
import array
import os
import pathlib
import shutil
import subprocess
import time
from typing import NamedTuple

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
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


class Screen:
    """A separate X server with openbox, and the program with a separate home in `folder`."""

    WIDTH, HEIGHT = 1280, 800

    def __init__(self, program, tool, folder, scale=1):
        self.program, self.tool = pathlib.Path(program), pathlib.Path(tool)
        self.folder = pathlib.Path(folder)
        self.home = self.folder / "home"
        self.data = self.home / "drive_c" / "marlo" / "ncdata"
        self.whole = Rect(0, 0, self.WIDTH * scale, self.HEIGHT * scale)
        self.view_rect = None  # of the black view, known once the program has started
        self.load_letter = "t"  # of the command in its menu
        self.environment = {
            "PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "HOME": str(self.home),
            "XDG_RUNTIME_DIR": str(self.folder), "XDG_CONFIG_HOME": str(self.home / "config"),
            "XDG_CACHE_HOME": str(self.home / "cache"), "TVX_HOME": str(self.home),
            "QT_QPA_PLATFORM": "xcb", "QT_SCALE_FACTOR": str(scale), "TVX_LANGUAGE": "ko",
        }
        self._processes = []

    def prepare_home(self):
        shutil.rmtree(self.folder, ignore_errors=True)
        self.data.mkdir(parents=True)

    def __enter__(self):
        self.prepare_home()
        try:
            self._start_server()
            self._spawn("openbox", "openbox")
            self.wait_until("the window manager runs", lambda: self._ask("get_num_desktops"))
            return self
        except BaseException:
            self._stop()
            raise

    def __exit__(self, kind, error, trace):
        if isinstance(error, Failure):
            self.save("failure.png")
        self._stop()

    def _start_server(self):
        read, write = os.pipe()
        # A server that resets when its last client leaves could drop a client that is just connecting.
        self._spawn("server", "Xvfb", "-displayfd", str(write), "-screen", "0",
                    f"{self.whole.width}x{self.whole.height}x24", "-nolisten", "tcp", "-noreset",
                    pass_fds=[write])
        os.close(write)
        with os.fdopen(read) as pipe:
            number = pipe.readline().strip()  # ends when the server is ready, or has ended
        if not number:
            raise Failure(f"Xvfb does not start, see {self.folder}/server.log")
        self.environment["DISPLAY"] = f":{number}"

    def _spawn(self, name, *command, **options):
        log = open(self.folder / f"{name}.log", "w", encoding="utf-8")
        self._processes.append(subprocess.Popen(command, env=self.environment, stdout=log, stderr=log,
                                                stdin=subprocess.DEVNULL, **options))

    def _stop(self):
        for process in reversed(self._processes):
            process.terminate()
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        self._processes.clear()

    def _run(self, *command, check=True, **options):
        """Runs a command on the screen and returns its output, or None if it may fail and does."""
        run = subprocess.run(list(map(str, command)), env=self.environment, capture_output=True,
                             timeout=PATIENCE, check=check, **options)
        return run.stdout if run.returncode == 0 else None

    def _ask(self, *arguments):
        return (self._run("xdotool", *arguments, check=False, text=True) or "").strip()

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

    def title(self):
        return self._ask("getactivewindow", "getwindowname")

    def wait_for_window(self, title):
        """Waits until the window with this title has the focus; earlier keys would go to another one."""
        self.wait_until(f"the window “{title}” (“{self.title()}” has the keys)",
                        lambda: self.title() == title)

    def wait_for_change(self, what, before):
        return self.wait_until(what, lambda: (now := self.view()) != before and now)

    def wait_until_still(self):
        last = [self.picture(self.whole), time.monotonic()]

        def is_still():
            now = self.picture(self.whole)
            if now != last[0]:
                last[:] = now, time.monotonic()
            return time.monotonic() - last[1] > STILL

        self.wait_until("the screen stays as it is", is_still)

    # --- keys and mouse; points are relative to the corner of the view -------------------------

    def key(self, *keys, opens=None):
        """Presses keys, and waits for the window that they open or return to, if it is named."""
        if keys:
            self._run("xdotool", "key", "--delay", 4, *keys)
        if opens is not None:
            self.wait_for_window(opens)

    def fill(self, *texts):
        """Replaces the text of the field with the focus, and of the fields after it."""
        for number, text in enumerate(texts):
            self.key(*["Tab"] * (number > 0), "ctrl+a")
            self._run("xdotool", "type", "--delay", 2, text)

    def move_to(self, x, y):
        self._run("xdotool", "mousemove", self.view_rect.left + x, self.view_rect.top + y)

    def press(self, x, y, button):
        self.move_to(x, y)
        self._run("xdotool", "mousedown", button)

    def release(self, button):
        self._run("xdotool", "mouseup", button)

    def click(self, x, y, opens=None):
        self.move_to(x, y)
        self._run("xdotool", "click", 1)  # at once: a window gets no focus while a button is down
        self.key(opens=opens)

    # --- pictures ------------------------------------------------------------------------------

    def picture(self, rect):
        place = f"{rect.width}x{rect.height}+{rect.left}+{rect.top}"
        return Picture(rect, self._run("import", "-silent", "-window", "root", "-crop", place,
                                       "-depth", "8", "BGRA:-"))

    def view(self):
        return self.picture(self.view_rect)

    def save(self, name, window="root"):
        """Saves the whole screen, or a window with its frame, in the folder of the scenario."""
        self._run("import", "-silent", "-frame", "-window", window, self.folder / name, check=False)

    def drawing(self, *options, program):
        """The end points of lines in the view and their colours, computed by the command-line tool."""
        width, height = self.view_rect.width, self.view_rect.height
        lines = self._run(self.tool, "--home", self.home, "draw", "--size", f"{width}x{height}",
                          *options, program, text=True).splitlines()
        points, colour, place = {}, None, None
        for call, *words in map(str.split, lines):
            if call == "pen":
                colour = PENS.get(words[0])
            elif call in ("move", "line"):
                start, place = place, (int(words[0]), int(words[1]))
                if call == "line" and colour is not None:
                    points[start] = points[place] = colour
        placed = [(x + width // 2, y + height // 2, points[x, y]) for x, y in points]
        return [(x, y, colour) for x, y, colour in placed if 0 <= x < width and 0 <= y < height]

    def shows(self, drawing):
        """True if at least 90 % of the points have their colour; later lines cross a few."""
        view = self.view()
        right = sum(view.colour(x, y) == colour for x, y, colour in drawing)
        return 0 < 0.9 * len(drawing) <= right

    def wait_for_drawing(self, *options, program):
        drawing = self.drawing(*options, program=program)
        self.wait_until(f"the drawing {' '.join(options)} of {len(drawing)} points",
                        lambda: self.shows(drawing))

    # --- the program ---------------------------------------------------------------------------

    def start(self):
        self._spawn("tvx", self.program)
        self.wait_for_window("TVX - [TVX1]")
        self.wait_until("the black view", self._find_view)

    def _find_view(self):
        """Finds the black area at the left edge. An empty view shows only the axes in its middle."""
        whole = self.picture(self.whole)
        top = bottom = whole.rect.height // 2
        if whole.colour(0, top) != 0:
            return False
        while whole.colour(0, top - 1) == 0:
            top -= 1
        while whole.colour(0, bottom) == 0:
            bottom += 1
        right = next((x for x in range(whole.rect.width) if whole.colour(x, top)), whole.rect.width)
        self.view_rect = Rect(0, top, right, bottom - top)
        # A window that has not been painted yet is completely black, without axes.
        return any(whole.colour(x, y) == WHITE for y in range(top, bottom) for x in range(right))

    def leave(self):
        self.key("alt+f", "x")
        expect("the program ends well", self._processes.pop().wait(PATIENCE) == 0)

    def choose_file(self, path, over):
        """Types a file name into the chooser that opens over the window with this title."""
        self.wait_until(f"a file chooser over “{over}”", lambda: self.title() not in (over, ""))
        self.fill(path)
        self.key("Return", opens=over)
        self.wait_until_still()  # keys are lost while the chooser closes

    def load(self, program):
        self.key("alt+f", self.load_letter, opens="불러오기")
        self.fill(program)
        self.key("Return", opens=f"TVX - [{pathlib.Path(program).name}]")
