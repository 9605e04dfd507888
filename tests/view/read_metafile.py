#!/usr/bin/env python3
"""Reads an enhanced metafile on its own terms and compares it with the calls of the same drawing.

    read_metafile.py PICTURE.emf CALLS.txt

CALLS.txt holds the calls as the recorder writes them. Prints what is wrong and exits with 1, or
prints a summary.
"""

import struct
import sys

PENS = {  # name: (red, green, blue, dashed)
    "default": (0, 0, 0, False),
    "penWhite": (255, 255, 255, False),
    "penLightGrey": (200, 200, 200, False),
    "penGreen": (0, 255, 0, False),
    "penDarkGreen": (0, 200, 0, False),
    "penDarkBlue": (0, 0, 200, False),
    "penBlue": (0, 0, 255, False),
    "penRed": (255, 0, 0, False),
    "penRapid": (255, 0, 0, True),
    "penBlack": (0, 0, 0, False),
    "penGrey": (100, 100, 100, False),
}


class Wrong(Exception):
    pass


def check(condition, message):
    if not condition:
        raise Wrong(message)


def expected_drawing(path):
    """Lines and texts of the recorded calls, and the changes of the pen."""
    selected, position, pens, items = "default", (0, 0), [], []
    with open(path, encoding="utf-8") as calls:
        lines = calls.read().splitlines()
    for line in lines:
        words = line.split(" ", 3)
        if words[0] == "pen":
            if words[1] != selected:
                pens.append(PENS[words[1]])
            selected = words[1]
        elif words[0] == "move":
            position = (int(words[1]), int(words[2]))
        elif words[0] == "line":
            end = (int(words[1]), int(words[2]))
            items.append(("line", PENS[selected], position, end))
            position = end
        elif words[0] == "text":
            items.append(("text", (int(words[1]), int(words[2])), words[3]))
        else:
            raise Wrong("unexpected call " + line)
    return pens, items


