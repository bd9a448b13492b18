#!/usr/bin/env python3
"""Writes from the headers all that follows from a declaration.

    generate.py --headers INCLUDE_DIR --internal FILE --out DIR

A primitive is declared once, as `NOX_API(result) name(parameters);` in a public header, or as
`NOX_INTERNAL(...)` in the internal header if it has a row in the dispatch table but no export of its own. From
those this script makes, in DIR: `dispatch.S` (stubs, initial entries, rows), `index_forms.cpp` with the header
`include/nox/index.h`, `bodies.hpp` and `plain.hpp` (typed declarations of the bodies and of the stubs under names
that stay inside the library), `exports.map` for the linker, `status_rows.inc`, and `declarations.inc`, the
declarations as data for the tests; and for the array layer, whose builds have no rows, `array_bodies.hpp` and the
entries that choose between them, `array_entries.cpp`. Files are rewritten only when they change.
"""
import argparse
import re
from pathlib import Path

import declarations as decl
from function_table import exactness, with_referred

HEAD = "Made by tools/generate.py from the headers; changes here are lost."
VARIANTS = ("w7", "s8", "p8", "g9", "h9")
# Texts of the status table that have no name in front of them, so no place in the enum.
UNNAMED_STATUSES = {
    -9702: "No shared libraries were found in the Waterfall procedure",
    -9701: "No DLLs were found in the Waterfall procedure",
    -9700: "Error at loading of %s library",
    53: "The function is inefficient due to the combination of input parameters",
}


def dispatch(primitives):
    """Assembly of the stubs, the initial entries and the rows; NOX_TEXT_RELOCATIONS chooses the form of the stub."""
    out = [f"/* {HEAD} */",
           "#ifdef NOX_TEXT_RELOCATIONS",
           "/* Absolute addresses, which the loader patches once: one load and one jump. */",
           ".macro dispatch row",
           "  movl cpuSelector, %eax",
           "  jmp *\\row(, %eax, 4)",
           ".endm",
           "#else",
           "/* For hosts that forbid relocations in code: addresses relative to the stub. */",
           ".macro dispatch row",
           "  call 1f",
           "1: popl %eax",
           "  addl $_GLOBAL_OFFSET_TABLE_ + (. - 1b), %eax",
           "  movl cpuSelector@GOTOFF(%eax), %ecx",
           "  leal \\row@GOTOFF(%eax, %ecx, 4), %ecx",
           "  jmp *(%ecx)",
           ".endm",
           "#endif",
           ".hidden cpuSelector, nox_initial_select", ""]
    for p in primitives:
        own = "" if p.internal else f".globl {p.name}\n.type {p.name}, @function\n{p.name}:\n"
        size = "" if p.internal else f".size {p.name}, . - {p.name}\n"
        out.append(f'.section nox_stubs, "ax", @progbits\n.p2align 4\n'
                   f".globl plain_{p.name}\n.hidden plain_{p.name}\n.type plain_{p.name}, @function\n"
                   f"{own}plain_{p.name}:\n  .cfi_startproc\n  dispatch row_{p.name}\n  .cfi_endproc\n"
                   f"{size}.size plain_{p.name}, . - plain_{p.name}\n"
                   f".text\n.p2align 4\n.type initial_{p.name}, @function\n"
                   f"initial_{p.name}:\n  .cfi_startproc\n  call nox_initial_select\n  jmp plain_{p.name}\n"
                   f"  .cfi_endproc\n.size initial_{p.name}, . - initial_{p.name}\n"
                   f".data\n.p2align 2\n  .long initial_{p.name}\nrow_{p.name}:\n  .long "
                   + ", ".join(f"{v}_{p.name}" for v in VARIANTS) + "\n"
                   + f".hidden " + ", ".join(f"{v}_{p.name}" for v in VARIANTS) + "\n")
    out.append('.section .note.GNU-stack, "", @progbits')
    return "\n".join(out) + "\n"


