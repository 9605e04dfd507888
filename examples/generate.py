#!/usr/bin/env python3
"""Writes the example programs of this folder.

usage: examples/generate.py [--check]

Three tool paths are written in both line formats, word-address (.nc) and conversational (.hnc), so that
the same moves can be compared. The other programs have one format. The script also writes a condition
file and a job list. --check writes nothing and fails if a file differs from the generated one.
"""
import math
import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
SAFE_Z = 20.0
RAPID_WORD = 9999  # in the conversational format a feed above 2000 is a rapid


# A tool path is a list of moves. An arc has a centre; `by_radius` selects how it is written.


def rapid(x=None, y=None, z=None):
    return {"kind": "rapid", "x": x, "y": y, "z": z}


def cut(x=None, y=None, z=None, feed=None):
    return {"kind": "cut", "x": x, "y": y, "z": z, "feed": feed}


def arc(turn, x, y, centre, z=None, by_radius=False):
    """`turn` is "cw" or "ccw". An arc by radius must not exceed half a circle."""
    return {"kind": turn, "x": x, "y": y, "z": z, "centre": centre, "by_radius": by_radius}


def thousandths(value):
    return round(value * 1000)


class Position:
    """The last position written, in thousandths. A word that would repeat its value is left out."""

    def __init__(self):
        self.axes = {"x": None, "y": None, "z": None}

    def changed(self, move):
        words = []
        for axis in "xyz":
            if move[axis] is None:
                continue
            value = thousandths(move[axis])
            if value != self.axes[axis]:
                self.axes[axis] = value
                words.append((axis.upper(), value))
        return words

    def offset(self, centre):
        return tuple(thousandths(c) - self.axes[axis] for c, axis in zip(centre, "xy"))


# Word-address format.


def word_number(value):
    """1500 -> "1.5", 2000 -> "2.", as a post-processor writes numbers."""
    sign = "-" if value < 0 else ""
    whole, fraction = divmod(abs(value), 1000)
    return f"{sign}{whole}." + f"{fraction:03d}".rstrip("0")


def word_lines(moves):
    lines = []
    position = Position()
    motion = None
    feed = None
    for move in moves:
        kind = move["kind"]
        before = Position()
        before.axes = dict(position.axes)
        words = position.changed(move)
        code = {"rapid": "G00", "cut": "G01", "cw": "G02", "ccw": "G03"}[kind]
        text = "".join(letter + word_number(value) for letter, value in words)
        if kind in ("cw", "ccw"):
            i, j = before.offset(move["centre"])
            if move["by_radius"]:
                text += "R" + word_number(round(math.hypot(i, j)))
            else:
                text += f"I{word_number(i)}J{word_number(j)}"
        elif not words:
            continue
        if kind == "cut" and move["feed"] is not None and move["feed"] != feed:
            feed = move["feed"]
            text += f"F{feed}"
        if code != motion or kind in ("cw", "ccw"):
            text = code + text
            motion = code
        lines.append(text)
    return lines


def word_program(number, title, moves):
    lines = ["%", f"O{number:04d}", f"({title})", "G21G17G40G49G80", "G90G54", "T1M6", "S8000M3"]
    lines += word_lines(moves)
    # The last move is a rapid, so no arc is modal in the lines of the program end.
    return lines + ["M5", "M9", "M30", "%"]


# Conversational format.


def signed_number(value):
    sign = "-" if value < 0 else "+"
    whole, fraction = divmod(abs(value), 1000)
    return f"{sign}{whole}.{fraction:03d}"


def half_turns(start, z, move):
    """A full circle as two half circles: this format cannot specify the centre of a full circle."""
    cx, cy = move["centre"]
    end_z = move["z"]
    middle_z = None if end_z is None else (z + end_z) / 2
    middle = arc(move["kind"], 2 * cx - start[0], 2 * cy - start[1], move["centre"], middle_z)
    return [middle, arc(move["kind"], start[0], start[1], move["centre"], end_z)]


