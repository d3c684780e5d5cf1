// lowpass IN OUT HERTZ: a low-pass filter over a mono recording, block by block.
#include <math.h>
#include <moxsp.h>
#include <sndfile.h>
#include <stdio.h>
#include <stdlib.h>

enum { taps_len = 201, delay = taps_len / 2, block_len = 4096 };

// A sinc under a Blackman window; the taps add up to 1, so that a constant passes unchanged.
static void design(Mox32f* taps, double cutoff) {
  const double pi = 3.14159265358979;
  Mox32f sum;
  for (int i = 0; i < taps_len; ++i) {
    const double t = i - delay, turn = 2 * pi * (i + 1) / (taps_len + 1);
    const double sinc = t == 0 ? 2 * cutoff : sin(2 * pi * cutoff * t) / (pi * t);
    taps[i] = (Mox32f)(sinc * (0.42 - 0.5 * cos(turn) + 0.08 * cos(2 * turn)));
  }
  moxsSum_32f(taps, taps_len, &sum, 0);
  moxsDivC_32f_I(sum, taps, taps_len);
}

int main(int argc, char** argv) {
  SF_INFO info = {0};
  SNDFILE* in = argc == 4 ? sf_open(argv[1], SFM_READ, &info) : NULL;
  if (!in || info.channels != 1) return fprintf(stderr, "usage: lowpass IN OUT HERTZ\n"), 1;
  SNDFILE* out = sf_open(argv[2], SFM_WRITE, &info);
  if (!out) return fprintf(stderr, "%s: %s\n", argv[2], sf_strerror(out)), 1;

  Mox32f taps[taps_len], x[block_len];
  MoxsFIRState* filter;
  design(taps, atof(argv[3]) / info.samplerate);
  if (moxsFIRInitAlloc_32f(&filter, taps, taps_len, NULL) < 0) return 1;  // NULL: silence before

  // The state carries the last samples from block to block, of any length.
  for (int len; (len = (int)sf_read_float(in, x, block_len)) > 0;) {
    moxsFIR_32f_I(x, len, filter);
    sf_write_float(out, x, len);
  }
  moxsFIRFree_32f(filter);
  return sf_close(in) || sf_close(out);
}
