"""One file from Ctrl+T to the report: the send options, the adjusted path on the screen, the file
information, the recorded result with its picture, the list of results and its report. Then the same with
pictures switched off."""
import shutil

from driver import EXAMPLES, expect

# The parameters after typing: both ratios are lowest feed / highest feed, and the plunge feed is the
# former highest feed.
TYPED = ("--afa", "--set", "MaxFeed=2000", "--set", "CornerMaxRatio=0.2", "--set",
         "SlopeMaxRatio=0.2", "--set", "PlungeFeed=1000")


def run(screen):
    screen.data.mkdir(parents=True)
    program = screen.data / "part.nc"
    shutil.copy(EXAMPLES / "finishing_raster.nc", program)
    picture = screen.data / "part.nc.emf"

    screen.start()
    screen.load(program)
    type_options(screen, lowest="400", highest="2000")
    expect("nothing is recorded before it is accepted", not picture.exists())
    record(screen)
    screen.wait_for_drawing(*TYPED, program=program)
    screen.wait_until("the picture of the recorded result", lambda: is_metafile(picture))
    write_report(screen, screen.data / "week.tvx")
    screen.leave()

    picture.unlink()
    screen.start()
    screen.load(program)
    switch_pictures_off(screen)
    type_options(screen, lowest="400", highest="2000")
    record(screen)
    screen.wait_for_drawing(*TYPED, program=program)
    expect("no picture is made when none is wanted", not picture.exists())


def wait_for_main_window(screen):
    screen.wait_for_window("TVX - [part.nc]")


def type_options(screen, lowest, highest):
    """The focus starts in the lowest feed; the highest feed is the next field."""
    screen.key("ctrl+t")
    screen.wait_for_window("전송 dialog")
    screen.fill(lowest)
    screen.key("Tab")
    screen.fill(highest)
    screen.key("Return")
    screen.wait_for_window("화일정보")


def record(screen):
    screen.key("Return")
    wait_for_main_window(screen)


def write_report(screen, report):
    """From the list of results: "화일 출력" is the seventh control after the list of files."""
    screen.key("alt+f", "Right", "Down", "Down", "Down", "Return")
    screen.wait_for_window("TVX 출력")
    screen.key("Down", *["Tab"] * 7, "space")
    screen.choose_file(report, over="TVX 출력")
    lines = report.read_bytes().decode("cp949").split("\r\n")
    expect("the report names the file", any("part.nc" in line for line in lines))
    expect("the report contains the highest feed", any("2000" in line for line in lines))
    screen.key("Escape")
    wait_for_main_window(screen)


def is_metafile(path):
    """True if the file is complete: its header contains the number of its bytes."""
    data = path.read_bytes() if path.exists() else b""
    return data[40:44] == b" EMF" and int.from_bytes(data[48:52], "little") == len(data)


def switch_pictures_off(screen):
    """With the command pad, whose last but one button opens the settings."""
    screen.click(screen.view_rect.width // 2, 20)
    screen.wait_for_window("TVX  Dialog")
    screen.key("shift+Tab", "shift+Tab", "space")
    screen.wait_for_window("설정")
    screen.key("space", "Return")
    wait_for_main_window(screen)
