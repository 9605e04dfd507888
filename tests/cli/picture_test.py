"""tvx-cli picture: each format against the calls that tvx-cli draw prints for the same view."""
import contextlib
import io
import os
import pathlib
import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree
import zlib

TOOL = str(pathlib.Path(sys.argv.pop(1)).resolve())
EXAMPLES = pathlib.Path(sys.argv.pop(1)).resolve()
sys.path.insert(0, sys.argv.pop(1))
import read_metafile  # noqa: E402

SVG = "{http://www.w3.org/2000/svg}"


def svg_drawing(root):
    """Lines with their pen and texts, as read_metafile.expected_drawing lists them."""
    items = []
    for element in root.find(SVG + "g"):
        if element.tag == SVG + "text":
            # Its point is the base line of the letters, 13 pixels below their top.
            items.append(("text", (int(element.get("x")), int(element.get("y")) - 13),
                          element.text))
            continue
        colour = element.get("stroke").removeprefix("#")
        pen = (*bytes.fromhex(colour), element.get("stroke-dasharray") is not None)
        points = [tuple(map(int, point.split(","))) for point in element.get("points").split()]
        items += [("line", pen, start, end) for start, end in zip(points, points[1:])]
    return items


class Pictures(unittest.TestCase):
    VIEW = ("--afa", "--size", "640x400", "--view", "5", "--hide-rapids")
    # Arms of the axes beyond 16 bits, moves beyond the limit, arcs of more chords than a run holds.
    CLOSE_UPS = [("--view", "2", "--scale", "500", "--pan", pan) for pan in ("80,0", "-80,0")]
    CONVERSATIONAL = ("--set", "InputFileType=2")

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name)

    def run_tool(self, *arguments):
        environment = {**os.environ, "TVX_HOME": str(self.folder / "home")}
        run = subprocess.run([TOOL, *map(str, arguments)], env=environment, capture_output=True,
                             timeout=60)
        self.assertEqual((run.returncode, run.stderr), (0, b""), arguments)
        return run.stdout

    def for_each_example(self, ending, check, view=VIEW):
        """Calls check with the picture file and the file of the calls of each example."""
        for program in sorted(EXAMPLES.glob("*nc")):
            picture, calls = self.folder / f"out{ending}", self.folder / "calls.txt"
            with self.subTest(program.name):
                file_type = self.CONVERSATIONAL if program.suffix == ".hnc" else ()
                options = (*view, *file_type, program)
                self.run_tool("picture", "-o", picture, *options)
                calls.write_bytes(self.run_tool("draw", "--as-picture", *options))
                check(picture, calls)

    def test_metafile(self):
        def check(picture, calls):
            with contextlib.redirect_stdout(io.StringIO()):
                read_metafile.main(picture, calls)

        self.for_each_example(".emf", check)
        for view in self.CLOSE_UPS:
            self.for_each_example(".emf", check, view)

    def test_svg(self):
        def check(picture, calls):
            root = xml.etree.ElementTree.parse(picture).getroot()
            self.assertEqual(root.get("viewBox"), "-320.5 -200.5 640 400")
            self.assertEqual(svg_drawing(root), read_metafile.expected_drawing(calls)[1])

        self.for_each_example(".svg", check)

    def test_png(self):
        def check(picture, _):
            data = picture.read_bytes()
            self.assertEqual(data[:8], b"\x89PNG\r\n\x1a\n")
            self.assertEqual(struct.unpack_from(">II", data, 16), (640, 400))
            rows, offset = b"", 8
            while offset < len(data):
                size, kind = struct.unpack_from(">I4s", data, offset)
                if kind == b"IDAT":
                    rows += data[offset + 8:offset + 8 + size]
                offset += 12 + size
            self.assertEqual(len(zlib.decompress(rows)), 400 * (1 + 3 * 640))

        self.for_each_example(".png", check)


unittest.main()
