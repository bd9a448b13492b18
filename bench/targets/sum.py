"""Bars of sums and dot products."""
from bars import MIB, Bar, against, against_limit_or_peer, elements, size
from results import COMPILERS, FAST

REALS = r"noxs(Sum|Mean|StdDev|MeanStdDev|DotProd)_64f(64f)?c?"
INTEGERS = r"noxs(Sum|Mean|DotProd)_(16s)?32s_Sfs"

BARS = [
    Bar("Sums, deviations and dot products at least at the best of Eigen and the compilers with fast math, 1000 elements",
        REALS, elements(1000), against(*COMPILERS, *FAST), 1.0),
    Bar("Integer sums and dot products at least at the best of Eigen and the compilers with fast math, 1000 elements",
        INTEGERS, elements(1000), against(*COMPILERS, *FAST), 1.0),
    Bar("Sums, deviations and dot products at least 0.95 of the traffic limit or of the best peer, 32 MiB",
        f"{REALS}|{INTEGERS}", size(32 * MIB, 1 << 40), against_limit_or_peer, 0.95),
]

LIMITS = """
The integer dot product sums doubles in the lanes of the SSE2 build in all builds, so that all round alike; where the
sum provably stays exact it takes integers.
"""
