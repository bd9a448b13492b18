"""Bars of the generators."""
from bars import MIB, Bar, against, every_row, size
from results import COMPILERS

BARS = [
    Bar("Uniform doubles at least 2.0 of the C++ library's 64-bit twister", r"noxsRandUniform_64f", every_row,
        against("std::random"), 2.0),
    Bar("Normal doubles at least 2.0 of the C++ library's", r"noxsRandGauss_64f", every_row, against("std::random"), 2.0),
    Bar("Cosine windows and the chirp at least 5.0 of a loop over the C library's cosine",
        r"noxs(Win(Hann|Hamming|Blackman\w*)|VectorJaehne)_64fc?", every_row, against(*COMPILERS), 5.0),
    Bar("Tones at least 0.8 of a bare fill through the caches, 32 MiB", r"noxsTone_Direct_64fc?.*", size(32 * MIB, 1 << 40),
        against("limit"), 0.8),
]

LIMITS = """
A tone is written through the caches as it is computed; in memory its time is that of the fill, plus what the fill's
own noise adds.
"""
