"""Bars of bitwise operations, shifts and swaps of bytes."""
from bars import MIB, Bar, against, against_limit_or_peer, elements, size

LOOPS = against("gcc", "clang")
NAMES = r"noxs(And|Or|Xor|Not|LShift|RShift|SwapBytes)\w*( 3 bits)?"

BARS = [
    Bar(f"{build}: bitwise operations, shifts and swaps at least at GCC and clang", NAMES, size(0, MIB), LOOPS, 1.0,
        build=build)
    for build in ("h9", "p8", "w7")
] + [
    Bar("Bitwise operations, shifts and swaps at least 0.95 of the traffic limit or of the best peer, 32 MiB", NAMES,
        size(32 * MIB, 1 << 40), against_limit_or_peer, 0.95),
]

LIMITS = """
The loops are bound by loads and stores, as are the compilers': what is below stays within a few per cent, the noise
of the machine.
"""
