"""The generator refuses what it can't read, writes the index forms by rule, and a missing body ends the build."""
import shutil
import sys

from settings import BUILD, CC, CXX, GENERATED, SOURCE, Scratch, run

HEADER = '#include "nox/types.h"\nNOX_BEGIN_DECLS\n{}\nNOX_END_DECLS\n'


class Generator(Scratch):
    def generate(self, declarations):
        """Runs the generator on the project's headers and one more."""
        shutil.copytree(SOURCE / "include", self.dir / "include", dirs_exist_ok=True)
        self.write("include/nox/extra.h", HEADER.format(declarations))
        return run(sys.executable, "-B", SOURCE / "tools/generate.py", "--headers", self.dir / "include",
                   "--internal", SOURCE / "core/internal.h", "--out", self.dir / "out")

    def test_refusals(self):
        for declaration, message in [
                ("NOX_API(NoxStatus) noxsZero_64f(Nox64f pDst[], int len);", "declared more than once: noxsZero_64f"),
                ("NOX_API(NoxStatus) noxsNew_64f(Nox64f pDst[4], int len);",
                 "can't read the parameter 'Nox64f pDst[4]'"),
                ("NOX_API(NoxStatus) noxsNew_64f(Nox64f, int len);", "can't read the parameter 'Nox64f'"),
                ("NOX_API(NoxStatus) noxsNew_64f(int (*f)(int));", "extra.h: can't read the declaration"),
                ("NOX_API(NoxStatus) noxsNew_64f(int len)", "extra.h: can't read the declaration")]:
            with self.subTest(declaration=declaration):
                done = self.generate(declaration)
                self.assertNotEqual(done.returncode, 0)
                self.assertIn(message, done.stderr)

    def test_index_forms(self):
        done = self.generate("NOX_API(NoxStatus) noxsNew_64f(const Nox64f pSrc[], Nox32s val,\n"
                             "    NOX_NULLABLE Nox32s pDstIdx[], int len, Nox64f* pSum);")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("noxsNew_64f_Idx(const Nox64f pSrc[], int srcIdx, Nox32s val, Nox32s pDstIdx[], int dstIdxIdx, "
                      "int len, Nox64f* pSum);", (self.dir / "out/include/nox/index.h").read_text())
        self.assertIn("plain_noxsNew_64f(nox::at(pSrc, srcIdx), val, nox::at_or_null(pDstIdx, dstIdxIdx), len, pSum);",
                      (self.dir / "out/index_forms.cpp").read_text())

    def test_missing_body(self):
        done = self.generate("NOX_API(NoxStatus) noxsNew_64f(Nox64f pDst[], int len);")
        self.assertEqual(done.returncode, 0, done.stderr)
        objects = [line.split(maxsplit=1)[1] for line in (BUILD / "object_list.txt").read_text().splitlines() if line]
        objects = [o for o in objects if "dispatch.S" not in o]
        stubs = self.dir / "dispatch.o"
        self.must(*CC, "-DNOX_TEXT_RELOCATIONS", "-c", self.dir / "out/dispatch.S", "-o", stubs)
        done = run(*CXX, "-shared", "-Wl,--no-undefined", "-Wl,-z,notext", stubs, *objects, "-o", self.dir / "lib.so")
        self.assertNotEqual(done.returncode, 0)
        for tag in ("w7", "s8", "p8", "g9", "h9"):
            self.assertIn(f"{tag}_noxsNew_64f", done.stderr)
        self.assertNotIn("noxsZero_64f", done.stderr)

    def test_generated_files_are_current(self):
        """What the build works with is what the headers give now."""
        self.must(sys.executable, "-B", SOURCE / "tools/generate.py", "--headers", SOURCE / "include",
                  "--internal", SOURCE / "core/internal.h", "--out", self.dir / "out")
        for name in ("dispatch.S", "exports.map", "include/nox/index.h"):
            self.assertEqual((self.dir / "out" / name).read_text(), (GENERATED / name).read_text(), name)
