"""Bars of the filters of planes: times a pixel, and plain loops over the interior."""
from bars import Bar, against, every_row

LOOPS = against("gcc", "clang")
ALLOWED = {3: 0.55, 5: 1.1, 7: 2.0, 15: 8.2}  # ns a pixel of floats; doubles may take twice as long
BORDER, ANCHOR = "noxiFilterBorder_32f_C1R", "noxiFilter_64f_C1R"


def within(nanoseconds):
    return lambda row, results: nanoseconds / row.per_element


BARS = [
    bar
    for k, time in ALLOWED.items()
    for bar in (
        Bar(f"Border filter {k} by {k} in at most {time} ns a pixel (value: of that time)", rf"{BORDER} {k} wide.*",
            every_row, within(time), 1.0),
        Bar(f"Double filter {k} by {k} in at most {2 * time} ns a pixel (value: of that time)", rf"{ANCHOR} {k} wide",
            every_row, within(2 * time), 1.0),
    )
] + [
    Bar("Filters of planes at least at GCC and clang over the interior", rf"({BORDER}|{ANCHOR}).*", every_row, LOOPS,
        1.0),
]

LIMITS = """
A window's sums keep the stated order, an even and an odd chain of every row joined at its end: the chains' latency
and the loads that cross a line of cache bound the loop at half of the peak. Tried: sums in registers by force (15 by
15 doubles from 40 to 16 ns a pixel), rows that collide in the cache through a copied strip (15 by 15 floats from 10.4
to 8.8).
"""
