#!/usr/bin/env python3
"""Static checks of the built library; binutils is all they need.

    check_binary.py --library FILE --exports MAP --objects LIST [--no-text-relocations]

The shared object is checked here: its kind and dependencies, its exported names against the linker's list, and the
shape of the dispatch, where every stub is one load and one indirect jump through a row of its own. The object files
are checked in check_objects.py; LIST has a line `tag path` for each, with the tag `once` for code that is compiled
once. Every fault is printed, and the result is 1 if there was one.
"""
import argparse
import re
import struct
import sys
from pathlib import Path

import declarations as decl
from check_objects import object_faults, output_of

SONAME = "libnox.so.1"
VERSION = "NOX_1"
MAY_NEED = {"libc.so.6", "libm.so.6", "libgcc_s.so.1", "libstdc++.so.6"}
HEADER = {"Class": "ELF32", "Type": "DYN", "Machine": "Intel 80386"}
ROW_WORDS = 6
STUB_SECTION = "nox_stubs"


class Library:
    """The parts of the shared object that the checks look at."""

    def __init__(self, path):
        self.path = path
        self.bytes = Path(path).read_bytes()
        self.header = dict(re.findall(r"^\s+(\w+):\s+(.*?)(?: \(.*\))?$", output_of("readelf", "-hW", path), re.M))
        self.dynamic = output_of("readelf", "-dW", path)
        self.sections = {}    # name -> (address, offset, size, flags)
        for m in re.finditer(r"\] (\S+) +(\w+) +([0-9a-f]{8}) ([0-9a-f]+) ([0-9a-f]+) [0-9a-f]+ +([A-Z]*) ",
                             output_of("readelf", "-SW", path)):
            if m[2] != "NOBITS" and "A" in m[6]:
                self.sections[m[1]] = (int(m[3], 16), int(m[4], 16), int(m[5], 16), m[6])
        self.segments = [(m[1], int(m[2], 16), int(m[3], 16), m[4].replace(" ", "")) for m in re.finditer(
            r"^  (\w+) +0x\w+ 0x(\w+) 0x\w+ 0x\w+ 0x(\w+) ([RWE ]{3})", output_of("readelf", "-lW", path), re.M)]
        self.exports = {}     # name -> (address, size, type, binding, version)
        for m in re.finditer(r"^ *\d+: ([0-9a-f]+) +(\d+) (\w+) +(\w+) +\w+ +(\w+) ([^\s@]+)@@?(\S+)$",
                             output_of("readelf", "--dyn-syms", "-W", path), re.M):
            if m[5] not in ("UND", "ABS"):
                self.exports[m[6]] = (int(m[1], 16), int(m[2]), m[3], m[4], m[7])
        self.relative = {int(a, 16) for a in re.findall(r"^([0-9a-f]{8}) .* R_386_RELATIVE",
                                                        output_of("readelf", "-rW", path), re.M)}

    def section_of(self, address):
        for name, (start, _, size, flags) in self.sections.items():
            if start <= address < start + size:
                return name, flags
        return "", ""

    def word(self, address):
        start, offset, _, _ = self.sections[self.section_of(address)[0]]
        return struct.unpack_from("<I", self.bytes, offset + address - start)[0]

    def writable(self, address):
        """In writable data of the file, and still writable when the loader is done."""
        relro = any(kind == "GNU_RELRO" and start <= address < start + size for kind, start, size, _ in self.segments)
        return "W" in self.section_of(address)[1] and not relro

    def code(self, section):
        """address -> (text of the instruction, address behind it)"""
        found = re.findall(r"^ *([0-9a-f]+):\t(.*?)\s*$",
                           output_of("objdump", "-dw", "--no-show-raw-insn", "-j", section, self.path), re.M)
        start, _, size, _ = self.sections[section]
        following = [int(a, 16) for a, _ in found[1:]] + [start + size]
        return {int(a, 16): (" ".join(text.split()), end) for (a, text), end in zip(found, following)}


def kind_faults(lib, text_relocations):
    for key, value in HEADER.items():
        if lib.header.get(key) != value:
            yield f"{key} is {lib.header.get(key)}, not {value}"
    soname = re.findall(r"\(SONAME\).*\[(.*)\]", lib.dynamic)
    if soname != [SONAME]:
        yield f"soname is {soname}, not {SONAME}"
    for name in re.findall(r"\(NEEDED\).*\[(.*)\]", lib.dynamic):
        if name not in MAY_NEED:
            yield f"needs {name}"
    for kind, _, _, flags in lib.segments:
        if kind == "GNU_STACK" and "E" in flags:
            yield "asks for an executable stack"
    if not text_relocations and "TEXTREL" in lib.dynamic:
        yield "has relocations in its code"


