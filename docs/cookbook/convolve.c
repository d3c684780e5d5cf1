// convolve: a signal of 5000 samples and a response of 2000, by one call, and step by step.
#include <math.h>
#include <moxsp.h>
#include <stdio.h>

enum { signal_len = 5000, response_len = 2000, out_len = signal_len + response_len - 1 };
enum { order = 13, points = 1 << order };  // at least out_len, or the end runs into the start

int main(void) {
  static Mox32f signal[points], response[points], result[out_len];  // zeros behind the data
  moxsVectorJaehne_32f(signal, signal_len, 1);                      // a sine of growing frequency
  for (int i = 0; i < response_len; ++i) response[i] = (Mox32f)(exp(-0.002 * i) * cos(0.3 * i));

  if (moxsConv_32f(signal, signal_len, response, response_len, result) < 0) return 1;

  // What it does inside. By hand, the spectrum of a response is made once for many signals.
  MoxsFFTSpec* fft;
  if (moxsFFTInitAlloc_R_32f(&fft, order, moxNormInverse, 0) < 0) return 1;
  moxsFFTFwd_RToPerm_32f_I(signal, fft, NULL);
  moxsFFTFwd_RToPerm_32f_I(response, fft, NULL);
  moxsMulPerm_32f_I(response, signal, points);  // not moxsMul: these are packed complex numbers
  moxsFFTInv_PermToR_32f_I(signal, fft, NULL);
  moxsFFTFree_R_32f(fft);

  Mox32f largest, difference;
  moxsNorm_Inf_32f(result, out_len, &largest);
  moxsNormDiff_Inf_32f(signal, result, out_len, &difference);
  printf("largest output %.3f\n", largest);
  printf("difference of both ways below 1e-6 of it: %s\n",
         difference < 1e-6f * largest ? "yes" : "no");
}
