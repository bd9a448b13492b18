"""The project's speed targets, computed from the results.

A bar names its rows and how a row's value follows from the times; it is reached when the worst value, but for the
tolerance, is at least what is required. A newcomer adds one line to BARS.
"""
import re
import statistics
from dataclasses import dataclass
from typing import Callable

from results import COMPILERS, FAST, LIBC, LIMITS

TOLERANCE = 0.03  # repeated runs of one binary differ by about that much

KIB, MIB = 1 << 10, 1 << 20
ARITHMETIC = r"noxs(Add|Sub|Mul|AddC|SubC|SubCRev|MulC|DivC|Sqr|AddProduct)_64fc?(_I)?"
BLOCK = r"noxs(Copy|Move|Set|Zero)_\w+"


def against(*who):
    """Time of the best of these participants by ours."""
    return lambda row, results: row.ratio(who)


def against_limit_or_peer(row, results):
    """By the measured traffic limit or by the best peer, whichever is the easier."""
    times = [t for t in (row.best(LIMITS), row.best(COMPILERS + LIBC)) if t]
    return max(times) / row.ours if times else None


def against_row(other):
    """By the row that `other` names for a row: (name, place)."""
    def value(row, results):
        name, place = other(row)
        base = results.find(row.build, name, row.bytes, place)
        return base and base.ours / row.ours
    return value


def stub_margin(row, results):
    """Nanoseconds left of the two that the jump through the table may cost."""
    return 2.0 - (row.ours - row.ns["direct"])


@dataclass
class Bar:
    text: str
    names: str
    where: Callable
    value: Callable
    required: float
    build: str = "h9"
    family: str = None
    place: str = "aligned"
    unit: str = ""
    slack: float = TOLERANCE


def elements(n):
    return lambda r: r.len == n


def size(low, high):
    return lambda r: low <= r.bytes <= high


BARS = [
    Bar("A call through an export costs at most 2 ns more than the body (value: ns left)", r"noxs\w+", elements(1),
        stub_margin, 0.0, family="startup", unit=" ns", slack=0),
    Bar("Copy, move, set, zero at least 1.7 of memcpy and memset, 1 KiB to 16 KiB", BLOCK, size(KIB, 16 * KIB),
        against(*LIBC), 1.7, family="move"),
    Bar("Copy, move, set, zero at least at memcpy and memset above 16 KiB", BLOCK, size(16 * KIB + 1, 1 << 40),
        against(*LIBC), 1.0, family="move"),
    Bar("Copy, move, set, zero at least 0.9 of the best loop at 64 bytes", BLOCK, size(64, 64),
        against("gcc", "clang"), 0.9, family="move"),
    Bar("Complex fill at the speed of real fill, 1 KiB and more", "noxsSet_64fc", size(KIB, 1 << 40),
        against_row(lambda r: ("noxsSet_64f", "aligned")), 1.0),
    Bar("Arithmetic at least at the best of GCC, clang and Eigen, 1000 elements", ARITHMETIC, elements(1000),
        against(*COMPILERS), 1.0),
    Bar("Flips and conjugates at least at the best of GCC, clang and Eigen, 1000 elements",
        r"noxs(Flip|Conj|ConjFlip)_\w+", elements(1000), against(*COMPILERS), 1.0),
    Bar("Arithmetic at least 0.95 of the traffic limit or of the best peer, 32 MiB", ARITHMETIC, size(32 * MIB, 1 << 40),
        against_limit_or_peer, 0.95),
    Bar("In place no slower than plain, 1000 elements", ARITHMETIC.replace("(_I)?", "_I"), elements(1000),
        against_row(lambda r: (r.name.removesuffix("_I"), "aligned")), 1.0),
    Bar("Bases off by 8 bytes at least 0.8 of aligned, 1000 elements", r"\w+", elements(1000),
        against_row(lambda r: (r.name, "aligned")), 0.8, place="offset 8"),
    Bar("Bases off by 4 bytes at least 0.8 of aligned, 1000 elements", r"\w+", elements(1000),
        against_row(lambda r: (r.name, "aligned")), 0.8, place="offset 4"),
    Bar("Arrays at 4 KiB distances at least 0.8 of aligned, 1000 elements", r"\w+", elements(1000),
        against_row(lambda r: (r.name, "aligned")), 0.8, place="aliased"),
    Bar("Division at least at packed divisions, 1000 elements", r"noxsDiv_64f(_I)?", elements(1000),
        against("packed"), 1.0),
    Bar("Complex division at least 1.2 of the compilers, 1000 elements", r"noxsDiv_64fc(_I)?", elements(1000),
        against(*COMPILERS), 1.2),
    Bar("Square root at least 0.95 of packed roots, 1000 elements", r"noxsSqrt_64f(_I)?", elements(1000),
        against("packed"), 0.95),
    Bar("Direct FIR of 32 taps at least 2.0 of the compilers at -O3", r"noxsFIRSR_64fc? 32 taps", elements(1000),
        against(*COMPILERS), 2.0),
    Bar("Direct FIR of 32 taps at least 2.0 of the compilers at -O3 -ffast-math", r"noxsFIRSR_64fc? 32 taps",
        elements(1000), against(*FAST), 2.0),
    Bar("w7: arithmetic at least 0.95 of GCC and clang at -O3 -msse2, 1000 elements", ARITHMETIC, elements(1000),
        against("gcc", "clang"), 0.95, build="w7"),
]


def judge(bar, results):
    """(row, value) of every measured row of a bar, the worst first."""
    pattern = re.compile(bar.names)
    values = []
    for row in results.select(bar.build, bar.family, bar.place):
        if (bar.family or row.family != "startup") and pattern.fullmatch(row.name) and bar.where(row):
            value = bar.value(row, results)
            if value is not None:
                values.append((row, value))
    return sorted(values, key=lambda rv: rv[1])


def table(results):
    """The bars as lines of a Markdown table."""
    lines = ["| target | rows | worst | of | median | verdict |", "| --- | --- | --- | --- | --- | --- |"]
    for bar in BARS:
        values = judge(bar, results)
        if not values:
            lines.append(f"| {bar.text} | 0 | | | | not measured |")
            continue
        row, worst = values[0]
        missed = sum(v < bar.required - bar.slack * bar.required for _, v in values)
        verdict = "reached" if not missed else f"**missed** by {missed} of {len(values)}"
        median = statistics.median(v for _, v in values)
        lines.append(f"| {bar.text} | {len(values)} | {worst:.2f}{bar.unit} | `{row.name}` {row.length()} | "
                     f"{median:.2f}{bar.unit} | {verdict} |")
    return lines


def missed_rows(results):
    """Every row below its bar, for the appendix."""
    lines = []
    for bar in BARS:
        low = [(r, v) for r, v in judge(bar, results) if v < bar.required - bar.slack * bar.required]
        if low:
            lines.append(f"- {bar.text}: " + ", ".join(f"`{r.name}` {r.length()} {v:.2f}{bar.unit}" for r, v in low))
    return lines
