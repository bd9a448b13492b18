"""Bars of thresholds."""
from bars import Bar, against, elements

BARS = [
    Bar("Thresholds at least at clang, 1000 elements", r"noxsThreshold_(?!LTInv)\w+( .*)?", elements(1000),
        against("clang"), 1.0, family="threshold"),
    Bar("Inverse threshold at least at packed divisions, 1000 elements", r"noxsThreshold_LTInv_64f", elements(1000),
        against("packed"), 1.0, family="threshold"),
]

LIMITS = """
Bound by the stores; within a few per cent of clang.
"""
