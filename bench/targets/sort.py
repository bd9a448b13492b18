"""Bars of sorting random elements."""
from bars import Bar, against, every_row

BARS = [
    Bar("Sorts at least 1.5 of std::sort, random elements", r"noxsSort(A|De)scend_(16s|32s|64f)_I", every_row,
        against("std::sort"), 1.5, family="sort"),
    Bar("Sorts with positions at least 1.5 of std::sort on indexes, random elements",
        r"noxsSortIndex(A|De)scend_\w+_I", every_row, against("std::sort"), 1.5, family="sort"),
    Bar("Sorts of bytes at least 50 times std::sort, from 128 elements on", r"noxsSort(A|De)scend_8u_I", every_row,
        against("std::sort"), 50.0, family="sort"),
]

LIMITS = """
Networks sort up to 256 or 512 bytes, then counting takes over, whose 256 counters are cleared and walked in every
call; std::sort is quick on few distinct values too.
"""
