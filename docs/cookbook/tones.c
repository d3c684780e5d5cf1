// tones FILE: the telephone keys (DTMF) in a mono recording, a tenth of a second each.
#include <math.h>
#include <moxsp.h>
#include <sndfile.h>
#include <stdio.h>

enum { most_len = 4800, frequencies = 8 };  // a tenth of a second at 48 kHz

int main(int argc, char** argv) {
  SF_INFO info = {0};
  SNDFILE* file = argc == 2 ? sf_open(argv[1], SFM_READ, &info) : NULL;
  const int len = info.samplerate / 10;
  if (!file || info.channels != 1 || len > most_len)
    return fprintf(stderr, "usage: tones FILE\n"), 1;

  // One bin of a Fourier transform is a dot product with a turning pointer of that frequency.
  static const double hertz[frequencies] = {697, 770, 852, 941, 1209, 1336, 1477, 1633};
  static Mox32fc pointer[frequencies][most_len];
  for (int f = 0; f < frequencies; ++f)
    for (int i = 0; i < len; ++i) {
      const double turn = 2 * 3.14159265358979 * hertz[f] * i / info.samplerate;
      pointer[f][i] = (Mox32fc){(Mox32f)cos(turn), (Mox32f)-sin(turn)};
    }

  Mox32f x[most_len], level[frequencies], row, column;
  while (sf_read_float(file, x, len) == len) {
    Mox32fc bin[frequencies];
    for (int f = 0; f < frequencies; ++f) moxsDotProd_32f32fc(x, pointer[f], len, &bin[f]);
    moxsMagnitude_32fc(bin, level, frequencies);
    moxsMulC_32f_I(2.0f / (Mox32f)len, level, frequencies);  // the amplitude of a sine

    int r, c;
    moxsMaxIndx_32f(level, 4, &row, &r);
    moxsMaxIndx_32f(level + 4, 4, &column, &c);
    if (row > 0.05f && column > 0.05f) printf("%c ", "123A456B789C*0#D"[4 * r + c]);
  }
  printf("\n");
  return sf_close(file);
}
