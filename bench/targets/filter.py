"""Bars of the direct FIR filters."""
from bars import Bar, against, elements
from results import COMPILERS, FAST

BARS = [
    Bar("Direct FIR of 32 taps at least 2.0 of the compilers at -O3", r"noxsFIRSR_64fc? 32 taps", elements(1000),
        against(*COMPILERS), 2.0),
    Bar("Direct FIR of 32 taps at least 2.0 of the compilers at -O3 -ffast-math", r"noxsFIRSR_64fc? 32 taps",
        elements(1000), against(*FAST), 2.0),
]

LIMITS = """
Both the filter and the compilers' fast loops of 32 taps are near the peak of multiplications; a ratio of 2 would be
beyond it where a compiler reaches more than half.
"""
