// signals: writes the recordings that the other programs read.
//   tones.wav  three tones in a little noise, a second long
//   dial.wav   the keys 1 5 9 # of a telephone, a tenth of a second each, with pauses of the same
#include <moxsp.h>
#include <sndfile.h>
#include <stdio.h>

enum { rate = 16000, key = rate / 10 };

static void add_tone(Mox32f* x, int len, double hertz, Mox32f amplitude) {
  Mox32f tone[rate], phase = 0;
  moxsTone_Direct_32f(tone, len, amplitude, (Mox32f)(hertz / rate), &phase, moxHintAccurate);
  moxsAdd_32f_I(tone, x, len);
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

  Mox32f noise[rate];
  unsigned seed = 1;
  moxsRandUniform_Direct_32f(noise, rate, -1e-3f, 1e-3f, &seed);
  moxsAdd_32f_I(noise, tones, rate);

  const double rows[4] = {697, 770, 852, 941}, columns[4] = {1209, 1336, 1477, 1477};
  for (int i = 0; i < 4; ++i) {
    add_tone(dial + 2 * i * key, key, rows[i], 0.25f);
    add_tone(dial + 2 * i * key, key, columns[i], 0.25f);
  }
  return write_file("tones.wav", tones) || write_file("dial.wav", dial);
}
