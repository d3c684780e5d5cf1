// signals: writes the recordings that the other programs read.
//   tones.wav  three tones in a little noise, a second long
//   dial.wav   the keys 1 5 9 # of a telephone, a tenth of a second each, with pauses of the same
#include <math.h>
#include <moxsp.h>
#include <sndfile.h>
#include <stdio.h>

enum { rate = 16000, key = rate / 10 };

static void add_tone(Mox32f* x, int len, double hertz, Mox32f amplitude) {
  Mox32f tone[rate];
  for (int i = 0; i < len; ++i) tone[i] = (Mox32f)sin(2 * 3.14159265358979 * hertz * i / rate);
  moxsAddProductC_32f(tone, amplitude, x, len);  // x += tone * amplitude
}

static int write_file(const char* name, const Mox32f* x) {
  Mox16s pcm[rate];
  SF_INFO info = {.samplerate = rate, .channels = 1, .format = SF_FORMAT_WAV | SF_FORMAT_PCM_16};
  moxsConvert_32f16s_Sfs(x, pcm, rate, moxRoundNearEven, -15);  // times 2^15
  SNDFILE* file = sf_open(name, SFM_WRITE, &info);
  if (!file) return fprintf(stderr, "%s: %s\n", name, sf_strerror(file)), 1;
  sf_write_short(file, pcm, rate);
  return sf_close(file);
}

int main(void) {
  static Mox32f tones[rate], dial[rate];  // silent at first
  add_tone(tones, rate, 500, 0.5f);
  add_tone(tones, rate, 3000, 0.05f);
  add_tone(tones, rate, 6000, 0.005f);

  unsigned random = 1;
  for (int i = 0; i < rate; ++i) {
    random = random * 1664525u + 1013904223u;
    tones[i] += ((Mox32f)(random >> 8) / 8388608 - 1) * 1e-3f;
  }

  const double rows[4] = {697, 770, 852, 941}, columns[4] = {1209, 1336, 1477, 1477};
  for (int i = 0; i < 4; ++i) {
    add_tone(dial + 2 * i * key, key, rows[i], 0.25f);
    add_tone(dial + 2 * i * key, key, columns[i], 0.25f);
  }
  return write_file("tones.wav", tones) || write_file("dial.wav", dial);
}
