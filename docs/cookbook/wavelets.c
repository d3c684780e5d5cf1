// wavelets: noise taken from a signal of steps by five levels of the Haar transform.
#include <math.h>
#include <moxsp.h>
#include <stdio.h>

enum { len = 4096, levels = 5, lowest = len >> levels };

static void show(const char* what, const Mox32f* x, const Mox32f* clean) {
  Mox32f norm;
  moxsNormDiff_L2_32f(x, clean, len, &norm);
  printf("%-12s %.3f\n", what, norm / sqrtf(len));
}

int main(void) {
  static Mox32f clean[len], x[len], copy[len];
  const Mox32f sigma = 0.2f;
  unsigned seed = 1;
  for (int i = 0; i < len; ++i) clean[i] = (Mox32f)(i / 700 % 3);
  moxsRandGauss_Direct_32f(x, len, 0, sigma, &seed);
  moxsAdd_32f_I(clean, x, len);
  show("noise before", x, clean);

  // Each level splits what the last one left: x holds the lowest band, then higher and higher ones.
  for (int n = len; n > lowest; n /= 2) {
    moxsCopy_32f(x, copy, n);
    moxsWTHaarFwd_32f(copy, n, x, x + n / 2);
  }
  // The noise of a band is that of the one above it, divided by the root of 2.
  Mox32f limit = 3 * sigma;
  for (int n = len; n > lowest; n /= 2) {
    Mox32f *band = x + n / 2, *part = copy;
    limit /= sqrtf(2);
    moxsThreshold_LTValGTVal_32f(band, part, n / 2, -limit, -limit, limit, limit);
    moxsSub_32f_I(part, band, n / 2);  // magnitudes lowered by the limit, down to 0
  }
  for (int n = 2 * lowest; n <= len; n *= 2) {
    moxsWTHaarInv_32f(x, x + n / 2, copy, n);
    moxsCopy_32f(copy, x, n);
  }
  show("noise left", x, clean);
}
