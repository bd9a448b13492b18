"""Bars of the array layer, whose one body is compared with peers of its own instruction set."""
from bars import MIB, Bar, against, against_limit_or_peer, elements, every_row, size

LOOPS = against("gcc", "clang")
VALUES = r"(Add|SubFrom|ScaleBy|Divide)Value\w*|(Add|Sub|Mul|Div)Vec(cd|dc|cc)|ConjMulcc|MulI"
MASKS = r"FindMaskC?_\w+ \d code"
MOVES = r"Flip|FlipConj|Reverse"


def nanoseconds(row, results):
    """How far an element stays below the time allowed, as a factor."""
    return 0.32 / row.per_element


BARS = [
    Bar("w7: arithmetic, masks and reversals of arrays at least at GCC and clang, 1000 elements",
        f"{VALUES}|{MASKS}|{MOVES}", elements(1000), LOOPS, 1.0, build="w7", family="array"),
    Bar("h9: arithmetic, masks and reversals of arrays at the traffic limit or the best peer, 32 MiB",
        f"{VALUES}|{MASKS}|{MOVES}", size(32 * MIB, 1 << 40), against_limit_or_peer, 0.95, build="h9", family="array"),
    Bar("w7: running sums at least at GCC and clang", r"CumSum\w*", elements(1000), LOOPS, 1.0, build="w7",
        family="array"),
    Bar("w7: histograms at least at GCC and clang", r"Histo.*", every_row, LOOPS, 1.0, build="w7", family="array"),
    Bar("w7: histograms take at most 0.32 ns an element (value: of that time)", r"Histo(gramCount 100 bins|Count)",
        every_row, nanoseconds, 1.0, build="w7", family="array"),
    Bar("w7: lists of places and elements, compression and bit fields at least at GCC and clang, 1000 elements",
        r"Find(Indexes|AndGather)\w+ \d code|PackByMaskc?|v\w+|Bit(Pack|Unpack)_\w+|CountGT", elements(1000), LOOPS, 1.0,
        build="w7", family="array"),
    Bar("h9: tests of neighbours at the traffic limit or the best peer, 32 MiB", r"InternalCollectK1?_64f",
        size(32 * MIB, 1 << 40), against_limit_or_peer, 0.95, build="h9", family="array"),
]

LIMITS = """
Division of complex numbers takes one element at a time by contract, which leaves the compilers' two divisions in one
instruction ahead. The lists of places and the compressions go through the bits of a comparison one by one; the
compilers' loops branch on every element, which costs nothing where a processor remembers a short array's outcomes, as
it does here. A count of a histogram takes 1.6 cycles of reading and writing memory; four tables counted in turn and
added at the end were slower (0.6 ns against 0.45 an element for indexes, no gain for values).
"""
