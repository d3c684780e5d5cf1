// lowpass IN OUT HERTZ: a low-pass filter over a mono recording, block by block.
#include <moxsp.h>
#include <sndfile.h>
#include <stdio.h>
#include <stdlib.h>

enum { taps_len = 201, block_len = 4096 };

// Designed in double precision. 1: divided by their sum, so that a constant passes unchanged.
static MoxStatus design(Mox32f* taps, double cutoff) {
  Mox64f exact[taps_len];
  const MoxStatus status = moxsFIRGenLowpass_64f(cutoff, exact, taps_len, moxWindowBlackmanOpt, 1);
  return status < 0 ? status : moxsConvert_64f32f(exact, taps, taps_len);
}

int main(int argc, char** argv) {
  if (argc != 4) return fprintf(stderr, "usage: lowpass IN OUT HERTZ\n"), 1;
  SF_INFO info = {0};
  SNDFILE* in = sf_open(argv[1], SFM_READ, &info);
  if (!in) return fprintf(stderr, "%s: %s\n", argv[1], sf_strerror(NULL)), 1;
  if (info.channels != 1) return fprintf(stderr, "%s is not mono\n", argv[1]), 1;

  Mox32f taps[taps_len], x[block_len];
  const MoxStatus status = design(taps, atof(argv[3]) / info.samplerate);
  if (status < 0) return fprintf(stderr, "%s hertz: %s\n", argv[3], moxsStatusText(status)), 1;
  MoxsFIRState* filter;
  if (moxsFIRInitAlloc_32f(&filter, taps, taps_len, NULL) < 0) return 1;  // NULL: silence before
  SNDFILE* out = sf_open(argv[2], SFM_WRITE, &info);
  if (!out) return fprintf(stderr, "%s: %s\n", argv[2], sf_strerror(out)), 1;

  // The state carries the last samples from block to block, of any length.
  for (int len; (len = (int)sf_read_float(in, x, block_len)) > 0;) {
    moxsFIR_32f_I(x, len, filter);
    sf_write_float(out, x, len);
  }
  moxsFIRFree_32f(filter);
  return sf_close(in) || sf_close(out);
}
