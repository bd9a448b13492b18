"""Bars of the recursive filters."""
from bars import Bar, against, every_row
from results import COMPILERS

BARS = [
    Bar("Real cascades of 1 to 8 sections at least 3 times the compilers' loops, section by section",
        r"noxsIIR_64f .*sections?", every_row, against(*COMPILERS), 3.0),
    Bar("Real direct forms of order 2 to 16 at least 2 times the compilers' loops", r"noxsIIR_64f ([2-9]|1[0-6]) order",
        every_row, against(*COMPILERS), 2.0),
    Bar("Complex cascades at least 2.5 times the compilers' loops, section by section", r"noxsIIR_64fc .*sections?",
        every_row, against(*COMPILERS), 2.5),
    Bar("Complex direct forms at least 1.3 times the compilers' loops", r"noxsIIR_64fc .*order", every_row,
        against(*COMPILERS), 1.3),
]
