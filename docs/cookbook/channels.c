// channels: interleaved samples to a row for each channel, and back.
#include <moxsp.h>
#include <stdio.h>

enum { channels = 3, len = 4 };

int main(void) {
  // Sample j of channel c is element j * channels + c.
  Mox16s interleaved[channels * len] = {100, 2000, -16384, 101, 2001, -16384,
                                        102, 2002, -16384, 103, 2003, -16384};
  Mox32f memory[channels][len];
  Mox32f* const rows[channels] = {memory[0], memory[1], memory[2]};

  moxsSplitScaled_16s32f_D2L(interleaved, rows, channels, len);  // / 2^15, exact
  printf("channel 2: %g %g %g %g\n", rows[2][0], rows[2][1], rows[2][2], rows[2][3]);

  moxsMulC_32f_I(0.5f, rows[1], len);  // the second channel at half its level
  const Mox32f* const sources[channels] = {rows[0], rows[1], rows[2]};
  moxsJoinScaled_32f16s_D2L(sources, channels, len, interleaved);  // * 2^15, rounded, saturated
  printf("frames:");
  for (int j = 0; j < len; ++j)
    printf(" (%d %d %d)", interleaved[3 * j], interleaved[3 * j + 1], interleaved[3 * j + 2]);
  printf("\n");

  // Two channels of 16 bits are an array of complex numbers: left real, right imaginary.
  const Mox16s stereo[6] = {1, -1, 2, -2, 3, -3};
  Mox16s left[3], right[3];
  moxsCplxToReal_16sc((const Mox16sc*)stereo, left, right, 3);
  printf("left: %d %d %d, right: %d %d %d\n", left[0], left[1], left[2], right[0], right[1],
         right[2]);
}
