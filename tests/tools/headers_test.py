"""Every public header compiles by itself, without a warning, as C99 and as C++17; every comment answers what is asked."""
import sys

from settings import CC, CXX, GENERATED, SOURCE, Scratch

WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Werror", "-fsyntax-only"]
INCLUDES = [f"-I{SOURCE / 'include'}", f"-I{GENERATED / 'include'}"]
HEADERS = sorted(p.relative_to(root).as_posix() for root in (SOURCE / "include", GENERATED / "include")
                 for p in root.rglob("*.h"))


class Headers(Scratch):
    def test_each_alone(self):
        self.assertIn("nox/index.h", HEADERS)
        for header in HEADERS:
            for compiler, standard, name in ((CC, "-std=c99", "one.c"), (CXX, "-std=c++17", "one.cpp")):
                with self.subTest(header=header, standard=standard):
                    # Twice, for the include guard.
                    source = self.write(name, f'#include "{header}"\n#include "{header}"\nint here(void);\n')
                    self.must(*compiler, standard, *WARNINGS, *INCLUDES, source)

    def test_all_at_once(self):
        """nox.h leaves nothing out."""
        text = (SOURCE / "include/nox/nox.h").read_text() + (SOURCE / "include/nox/vector.h").read_text()
        for header in HEADERS:
            if header != "nox/nox.h" and header.count("/") == 1:
                self.assertIn(f'#include "{header}"', text)

    def test_comments_answer(self):
        """The page of all functions can be made: in-place rule and exactness are told for each, and no name is missing."""
        out = self.dir / "functions.md"
        self.must(sys.executable, SOURCE / "tools/function_table.py", "--headers", SOURCE / "include", "--internal",
                  SOURCE / "core/internal.h", "--performance", SOURCE / "docs/performance.md", "--out", out)
        page = out.read_text()
        exports = (GENERATED / "exports.map").read_text().split()
        for name in (n.rstrip(";") for n in exports if n.endswith(";") and not n.startswith("}") and n != "*;"):
            base = name.removesuffix("_Idx")
            self.assertTrue(f"| {name}() |" in page or f"| {base}() | yes |" in page or name in NOT_PLAIN, name)


# Index forms whose primitive isn't exported by the rest of the name.
NOT_PLAIN = {"noxsCopy_1u_Idx"}
