"""One program: its path in the colours of its feeds, the keys and the mouse of the view, Ctrl+T with the send
options, the recorded result with its picture, and the report. The tool computes the expected lines."""
import shutil

from driver import EXAMPLES, GREEN, PENS, RED, WHITE, expect

MAIN_WINDOW = "TVX - [part.nc]"

# The parameters after typing 400 and 2000: both ratios are lowest feed / highest feed, and the plunge feed
# is the former highest feed.
TYPED = ("--afa", "--set", "MaxFeed=2000", "--set", "CornerMaxRatio=0.2", "--set",
         "SlopeMaxRatio=0.2", "--set", "PlungeFeed=1000")


def run(screen):
    program = screen.data / "part.nc"
    shutil.copy(EXAMPLES / "finishing_raster.nc", program)
    picture = screen.data / "part.nc.emf"
    report = screen.data / "week.tvx"
    screen.start()
    screen.load(program)
    screen.wait_for_drawing("--view", "4", program=program)
    programmed_feeds_have_their_colours(screen)
    keys_turn_and_pan(screen)
    function_keys_choose_the_view(screen, program)
    rapids_can_be_hidden(screen)
    right_button_zooms(screen, program)

    type_options(screen)
    expect("nothing is recorded before it is accepted", not picture.exists())
    screen.key("Return", opens=MAIN_WINDOW)
    screen.wait_for_drawing("--view", "6", *TYPED, program=program)
    for name in ("penWhite", "penLightGrey", "penGreen"):
        expect(f"moves are drawn with {name}", screen.view().count(PENS[name]) > 500)
    screen.wait_until("the picture of the recorded result", lambda: is_metafile(picture))
    screen.key("alt+f", "Right", "Down", "Down", "Down", "Return", opens="TVX 출력")
    screen.key("Down", *["Tab"] * 7, "space")  # to "화일 출력"
    screen.choose_file(report, over="TVX 출력")
    screen.key("Escape", opens=MAIN_WINDOW)
    lines = report.read_bytes().decode("cp949")
    expect("the report contains the file and its highest feed", "part.nc" in lines and "2000" in lines)
    screen.leave()

    picture.unlink()
    screen.start()
    screen.load(program)
    screen.click(screen.view_rect.width // 2, 20, opens="TVX  Dialog")
    screen.key("shift+Tab", "shift+Tab", "space", opens="설정")
    screen.key("space", "Return", opens=MAIN_WINDOW)  # no pictures from now on
    type_options(screen)
    screen.key("Return", opens=MAIN_WINDOW)
    screen.wait_for_drawing(*TYPED, program=program)
    expect("no picture is made when none is wanted", not picture.exists())


def programmed_feeds_have_their_colours(screen):
    """All moves have one feed except the plunge, which is slow; the rapids are red too."""
    view = screen.view()
    expect("the path is white", view.count(WHITE) > 5000)
    expect("the plunge and the rapids are red", view.count(RED) > 100)
    for name in ("penLightGrey", "penDarkGreen", "penBlue", "penDarkBlue"):
        expect(f"nothing is drawn with {name}", view.count(PENS[name]) < 10)  # only the edge of a letter


def keys_turn_and_pan(screen):
    start = screen.view()
    for key, back in [("Right", "Left"), ("Down", "Up"), ("Page_Up", "Page_Down"), ("Home", "End"),
                      ("Insert", "Delete")]:
        screen.key(key)
        screen.wait_for_change(f"{key} changes the picture", start)
        screen.key(back)
        screen.wait_until(f"{back} undoes {key}", lambda: screen.view() == start)


def function_keys_choose_the_view(screen, program):
    for number in (1, 2, 3, 5, 7, 6):
        drawing = screen.drawing("--view", str(number), program=program)
        expect(f"view {number} is not shown yet", not screen.shows(drawing))
        screen.key(f"F{number}", "F8")  # a view key does not change scale and position
        screen.wait_until(f"F{number} and F8 show view {number}", lambda: screen.shows(drawing))


def rapids_can_be_hidden(screen):
    """The rapid down to the start of the path is dashed and red, like the plunge below it."""
    start = screen.view()
    screen.key("F10")
    without = screen.wait_for_change("F10 hides the rapids", start)
    expect("fewer pixels are red", 0 < without.count(RED) < start.count(RED))
    screen.key("F10")
    screen.wait_until("F10 shows the rapids again", lambda: screen.view() == start)


def right_button_zooms(screen, program):
    """A drag of 11 by 11 pixels zooms, a release outside does nothing, and a drag of 11 by 10 counts as a
    click and fits the path."""
    fitted = screen.view()
    left, top = screen.view_rect.width // 2, screen.view_rect.height // 2
    right, bottom = left + 11, top + 11
    corners = [(left, top), (right, top), (right, bottom), (left, bottom)]

    def drag(x, y):
        screen.press(left, top, button=3)
        screen.move_to(x, y)

    drag(right, bottom)
    screen.wait_until("the rubber band",
                      lambda: all(screen.view().colour(x, y) == GREEN for x, y in corners))
    screen.release(button=3)
    zoomed = ("--view", "6", "--zoom", f"{left},{top},{right},{bottom}")
    screen.wait_for_drawing(*zoomed, program=program)
    drag(left, -20)
    screen.release(button=3)
    screen.wait_for_drawing(*zoomed, program=program)
    drag(right, bottom - 1)
    screen.release(button=3)
    screen.wait_until("a drag of 11 by 10 fits", lambda: screen.view() == fitted)


def type_options(screen):
    screen.key("ctrl+t", opens="전송 dialog")
    screen.fill("400", "2000")  # the focus starts in the lowest feed; the highest feed is the next field
    screen.key("Return", opens="화일정보")


def is_metafile(path):
    """True if the file is complete: its header contains the number of its bytes."""
    data = path.read_bytes() if path.exists() else b""
    return data[40:44] == b" EMF" and int.from_bytes(data[48:52], "little") == len(data)
