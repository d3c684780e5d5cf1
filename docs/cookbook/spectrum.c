// spectrum FILE: frequencies in hertz and their levels in decibels, where a sine that fills the
// range has 0 dB. Mean of overlapping blocks under a Hann window, of the first channel.
#include <moxsp.h>
#include <sndfile.h>
#include <stdio.h>

enum { order = 10, points = 1 << order, bins = points / 2 + 1, hop = points / 2 };
enum { most_channels = 64 };

// Reads a hop of the first channel, and tells whether the file had so much.
static int read_hop(SNDFILE* file, Mox32f* x) {
  Mox32f frame[most_channels];
  for (int i = 0; i < hop; ++i) {
    if (sf_readf_float(file, frame, 1) != 1) return 0;
    x[i] = frame[0];
  }
  return 1;
}

int main(int argc, char** argv) {
  if (argc != 2) return fprintf(stderr, "usage: spectrum FILE\n"), 1;
  SF_INFO info = {0};
  SNDFILE* file = sf_open(argv[1], SFM_READ, &info);
  if (!file) return fprintf(stderr, "%s: %s\n", argv[1], sf_strerror(NULL)), 1;
  if (info.channels > most_channels) return fprintf(stderr, "too many channels\n"), 1;

  Mox32f window[points + 1], block[points], windowed[points], power[bins], sum[bins] = {0}, gain;
  moxsSet_32f(1, window, points + 1);
  moxsWinHann_32f_I(window, points + 1);  // symmetric; without its last element, periodic
  moxsSum_32f(window, points, &gain, 0);

  MoxsFFTSpec* fft;
  if (moxsFFTInitAlloc_R_32f(&fft, order, moxNormNone, 0) < 0) return 1;
  Mox32fc spectrum[bins];  // CCS: real and imaginary parts in turn, as complex numbers have them

  int blocks = 0;
  for (int more = read_hop(file, block); more && read_hop(file, block + hop); ++blocks) {
    moxsMul_32f(window, block, windowed, points);
    moxsFFTFwd_RToCCS_32f(windowed, &spectrum[0].re, fft, NULL);
    moxsPowerSpectr_32fc(spectrum, power, bins);
    moxsAdd_32f_I(power, sum, bins);
    moxsCopy_32f(block + hop, block, hop);
  }
  if (blocks == 0) return fprintf(stderr, "%s is too short\n", argv[1]), 1;

  // A sine of amplitude 1 has the magnitude gain / 2. The logarithm of an empty bin is a warning,
  // and minus infinity: only a status below 0 is an error.
  moxsMulC_32f_I(4 / (gain * gain * (Mox32f)blocks), sum, bins);
  if (moxsLn_32f_I(sum, bins) < 0) return 1;
  moxsMulC_32f_I(4.3429448f, sum, bins);  // 10 / ln(10)
  for (int k = 0; k < bins; ++k) printf("%g %.1f\n", (double)k * info.samplerate / points, sum[k]);
  moxsFFTFree_R_32f(fft);
  return sf_close(file);
}
