"""tvx-cli picture: each format against the calls that tvx-cli draw prints for the same view."""
import contextlib
import io
import itertools
import os
import pathlib
import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

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
    SIZE = ("--size", "640x400")
    # Arms of the axes beyond 16 bits, moves beyond the limit, arcs of more chords than a run holds.
    CLOSE_UP = ("--view", "2", "--scale", "500", "--pan")
    VIEWS = [("--afa", "--view", "5", "--hide-rapids"), (*CLOSE_UP, "80,0"), (*CLOSE_UP, "-80,0")]

    def run_tool(self, *arguments):
        environment = {**os.environ, "TVX_HOME": str(self.folder / "home")}
        run = subprocess.run([TOOL, *map(str, arguments)], env=environment, capture_output=True,
                             timeout=60)
        self.assertEqual((run.returncode, run.stderr), (0, b""), arguments)
        return run.stdout

    def picture(self, ending, options):
        path = self.folder / f"out{ending}"
        self.run_tool("picture", "-o", path, *options)
        return path

    def check(self, options):
        calls = self.folder / "calls.txt"
        calls.write_bytes(self.run_tool("draw", "--as-picture", *options))
        with contextlib.redirect_stdout(io.StringIO()):
            read_metafile.main(self.picture(".emf", options), calls)
        root = xml.etree.ElementTree.parse(self.picture(".svg", options)).getroot()
        self.assertEqual(root.get("viewBox"), "-320.5 -200.5 640 400")
        self.assertEqual(svg_drawing(root), read_metafile.expected_drawing(calls)[1])
        head = self.picture(".png", options).read_bytes()[:24]
        self.assertEqual(head[:8], b"\x89PNG\r\n\x1a\n")
        self.assertEqual(struct.unpack_from(">II", head, 16), (640, 400))

    def test_pictures_of_the_examples_hold_the_calls(self):
        with tempfile.TemporaryDirectory() as folder:
            self.folder = pathlib.Path(folder)
            for view, program in itertools.product(self.VIEWS, sorted(EXAMPLES.glob("*nc"))):
                file_type = ("--set", "InputFileType=2") if program.suffix == ".hnc" else ()
                with self.subTest(program.name, view=view):
                    self.check((*self.SIZE, *view, *file_type, program))


unittest.main()
