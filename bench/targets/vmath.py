"""Bars of the elementary functions."""
from bars import Bar, against, elements

ARRAYS = r"(?!single).*"

BARS = [
    Bar("Elementary functions at least at SLEEF, 1000 elements", ARRAYS, elements(1000), against("SLEEF"), 1.0,
        family="vmath"),
    Bar("Elementary functions at least 15 of a loop over the C library's, 1000 elements", ARRAYS, elements(1000),
        against("libm"), 15.0, family="vmath"),
]
