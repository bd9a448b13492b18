"""The project's speed targets, computed from the results.

A bar names its rows and how a row's value follows from the times; it is reached when the worst value, but for the
tolerance, is at least what is required. The bars of a family stand in targets/, in the list BARS of a file.
"""
import importlib
import re
import statistics
from dataclasses import dataclass
from pathlib import Path
from typing import Callable

from results import COMPILERS, LIBC, LIMITS

TOLERANCE = 0.03  # repeated runs of one binary differ by about that much

KIB, MIB = 1 << 10, 1 << 20
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


def rate(row, results):
    """Floating-point operations per ns."""
    return row.flops * row.len / row.ours if row.flops else None


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
    mean: bool = False  # the geometric mean of all rows counts, not the worst of them


def elements(n):
    return lambda r: r.len == n


def size(low, high):
    return lambda r: low <= r.bytes <= high


def every_row(row):
    return True


def target_files():
    """The modules in targets/, in the order of their names."""
    folder = Path(__file__).resolve().parent / "targets"
    return [importlib.import_module(f"targets.{path.stem}") for path in sorted(folder.glob("*.py"))]


def all_bars():
    return [bar for module in target_files() for bar in module.BARS]


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


def below(bar, value):
    return value < bar.required - bar.slack * bar.required


def mean(values):
    return statistics.geometric_mean(v for _, v in values)


def table(results, only_measured=False):
    """The bars as lines of a Markdown table."""
    lines = ["| target | rows | worst | of | median | verdict |", "| --- | --- | --- | --- | --- | --- |"]
    for bar in all_bars():
        values = judge(bar, results)
        if not values:
            if not only_measured:
                lines.append(f"| {bar.text} | 0 | | | | not measured |")
            continue
        row, worst = values[0]
        missed = sum(below(bar, v) for _, v in values)
        verdict = "reached" if not missed else f"**missed** by {missed} of {len(values)}"
        if bar.mean:
            verdict = f"{'**missed**' if below(bar, mean(values)) else 'reached'}, mean {mean(values):.2f}"
        median = statistics.median(v for _, v in values)
        lines.append(f"| {bar.text} | {len(values)} | {worst:.2f}{bar.unit} | `{row.name}` {row.length()} | "
                     f"{median:.2f}{bar.unit} | {verdict} |")
    return lines


def rows_below(bar, results):
    values = judge(bar, results)
    if values and bar.mean and not below(bar, mean(values)):
        return []
    return [(r, v) for r, v in values if below(bar, v)]


def explanations(results):
    """What a file in targets/ says of its missed bars: what limits the rows and what was tried."""
    return [f"- {module.__name__.split('.')[-1]}: {' '.join(module.LIMITS.split())}" for module in target_files()
            if hasattr(module, "LIMITS") and any(rows_below(bar, results) for bar in module.BARS)]


def missed_rows(results):
    """Every row below its bar, for the appendix."""
    lines = []
    for bar in all_bars():
        low = rows_below(bar, results)
        if low:
            lines.append(f"- {bar.text}: " + ", ".join(f"`{r.name}` {r.length()} {v:.2f}{bar.unit}" for r, v in low))
    return lines