class Metafile:
    def __init__(self, data):
        self.items, self.pens = [], []
        self.objects = {}
        self.pen = PENS["default"]
        self.position = (0, 0)
        self.box = None
        self.records = 0
        self.read_header(data)
        offset = self.header_size
        at_end = False
        while offset < len(data):
            check(not at_end, "bytes after the end record")
            kind, size = struct.unpack_from("<II", data, offset)
            check(size >= 8 and size % 4 == 0 and offset + size <= len(data),
                  f"record of type {kind} at {offset} has size {size}")
            at_end = self.read_record(kind, data[offset:offset + size])
            self.records += 1
            offset += size
        check(at_end, "no end record")

    def read_header(self, data):
        kind, self.header_size = struct.unpack_from("<II", data, 0)
        check(kind == 1, "no header")
        self.bounds = struct.unpack_from("<4i", data, 8)
        self.frame = struct.unpack_from("<4i", data, 24)
        check(data[40:44] == b" EMF", "no signature")
        (version, size, self.header_records, self.handles, reserved, characters, offset, palette,
         *device) = struct.unpack_from("<IIIHHIIIIIII", data, 44)
        check(version == 0x10000, "version")
        check(size == len(data), f"size {size} in the header, {len(data)} bytes in the file")
        check(reserved == 0 and palette == 0, "reserved fields")
        check(offset >= 108 and offset + 2 * characters <= self.header_size, "description place")
        text = data[offset:offset + 2 * characters].decode("utf-16-le")
        check(text == "TVX MetaFile\0\0", f"description {text!r}")
        self.device = device
        self.records = 1
        micrometres = struct.unpack_from("<II", data, 100)
        check(micrometres == (device[2] * 1000, device[3] * 1000), "device in micrometres")

    def widen(self, *points):
        for x, y in points:
            if self.box is None:
                self.box = [x, y, x, y]
            self.box = [min(self.box[0], x), min(self.box[1], y),
                        max(self.box[2], x), max(self.box[3], y)]

    def read_record(self, kind, record):
        if kind == 14:
            check(struct.unpack("<IIIII", record)[4] == 20, "size at the end of the file")
            return True
        reader = {27: self.move, 54: self.line, 87: self.polyline, 37: self.select,
                  38: self.create_pen, 84: self.text}.get(kind)
        check(reader is not None, f"record of type {kind}")
        reader(record)
        return False

    def move(self, record):
        self.position = struct.unpack("<ii", record[8:])

    def line(self, record):
        end = struct.unpack("<ii", record[8:])
        self.draw([self.position, end])
        self.position = end

    def polyline(self, record):
        box = struct.unpack_from("<4i", record, 8)
        (count,) = struct.unpack_from("<I", record, 24)
        check(len(record) == 28 + 4 * count and count >= 2, "size of a polyline")
        numbers = struct.unpack_from(f"<{2 * count}h", record, 28)
        points = list(zip(numbers[::2], numbers[1::2]))
        check(box == (min(x for x, _ in points), min(y for _, y in points),
                      max(x for x, _ in points), max(y for _, y in points)),
              "bounds of a polyline")
        self.draw(points)

    def draw(self, points):
        self.widen(*points)
        for start, end in zip(points, points[1:]):
            self.items.append(("line", self.pen, start, end))

    def create_pen(self, record):
        number, style, width, _, colour = struct.unpack("<IIiiI", record[8:])
        check(number == len(self.objects) + 1, f"object {number} out of order")
        check(style in (0, 1) and width == 1, "style of a pen")
        self.objects[number] = (colour & 255, colour >> 8 & 255, colour >> 16 & 255, style == 1)

    def select(self, record):
        (number,) = struct.unpack("<I", record[8:])
        stock_black_pen = 0x80000007
        check(number == stock_black_pen or number in self.objects, f"object {number} is unknown")
        self.pen = PENS["default"] if number == stock_black_pen else self.objects[number]
        self.pens.append(self.pen)

    def text(self, record):
        box = struct.unpack_from("<4i", record, 8)
        x, y, count, offset, options = struct.unpack_from("<iiIII", record, 36)
        (advances,) = struct.unpack_from("<I", record, 72)
        check(options == 0, "options of a text")
        check(offset >= 76 and offset + 2 * count <= advances, "place of a text")
        check(advances % 4 == 0 and advances + 4 * count == len(record), "place of the advances")
        string = record[offset:offset + 2 * count].decode("utf-16-le")
        check(box[0] == x and box[1] == y and box[2] > x and box[3] > y, "bounds of a text")
        self.widen(box[:2], box[2:])
        self.items.append(("text", (x, y), string))

    def check_header(self):
        check(self.header_records == self.records,
              f"{self.header_records} records in the header, {self.records} in the file")
        check(self.handles == len(self.objects) + 1, "number of handles")
        check(self.bounds == tuple(self.box), f"bounds {self.bounds}, drawn {self.box}")
        pixels_x, pixels_y, millimetres_x, millimetres_y = self.device
        for edge, pixels, millimetres in zip(range(4), (pixels_x, pixels_y) * 2,
                                             (millimetres_x, millimetres_y) * 2):
            exact = self.bounds[edge] * 100 * millimetres / pixels
            check(abs(self.frame[edge] - exact) <= 1, f"frame {self.frame}, edge {edge}")


def main(picture, calls):
    with open(picture, "rb") as file:
        metafile = Metafile(file.read())
    metafile.check_header()
    pens, items = expected_drawing(calls)
    for index, (want, have) in enumerate(zip(items, metafile.items)):
        check(want == have, f"item {index}: drawn {want}, in the file {have}")
    check(len(items) == len(metafile.items),
          f"{len(items)} items drawn, {len(metafile.items)} in the file")
    check(pens == metafile.pens, f"pens selected {pens}, in the file {metafile.pens}")
    lines = sum(1 for item in items if item[0] == "line")
    print(f"{metafile.records} records, {lines} lines, {len(items) - lines} texts, "
          f"{len(pens)} changes of the pen")


if __name__ == "__main__":
    try:
        main(*sys.argv[1:])
    except (Wrong, struct.error) as error:
        sys.exit(f"{sys.argv[1]}: {error}")
