// formats: samples of 16 bits, 24 bits and floats from -1 to 1, each from each.
#include <moxsp.h>
#include <stdio.h>

enum { len = 4 };

static void show(const char* what, const Mox32f* x) {
  printf("%-28s", what);
  for (int i = 0; i < len; ++i) printf(" %12.7f", x[i]);
  printf("\n");
}

int main(void) {
  const Mox16s pcm[len] = {32767, -32768, 1, 0};
  Mox32f x[len];
  Mox8u packed[3 * len];
  Mox32s wide[len];
  Mox16s back[len];

  // A factor is divided by: 15 brings 16 bits to the range from -1 to 1, -15 brings them back.
  moxsConvert_16s32f_Sfs(pcm, x, len, 15);
  show("16 bits as floats", x);

  // Floats to 24 bits; 1.0 itself does not fit and becomes 8388607, without a status.
  x[3] = 1;
  moxsConvert_32f24s_Sfs(x, packed, len, moxRoundNearEven, -23);
  moxsConvert_24s32f(packed, x, len);      // the integers as they are
  moxsMulC_32f_I(1.0f / 8388608, x, len);  // so the scale is ours to undo: 2^-23, exact
  show("through 24 bits", x);

  // 24 to 16 bits by way of 32, rounded to nearest: a shift by 8 with the factor 8.
  moxsConvert_24s32s(packed, wide, len);
  moxsConvert_32s16s_Sfs(wide, back, len, 8);
  printf("%-28s %12d %12d %12d %12d\n", "24 bits as 16 bits", back[0], back[1], back[2], back[3]);

  // 16 to 24 bits: 16 to 32, and 8 bits up, with the factor -8.
  moxsConvert_16s32s(pcm, wide, len);
  moxsConvert_32s24s_Sfs(wide, packed, len, -8);
  printf("%-28s %02x %02x %02x, least significant byte first\n", "32767 as 24 bits", packed[0],
         packed[1], packed[2]);
}
