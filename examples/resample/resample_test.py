"""Tests the resample example as a user runs it: resample_test.py PROGRAM RECORDING.

Blocks of any length must give what one call gives. The result is compared with the recording itself where both have a
sample at the same time, and between these with a sum of sincs computed here.
"""

import math
import os
import re
import struct
import subprocess
import sys
import tempfile
import unittest
import wave

PROGRAM, RECORDING = (os.path.abspath(path) for path in sys.argv[1:3])
UP, DOWN = 25, 9


def samples(path):
    with wave.open(path) as file:
        frames = file.readframes(file.getnframes())
        return file.getframerate(), struct.unpack("<%dh" % (len(frames) // 2), frames)


def interpolated(signal, time):
    """The signal at a time in samples, by sincs under a window of 60 samples."""
    middle, total = int(time), 0
    for i in range(max(0, middle - 60), min(len(signal), middle + 61)):
        x = math.pi * (time - i)
        total += signal[i] * (1 if x == 0 else math.sin(x) / x) * (0.5 + 0.5 * math.cos(x / 61))
    return total


class Resample(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.file = os.path.join(folder.name, "out.wav")

    def run_program(self, *arguments):
        return subprocess.run([PROGRAM, *arguments], capture_output=True, text=True)

    def test_blocks_leave_no_trace(self):
        for block in (1, 2, 7, 100, 4096, 1000000):
            result = self.run_program("--block", str(block))
            self.assertEqual((result.returncode, result.stderr), (0, ""))
            deviation = float(re.search(r"largest deviation +(\S+)", result.stdout)[1])
            self.assertEqual(deviation, 0, block)

    def test_the_signal_is_the_same(self):
        self.assertEqual(self.run_program("--out", self.file, RECORDING).returncode, 0)
        old_rate, before = samples(RECORDING)
        new_rate, after = samples(self.file)
        self.assertEqual((old_rate, new_rate, len(after)), (360, 1000, len(before) * UP // DOWN))
        # Both grids meet every 9 samples. Steep beats lose a little above the cutoff.
        off = [abs(after[25 * k] - before[9 * k]) for k in range(100, len(before) // 9 - 100)]
        self.assertLess(sum(off) / len(off), 0.5)
        between = range(1013, len(after) - 1000, 1013)
        off = [abs(after[m] - interpolated(before, m * DOWN / UP)) for m in between]
        self.assertLess(sum(off) / len(off), 0.5)

    def test_what_is_refused(self):
        for arguments in (("--block", "0"), ("--block", "x"), ("--block",), ("--fast",), ("missing.wav",),
                          ("--out", "missing/folder.wav")):
            result = self.run_program(*arguments)
            self.assertEqual(result.returncode, 2, arguments)
            self.assertRegex(result.stderr, r"\Aresample: [^\n]+\n\Z")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
