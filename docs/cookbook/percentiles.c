// percentiles: of 100,000 response times, by sorting.
#include <math.h>
#include <moxsp.h>
#include <stdio.h>

enum { len = 100000 };

int main(void) {
  static Mox32f times[len], buffer[len];
  unsigned seed = 1;
  moxsRandUniform_Direct_32f(times, len, 1e-7f, 1, &seed);
  moxsLn_32f_I(times, len);
  moxsMulC_32f_I(-10, times, len);  // exponential, with a mean of 10 ms

  // A radix sort orders the bit patterns: a NaN would go to an end, where it is easily found.
  moxsSortRadixAscend_32f_I(times, buffer, len);

  const double percents[5] = {1, 50, 90, 99, 99.9};
  for (int i = 0; i < 5; ++i) {
    const int rank = (int)ceil(percents[i] / 100 * len);  // the nearest rank, from 1
    printf("%5.1f %% within %6.2f ms\n", percents[i], times[rank - 1]);
  }
  printf("slowest        %6.2f ms\n", times[len - 1]);
}
