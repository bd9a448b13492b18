"""Bars of the cosine transforms."""
from bars import Bar, against, against_row


def power_of_two(row):
    return row.len & (row.len - 1) == 0


def real_fft(row):
    return f"real FFT order {row.len.bit_length() - 1}", "aligned"


BARS = [
    Bar("Cosine transforms of 2^n values in at most 1.5 of the real Fourier transform's time (value: its time by ours)",
        r"(inverse )?DCT length \d+", lambda row: power_of_two(row) and row.len >= 16, against_row(real_fft), 1 / 1.5,
        family="dct"),
    Bar("Cosine transforms of other lengths at least 1.3 of FFTW's plans", r"(inverse )?DCT length \d+",
        lambda row: not power_of_two(row), against("FFTW"), 1.3, family="dct"),
    Bar("A spec for cosine transforms of 2^n values, 1024 and more, in the time of 3 transforms (value: transforms by spec)",
        r"spec of DCT length \d+", lambda row: power_of_two(row) and row.len >= 1024,
        against_row(lambda row: (row.name.removeprefix("spec of "), "aligned")), 1 / 3, family="dct"),
]

LIMITS = """
At 16 to 64 points the turning after the real transform is a quarter of the time and the call of the short transform a
sixth; overlapped vectors at its end helped at 16 points, loads in halves against waiting stores didn't. Length 5000
goes by a chirp and complex transforms of 8192 points; FFTW has a plan of the factors 2 and 5.
"""
