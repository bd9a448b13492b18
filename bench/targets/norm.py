"""Bars of norms and normalisation."""
from bars import MIB, Bar, against, against_limit_or_peer, elements, size
from results import COMPILERS

FAST = ("gcc-fast", "clang-fast")

BARS = [
    Bar("Norms and normalisation at least at the compilers with fast math, 1000 elements", r"noxsNorm\w+", elements(1000),
        against(*COMPILERS, *FAST), 1.0, family="norm"),
    Bar("Norms at the traffic limit or the best peer, 32 MiB", r"noxsNorm\w+", size(MIB, 64 * MIB), against_limit_or_peer,
        0.95, family="norm"),
]

LIMITS = """
The maxima of real magnitudes watch for a NaN, which decides whether the four-lane order must be taken: two more
instructions for two vectors, without which the loop is at the compilers' speed. Normalisation divides twice before
the loop.
"""