def conversational_lines(moves):
    lines = []
    position = Position()
    at = {"x": 0.0, "y": 0.0, "z": 0.0}
    feed = None
    centre_written = None
    queue = list(moves)
    while queue:
        move = queue.pop(0)
        kind = move["kind"]
        is_arc = kind in ("cw", "ccw")
        if is_arc and (move["x"], move["y"]) == (at["x"], at["y"]):
            queue = half_turns((at["x"], at["y"]), at["z"], move) + queue
            continue
        radius = None
        if is_arc:
            radius = round(math.hypot(*position.offset(move["centre"])))
        words = position.changed(move)
        at.update({axis: move[axis] for axis in "xyz" if move[axis] is not None})
        text = "".join(f" {letter}{signed_number(value)}" for letter, value in words)
        if is_arc:
            turn = "DR-" if kind == "cw" else "DR+"
            if move["by_radius"]:
                lines.append(f"CR{text} R{signed_number(radius)} {turn}")
                centre_written = None
            else:
                if move["centre"] != centre_written:
                    x, y = (signed_number(thousandths(c)) for c in move["centre"])
                    lines.append(f"CC X{x} Y{y}")
                    centre_written = move["centre"]
                lines.append(f"C{text} {turn}")
            continue
        if not words:
            continue
        wanted = RAPID_WORD if kind == "rapid" else move["feed"] or feed
        lines.append(f"L{text}" + (f" F{wanted}" if wanted != feed else ""))
        feed = wanted
    return lines


def conversational_program(name, moves, stock):
    low, high = stock
    lines = [
        f"BEGIN PGM {name} MM",
        f"BLK FORM 0.1 Z X+{low[0]} Y+{low[1]} Z-{-low[2]}",
        f"BLK FORM 0.2 X+{high[0]} Y+{high[1]} Z+{high[2]}",
        "TOOL CALL 1 Z S8000",
    ]
    lines += conversational_lines(moves)
    lines += ["STOP M2", f"END PGM {name} MM"]
    return [f"{number} {line}" for number, line in enumerate(lines)]


# The tool paths.


def approach(x, y, z, feed):
    return [rapid(z=SAFE_Z), rapid(x, y), rapid(z=z + 2.0), cut(z=z, feed=300), cut(feed=feed)]


def finishing_raster():
    """Parallel passes of a ball cutter over a wavy surface."""
    length, width, step, stepover, feed = 60.0, 24.0, 1.0, 0.8, 1200

    def height(x, y):
        wave = math.sin(2 * math.pi * x / 24.0) * math.cos(2 * math.pi * y / 36.0)
        return -4.0 + 2.5 * wave

    columns = round(length / step)
    moves = approach(0.0, 0.0, height(0.0, 0.0), feed)
    for row in range(round(width / stepover) + 1):
        y = row * stepover
        order = range(columns + 1) if row % 2 == 0 else range(columns, -1, -1)
        for column in order:
            x = column * step
            moves.append(cut(x, y, height(x, y), feed))
    moves += [rapid(z=SAFE_Z), rapid(0.0, 0.0)]
    return moves, ((0, 0, -10), (60, 24, 0))


def rounded_ring(centre, half_x, half_y, radius, by_radius, feed):
    """One clockwise pass along a rectangle with rounded corners, from the middle of its left side."""
    cx, cy = centre
    left, right, low, high = cx - half_x, cx + half_x, cy - half_y, cy + half_y

    def corner(x, y, middle):
        return arc("cw", x, y, middle, by_radius=by_radius)

    return [
        cut(left, high - radius, feed=feed),
        corner(left + radius, high, (left + radius, high - radius)),
        cut(right - radius, high, feed=feed),
        corner(right, high - radius, (right - radius, high - radius)),
        cut(right, low + radius, feed=feed),
        corner(right - radius, low, (right - radius, low + radius)),
        cut(left + radius, low, feed=feed),
        corner(left, low + radius, (left + radius, low + radius)),
        cut(left, cy, feed=feed),
    ]


