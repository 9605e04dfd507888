"""A job list with the keyboard: three files with different options, key codes on one of them, the saved
list, the run, its results, and the job list file that is written from them and read again."""
import shutil

from driver import EXAMPLES, expect

PROGRAMS = ("cavity_roughing.nc", "finishing_raster.nc", "pocket_arcs.nc", "steep_walls.nc")
RASTER, POCKET, WALLS = 1, 2, 3  # rows of the file list

# The tab order of the job dialog.
STOPS = ("tree", "files", "mask", "삽입", "삭제", "청소", "화일정보", "미리보기", "편집", "저장", "읽기", "TVX",
         "화일확장자", "jobs", "information", "K추가", "K삽입", "K삭제", "K수정", "K저장", "K읽기", "M30삭제",
         "재전송", "AFA 설정", "전송", "전송 취소")
MAIN_WINDOW, JOB_DIALOG, PAD = "TVX - [steep_walls.nc]", "전송", "Key code를 입력하시요 !!"

CONDITION = ("Afa ON TD 10.0 SD 5.0 CMIA 10.0 CMAR {0:.2f} SMIA 10.0 SMAR {0:.2f} CCC ON ZUDC ON"
             " MAT STEEL(S45C) MAF {1} AF 1000 CW 1.00 0.70 0.30 SW 1.00 0.70 0.30")

ADJUSTED = ("--afa", "--set", "MaxFeed=2400", "--set", "PlungeFeed=1000", "--set", "CornerMaxRatio=0.25",
            "--set", "SlopeMaxRatio=0.25")


def entry(name, restart, condition, key_codes=""):
    size = (EXAMPLES / name).stat().st_size
    return (rf"File {name} Dir c:\marlo\ncdata FS {size} M30 ON RT {restart} "
            f"{CONDITION.format(*condition)}{key_codes}")


LINES = [
    entry("finishing_raster.nc", "OFF", (0.1, 1000)),
    entry("pocket_arcs.nc", "OFF", (0.25, 2400), " KeyCode G54 M03"),
    entry("steep_walls.nc", "ON 1 120", (0.25, 2400)),
]


class Keys:
    """Keyboard control of the job dialog. The focus starts in the tree."""

    def __init__(self, screen):
        self.screen, self.at = screen, 0

    def go(self, stop, *keys, opens=None):
        place = STOPS.index(stop)
        tab = "Tab" if place > self.at else "shift+Tab"
        self.screen.key(*[tab] * abs(place - self.at), *keys, opens=opens)
        self.at = place

    def insert(self, row):
        self.go("files", "Home", *["Down"] * row, "Return")  # selects a file and appends it


def run(screen, picture=lambda name: None):
    for name in PROGRAMS:
        shutil.copy(EXAMPLES / name, screen.data)
    screen.start()
    screen.key("alt+f", "Right", "Down", "Down", "Return", opens=JOB_DIALOG)
    keys = Keys(screen)
    picture("opened")
    keys.insert(RASTER)
    keys.go("AFA 설정", "space", opens="전송 dialog")  # a higher feed for the next files
    screen.fill("600", "2400")
    picture("condition")
    screen.key("Return", opens=JOB_DIALOG)
    keys.insert(POCKET)
    keys.go("재전송", "space", opens="재전송")
    screen.key("Up", "Up", "Up", "Tab")
    screen.fill("120")
    picture("restart")
    screen.key("Return", opens=JOB_DIALOG)
    keys.insert(WALLS)
    keys.go("jobs", "Home", "Down")
    for code in ("G54", "M03"):
        keys.go("K추가", "space", opens=PAD)
        screen.fill(code)
        if code == "G54":
            picture("pad")
        screen.key("Return", opens=JOB_DIALOG)
    picture("key_codes")
    keys.go("jobs", "Home")
    keys.go("미리보기", "space")
    picture("preview")
    keys.go("저장", "space")
    screen.wait_until("the list is saved", lambda: saved_list(screen) == LINES)
    keys.go("전송", "space", opens=MAIN_WINDOW)
    shows_the_last_file(screen)
    picture("run")
    screen.key("alt+f", "Right", "Down", "Down", "Down", "Return", opens="TVX 출력")
    screen.key("Down")
    picture("results")
    job = screen.data / "week.mcf"
    screen.key(*["Tab"] * 8, "space")  # to "AFA 출력"
    screen.choose_file(job, over="TVX 출력")
    screen.key("Escape", opens=MAIN_WINDOW)
    reads_its_job_list_again(screen, job)


def reads_its_job_list_again(screen, job):
    """The saved list is deleted first, so the new one contains what was read."""
    (screen.home / "drive_c" / "marlo" / "FList1.txt").unlink()
    screen.click(screen.view_rect.width // 2, 20, opens="TVX  Dialog")
    screen.key("space", opens=JOB_DIALOG)  # "Cut Time"
    keys = Keys(screen)
    keys.go("청소", "space")
    keys.go("TVX", "space")
    screen.choose_file(job, over=JOB_DIALOG)
    keys.go("저장", "space")
    screen.wait_until("the list that was read is the one that ran", lambda: saved_list(screen) == LINES)
    screen.key("Escape", opens="TVX 출력")
    screen.key("Escape", opens=MAIN_WINDOW)


def saved_list(screen):
    path = screen.home / "drive_c" / "marlo" / "FList1.txt"
    if not path.exists():
        return None
    return [" ".join(line.split()) for line in path.read_text("cp949").splitlines()]


def shows_the_last_file(screen):  # with the options of its line
    screen.wait_for_drawing("--view", "4", *ADJUSTED, program=screen.data / PROGRAMS[WALLS])
    expect("the list has not changed", saved_list(screen) == LINES)
