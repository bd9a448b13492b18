"""Bars of the multi-rate FIR filters."""
from bars import Bar, against, every_row, rate
from results import FAST


def against_direct(row, results):
    """Multiply-add rate by that of the single-rate filter of as many taps."""
    name = row.name.split(" ")[0].replace("FIRMR", "FIRSR") + " 24 taps"
    direct = next((r for r in results.select(row.build, "filter", row.place) if r.name == name and r.len == 1000), None)
    return direct and rate(row, results) / rate(direct, results)


BARS = [
    Bar("Multi-rate FIR by 3/2, 2/3 and 160/147 at least 0.7 of the direct FIR's rate", r"noxsFIRMR_64fc? (3|2|160) up.*",
        every_row, against_direct, 0.7),
    Bar("Multi-rate FIR at least 1.0 of the compilers at -O3 -ffast-math", r"noxsFIRMR_64fc? (3|2|160) up.*", every_row,
        against(*FAST), 1.0),
]

LIMITS = """
Four neighbouring outputs share a row of taps, whose zeros around each output's own are multiplied too: 29 rows for 24
taps at 2/3, 26 at 3/2. Eight registers leave six sums, each of which takes a product every four cycles, three quarters
of the peak. Together that is 0.62 of the peak at 2/3 and 0.69 at 3/2. Tried: all patterns in one call of the kernel
rather than six a call (a quarter faster), NaN looked for once for six vectors.
"""
