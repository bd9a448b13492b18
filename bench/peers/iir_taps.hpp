// Taps of the measured recursive filters, divided by a0: sections with poles of magnitude 0.7 and a little more, and
// direct forms that are their product. Complex ones are the same turned along the circle.
#pragma once

constexpr int kIirMost = 32;  // highest order, or twice the sections

// Section s: b0, b1, b2, a1, a2.
static inline void iir_section(int s, double* taps) {
  taps[0] = 0.2;
  taps[1] = 0.1;
  taps[2] = 0.03 + 0.005 * s;
  taps[3] = -1.2 + 0.15 * s;
  taps[4] = 0.5 + 0.02 * s;
}

// b0..bn, a0..an of a direct form; an odd order ends with a single pole.
static inline void iir_direct(int order, double* taps) {
  double* parts[] = {taps, taps + order + 1};
  for (int k = 0; k < 2 * (order + 1); ++k) taps[k] = 0;
  taps[0] = taps[order + 1] = 1;
  for (int done = 0, s = 0; done < order; done += 2, ++s) {
    double section[5];
    iir_section(s, section);
    if (done + 1 == order) section[2] = section[4] = 0, section[3] = -0.5;
    for (int p = 0; p < 2; ++p) {
      const double t[] = {p ? 1 : section[0], p ? section[3] : section[1], p ? section[4] : section[2]};
      for (int k = done + 2 < order ? done + 2 : order; k >= 0; --k)
        parts[p][k] = t[0] * parts[p][k] + (k > 0 ? t[1] * parts[p][k - 1] : 0) + (k > 1 ? t[2] * parts[p][k - 2] : 0);
    }
  }
}

// Tap k turned by the k-th power of 0.6 + 0.8 i, in place from the last to the first: n reals become n complex.
static inline void iir_turn(double* taps, int n) {
  for (int k = n - 1; k >= 0; --k) {
    double re = taps[k], im = 0;
    for (int j = 0; j < k; ++j) {
      const double was = re;
      re = 0.6 * was - 0.8 * im;
      im = 0.8 * was + 0.6 * im;
    }
    taps[2 * k] = re;
    taps[2 * k + 1] = im;
  }
}