def pocket_arcs():
    """A pocket, entered with a helix and cleared in rings, and four bores milled with full circles."""
    centre, feed = (45.0, 30.0), 900
    moves = [rapid(z=SAFE_Z)]
    for level in range(1, 6):
        floor = -2.0 * level
        start = (centre[0] - 6.0, centre[1])
        moves += [rapid(*start), rapid(z=floor + 3.0), cut(z=floor + 2.0, feed=300)]
        for quarter in range(1, 5):
            moves.append(arc("cw", *start, centre, z=floor + 2.0 - 0.5 * quarter))
        for ring in range(7):
            half_y = 6.0 + 3.0 * ring
            half_x = half_y + 15.0
            moves.append(cut(centre[0] - half_x, centre[1], feed=feed))
            radius = min(5.0, 2.0 + ring)
            moves += rounded_ring(centre, half_x, half_y, radius, level % 2 == 0, feed)
        moves.append(rapid(z=SAFE_Z))
    for x, y in ((8.0, 8.0), (82.0, 8.0), (82.0, 52.0), (8.0, 52.0)):
        moves += [rapid(x + 4.0, y), rapid(z=2.0), cut(z=0.0, feed=300)]
        for depth in (1.5, 3.0, 4.5, 6.0):
            moves += [cut(z=-depth, feed=200), arc("ccw", x + 4.0, y, (x, y))]
        moves += [cut(x, y, feed=feed), rapid(z=SAFE_Z)]
    return moves, ((0, 0, -12), (90, 60, 0))


def steep_walls():
    """Passes across a block with walls of 75 degrees and one vertical wall."""
    feed, floor, step = 1500, -15.0, 1.0
    slope = math.tan(math.radians(75.0))
    foot, top = 10.0, 10.0 + 15.0 / slope

    def profile(end):
        points = [(0.0, floor), (foot, floor)]
        for index in range(1, 15):
            points.append((foot + index / slope, floor + index))
        points += [(top, 0.0), (end, 0.0), (end, floor), (end + 8.0, floor)]
        return points

    def thinned(points):
        """Splits level sections into pieces of about `step`, as a surface strategy does."""
        for (x0, z0), (x1, z1) in zip(points, points[1:]):
            pieces = max(1, round((x1 - x0) / step)) if z0 == z1 else 1
            for piece in range(1, pieces + 1):
                part = piece / pieces
                yield x0 + (x1 - x0) * part, z0 + (z1 - z0) * part

    moves = []
    for row in range(25):
        y = row * 0.6
        points = profile(34.0 + 4.0 * math.sin(row / 4.0))
        moves += [rapid(z=SAFE_Z), rapid(0.0, y), rapid(z=floor + 2.0), cut(z=floor, feed=300)]
        moves += [cut(x, y, z, feed) for x, z in thinned(points)]
    moves += [rapid(z=SAFE_Z), rapid(0.0, 0.0)]
    return moves, ((0, 0, -15), (50, 15, 0))


# A cavity with a boss; all walls have a slope of 75 degrees. One program roughs this surface, another
# finishes it.
CAVITY_FLOOR = -12.0
WALL_SLOPE = math.tan(math.radians(75.0))


def cavity_height(x, y):
    inside = min(x - 6.0, 74.0 - x, y - 6.0, 54.0 - y)  # distance inwards from the upper edge of the walls
    wall = max(CAVITY_FLOOR, -max(0.0, inside) * WALL_SLOPE)
    outside = max(abs(x - 40.0) - 8.0, abs(y - 30.0) - 6.0)  # distance outwards from the boss
    boss = -3.0 - max(0.0, outside) * WALL_SLOPE
    return max(wall, boss)


def straightened(points):
    """Removes the points that are on the line between their neighbours."""
    kept = [points[0]]
    for point, after in zip(points[1:], points[2:]):
        (x0, z0), (x1, z1), (x2, z2) = kept[-1], point, after
        if abs((z1 - z0) * (x2 - x0) - (z2 - z0) * (x1 - x0)) > 1e-9:
            kept.append(point)
    return kept + [points[-1]]


