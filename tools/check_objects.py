"""Checks of the object files: nothing of one build may reach the processors of another.

Symbols: whatever the linker could merge or bind across builds carries the build's tag in its name. Instructions: none
above the level of the object's build, vector instructions of the AVX builds in the VEX form, upper halves of the vector
registers cleared before a function returns, and no aligned access to a stack that nobody aligned.
"""
import re
import subprocess
from dataclasses import dataclass, field

from instruction_sets import ALLOWED, BY_FUNCTION, VEX_BUILDS, instruction_set

VARIANTS = ("w7", "s8", "p8", "g9", "h9", "array", "arrayavx", "arrayavx2")
# The compiler's helper that reads the program counter: the same two instructions in every build, so merging is safe.
SAFE_TO_MERGE = re.compile(r"__x86\.get_pc_thunk\.\w+$")
PREFIXES = {"rep", "repz", "repnz", "lock", "notrack", "bnd", "data16", "addr16", "cs", "ds"}


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


@dataclass
class Symbol:
    name: str
    binding: str
    defined: bool


@dataclass
class Instruction:
    address: int
    mnemonic: str
    operands: str
    relocation: str = ""    # the symbol it refers to

    @property
    def target(self):
        """Address of a jump inside the function; None for what leaves it or can't be told."""
        m = re.match(r"([0-9a-f]+)", self.operands)
        return int(m[1], 16) if m and not self.relocation else None


@dataclass
class Function:
    name: str
    code: list = field(default_factory=list)


def read_symbols(path):
    for line in output_of("readelf", "-sW", path).splitlines():
        m = re.match(r"\s*\d+: [0-9a-f]+ +\S+ (\w+) +(\w+) +\w+ +(?:\[.*\] +)?(\w+) (\S+)$", line)
        if m and m[1] not in ("FILE", "SECTION"):
            yield Symbol(m[4], m[2], m[3] != "UND")


def read_functions(path):
    function = None
    for line in output_of("objdump", "-drw", "--no-show-raw-insn", path).splitlines():
        if m := re.match(r"[0-9a-f]+ <(.*)>:$", line):
            if function and m[1].startswith(".L"):  # a place inside it that a table of jumps names
                continue
            if function:
                yield function
            function = Function(m[1])
        elif m := re.match(r"\s+([0-9a-f]+):\t([^\t]+?)(?:\t[0-9a-f]+: R_\w+\t(\S+))?\s*$", line):
            words = m[2].split()
            while len(words) > 1 and words[0] in PREFIXES:
                words.pop(0)
            function.code.append(Instruction(int(m[1], 16), words[0], " ".join(words[1:]), m[3] or ""))
    if function:
        yield function


# ---- symbols

def symbol_faults(tag, path, symbols, demangled):
    """What a build defines is its own by name; what it uses is no other build's and no export."""
    others = "|".join(v for v in VARIANTS if v != tag)
    for s in symbols:
        name = demangled[s.name]
        if s.defined:
            own = s.name.startswith(f"{tag}_") or f"nox::{tag}::" in name
            if s.binding != "LOCAL" and not own and not SAFE_TO_MERGE.match(s.name):
                yield f"{path}: {s.binding.lower()} symbol '{name}' is not marked as {tag}'s"
        elif re.match(rf"({others})_", s.name) or re.search(rf"\bnox::({others})::", name):
            yield f"{path}: uses '{name}', which belongs to another build"
        elif re.match(r"nox[si][A-Z]", s.name):
            yield f"{path}: calls the export '{name}', which leads to whatever build is selected"


def demangle(names):
    names = sorted(names)
    text = subprocess.run(["c++filt"], input="\n".join(names), check=True, capture_output=True, text=True).stdout
    return dict(zip(names, text.splitlines()))


def all_symbol_faults(objects):
    symbols = {path: list(read_symbols(path)) for _, path in objects}
    demangled = demangle({s.name for of_file in symbols.values() for s in of_file})
    homes = {}
    for tag, path in objects:
        if tag == "once":
            continue
        yield from symbol_faults(tag, path, symbols[path], demangled)
        for s in symbols[path]:
            if s.defined and s.binding != "LOCAL" and not SAFE_TO_MERGE.match(s.name):
                homes.setdefault(s.name, set()).add(tag)
    for name, tags in sorted(homes.items()):
        if len(tags) > 1:
            yield f"'{demangled[name]}' is defined in the objects of {', '.join(sorted(tags))}"


# ---- instructions

def level_faults(tag, path, function):
    for i in function.code:
        name = instruction_set(i.mnemonic, i.operands)
        marked = BY_FUNCTION.get((tag, name))
        if name and name not in ALLOWED[tag] and not (marked and marked in function.name):
            yield f"{path}: {function.name}: {name} instruction '{i.mnemonic} {i.operands}' in code for {tag}"
        elif tag in VEX_BUILDS and "%xmm" in i.operands and not i.mnemonic.startswith("v"):
            yield f"{path}: {function.name}: '{i.mnemonic} {i.operands}' lacks the VEX form"


def dirty_faults(path, function):
    """Follows the jumps of a function: no way from an instruction on ymm registers to a return without vzeroupper.

    A jump through a register may go to any place that no instruction before it falls into.
    """
    if not any("%ymm" in i.operands for i in function.code):
        return
    code = function.code
    at = {i.address: k for k, i in enumerate(code)}
    ends = [i.mnemonic in ("jmp", "ret", "ud2") for i in code]
    landings = [k for k in range(1, len(code)) if ends[k - 1]]
    seen = set()
    work = [(0, False)]
    while work:
        state = work.pop()
        if state in seen:
            continue
        seen.add(state)
        k, dirty = state
        i = code[k]
        if i.mnemonic in ("vzeroupper", "vzeroall"):
            dirty = False
        elif "%ymm" in i.operands:
            dirty = True
        leaves = i.mnemonic == "ret"
        if i.mnemonic.startswith("j"):
            if i.operands.startswith("*"):
                work += [(n, dirty) for n in landings]
            elif i.target in at:
                work.append((at[i.target], dirty))
            else:
                leaves = True
        if leaves and dirty:
            yield f"{path}: {function.name}: leaves by '{i.mnemonic}' with ymm registers in use and no vzeroupper"
            return
        if not ends[k] and k + 1 < len(code):
            work.append((k + 1, dirty))


ALIGNED_ACCESS = re.compile(r"v?(movaps|movapd|movdqa|movntdq|movntps|movntpd)$")


def stack_faults(path, function):
    """A function that doesn't align its stack itself may find it at any multiple of 4 bytes."""
    if any(i.mnemonic == "and" and i.operands.endswith(",%esp") for i in function.code):
        return
    for i in function.code:
        if ALIGNED_ACCESS.match(i.mnemonic) and re.search(r"\(%e[sb]p", i.operands):
            yield f"{path}: {function.name}: '{i.mnemonic} {i.operands}' expects an aligned stack"


def instruction_faults(tag, path):
    for function in read_functions(path):
        yield from level_faults(tag, path, function)
        yield from stack_faults(path, function)
        if tag in VEX_BUILDS:
            yield from dirty_faults(path, function)


def object_faults(objects):
    """All faults of a list of (tag, path); the tag is a build's or "once"."""
    yield from all_symbol_faults(objects)
    for tag, path in objects:
        yield from instruction_faults(tag, path)
