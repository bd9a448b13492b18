"""Bars of the array layer on integers and matrices."""
from bars import MIB, Bar, against, against_limit_or_peer, elements, every_row, size

LOOPS = against("gcc", "clang")
BYTES = r"(Sum|Max|Min|MaxMin)_8u\w*|Convert_\w+|Floor|Ceil|noxs(Max|Min)Every_\d+s"


def bar(text, names, where, value, required, build="w7"):
    return Bar(f"{build}: {text}", names, where, value, required, build=build, family="array_ints")


BARS = [
    bar("bytes, array conversions and elementwise extremes at least at GCC and clang, 1000 elements", BYTES,
        elements(1000), LOOPS, 1.0),
    bar("bytes and array conversions at the traffic limit or the best peer, 32 MiB", BYTES, size(32 * MIB, 1 << 40),
        against_limit_or_peer, 0.95, build="h9"),
    bar("quotients of 8 and 16 bits at least 2 of the division's loop", r"(ModC|DivCREV|RemDiv)_(8u|16s)_SFS",
        elements(1000), LOOPS, 2.0),
    bar("quotients of 32 bits at least 1.5 of the division's loop", r"(DivC|ModC|DivCREV|RemDiv)_32s_SFS",
        elements(1000), LOOPS, 1.5),
    bar("companding at least at GCC and clang", r"noxs\w*Law\w*", elements(1000), LOOPS, 1.0),
    bar("matrices of 1000 by 1000 turned at least at GCC and clang", r"(Transpose|Adjungate)Matrix\w*", every_row, LOOPS,
        1.0),
]

LIMITS = """
Elementwise extremes of 32 bits are four instructions in SSE2. Conversions of bytes stay at 128 bits in the builds
beyond SSE2. The transposes read and write in the plain order by contract; what they cost is the cache's, and the
compilers pay the same.
"""
