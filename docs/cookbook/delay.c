// delay: how much later a noisy copy of a sound is than the sound, by cross-correlation.
#include <moxsp.h>
#include <stdio.h>

enum { len = 16000, later = 137, most = 1000, lags = 2 * most + 1 };

int main(void) {
  static Mox32f sound[len], copy[len], correlation[lags];
  unsigned seed = 1;
  moxsRandGauss_Direct_32f(sound, len, 0, 1, &seed);
  moxsRandGauss_Direct_32f(copy, len, 0, 0.5f, &seed);
  moxsAddProductC_32f(sound, 0.5f, copy + later, len - later);  // half as loud as the sound

  // correlation[n] compares sound[k] with copy[k + n - most].
  if (moxsCrossCorr_32f(sound, len, copy, len, correlation, lags, -most) < 0) return 1;
  Mox32f peak, norm1, norm2;
  int place;
  moxsMaxIndx_32f(correlation, lags, &peak, &place);
  moxsNorm_L2_32f(sound, len, &norm1);
  moxsNorm_L2_32f(copy, len, &norm2);
  printf("%d samples later, similarity %.2f\n", place - most, peak / (norm1 * norm2));
}
