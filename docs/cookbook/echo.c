// echo: an adaptive filter learns the path from a loudspeaker to a microphone, and takes its echo
// away.
#include <math.h>
#include <moxsp.h>
#include <stdio.h>

enum { rate = 8000, seconds = 4, len = seconds * rate, taps_len = 256, block = 160 };

static double decibels(const Mox32f* x) {
  Mox32f norm;
  moxsNorm_L2_32f(x, rate, &norm);
  return 20 * log10(norm / sqrt(rate));
}

int main(void) {
  static Mox32f speaker[len], microphone[len], output[len];
  Mox32f room[taps_len];
  unsigned seed = 1;
  moxsRandGauss_Direct_32f(speaker, len, 0, 0.1f, &seed);
  moxsRandGauss_Direct_32f(room, taps_len, 0, 0.1f, &seed);
  for (int i = 0; i < taps_len; ++i) room[i] *= expf(-0.02f * (Mox32f)i);

  MoxsFIRState* path;
  if (moxsFIRInitAlloc_32f(&path, room, taps_len, NULL) < 0) return 1;
  moxsFIR_32f(speaker, microphone, len, path);
  moxsFIRFree_32f(path);
  moxsRandGauss_Direct_32f(output, len, 0, 1e-4f, &seed);
  moxsAdd_32f_I(output, microphone, len);  // its own noise, at -80 dB

  MoxsFIRLMSState* filter;
  if (moxsFIRLMSInitAlloc_32f(&filter, NULL, taps_len, NULL, 0) < 0) return 1;
  const Mox32f power = 0.1f * 0.1f, mu = 0.25f / (taps_len * power);
  for (int i = 0; i < len; i += block) {
    Mox32f echo[block];
    moxsFIRLMS_32f(speaker + i, microphone + i, echo, block, mu, filter);
    moxsSub_32f(echo, microphone + i, output + i, block);  // microphone - echo
  }
  moxsFIRLMSFree_32f(filter);
  for (int s = 0; s < seconds; ++s)
    printf("second %d: echo %4.0f dB, left %4.0f dB\n", s + 1, decibels(microphone + s * rate),
           decibels(output + s * rate));
}
