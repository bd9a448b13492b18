"""Bars of direct convolution and correlation."""
from bars import Bar, against, elements
from results import COMPILERS

BARS = [
    Bar("Direct convolution and correlation at least at the compilers, 4096 results",
        r"noxs(Convolve_64f|CrossCorrNorm_64fc?) \d+ by", elements(4096), against(*COMPILERS), 1.0,
        family="convolution"),
]
