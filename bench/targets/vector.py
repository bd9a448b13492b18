"""Bars of arithmetic, reversal and conjugation, and of misplaced arrays."""
from bars import MIB, Bar, against, against_limit_or_peer, against_row, elements, size
from results import COMPILERS

ARITHMETIC = r"noxs(Add|Sub|Mul|AddC|SubC|SubCRev|MulC|DivC|Sqr|AddProduct)_64fc?(_I)?"

BARS = [
    Bar("Arithmetic at least at the best of GCC, clang and Eigen, 1000 elements", ARITHMETIC, elements(1000),
        against(*COMPILERS), 1.0),
    Bar("Flips and conjugates at least at the best of GCC, clang and Eigen, 1000 elements",
        r"noxs(Flip|Conj|ConjFlip)_\w+", elements(1000), against(*COMPILERS), 1.0),
    Bar("Arithmetic at least 0.95 of the traffic limit or of the best peer, 32 MiB", ARITHMETIC, size(32 * MIB, 1 << 40),
        against_limit_or_peer, 0.95),
    Bar("In place no slower than plain, 1000 elements", ARITHMETIC.replace("(_I)?", "_I"), elements(1000),
        against_row(lambda r: (r.name.removesuffix("_I"), "aligned")), 1.0),
    Bar("Bases off by 8 bytes at least 0.8 of aligned, 1000 elements", r"\w+", elements(1000),
        against_row(lambda r: (r.name, "aligned")), 0.8, place="offset 8"),
    Bar("Bases off by 4 bytes at least 0.8 of aligned, 1000 elements", r"\w+", elements(1000),
        against_row(lambda r: (r.name, "aligned")), 0.8, place="offset 4"),
    Bar("Arrays at 4 KiB distances at least 0.8 of aligned, 1000 elements", r"\w+", elements(1000),
        against_row(lambda r: (r.name, "aligned")), 0.8, place="aliased"),
    Bar("w7: arithmetic at least 0.95 of GCC and clang at -O3 -msse2, 1000 elements", ARITHMETIC, elements(1000),
        against("gcc", "clang"), 0.95, build="w7"),
]

LIMITS = """
Bound by loads and stores. In place, repetitions of one binary differ by 30 % with the grouping of loads before stores
(none, two and four tried; stores in ascending order gained a quarter). At bases off by 4 bytes every second store
crosses a line of the cache, in the peers' loops as well. In memory the limit itself moves by a tenth.
"""
