"""The check of the binary finds what it is there for: each case here is one small fault and the words it must give."""
import re
import sys

from settings import CC, CXX, SOURCE, Scratch, run

import check_objects
from instruction_sets import instruction_set

OBJECT_FLAGS = ["-O2", "-std=c++17", "-march=pentium4", "-mfpmath=sse", "-fPIC", "-fno-exceptions"]
LOAD = "#include <immintrin.h>\nextern \"C\" void "
SPILL = LOAD + "w7_g();\nextern \"C\" __m128d w7_f(__m128d v) { w7_g(); return v; }"

# Build, further flags, source, what the faults must say (none: no fault).
OBJECTS = [
    ("w7", "-mavx", LOAD + "w7_f(double* p) { _mm_storeu_pd(p, _mm_loadu_pd(p + 2)); }", "AVX instruction 'vmov"),
    ("p8", "-msse4.2 -mpopcnt", 'extern "C" int p8_f(unsigned x) { return __builtin_popcount(x); }',
     "POPCNT instruction"),
    ("g9", "-mavx2", LOAD + "g9_f(__m256i* p) { *p = _mm256_add_epi32(*p, *p); }", "AVX2 instruction 'vpaddd"),
    ("g9", "-mavx -mfma", LOAD + "g9_f(__m128d* p) { *p = _mm_fmadd_pd(*p, *p, *p); }", "FMA instruction"),
    ("h9", "-mavx2 -mlzcnt", 'extern "C" int h9_f(unsigned x) { return __builtin_clz(x | 1); }', "LZCNT instruction"),
    ("h9", "-mavx512f", LOAD + "h9_f(double* p) { _mm512_storeu_pd(p, _mm512_loadu_pd(p + 8)); }",
     "AVX-512 instruction"),
    ("h9", "-mavx2 -mf16c", LOAD + "h9_f(__m128* p) { *p = _mm_cvtph_ps(_mm_setzero_si128()); }", "F16C instruction"),
    ("h9", "-mavx2 -mf16c", LOAD + "h9_f16c_f(__m128* p) { *p = _mm_cvtph_ps(_mm_setzero_si128()); }", None),
    ("once", "-msse4.1", LOAD + "f(__m128d* p) { *p = _mm_floor_pd(*p); }", "SSE4.1 instruction 'roundpd"),
    ("h9", "", LOAD + "h9_f(__m128d* p) { *p = _mm_add_pd(*p, *p); }", "lacks the VEX form"),
    ("g9", "-mavx -mno-vzeroupper", LOAD + "g9_f(__m256d* p) { *p = _mm256_add_pd(*p, *p); }", "leaves by 'ret'"),
    ("g9", "-mavx -mno-vzeroupper", LOAD + "g(); " + "extern \"C\" void g9_f(__m256d* p, int n) {"
     "if (n) { *p = _mm256_add_pd(*p, *p); _mm256_zeroupper(); } else { *p = _mm256_sub_pd(*p, *p); } }", "leaves by"),
    ("g9", "-mavx", LOAD + "g9_f(__m256d* p, int n) { for (; n > 0; --n) *p = _mm256_add_pd(*p, *p); }", None),
    ("w7", "-mincoming-stack-boundary=5", SPILL, "expects an aligned stack"),
    ("w7", "-mincoming-stack-boundary=2", SPILL, None),
    ("h9", "-mavx2", "__attribute__((noinline)) inline int shared(int x) { return x + 1; }\n"
     'extern "C" int h9_f(int x) { return shared(x); }', "weak symbol 'shared(int)'"),
    ("h9", "-mavx2", 'extern "C" int helper(int x) { return x + 1; }', "global symbol 'helper'"),
    ("h9", "-mavx2", "namespace nox { inline namespace h9 { int shared(int x) { return x + 1; } } }", None),
    ("h9", "-mavx2", 'extern "C" int w7_f(int);\nextern "C" int h9_f(int x) { return w7_f(x) + 1; }', "another build"),
    ("h9", "-mavx2", 'extern "C" int noxsAdd_64f(int);\nextern "C" int h9_f(int x) { return noxsAdd_64f(x) + 1; }',
     "calls the export"),
]

