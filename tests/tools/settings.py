"""What the tests of the tools share: where things are, told by the environment, and a scratch directory per test."""
import os
import shlex
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SOURCE = Path(os.environ["NOX_SOURCE"])
BUILD = Path(os.environ["NOX_BUILD"])
GENERATED = BUILD / "generated"
CC = shlex.split(os.environ["NOX_CC"])
CXX = shlex.split(os.environ["NOX_CXX"])
sys.path.insert(0, str(SOURCE / "tools"))


def run(*command, **options):
    return subprocess.run([str(c) for c in command], capture_output=True, text=True, **options)


class Scratch(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.dir = Path(directory.name)

    def must(self, *command, **options):
        """Runs a command that has to succeed."""
        done = run(*command, **options)
        self.assertEqual(done.returncode, 0, f"{' '.join(map(str, command))}\n{done.stdout}{done.stderr}")
        return done.stdout

    def write(self, name, text):
        path = self.dir / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)
        return path
