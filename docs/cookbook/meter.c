// meter FILE: peak and RMS of each tenth of a second of a 16-bit recording, in decibels below full
// scale, all channels together.
#include <math.h>
#include <moxsp.h>
#include <sndfile.h>
#include <stdio.h>
#include <stdlib.h>

static double decibels(double amplitude) {
  return 20 * log10(amplitude / 32768);  // minus infinity for 0
}

int main(int argc, char** argv) {
  if (argc != 2) return fprintf(stderr, "usage: meter FILE\n"), 1;
  SF_INFO info = {0};
  SNDFILE* file = sf_open(argv[1], SFM_READ, &info);
  if (!file) return fprintf(stderr, "%s: %s\n", argv[1], sf_strerror(NULL)), 1;

  const int most = info.samplerate / 10 * info.channels;
  Mox16s* x = moxsMalloc_16s(most);
  if (!x) return 1;
  double time = 0;
  for (int len; (len = (int)sf_read_short(file, x, most)) > 0; time += 0.1) {
    Mox16s peak;
    Mox32f norm;  // the root of the sum of squares, which is exact in 64 bits
    moxsMaxAbs_16s(x, len, &peak);
    moxsNorm_L2_16s32f(x, len, &norm);
    printf("%.1f s  peak %6.1f dB  rms %6.1f dB\n", time, decibels(peak),
           decibels(norm / sqrt(len)));
  }
  moxsFree(x);
  return sf_close(file);
}