# A library of two primitives as the generator writes them.
LIBRARY = """
  .data
  .p2align 6
cpuSelector: .long -1
  .text
select: ret
body: ret
  .macro primitive name
  .section nox_stubs, "ax", @progbits
  .p2align 4
  .globl \\name
  .type \\name, @function
\\name:
stub_\\name:
  movl cpuSelector, %eax
  jmp *row_\\name(, %eax, 4)
  .size \\name, . - \\name
  .text
initial_\\name:
  call select
  jmp stub_\\name
  .data
  .long initial_\\name
row_\\name: .long body, body, body, body, body
  .endm
  primitive noxsOne_64f
  primitive noxsTwo_64f
  .section .note.GNU-stack, "", @progbits
"""
# What is replaced by what, and what the fault must say.
BROKEN_LIBRARIES = [
    ("cpuSelector: .long -1", "cpuSelector: .long 0", "the selector starts as 0x0"),
    ("  .data\n  .p2align 6", '  .section .data.rel.ro, "aw"', "not an aligned word of writable data"),
    ("  movl cpuSelector, %eax\n", "  movl cpuSelector, %eax\n  nop\n", "not one load and one indirect jump"),
    ("  movl cpuSelector, %eax\n", "  cmpl $0, cpuSelector\n  movl cpuSelector, %eax\n", "neither stub nor padding"),
    ("%eax, 4)\n", "%eax, 4)\n  ret\n", "bytes long"),
    ("body, body, body, body, body\n", "body, body, body, body\n", "is followed by one at"),
    ("body, body, body, body, body\n", "body, body, 0, body, body\n", "not made of relocated words"),
    ("body, body, body, body, body\n", "body, body, cpuSelector, body, body\n", "an entry outside the code"),
    ("  .long initial_\\name\n", "  .long initial_noxsOne_64f\n", "2 rows share 1 initial entries"),
    ("  jmp stub_\\name\n", "  jmp stub_noxsTwo_64f\n", "not the selection and a jump to"),
    ("\\name, @function", "\\name, @gnu_indirect_function", "not as a plain function"),
    ("\\name, @function", "\\name, @object", "not as a plain function"),
    ("  .globl \\name\n", "  .globl \\name, extra\n", "'extra' is exported, but not declared"),
    ("  .globl \\name\n", "", "'noxsOne_64f' is not exported"),
    ('.note.GNU-stack, "",', '.note.GNU-stack, "x",', "executable stack"),
]
MAP = "NOX_1 {\n  global:\n    noxsOne_64f;\n    noxsTwo_64f;\n    extra;\n  local: *;\n};\n"


class Objects(Scratch):
    def compile(self, tag, flags, source, name="object"):
        path = self.write(f"{name}.cpp", source)
        self.must(*CXX, *OBJECT_FLAGS, *flags.split(), "-c", path, "-o", path.with_suffix(".o"))
        return tag, str(path.with_suffix(".o"))

    def test_faults_of_one_object(self):
        for tag, flags, source, expected in OBJECTS:
            with self.subTest(source=source, flags=flags):
                faults = list(check_objects.object_faults([self.compile(tag, flags, source)]))
                if expected:
                    self.assertIn(expected, "\n".join(faults))
                else:
                    self.assertEqual(faults, [])

    def test_symbol_of_two_builds(self):
        source = "namespace nox { int table = 3; }"
        objects = [self.compile("g9", "-mavx", source, "a"), self.compile("h9", "-mavx2", source, "b")]
        self.assertIn("'nox::table' is defined in the objects of g9, h9", list(check_objects.object_faults(objects)))

    def test_what_the_operands_decide(self):
        for mnemonic, operands, expected in [
                ("vpaddd", "%xmm0,%xmm1,%xmm2", "AVX"), ("vpaddd", "%ymm0,%ymm1,%ymm2", "AVX2"),
                ("vpermilpd", "$0x5,%ymm0,%ymm0", "AVX"), ("vbroadcastsd", "(%eax),%ymm0", "AVX"),
                ("vbroadcastsd", "%xmm0,%ymm0", "AVX2"), ("pextrw", "$0x0,%xmm0,%eax", None),
                ("pextrw", "$0x0,%xmm0,(%eax)", "SSE4.1"), ("tzcnt", "%eax,%ecx", None), ("paddd", "%mm0,%mm1", "MMX"),
                ("verr", "%ax", None), ("vaddpd", "(%eax),%zmm0,%zmm1", "AVX-512"), ("vpternlogd", "", "AVX-512")]:
            with self.subTest(mnemonic=mnemonic, operands=operands):
                self.assertEqual(instruction_set(mnemonic, operands), expected)


class SharedObject(Scratch):
    def check(self, assembly, *flags, options=()):
        source, script = self.write("lib.S", assembly), self.write("exports.map", MAP)
        library = self.dir / "lib.so"
        self.must(*CC, "-shared", "-nostdlib", "-Wl,-z,notext", "-Wl,-z,relro", f"-Wl,--version-script={script}",
                  *(flags or ["-Wl,-soname,libnox.so.1"]), source, "-o", library)
        declared = self.write("declared.map", MAP.replace("    extra;\n", ""))
        return run(sys.executable, "-B", SOURCE / "tools/check_binary.py", "--library", library, "--exports", declared,
                   "--objects", self.write("objects.txt", ""), *options)

    def test_sound_library(self):
        done = self.check(LIBRARY)
        self.assertEqual((done.returncode, done.stdout), (0, "2 exports and 0 objects: no fault\n"), done.stderr)

    def test_broken_libraries(self):
        for old, new, expected in BROKEN_LIBRARIES:
            with self.subTest(new=new):
                self.assertIn(old, LIBRARY)
                extra = "\n.text\nextra: ret\n.type extra, @function\n" if "extra" in new else ""
                done = self.check(LIBRARY.replace(old, new) + extra)
                self.assertEqual(done.returncode, 1, done.stderr)
                self.assertIn(expected, done.stdout)

    def test_other_name(self):
        done = self.check(LIBRARY, "-Wl,-soname,other.so")
        self.assertTrue(re.search("soname is .*other.so", done.stdout), done.stdout)

    def test_relocations_in_code(self):
        done = self.check(LIBRARY, options=["--no-text-relocations"])
        self.assertIn("kind: has relocations in its code", done.stdout)
        self.assertIn("stubs and rows are not checked", done.stdout)