def export_faults(lib, wanted):
    for name in sorted(wanted - lib.exports.keys()):
        yield f"'{name}' is not exported"
    for name in sorted(lib.exports.keys() - wanted):
        yield f"'{name}' is exported, but not declared"
    for name, (_, _, kind, binding, version) in sorted(lib.exports.items()):
        if kind != "FUNC" or binding != "GLOBAL":
            yield f"'{name}' is exported as {binding} {kind}, not as a plain function"
        if version != VERSION:
            yield f"'{name}' has the version {version}, not {VERSION}"


def read_stubs(lib):
    """address of a stub -> (selector, row, address behind it), and what in the section is no stub."""
    code = lib.code(STUB_SECTION)
    stubs, strange = {}, []
    for address in sorted(code):
        text, end = code[address]
        load = re.fullmatch(r"mov 0x([0-9a-f]+),%(e\w\w)", text)
        jump = load and re.fullmatch(rf"jmp \*0x([0-9a-f]+)\(,%{load[2]},4\)", code.get(end, ("", 0))[0])
        if jump:
            stubs[address] = (int(load[1], 16), int(jump[1], 16), code[end][1])
        elif not re.match(r"jmp \*0x|nop|lea 0x0\(|xchg %ax,%ax", text):
            strange.append(f"{address:#x}: '{text}' in {STUB_SECTION} is neither stub nor padding")
    return stubs, strange


def stub_faults(lib):
    """Every primitive's export is a stub, and nothing else stands between the stubs."""
    stubs, strange = read_stubs(lib)
    yield from strange
    for name, (address, size, *_) in sorted(lib.exports.items()):
        if decl.Function(name, "", []).dispatched:
            if address not in stubs:
                yield f"'{name}' is not one load and one indirect jump"
            elif size != stubs[address][2] - address:
                yield f"'{name}' is {size} bytes long, but its load and jump are {stubs[address][2] - address}"
    selectors = {selector for selector, _, _ in stubs.values()}
    if len(selectors) != 1:
        yield f"the stubs load {len(selectors)} different words, not one selector"
    for selector in selectors:
        if not lib.writable(selector) or selector % 4:
            yield f"the selector at {selector:#x} is not an aligned word of writable data"
        elif lib.word(selector) != 0xFFFFFFFF:
            yield f"the selector starts as {lib.word(selector):#x}, not as -1"


def row_faults(lib):
    """Rows: six words each, one behind the other; the first leads to selection and back to the row's own stub."""
    stubs, _ = read_stubs(lib)
    text = lib.code(".text")
    rows = sorted((row - 4, stub) for stub, (_, row, _) in stubs.items())
    for (start, _), (following, _) in zip(rows, rows[1:]):
        if following - start != 4 * ROW_WORDS:
            yield f"row at {start:#x} is followed by one at {following:#x}, not by {4 * ROW_WORDS} bytes"
    initial, selections = set(), set()
    for start, stub in rows:
        words = [start + 4 * k for k in range(ROW_WORDS)]
        if not all(lib.writable(a) and a in lib.relative for a in words):
            yield f"row at {start:#x} is not made of relocated words in writable data"
            continue
        entries = [lib.word(a) for a in words]
        if any("X" not in lib.section_of(e)[1] for e in entries):
            yield f"row at {start:#x} has an entry outside the code"
        initial.add(entries[0])
        call, behind = text.get(entries[0], ("", 0))
        jump = text.get(behind, ("", 0))[0]
        selections.add(call.split("<")[0])
        if not call.startswith("call ") or not re.match(rf"jmp {stub:x}\b", jump):
            yield f"initial entry at {entries[0]:#x} is '{call}; {jump}', not the selection and a jump to {stub:#x}"
    if len(initial) != len(rows):
        yield f"{len(rows)} rows share {len(initial)} initial entries"
    if len(selections) > 1:
        yield f"the initial entries call different functions: {', '.join(sorted(selections))}"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--library", required=True)
    parser.add_argument("--exports", type=Path, required=True, help="the linker's version script")
    parser.add_argument("--objects", type=Path, required=True, help="lines of tag and path")
    parser.add_argument("--no-text-relocations", action="store_true", help="the stubs are relative: not checked")
    options = parser.parse_args()

    lib = Library(options.library)
    wanted = set(re.findall(r"^ +(\w+);$", options.exports.read_text(), re.M))
    objects = [tuple(line.split(maxsplit=1)) for line in options.objects.read_text().splitlines() if line]
    checks = {"kind": kind_faults(lib, not options.no_text_relocations), "exports": export_faults(lib, wanted),
              "objects": object_faults(objects)}
    if options.no_text_relocations:
        print("note: built without text relocations; stubs and rows are not checked")
    else:
        checks |= {"stubs": stub_faults(lib), "rows": row_faults(lib)}
    faults = [f"{name}: {fault}" for name, found in checks.items() for fault in found]
    print("\n".join(faults) or f"{len(lib.exports)} exports and {len(objects)} objects: no fault")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
