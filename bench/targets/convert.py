"""Bars of conversions, under the builds that the compilers' instruction sets stand for."""
from bars import Bar, against, elements
from results import COMPILERS

WIDE = r"noxsConvert_(?!24|32s24|16f|32f16f)\w+( .*)?"
PACKED = r"noxsConvert_(24|32s24|16f|32f16f)\w+( .*)?"

BARS = [
    Bar(f"{build}: conversions at least at GCC and clang, 1000 elements", WIDE, elements(1000), against(*COMPILERS), 1.0,
        build=build, family="convert") for build in ("h9", "p8", "w7")
] + [
    Bar("24-bit and half-precision conversions at least 3 of GCC and clang, 1000 elements", PACKED, elements(1000),
        against(*COMPILERS), 3.0, family="convert"),
]
