// Linked in place of FFTW's test for AVX: the processor has none.
extern "C" int __wrap_fftw_have_simd_avx() { return 0; }
