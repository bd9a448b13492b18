"""Bars of the sliding median."""
from bars import Bar, against, every_row
from results import COMPILERS

BARS = [
    Bar("Medians of 3 and 5 at least 10 times a selection by comparisons", r"noxsFilterMedian_\w+ (3|5) mask",
        every_row, against(*COMPILERS), 10),
    Bar("Medians of 7 to 31 at least 1.0 of a sorted window", r"noxsFilterMedian_\w+ (7|15|31) mask", every_row,
        against(*COMPILERS), 1.0),
]

LIMITS = """
Only four doubles stand in a vector, and eight registers hold no more than one window of five. Of three, a NaN's
outcome follows from comparisons in a stated order: three comparisons and three selections where integers take four
minima and maxima.
"""