def cavity_finishing():
    """Passes along X over the whole cavity, 0.5 mm apart."""
    feed = 1500
    moves = approach(0.0, 0.0, 0.0, feed)
    for row in range(121):
        y = row * 0.5
        points = straightened([(i * 0.25, cavity_height(i * 0.25, y)) for i in range(321)])
        moves += [cut(x, y, z, feed) for x, z in (points if row % 2 == 0 else points[::-1])]
    return moves + [rapid(z=SAFE_Z), rapid(0.0, 0.0)]


def cavity_roughing():
    """Clears the same cavity level by level, in rows with an allowance to the surface."""
    feed, allowance, stepover = 2400, 0.6, 3.0
    moves = [rapid(z=SAFE_Z)]
    for level in (-2.0, -4.0, -6.0, -8.0, -10.0, -12.0):
        wall = -level / WALL_SLOPE + allowance  # horizontal width of the walls above the level
        boss = (-3.0 - level) / WALL_SLOPE + allowance
        left, right, low, high = 6.0 + wall, 74.0 - wall, 6.0 + wall, 54.0 - wall
        for row in range(int((high - low) / stepover) + 1):
            y = low + row * stepover
            spans = [(left, right)]
            if level < -3.0 and abs(y - 30.0) < 6.0 + boss:
                spans = [(left, 32.0 - boss), (48.0 + boss, right)]
            if row % 2:
                spans = [(end, start) for start, end in spans[::-1]]
            for start, end in spans:
                moves += [rapid(start, y), rapid(z=level + 3.0), cut(z=level + allowance, feed=400)]
                moves += [cut(end, y, feed=feed), rapid(z=SAFE_Z)]
    return moves + [rapid(0.0, 0.0)]


def corner_fan():
    """Straight moves of equal length; each corner turns by 15 degrees more than the one before."""
    x, y, moves = 0.0, 0.0, approach(0.0, 0.0, -1.0, 1000)
    for heading in (0, 15, -15, 30, -30, 45, -45, 0):
        x += 24.0 * math.cos(math.radians(heading))
        y += 24.0 * math.sin(math.radians(heading))
        moves.append(cut(x, y, feed=1000))
    return moves + [rapid(z=SAFE_Z), rapid(0.0, 0.0)]


def slope_hills():
    """One pass over five hills, each steeper than the one before: 15, 30, 45, 60 and 75 degrees."""
    height, x = 9.0, 0.0
    moves = [rapid(z=SAFE_Z), rapid(0.0, 0.0), rapid(z=2.0), cut(z=-height, feed=300)]
    for degrees in (15, 30, 45, 60, 75):
        run = height / math.tan(math.radians(degrees))
        for length, z in ((8.0, -height), (run, 0.0), (8.0, 0.0), (run, -height)):
            x += length
            moves.append(cut(x, 0.0, z, 1000))
    moves.append(cut(x + 8.0, 0.0, -height, 1000))
    return moves + [rapid(z=SAFE_Z), rapid(0.0, 0.0)]


def arc_bends():
    """Straight moves joined by bends of 24 degrees with radii of 3, 5, 7, 9 and 12 mm."""
    x, y, moves = 0.0, 0.0, approach(0.0, 0.0, -1.0, 1000)
    heading = 12
    for radius in (3.0, 5.0, 7.0, 9.0, 12.0):
        angle = math.radians(heading)
        x, y = x + 20.0 * math.cos(angle), y + 20.0 * math.sin(angle)
        moves.append(cut(x, y, feed=1000))
        side = radius if heading < 0 else -radius  # offset of the centre: left or right of the path
        centre = (x - side * math.sin(angle), y + side * math.cos(angle))
        heading = -heading
        angle = math.radians(heading)
        x, y = centre[0] + side * math.sin(angle), centre[1] - side * math.cos(angle)
        moves.append(arc("ccw" if side > 0 else "cw", x, y, centre))
    moves.append(cut(x + 20.0 * math.cos(angle), y + 20.0 * math.sin(angle), feed=1000))
    return moves + [rapid(z=SAFE_Z), rapid(0.0, 0.0)]


