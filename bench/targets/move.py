"""Bars of fill, copy and move."""
from bars import KIB, Bar, against, against_row, size
from results import LIBC

BLOCK = r"noxs(Copy|Move|Set|Zero)_\w+"

BARS = [
    Bar("Copy, move, set, zero at least 1.7 of memcpy and memset, 1 KiB to 16 KiB", BLOCK, size(KIB, 16 * KIB),
        against(*LIBC), 1.7, family="move"),
    Bar("Copy, move, set, zero at least at memcpy and memset above 16 KiB", BLOCK, size(16 * KIB + 1, 1 << 40),
        against(*LIBC), 1.0, family="move"),
    Bar("Copy, move, set, zero at least 0.9 of the best loop at 64 bytes", BLOCK, size(64, 64),
        against("gcc", "clang"), 0.9, family="move"),
    Bar("Complex fill at the speed of real fill, 1 KiB and more", "noxsSet_64fc", size(KIB, 1 << 40),
        against_row(lambda r: ("noxsSet_64f", "aligned")), 1.0),
]

LIMITS = """
Short fills of complex numbers read their value as words, for a caller may have pushed it just before and a wide load
of it would wait. In memory, repetitions differ by more than the distance to the bar.
"""