def bodies(primitives, headers):
    out = [f"// {HEAD}", "// Declares the body of every primitive in this build, so that a body with other parameters doesn't compile.",
           "#pragma once"] + [f'#include "{h}"' for h in headers] + ["", 'extern "C" {']
    out += [f"NOX_HIDDEN decltype({p.name}) NOX_BODY({p.name});" for p in primitives]
    return "\n".join(out + ["}"]) + "\n"


def plain(functions, headers):
    out = [f"// {HEAD}", "// The exports under names that bind inside the library, for the code that calls an export.",
           "#pragma once"] + [f'#include "{h}"' for h in headers] + ["", 'extern "C" {']
    out += [f"NOX_HIDDEN decltype({p.name}) plain_{p.name};" for p in functions]
    return "\n".join(out + ["}"]) + "\n"


def index_comment(form, text):
    """The comment of a primitive without export, as one of its index form."""
    text = re.sub(r"\b(nox[si]\w+)\(\)", lambda m: m[0] if m[1].endswith("_Idx") else f"{m[1]}_Idx()", text)
    for p in form.primitive.parameters:
        if p.array:
            index = f"@param {decl.index_name(p.name)}  index of the first element of {p.name}"
            text = re.sub(rf"^(@param {p.name}\b.*?)(?=\n@|\Z)", lambda m: f"{m[1]}\n{index}", text, flags=re.M | re.S)
    return "/**\n" + "".join(f" * {line}".rstrip() + "\n" for line in text.splitlines()) + " */"


def index_header(forms, documents):
    out = [f"/* {HEAD}\n *\n * Index forms of the primitives: every array is a base pointer and an element index, which may be negative.\n"
           " * They form the addresses and call the primitive, test nothing themselves and return its result. A null base\n"
           " * with an index other than 0 is not seen as null, but for the arguments that the primitive allows to be null. */",
           "#ifndef NOX_INDEX_H", "#define NOX_INDEX_H", "", '#include "nox/types.h"', "", "NOX_BEGIN_DECLS", ""]
    for f in forms:
        out.append(f"/** @brief Index form of {f.primitive.name}(). */" if not f.primitive.internal
                   else index_comment(f, documents[f.primitive.name]))
        out.append(f"NOX_API({f.result}) {f.name}({decl.parameter_list(f.parameters)});")
    return "\n".join(out + ["", "NOX_END_DECLS", "", "#endif"]) + "\n"


def index_forms(forms):
    out = [f"// {HEAD}", "// Bodies of the forwarding index forms.", '#include "adapters/adapter.hpp"', '#include "nox/index.h"', ""]
    for f in forms:
        args = []
        for p in f.primitive.parameters:
            if not p.array:
                args.append(p.name)
            else:
                at = "at_or_null" if p.nullable else "at"
                args.append(f"nox::{at}({p.name}, {decl.index_name(p.name)})")
        callee = f"plain_{f.primitive.name}" if f.primitive.dispatched else f.primitive.name
        out.append(f"{f.result} {f.name}({decl.parameter_list(f.parameters)}) {{\n"
                   f"  return {callee}({', '.join(args)});\n}}")
    return "\n".join(out) + "\n"


def array_bodies(functions, headers):
    out = [f"// {HEAD}", "// Declares the body of every function of the array layer in this build of it.",
           "#pragma once", '#include "core/frame.hpp"', '#include "core/variant.hpp"'] + [f'#include "{h}"' for h in headers] + ["", 'extern "C" {']
    out += [f"NOX_HIDDEN decltype({f.name}) NOX_BODY({f.name});" for f in functions]
    return "\n".join(out + ["}"]) + "\n"


