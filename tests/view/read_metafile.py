"""Reads an enhanced metafile without the code that wrote it, checks its structure, and compares the
drawing with the recorded calls of the same scene."""

import struct

PENS = {name: (*bytes.fromhex(colour), name == "penRapid") for name, colour in (  # RGB, dashed
    pen.split(":") for pen in (
        "default:000000 penWhite:FFFFFF penLightGrey:C8C8C8 penGreen:00FF00 penDarkGreen:00C800 "
        "penDarkBlue:0000C8 penBlue:0000FF penRed:FF0000 penRapid:FF0000 penBlack:000000 "
        "penGrey:646464").split())}
STOCK_BLACK_PEN = 0x80000007
# Record types.
HEADER, END, MOVE, SELECT, CREATE_PEN, LINE, TEXT, POLYLINE = 1, 14, 27, 37, 38, 54, 84, 87


def expected_drawing(path):
    """Returns the changes of the pen, and the lines and texts, of a file of recorded calls."""
    selected, position, pens, items = "default", (0, 0), [], []
    with open(path, encoding="utf-8") as calls:
        lines = calls.read().splitlines()
    for call, *words in (line.split(" ", 3) for line in lines):
        if call == "pen":
            if words[0] != selected:
                pens.append(PENS[words[0]])
            selected = words[0]
            continue
        assert call in ("move", "line", "text"), f"unexpected call {call}"
        point = (int(words[0]), int(words[1]))
        if call == "text":
            items.append(("text", point, words[2]))
            continue
        if call == "line":
            items.append(("line", PENS[selected], position, point))
        position = point
    return pens, items


def drawing_in(data):
    """Checks the structure of a metafile. Returns its drawing as expected_drawing does."""
    unpack = struct.unpack_from
    pens, items, drawn, objects = [], [], [], {STOCK_BLACK_PEN: PENS["default"]}
    pen, position, offset, records, kind = PENS["default"], (0, 0), 0, 0, HEADER
    while kind != END:
        kind, size = unpack("<II", data, offset)
        assert size >= 8 and size % 4 == 0 and offset + size <= len(data), f"record at {offset}"
        record, points = data[offset:offset + size], []
        offset, records = offset + size, records + 1
        if kind == MOVE:
            position = unpack("<ii", record, 8)
        elif kind == LINE:
            points = [position, unpack("<ii", record, 8)]
            position = points[1]
        elif kind == POLYLINE:
            (count,) = unpack("<I", record, 24)
            assert len(record) == 28 + 4 * count and count >= 2, "size of a polyline"
            numbers = unpack(f"<{2 * count}h", record, 28)
            points = list(zip(numbers[::2], numbers[1::2]))
            assert unpack("<4i", record, 8) == box_of(points), "bounds of a polyline"
        elif kind == CREATE_PEN:
            number, style, width, _, colour = struct.unpack("<IIiiI", record[8:])
            assert number == len(objects) and style in (0, 1) and width == 1, f"object {number}"
            created = (*colour.to_bytes(3, "little"), style == 1)
            assert created not in list(objects.values())[1:], "a pen is created twice"
            objects[number] = created
        elif kind == SELECT:
            pen = objects[unpack("<I", record, 8)[0]]
            pens.append(pen)
        elif kind == TEXT:
            box = unpack("<4i", record, 8)
            x, y, count, place, options = unpack("<iiIII", record, 36)
            (advances,) = unpack("<I", record, 72)
            assert options == 0 and 76 <= place <= advances - 2 * count, "place of a text"
            assert advances % 4 == 0 and advances + 4 * count == len(record), "place of the advances"
            assert box[:2] == (x, y) and box[2] > x and box[3] > y, "bounds of a text"
            drawn += [box[:2], box[2:]]
            items.append(("text", (x, y), record[place:place + 2 * count].decode("utf-16-le")))
        else:
            assert records == 1 or kind == END, f"record of type {kind}"
        drawn += points
        items += [("line", pen, start, end) for start, end in zip(points, points[1:])]
    assert struct.unpack("<IIIII", record)[4] == 20 and offset == len(data), "end of the file"
    check_header(data, records, len(objects), box_of(drawn))
    return pens, items


def check_header(data, records, objects, bounds):
    kind, size = struct.unpack_from("<II", data)
    assert kind == HEADER and data[40:44] == b" EMF"
    (version, file_size, header_records, handles, reserved, characters, offset, palette,
     *device) = struct.unpack_from("<IIIHH7I", data, 44)
    assert (version, reserved, palette) == (0x10000, 0, 0), "version and reserved fields"
    assert (file_size, header_records, handles) == (len(data), records, objects), "counts"
    assert offset >= 108 and offset + 2 * characters <= size, "place of the description"
    assert data[offset:offset + 2 * characters].decode("utf-16-le") == "TVX MetaFile\0\0"
    assert struct.unpack_from("<II", data, 100) == (device[2] * 1000, device[3] * 1000)
    assert struct.unpack_from("<4i", data, 8) == bounds, f"bounds, drawn {bounds}"
    for edge, frame in enumerate(struct.unpack_from("<4i", data, 24)):
        exact = bounds[edge] * 100 * device[2 + edge % 2] / device[edge % 2]
        assert abs(frame - exact) <= 1, f"frame {frame}, edge {edge}"


def box_of(points):
    xs, ys = zip(*points)
    return min(xs), min(ys), max(xs), max(ys)


def main(picture, calls):
    """Raises an error if the metafile is damaged or is not the drawing of the calls."""
    with open(picture, "rb") as file:
        pens, items = drawing_in(file.read())
    expected_pens, expected_items = expected_drawing(calls)
    for expected, found in zip(expected_items + expected_pens, items + pens):
        assert expected == found, f"drawn {expected}, in the file {found}"
    assert (len(items), len(pens)) == (len(expected_items), len(expected_pens))
