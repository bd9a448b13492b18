"""Bars of scaled integer arithmetic."""
from bars import MIB, Bar, against, against_limit_or_peer, elements, size

LOOPS = against("gcc", "clang")
SUMS = r"noxs(Add|Sub)_(8u|16s)_Sfs"
PRODUCTS = r"noxsMul_(16s|32s)_Sfs"
QUOTIENTS = r"noxsDivC?_(8u|16s)_Sfs"

BARS = [
    bar
    for build in ("h9", "p8", "w7")
    for bar in (
        Bar(f"{build}: sums of 8 and 16 bits at least at GCC and clang, scale 0, 1000 elements", SUMS + " 0 bits",
            elements(1000), LOOPS, 1.0, build=build),
        Bar(f"{build}: sums of 8 and 16 bits at least 1.5 of GCC and clang, scales 1 and 5, 1000 elements",
            SUMS + " [15] bits", elements(1000), LOOPS, 1.5, build=build),
        Bar(f"{build}: products of 16 and 32 bits at least 1.2 of GCC and clang, scale 5, 1000 elements",
            PRODUCTS + " 5 bits", elements(1000), LOOPS, 1.2, build=build),
        Bar(f"{build}: quotients at least 1.5 of GCC and clang, 1000 elements", QUOTIENTS + " 0 bits",
            elements(1000), LOOPS, 1.5, build=build),
    )
] + [
    Bar("Sums of 8 and 16 bits at least 0.95 of the traffic limit or of the best peer, 32 MiB", SUMS + " 0 bits",
        size(32 * MIB, 1 << 40), against_limit_or_peer, 0.95),
]

LIMITS = """
Rounding by an even half takes four instructions a vector beside the packed sum; with SSE the compilers' 32-bit loops
need as many for half the elements, which leaves less than 1.5.
"""
