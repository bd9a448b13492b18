"""Bars of the calls."""
from bars import Bar, elements


def stub_margin(row, results):
    """Nanoseconds left of the two that the jump through the table may cost."""
    return 2.0 - (row.ours - row.ns["direct"])


BARS = [
    Bar("A call through an export costs at most 2 ns more than the body (value: ns left)", r"noxs\w+", elements(1),
        stub_margin, 0.0, family="startup", unit=" ns", slack=0),
]

LIMITS = """
A single call of a few nanoseconds is measured to about one of them.
"""
