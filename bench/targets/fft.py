"""Bars of the internal Fourier transforms."""
import re

from bars import Bar, against, against_row


def order(row):
    return int(row.name.rsplit(" ", 1)[1])


def orders(low, high):
    return lambda row: low <= order(row) <= high


def own(name):
    """The row of this name at the same order."""
    return against_row(lambda row: (re.sub(r".*(?= order)", name, row.name, count=1), "aligned"))


COMPLEX = r"complex FFT( in place)? order \d+"
REAL = r"(inverse )?real FFT order \d+"
FFTW = against("FFTW")

BARS = [
    Bar("Complex Fourier transforms at least at FFTW's plans, mean of orders 2 to 20", COMPLEX, orders(2, 20), FFTW, 1.0,
        family="fft", mean=True),
    Bar("Complex Fourier transforms at least 0.8 of FFTW's plans at every order, 2 to 20", COMPLEX, orders(2, 20), FFTW,
        0.8, family="fft"),
    Bar("Complex Fourier transforms at least 1.5 of FFTW's plans, orders 18 to 22", COMPLEX, orders(18, 22), FFTW, 1.5,
        family="fft"),
    Bar("w7: complex Fourier transforms at least at FFTW held to SSE2, orders 6 to 16", COMPLEX, orders(6, 16), FFTW, 1.0,
        build="w7", family="fft"),
    Bar("Real Fourier transforms at least at FFTW's plans, mean of orders 3 to 21", REAL, orders(3, 21), FFTW, 1.0,
        family="fft", mean=True),
    Bar("Real Fourier transforms at least 0.8 of FFTW's plans at every order, 3 to 21", REAL, orders(3, 21), FFTW, 0.8,
        family="fft"),
    Bar("w7: real Fourier transforms at least at FFTW held to SSE2, orders 6 to 16", REAL, orders(6, 16), FFTW, 1.0,
        build="w7", family="fft"),
    Bar("A spec for complex data in the time of 3 transforms, orders 10 and more (value: transforms by spec)",
        r"spec of complex FFT order \d+", orders(10, 27), own("complex FFT"), 1 / 3, family="fft"),
    Bar("A spec for real data in the time of 3 transforms, orders 10 and more (value: transforms by spec)",
        r"spec of real FFT order \d+", orders(10, 27), own("real FFT"), 1 / 3, family="fft"),
]

LIMITS = """
Order 18: of its time line passes take 27 %, turning columns 19 %, scattering 19 % and the two gatherings 34 %, all
but the turning bound by memory. Tried without gain: lines of 16, prefetching by 2, 4 and 16 lines and into the first
cache, passes over the whole array. The SSE2 transforms of complex orders 6 to 9 are bound by additions: a radix-4
pass takes 13 cycles against 11 of its additions alone, and order 6 has about 14 % more operations than a split radix
has.
"""
