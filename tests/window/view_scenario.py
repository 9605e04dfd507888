"""The path on the screen: loading with the menu, feed colours before and after the adjustment, keys and
mouse of the view. The command-line tool computes the expected lines."""
from driver import EXAMPLES, GREEN, PENS, RED, WHITE, expect

PROGRAM = EXAMPLES / "finishing_raster.nc"


def run(screen):
    screen.start()
    screen.load(PROGRAM)
    screen.wait_for_drawing("--view", "4", program=PROGRAM)
    programmed_feeds_have_their_colours(screen)
    keys_turn_and_pan(screen)
    function_keys_choose_the_view(screen)
    rapids_can_be_hidden(screen)
    right_button_zooms(screen)
    adjusted_feeds_have_their_colours(screen)


def programmed_feeds_have_their_colours(screen):
    """All moves have one feed except the plunge, which is slow; the rapids are red too."""
    view = screen.view()
    expect("the path is white", view.count(WHITE) > 5000)
    expect("the plunge and the rapids are red", view.count(RED) > 100)
    for name in ("penLightGrey", "penDarkGreen", "penBlue", "penDarkBlue"):
        expect(f"nothing is drawn with {name}", view.count(PENS[name]) < 10)  # only the edge of a letter


def keys_turn_and_pan(screen):
    """The second key of a pair restores exactly the same picture."""
    start = screen.view()
    left, top = start.corner()
    moved = {
        "Right": lambda corner: corner[0] > left,
        "Left": lambda corner: corner[0] < left,
        "Down": lambda corner: corner[1] > top,
        "Up": lambda corner: corner[1] < top,
    }
    for key, back in [("Right", "Left"), ("Left", "Right"), ("Down", "Up"), ("Up", "Down"),
                      ("Page_Up", "Page_Down"), ("Home", "End"), ("Insert", "Delete")]:
        screen.key(key)
        view = screen.wait_for_change(f"{key} changes the picture", start)
        expect(f"{key} moves the picture its way", key not in moved or moved[key](view.corner()))
        screen.key(back)
        screen.wait_until(f"{back} undoes {key}", lambda: screen.view() == start)


def function_keys_choose_the_view(screen):
    """A view key does not change scale and position, so F8 follows."""
    for number in (1, 2, 3, 5, 7, 6):
        drawing = screen.drawing("--view", str(number), program=PROGRAM)
        expect(f"view {number} is not shown yet", not screen.shows(drawing))
        screen.key(f"F{number}", "F8")
        screen.wait_until(f"F{number} and F8 show view {number}", lambda: screen.shows(drawing))


def rapids_can_be_hidden(screen):
    """The rapid down to the start of the path is dashed and red, like the plunge below it."""
    start = screen.view()
    screen.key("F10")
    without = screen.wait_for_change("F10 hides the rapids", start)
    expect("fewer pixels are red", 0 < without.count(RED) < start.count(RED))
    screen.key("F10")
    screen.wait_until("F10 shows the rapids again", lambda: screen.view() == start)


def right_button_zooms(screen):
    """A drag of 11 by 11 pixels zooms; a drag of 11 by 10 counts as a click and fits the path."""
    fitted = screen.view()
    left, top = screen.view_rect.width // 2, screen.view_rect.height // 2
    right, bottom = left + 11, top + 11

    screen.press(left, top, button=3)
    screen.move_to(right, bottom)
    screen.wait_until("the rubber band", lambda: rubber_band(screen, left, top, right, bottom))
    screen.release(button=3)
    screen.wait_for_drawing("--view", "6", "--zoom", f"{left},{top},{right},{bottom}",
                            program=PROGRAM)

    screen.press(left, top, button=3)
    screen.move_to(right, bottom - 1)
    screen.release(button=3)
    screen.wait_until("a drag of 11 by 10 fits", lambda: screen.view() == fitted)


def rubber_band(screen, left, top, right, bottom):
    view = screen.view()
    corners = [(left, top), (right, top), (right, bottom), (left, bottom)]
    return all(view.colour(x, y) == GREEN for x, y in corners)


def adjusted_feeds_have_their_colours(screen):
    """With the current options: slower where the path turns."""
    screen.key("ctrl+t")
    screen.wait_for_window("전송 dialog")
    screen.key("Return")
    screen.wait_for_window("화일정보")
    screen.key("Escape")
    screen.wait_for_window(f"TVX - [{PROGRAM.name}]")
    screen.wait_for_drawing("--view", "6", "--afa", program=PROGRAM)
    view = screen.view()
    for name in ("penWhite", "penLightGrey", "penGreen"):
        expect(f"moves are drawn with {name}", view.count(PENS[name]) > 500)
