"""Every program of the guide and of the README compiles as it stands, runs, and prints what stands below it; the
documentation renders without a warning."""
import os
import re
import shutil
import sys
import unittest

from settings import BUILD, CC, GENERATED, SOURCE, Scratch

PAGES = [SOURCE / "README.md"] + sorted((SOURCE / "docs/guide").glob("*.md"))
BLOCK = re.compile(r"^```(\w+)\n(.*?)^```$", re.M | re.S)


class Guide(Scratch):
    def test_programs(self):
        count = 0
        for page in PAGES:
            blocks = BLOCK.findall(page.read_text())
            for (language, program), following in zip(blocks, blocks[1:] + [("", "")]):
                if language != "c":
                    continue
                count += 1
                with self.subTest(page=page.name, program=program.splitlines()[0:4]):
                    source, target = self.write("program.c", program), self.dir / "program"
                    self.must(*CC, "-std=c99", "-D_POSIX_C_SOURCE=200809L", "-Wall", "-Wextra", "-Werror", source,
                              f"-I{SOURCE / 'include'}", f"-I{GENERATED / 'include'}", f"-L{BUILD}", "-lnox", "-lpthread",
                              "-o", target)
                    printed = self.must(target, env=dict(os.environ, LD_LIBRARY_PATH=str(BUILD)))
                    if following[0] == "text":
                        self.assertEqual(printed, following[1])
                    else:
                        self.assertEqual(page.name, "README.md", "a program of the guide without its output")
        self.assertGreaterEqual(count, 9)

    @unittest.skipUnless(shutil.which("doxygen"), "no doxygen here")
    def test_site(self):
        functions = self.dir / "functions.md"
        self.must(sys.executable, "-B", SOURCE / "tools/function_table.py", "--headers", SOURCE / "include", "--internal",
                  SOURCE / "core/internal.h", "--performance", SOURCE / "docs/performance.md", "--out", functions)
        settings = (SOURCE / "docs/Doxyfile").read_text()
        settings = settings.replace("build/release/generated", str(GENERATED)).replace("build/docs/functions.md", str(functions))
        configuration = self.write("Doxyfile", f"{settings}\nOUTPUT_DIRECTORY = {self.dir}\n")
        self.must("doxygen", configuration, cwd=SOURCE)
        self.assertTrue((self.dir / "html/index.html").exists())

    def test_links(self):
        """No link of the guide leads nowhere."""
        for page in PAGES:
            for link in re.findall(r"\]\(([^)#:]+)\)", page.read_text()):
                self.assertTrue((page.parent / link).exists(), f"{page.name}: {link}")
