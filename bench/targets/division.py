"""Bars of division and square root."""
from bars import Bar, against, elements
from results import COMPILERS

BARS = [
    Bar("Division at least at packed divisions, 1000 elements", r"noxsDiv_64f(_I)?", elements(1000),
        against("packed"), 1.0),
    Bar("Complex division at least 1.2 of the compilers, 1000 elements", r"noxsDiv_64fc(_I)?", elements(1000),
        against(*COMPILERS), 1.2),
    Bar("Square root at least 0.95 of packed roots, 1000 elements", r"noxsSqrt_64f(_I)?", elements(1000),
        against("packed"), 0.95),
]

LIMITS = """
The quotients of two complex numbers need three exact cases of magnitudes, which are looked at for every vector.
Tried: one division for four magnitudes (spills eight registers), one for two vectors, parts apart (kept), loops
unrolled by two (slower).
"""
