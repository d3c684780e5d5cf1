// convolve: a signal of 5000 samples and a response of 2000, convolved by FFT.
#include <math.h>
#include <moxsp.h>
#include <stdio.h>

enum { signal_len = 5000, response_len = 2000, out_len = signal_len + response_len - 1 };
enum { order = 13, points = 1 << order };  // at least out_len, or the end runs into the start

int main(void) {
  static Mox32f signal[points], response[points], direct[out_len];  // zeros behind the data
  for (int i = 0; i < signal_len; ++i) signal[i] = (Mox32f)sin(0.001 * i * i);
  for (int i = 0; i < response_len; ++i) response[i] = (Mox32f)(exp(-0.002 * i) * cos(0.3 * i));

  // The definition, for comparison: a filter with the response as taps.
  MoxsFIRState* filter;
  if (moxsFIRInitAlloc_32f(&filter, response, response_len, NULL) < 0) return 1;
  for (int i = 0; i < out_len; ++i) moxsFIROne_32f(signal[i], &direct[i], filter);
  moxsFIRFree_32f(filter);

  MoxsFFTSpec* fft;
  if (moxsFFTInitAlloc_R_32f(&fft, order, 2, 0) < 0) return 1;  // 2: the inverse is scaled by 1/N
  moxsFFTFwd_RToPerm_32f_I(signal, fft, NULL);
  moxsFFTFwd_RToPerm_32f_I(response, fft, NULL);
  moxsMulPerm_32f_I(response, signal, points);  // not moxsMul: these are packed complex numbers
  moxsFFTInv_PermToR_32f_I(signal, fft, NULL);
  moxsFFTFree_R_32f(fft);

  Mox32f largest, difference;
  moxsNorm_Inf_32f(direct, out_len, &largest);
  moxsNormDiff_Inf_32f(signal, direct, out_len, &difference);
  printf("largest output %.3f\n", largest);
  printf("difference from the direct sum below 1e-6 of it: %s\n",
         difference < 1e-6f * largest ? "yes" : "no");
}
