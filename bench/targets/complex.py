"""Bars of the complex helpers."""
from bars import Bar, against, elements
from results import COMPILERS

BARS = [
    bar
    for build in ("h9", "p8", "w7")
    for bar in (
        Bar(f"{build}: angles and polar forms at least at SLEEF, 1000 elements", r"noxs(Phase|PolarToCart)_64f",
            elements(1000), against("SLEEF"), 1.0, build=build, family="complex"),
        Bar(f"{build}: magnitudes, powers, parts and absolute values at least at GCC and clang, 1000 elements",
            r"noxs(Magnitude|PowerSpectr|Real|Abs)\w+", elements(1000), against(*COMPILERS), 1.0, build=build,
            family="complex"),
    )
]

LIMITS = """
What is below stays within the noise of a few per cent of loops that are bound by loads and stores.
"""
