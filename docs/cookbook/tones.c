// tones FILE: the telephone keys (DTMF) in a mono recording, a tenth of a second each.
#include <moxsp.h>
#include <sndfile.h>
#include <stdio.h>

enum { frequencies = 8 };

int main(int argc, char** argv) {
  if (argc != 2) return fprintf(stderr, "usage: tones FILE\n"), 1;
  SF_INFO info = {0};
  SNDFILE* file = sf_open(argv[1], SFM_READ, &info);
  if (!file) return fprintf(stderr, "%s: %s\n", argv[1], sf_strerror(NULL)), 1;
  if (info.channels != 1) return fprintf(stderr, "%s is not mono\n", argv[1]), 1;

  Mox32f relative[frequencies] = {697, 770, 852, 941, 1209, 1336, 1477, 1633};
  moxsDivC_32f_I((Mox32f)info.samplerate, relative, frequencies);

  const int len = info.samplerate / 10;
  Mox32f *x = moxsMalloc_32f(len), level[frequencies], row, column;
  while (x && sf_read_float(file, x, len) == len) {
    Mox32fc bin[frequencies];
    for (int f = 0; f < frequencies; f += 2)
      if (moxsGoertzTwo_32f(x, len, &bin[f], &relative[f]) < 0) return 1;
    moxsMagnitude_32fc(bin, level, frequencies);
    moxsMulC_32f_I(2.0f / (Mox32f)len, level, frequencies);  // the amplitude of a sine

    int r, c;
    moxsMaxIndx_32f(level, 4, &row, &r);
    moxsMaxIndx_32f(level + 4, 4, &column, &c);
    if (row > 0.05f && column > 0.05f) printf("%c ", "123A456B789C*0#D"[4 * r + c]);
  }
  printf("\n");
  moxsFree(x);
  return sf_close(file);
}