def incremental_slots():
    """Slots of equal shape, written in incremental mode."""
    lines = ["%", "O0104", "(INCREMENTAL SLOTS)", "G21G17G40", "G90G54", "T3M6", "S6000M3"]
    lines += ["G00Z20.", "G00X10.Y10.", "Z1."]
    for slot in range(8):
        lines.append("G91")
        lines.append("G01Z-1.5F200")
        for _ in range(4):
            lines += ["G01X30.F800", "Y2.", "X-30.", "Y-2.", "G01Z-.5F200"]
        lines += ["G02X6.Y0.I3.J0.", "G03X6.Y6.I0.J6.", "G01X8.Y4.5F800", "X-20.Y-10.5"]
        lines += ["G00Z3.5", "Y9."]
        lines.append("G90")
        lines.append("G00Z1.")
    return lines + ["G00Z20.", "X0Y0", "M5", "M30", "%"]


def shop_oddities():
    """A program from the shop floor: edited by hand, in mixed styles, with Korean comments."""
    lines = ["%", "O7001(금형 하측 코어 정삭)", "(작업자 : 홍길동   공구 : 볼엔드밀 R5)"]
    lines += ["(뷁 똠 펲)", "", "   ", "/N1 G28 G91 Z0", "N5 G90 G54 G0 X 0 Y0", "N10 T05 M06 (공구 교환)"]
    lines += ["N15 S12000 M03", "N20 G43 Z50. H05 M08", "#100=250", "N25 G00 X#100 Y0"]
    lines += ["N30 g00 x5. y5.", "N35 G00 Z3.", "n40 G01 Z-1. F200", "N45 X15.F1000", "N50Y15.", "N55 X+10."]
    lines += ["N60 G1 X5.(모서리)", "N65 G1 X5.", "N70 G1 Y5. ;한바퀴", "N75   Z-1.5   F200.7  ", "N80\tX15.\tF1000"]
    lines += ["N85 G02 X25. Y15. R10.", "N90 G03 X15. Y25. I-10. J0.", "N95 G1.0 X5.", "N97 G01 Y15."]
    lines += ["N100 G01 X5.0000000000000001 Y5.", "N105 G01 X6. F6000", "N106 X7. F800", "N110 M00 (칩 제거)"]
    lines += ["N115 G02 I4. J0.", "N120 G01 X7.5", "M98 P1234", "call sub", "N125 X8. Y8. Z-2. (", "N130 G01 X8. Y9. Z-2.  "]
    lines += ["N135 G01 X9." + " " * 40 + "Y9.5" + " " * 40 + "Z-2.2", "N140 (" + "=" * 300 + ")"]
    lines += ["N145 G04 P500", "N150 G01X12.345Y-6.789Z-2.5F750", "N151 G91.1 G01 X.001", "N152 G90 Y-7."]
    angle = 0
    for block in range(200, 1200, 5):
        angle += 7
        x, y = 20 + 12 * math.cos(math.radians(angle)), 20 + 12 * math.sin(math.radians(angle))
        text = f"N{block} X{word_number(thousandths(x))} Y{word_number(thousandths(y))}"
        if block % 100 == 0:
            text += " F" + str(600 + block % 700)
        if block % 45 == 0:
            lines.append(f"( 블록 {block} )")
        lines.append(text)
    lines += ["N1200 G00 Z50. M09", "G00 X0 Y0", "M05", "M30", "%", "끝"]
    return lines


