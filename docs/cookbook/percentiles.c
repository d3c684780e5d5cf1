// percentiles: of 100,000 response times, by sorting.
#include <math.h>
#include <moxsp.h>
#include <stdio.h>

enum { len = 100000 };

int main(void) {
  static Mox32f times[len], buffer[len];
  unsigned random = 1;
  for (int i = 0; i < len; ++i) {  // exponential, with a mean of 10 ms
    random = random * 1664525u + 1013904223u;
    times[i] = -10 * logf((random >> 8 | 1) / 16777216.0f);
  }

  // A radix sort orders the bit patterns: a NaN would go to an end, where it is easily found.
  moxsSortRadixAscend_32f_I(times, buffer, len);

  const double percents[5] = {1, 50, 90, 99, 99.9};
  for (int i = 0; i < 5; ++i) {
    const int rank = (int)ceil(percents[i] / 100 * len);  // the nearest rank, from 1
    printf("%5.1f %% within %6.2f ms\n", percents[i], times[rank - 1]);
  }
  printf("slowest        %6.2f ms\n", times[len - 1]);
}
