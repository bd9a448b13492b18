"""Bars of convolution, correlation and FIR by transforms."""
from bars import Bar, against, every_row

BARS = [
    Bar("Convolution and correlation by transforms at least at FFTW's plans by the same method",
        r"(complex )?(convolution|cross correlation|autocorrelation)$", every_row, against("FFTW"), 1.0, family="spectral"),
    Bar("FIR by overlap-save at least at FFTW's plans by the same scheme", r"overlap-save FIR.*", every_row, against("FFTW"), 1.0,
        family="spectral"),
]

LIMITS = """
Every call makes its transform's tables in the caller's buffer, which FFTW's plans have ready: one wave, of which the
tables are strided copies, takes about 6 % of a call. Real data are multiplied without recombining their spectra.
The complex rows of 64 and 128 KiB moved between 0.74 and 1.02 from run to run: they work on four arrays of 128 KiB in a
second-level cache whose ways are as long, so the placement of pages may decide (not measured).
"""