CONDITION = [
    "공구직경 10.000000",
    "안전거리 3.000000",
    "코너최소각도 15.000000",
    "코너최대감속비 0.200000",
    "경사최소각도 12.000000",
    "경사최대감속비 0.250000",
    "PlungeFeed 400",
    "최대피드 2400",
    "가공소재 KP4M",
    "AfaByMaster 0",
    "ConCorChk 1",
    "UpDownChk 1",
    "FeedChgSmoothCheck 0",
    "XyChgReduceCheck 0",
    "FeedChgAng 10",
    "CorWeight0 1.000000",
    "CorWeight30 0.800000",
    "CorWeight60 0.400000",
    "SideWeight0 1.000000",
    "SideWeight30 0.750000",
    "SideWeight60 0.350000",
    "ZupZdown 0.800000",
    "SideCorRat 1.250000",
    "Spindle 8000",
]


# A job list as the program writes it: the drive X is the drive of the list, and each file has its own
# options. The run builds the master model of the roughing program.
JOB_DIRECTORY = "X:\\marlo\\ncdata"
JOB_CONDITION = (
    "Afa ON TD 10.0 SD 3.0 CMIA 15.0 CMAR 0.20 SMIA 12.0 SMAR 0.25 CCC ON ZUDC ON MAT KP4M"
    " MAF {feed} AF 400 CW 1.00 0.80 0.40 SW 1.00 0.75 0.35"
)


def job_list(sizes):
    def job(name, words):
        return f"File {name} Dir {JOB_DIRECTORY} FS {sizes[name]} {words}  "

    def condition(feed):
        return JOB_CONDITION.format(feed=feed)

    model = f"{JOB_DIRECTORY}\\cavity_finishing.nc.mma"
    return [
        job("cavity_roughing.nc", f"M30 ON RT OFF {condition(4000)} MMA {model}"),
        job("cavity_finishing.nc", f"M30 ON RT OFF {condition(2400)}"),
        job("finishing_raster.nc", f"RT ON 3 20.000 -2.500 {condition(2400)} FCS ON XYR ON"),
        job("pocket_arcs.nc", "RT OFF Afa OFF KeyCode G54 S8000"),
        job("steep_walls.nc", f"RT ON 1 120 {condition(3000)} KeyCode G55"),
    ]


def all_files():
    """Yields the name and the bytes of every file."""
    sizes = {}
    for name, lines in programs():
        data = file_bytes(lines)
        sizes[name] = len(data)
        yield name, data
    yield "finishing.afa", file_bytes(CONDITION)
    yield "job_list.mcf", file_bytes(job_list(sizes))


def file_bytes(lines):
    return "".join(line + "\r\n" for line in lines).encode("cp949")


def programs():
    """Yields the name and the lines of every program."""
    paths = {
        "finishing_raster": (101, "FINISHING RASTER", finishing_raster()),
        "pocket_arcs": (102, "POCKET WITH ARCS", pocket_arcs()),
        "steep_walls": (103, "STEEP WALLS", steep_walls()),
    }
    for name, (number, title, (moves, stock)) in paths.items():
        yield f"{name}.nc", word_program(number, title, moves)
        yield f"{name}.hnc", conversational_program(name.upper(), moves, stock)
    yield "cavity_finishing.nc", word_program(106, "CAVITY FINISHING", cavity_finishing())
    yield "cavity_roughing.nc", word_program(107, "CAVITY ROUGHING", cavity_roughing())
    # Small programs that show the effect of single parameters of the feed adjustment.
    yield "corner_fan.nc", word_program(108, "CORNER FAN", corner_fan())
    yield "slope_hills.nc", word_program(109, "SLOPE HILLS", slope_hills())
    yield "arc_bends.nc", word_program(110, "ARC BENDS", arc_bends())
    yield "incremental_slots.nc", incremental_slots()
    yield "shop_oddities.nc", shop_oddities()


def main():
    check = sys.argv[1:] == ["--check"]
    if sys.argv[1:] and not check:
        sys.exit(__doc__)
    stale = []
    for name, data in all_files():
        path = HERE / name
        if check:
            if not path.exists() or path.read_bytes() != data:
                stale.append(name)
        else:
            path.write_bytes(data)
    if stale:
        sys.exit("not as generated: " + " ".join(stale))


main()
