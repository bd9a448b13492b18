"""Tests the edges example as a user runs it: edges_test.py PROGRAM.

Medians and gradients are computed here anew, pixel by pixel. In the program's own image the outline of the rectangle must
be what is found.
"""

import math
import os
import random
import re
import subprocess
import sys
import tempfile
import unittest

PROGRAM = os.path.abspath(sys.argv[1])


def write_pgm(path, rows, header="P5\n# grey\n%d %d 255\n"):
    with open(path, "wb") as file:
        file.write((header % (len(rows[0]), len(rows))).encode() + b"".join(map(bytes, rows)))


def read_pgm(path):
    with open(path, "rb") as file:
        magic, size, greatest, pixels = file.read().split(b"\n", 3)
    width, height = map(int, size.split())
    assert (magic, greatest, len(pixels)) == (b"P5", b"255", width * height)
    return [list(pixels[y * width:(y + 1) * width]) for y in range(height)]


def medians(rows, size):
    reach = (size - 1) // 2
    padded = [row[:1] * reach + row + row[-1:] * reach for row in rows]
    return [[sorted(row[x:x + 2 * reach + 1])[reach] for x in range(len(row) - 2 * reach)] for row in padded]


def gradients(rows):
    height, width = len(rows), len(rows[0])

    def at(x, y):
        return rows[min(max(y, 0), height - 1)][min(max(x, 0), width - 1)]

    def length(x, y):
        across = sum(w * (at(x + 1, y + j) - at(x - 1, y + j)) for j, w in ((-1, 1), (0, 2), (1, 1)))
        down = sum(w * (at(x + j, y + 1) - at(x + j, y - 1)) for j, w in ((-1, 1), (0, 2), (1, 1)))
        return math.hypot(across, down)

    return [[length(x, y) for x in range(width)] for y in range(height)]


class Edges(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.source, self.result = (os.path.join(folder.name, name) for name in ("in.pgm", "out.pgm"))

    def run_program(self, *arguments):
        return subprocess.run([PROGRAM, *arguments], capture_output=True, text=True)

    def edges(self, *arguments):
        result = self.run_program("--out", self.result, *arguments)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        return float(re.search(r"greatest gradient +(\S+)", result.stdout)[1]), read_pgm(self.result)

    def test_gradients_of_medians(self):
        values = random.Random(7)
        for width, height, mask in ((37, 23, 1), (1, 1, 3), (9, 1, 5), (1, 8, 7), (64, 2, 4), (50, 20, 31)):
            rows = [[values.randrange(256) for _ in range(width)] for _ in range(height)]
            write_pgm(self.source, rows)
            greatest, found = self.edges("--median", str(mask), self.source)
            wanted = gradients(medians(rows, mask))
            highest = max(map(max, wanted))
            self.assertAlmostEqual(greatest, highest, delta=1e-5)
            for y in range(height):
                for x in range(width):
                    scaled = wanted[y][x] * 255 / highest if highest else 0
                    self.assertLess(abs(found[y][x] - scaled), 0.501, (width, height, mask, x, y))

    def test_the_outline_of_the_rectangle(self):
        _, found = self.edges("--save", self.source, "--median", "5")
        _, noisy = self.edges()
        image = read_pgm(self.source)
        inside = [(x, y) for y, row in enumerate(image) for x, value in enumerate(row) if value == 200]
        left, right = min(x for x, _ in inside), max(x for x, _ in inside)
        top, bottom = min(y for _, y in inside), max(y for _, y in inside)
        self.assertGreater(sum(row.count(0) for row in image), 100)

        def strong(edges):
            return {(x, y) for y, row in enumerate(edges) for x, value in enumerate(row) if value >= 100}

        # Two pixels on either side of an edge see it; the noise's own edges go with the median.
        outline = {(x, y) for x in range(left - 1, right + 2) for y in range(top - 1, bottom + 2)
                   if x - left in (-1, 0) or x - right in (0, 1) or y - top in (-1, 0) or y - bottom in (0, 1)}
        self.assertGreater(len(strong(found) & outline), 0.95 * len(outline))
        self.assertLess(len(strong(found) - outline), 0.05 * len(outline))
        self.assertGreater(len(strong(noisy) - outline), 0.15 * len(outline))

    def test_what_is_refused(self):
        broken = {"P6\n%d %d\n255\n": "no binary PGM", "P5\n%d %d\n65535\n": "8 bits", "P5\n%d x%d\n255\n": "header",
                  "P5\n4%d %d\n255\n": "ends", "P5\n30%d 30%d\n255\n": "too large"}
        for header, reason in broken.items():
            write_pgm(self.source, [[1] * 100] * 30, header)
            result = self.run_program(self.source)
            self.assertEqual(result.returncode, 2, header)
            self.assertRegex(result.stderr, r"\Aedges: [^\n]*%s[^\n]*\n\Z" % reason)
        for arguments in (("--median", "0"), ("--median",), ("--fast",), ("missing.pgm",), ("--out", "missing/x.pgm")):
            result = self.run_program(*arguments)
            self.assertEqual(result.returncode, 2, arguments)
            self.assertRegex(result.stderr, r"\Aedges: [^\n]+\n\Z")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
