"""Bars of conversions, under the builds that the compilers' instruction sets stand for."""
from bars import Bar, against, elements
from results import COMPILERS

WIDE = r"noxsConvert_(?!24|32s24|16f|32f16f)\w+( .*)?"
PACKED = r"noxsConvert_(24|32s24|16f|32f16f)\w+( .*)?"

BARS = [
    Bar(f"{build}: conversions at least at GCC and clang, 1000 elements", WIDE, elements(1000), against(*COMPILERS), 1.0,
        build=build, family="convert") for build in ("h9", "p8", "w7")
] + [
    Bar(f"{build}: 24-bit and half-precision conversions at least 3 of GCC and clang, 1000 elements", PACKED,
        elements(1000), against(*COMPILERS), 3.0, build=build, family="convert") for build in ("h9", "p8", "w7")
]

LIMITS = """
Widening loops are bound by the store of every cycle, and peers differ by a few per cent in the loop's overhead.
Halves without the processor's conversion, in the SSE builds, take some twenty integer instructions for four elements
in the compilers' loops as well. 24-bit stores of scaled integers are bound by the rounding and the cut, which a
compiler vectorises likewise.
"""