def array_entries(functions, headers):
    """The exports of the array layer: each goes on in the build that the features in force allow."""
    out = [f"// {HEAD}", "// Entries of the array layer.", '#include "core/frame.hpp"']
    out += [f'#include "{h}"' for h in headers] + ["", 'extern "C" {']
    for f in functions:
        if f.name in decl.ONE_WITH:
            out += [f'decltype({f.name}) {f.name} __attribute__((alias("{decl.ONE_WITH[f.name]}")));']
            continue
        parameters, arguments = decl.parameter_list(f.parameters), ", ".join(p.name for p in f.parameters)
        out += [f"NOX_HIDDEN decltype({f.name}) array_{f.name}, arrayavx_{f.name}, arrayavx2_{f.name};",
                f"{f.result} {f.name}({parameters}) {{",
                f"  if (nox::has_avx2()) return arrayavx2_{f.name}({arguments});",
                f"  return nox::has_avx() ? arrayavx_{f.name}({arguments}) : array_{f.name}({arguments});\n}}"]
    return "\n".join(out + ["}"]) + "\n"


def exports(names):
    return "NOX_1 {\n  global:\n" + "".join(f"    {n};\n" for n in names) + "  local: *;\n};\n"


def status_rows(header):
    rows = {int(c): f"{n}: {t}" for n, c, t in re.findall(r"(noxSts\w+) = (-?\d+),? /\*\*< (.*?) \*/", header)}
    rows.update(UNNAMED_STATUSES)
    return f"// {HEAD}\n" + "".join(f'{{{c}, "{rows[c]}"}},\n' for c in sorted(rows))


def declaration_rows(functions, rows, documents):
    """One row per exported function: name, address, row in the dispatch table or -1, exactness, parameters."""
    out = [f"// {HEAD}"]
    for f in functions:
        told = f.primitive or f
        equal = exactness(told, with_referred(told.name, documents)) == "yes"
        params = ", ".join(
            f'{{"{p.name}", Kind::{p.kind}, Type::{decl.target_tag(p)}, {str(p.constant).lower()}, {str(p.nullable).lower()}}}'
            for p in f.parameters)
        address = "nullptr" if f.internal else f"reinterpret_cast<void*>(&{f.name})"
        out.append(f'{{"{f.name}", {address}, {rows.get(f.name, -1)}, Type::{decl.type_tag(f.result)}, {str(equal).lower()}, {{{params}}}}},')
    return "\n".join(out) + "\n"


def write(path, text):
    path.parent.mkdir(parents=True, exist_ok=True)
    if not path.exists() or path.read_text() != text:
        path.write_text(text)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--headers", type=Path, required=True)
    parser.add_argument("--internal", type=Path, required=True)
    parser.add_argument("--out", type=Path, required=True)
    options = parser.parse_args()

    functions = decl.read_headers(options.headers, options.internal)
    primitives = [f for f in functions if f.dispatched]
    forms = decl.index_forms(functions)
    by_hand = ["nox/core.h"] + sorted({f.header for f in functions if f.header} - {"nox/core.h"})
    public = [f for f in functions if not f.internal]

    write(options.out / "dispatch.S", dispatch(primitives))
    write(options.out / "bodies.hpp", bodies(primitives, by_hand))
    write(options.out / "plain.hpp", plain(primitives, by_hand))
    write(options.out / "include/nox/index.h", index_header(forms, decl.documentation(functions)))
    write(options.out / "index_forms.cpp", index_forms(forms))
    layer = [f for f in functions if f.in_array_builds]
    layer_headers = sorted({f.header for f in layer})
    write(options.out / "array_bodies.hpp", array_bodies([f for f in layer if f.name not in decl.ONE_WITH], layer_headers))
    write(options.out / "array_entries.cpp", array_entries(layer, layer_headers))
    write(options.out / "exports.map", exports(sorted([f.name for f in public] + [f.name for f in forms])))
    write(options.out / "status_rows.inc", status_rows((options.headers / "nox/status.h").read_text()))
    write(options.out / "declarations.inc",
          declaration_rows(functions + forms, {p.name: i for i, p in enumerate(primitives)}, decl.documentation(functions)))


if __name__ == "__main__":
    main()
