"""Bars of extrema."""
from bars import MIB, Bar, against, against_limit_or_peer, elements, size
from results import COMPILERS, FAST

BARS = [
    Bar("Extrema at least at the best of Eigen and the compilers, with fast math too, 1000 elements",
        r"noxs(Min|Max|MinMax|MaxAbs)_\w+", elements(1000), against(*COMPILERS, *FAST), 1.0, family="extrema"),
    Bar("Places of extrema at least 4 times the compilers, 1000 elements", r"noxs(Min|Max)Indx_\w+", elements(1000),
        against("gcc", "clang"), 4.0, family="extrema"),
    Bar("Larger and smaller of two at least at the compilers, 1000 elements", r"noxs(Min|Max)Every_\w+", elements(1000),
        against("gcc", "clang"), 1.0, family="extrema"),
    Bar("Maximum at least 0.95 of the traffic limit or of the best peer, 32 MiB", r"noxsMax_64f", size(32 * MIB, 1 << 40),
        against_limit_or_peer, 0.95, family="extrema"),
]

LIMITS = """
Minimum and maximum at once are two operations on each vector, in the compilers' loops as well. The elementwise
extremes are bound by the store of every cycle; a call of a thousand small integers is 20 ns, of which its checks and
its ends are some.
"""
