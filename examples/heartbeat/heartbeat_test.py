"""Tests the heartbeat example as a user runs it: heartbeat_test.py PROGRAM RECORDING.

The beats are compared with those of another method, which uses no filter and no library: the height of the raw signal
above its running median. Blocks and builds must not change a beat, and inputs that can't be worked on must end in one
line on stderr and exit status 2.
"""

import bisect
import os
import re
import struct
import subprocess
import sys
import tempfile
import unittest
import wave
import xml.etree.ElementTree

PROGRAM, RECORDING = (os.path.abspath(path) for path in sys.argv[1:3])
RATE = 360
INDEPENDENT_COUNT = 486  # beats that another program found in this recording
# What Linux calls the features that each build requires.
BUILDS = {
    "w7": {"sse2"},
    "s8": {"ssse3"},
    "p8": {"sse4_2"},
    "g9": {"avx"},
    "h9": {"avx", "avx2", "fma", "bmi1", "bmi2"},
}


def processor_features():
    with open("/proc/cpuinfo") as info:
        return set(next(line for line in info if line.startswith("flags")).split())


def raw_peaks(samples):
    """Maxima at least 0.6 mV above the median of 0.7 s around them, the highest first, 0.25 s apart."""
    half = int(0.35 * RATE)
    ordered, height = sorted(samples[:half]), []
    for i, value in enumerate(samples):
        if i + half < len(samples):
            bisect.insort(ordered, samples[i + half])
        if i > half:
            del ordered[bisect.bisect_left(ordered, samples[i - half - 1])]
        height.append(value - ordered[len(ordered) // 2])
    peaks = []
    for i in sorted((i for i, h in enumerate(height) if h > 120), key=lambda i: -height[i]):
        place = bisect.bisect(peaks, i)
        if all(abs(i - near) > 0.25 * RATE for near in peaks[max(0, place - 1) : place + 1]):
            peaks.insert(place, i)
    return peaks


def unmatched(beats, others):
    """The beats that have none of the others within 0.12 s."""
    return [b for b in beats if min(abs(b - other) for other in others) > 0.12 * RATE]


class Heartbeat(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        with wave.open(RECORDING) as recording:
            cls.pcm = recording.readframes(recording.getnframes())

    def run_program(self, *arguments):
        return subprocess.run([PROGRAM, *arguments], cwd=self.folder.name, capture_output=True, text=True)

    def beats(self, *arguments):
        result = self.run_program("--beats", *arguments)
        self.assertEqual((result.returncode, result.stderr), (0, ""), arguments)
        return [int(line) for line in result.stdout.split()]

    def refuse(self, reason, *arguments):
        result = self.run_program(*arguments)
        self.assertEqual((result.returncode, result.stdout), (2, ""), arguments)
        self.assertRegex(result.stderr, r"\Aheartbeat: [^\n]*" + re.escape(reason) + r"[^\n]*\n\Z")

    def write(self, name, data):
        path = os.path.join(self.folder.name, name)
        with open(path, "wb") as file:
            file.write(data)
        return path

    def wav(self, name, pcm=None, channels=1, bits=16, rate=RATE, encoding=1, before=b"", claimed=None):
        pcm = self.pcm[:20000] if pcm is None else pcm
        frame = channels * bits // 8
        body = b"WAVEfmt " + struct.pack("<IHHIIHH", 16, encoding, channels, rate, rate * frame, frame, bits) + before
        body += b"data" + struct.pack("<I", len(pcm) if claimed is None else claimed) + pcm
        return self.write(name, b"RIFF" + struct.pack("<I", len(body)) + body)

    def test_beats_agree_with_those_of_another_method(self):
        beats = self.beats()
        peaks = raw_peaks(struct.unpack("<%dh" % (len(self.pcm) // 2), self.pcm))
        self.assertLess(abs(len(beats) - INDEPENDENT_COUNT), 0.01 * INDEPENDENT_COUNT)
        self.assertLess(len(unmatched(beats, peaks)), 0.01 * len(peaks))
        self.assertLess(len(unmatched(peaks, beats)), 0.03 * len(peaks))  # raw height takes weak beats and artefacts
        # The delay of the filters is made up for: most beats lie within two samples of the peak itself.
        offsets = sorted(min((abs(b - peak), b - peak) for peak in peaks)[1] for b in beats)
        self.assertEqual([abs(offsets[len(offsets) * k // 4]) <= 2 for k in (1, 2, 3)], [True] * 3, offsets)

    def test_blocks_and_builds_do_not_change_a_beat(self):
        expected = self.beats()
        for block in (1, 7, 4096, 108000, 2**31 - 1):
            self.assertEqual(self.beats("--block", str(block)), expected, block)
        features = processor_features()
        for tag, required in BUILDS.items():
            if not required <= features:
                self.refuse("this processor can't run the build " + tag, "--variant", tag)
                continue
            for block in (7, 1000, 108000):
                self.assertEqual(self.beats("--variant", tag, "--block", str(block)), expected, (tag, block))
            self.assertIn("(%s)" % tag, self.run_program("--variant", tag).stdout)

    def test_beats_stay_where_the_signal_is(self):
        """A recording that begins and ends elsewhere has the same beats in the part that both hold."""
        start, end = 120 * RATE, 180 * RATE
        part = self.beats(self.wav("part.wav", self.pcm[2 * start : 2 * end]))
        inner = [b + start for b in part if RATE < b < end - start - RATE]
        self.assertEqual(inner, [b for b in self.beats() if start + RATE < b < end - RATE])

    def test_signals_without_beats(self):
        for name, pcm in (("one.wav", b"\x07\x00"), ("flat.wav", b"\x00\x40" * 5000)):
            self.assertEqual(self.beats(self.wav(name, pcm)), [])
            xml.etree.ElementTree.parse(os.path.join(self.folder.name, "heartbeat.svg"))

    def test_picture(self):
        name = self.wav("<a&b>\"\xe9\x01.wav")
        for arguments, file in (((), "heartbeat.svg"), (("--svg", "other.svg", name), "other.svg")):
            self.beats(*arguments)
            path = os.path.join(self.folder.name, file)
            root = xml.etree.ElementTree.parse(path).getroot()
            self.assertEqual(root.tag, "{http://www.w3.org/2000/svg}svg")
            self.assertLess(os.path.getsize(path), 150000)
        self.refuse("can't be written", "--svg", "missing/folder.svg")

    def test_recordings_that_are_refused(self):
        good = self.wav("good.wav")
        with open(good, "rb") as file:
            data = file.read()
        self.assertTrue(self.beats(good))
        self.assertTrue(self.beats(self.wav("chunk.wav", before=b"LIST\x03\x00\x00\x00abc\x00")))
        for reason, path in (
            ("can't be read", "missing.wav"),
            ("can't be read", self.folder.name),
            ("is no WAV file", self.write("empty.wav", b"")),
            ("is no WAV file", self.write("text.wav", b"no recording, only words\n" * 9)),
            ("is truncated", self.write("short.wav", data[:-1])),
            ("is truncated", self.wav("claim.wav", claimed=0xFFFFFFFF)),
            ("is truncated inside a sample", self.wav("odd.wav", pcm=b"\x01\x02\x03")),
            ("holds no data chunk", self.write("head.wav", data[:36])),
            ("holds no data chunk", self.write("cut.wav", data[:40])),
            ("holds no samples", self.wav("none.wav", pcm=b"")),
            ("has no format before its data", self.write("noformat.wav", data[:12] + data[36:])),
            ("format chunk that is too short", self.write("format.wav", data[:16] + b"\x0e\0\0\0" + data[20:])),
            ("8 bits per sample", self.wav("8bit.wav", bits=8)),
            ("2 channels", self.wav("stereo.wav", channels=2)),
            ("no plain PCM", self.wav("float.wav", encoding=3)),
            ("Hz are wanted", self.wav("slow.wav", rate=50)),
            ("Hz are wanted", self.wav("fast.wav", rate=0xFFFFFFF)),
        ):
            self.refuse(reason, path)

    def test_options_that_are_refused(self):
        for block in ("0", "-5", "", "ten", "10x", "1.5", "99999999999"):
            self.refuse("is no number from 1 to", "--block", block)
        for option in ("--block", "--variant", "--svg"):
            self.refuse("a value is missing", option)
        self.refuse("is none of w7", "--variant", "x1")
        self.refuse("unknown option '--fast'", "--fast")
        self.refuse("more than one recording", RECORDING, RECORDING)
        self.assertIn("--variant", self.run_program("--help").stdout)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
