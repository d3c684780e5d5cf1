// resample IN OUT RATE: a mono recording at another rate, block by block.
#include <moxsp.h>
#include <sndfile.h>
#include <stdio.h>
#include <stdlib.h>

enum { block = 4096, taps = 128 };  // taps at the lower of both rates

int main(int argc, char** argv) {
  const int rate = argc == 4 ? atoi(argv[3]) : 0;
  if (rate < 1) return fprintf(stderr, "usage: resample IN OUT RATE\n"), 1;
  SF_INFO info = {0};
  SNDFILE* in = sf_open(argv[1], SFM_READ, &info);
  if (!in) return fprintf(stderr, "%s: %s\n", argv[1], sf_strerror(NULL)), 1;
  if (info.channels != 1) return fprintf(stderr, "%s is not mono\n", argv[1]), 1;
  const int in_rate = info.samplerate;
  info.samplerate = rate;
  SNDFILE* out = sf_open(argv[2], SFM_WRITE, &info);
  if (!out) return fprintf(stderr, "%s: %s\n", argv[2], sf_strerror(NULL)), 1;

  int size, filter_len, filters, count;
  const int len = rate < in_rate ? (int)((double)taps * in_rate / rate) : taps;
  if (moxsResamplePolyphaseFixedGetSize_32f(in_rate, rate, len, &size, &filter_len, &filters, 0) <
      0)
    return 1;
  MoxsResamplePolyphaseFixedState* state = malloc((size_t)size);
  if (moxsResamplePolyphaseFixedInit_32f(in_rate, rate, len, 0.96f, 12, state, 0) < 0) return 1;

  // The next output lies `time` behind line[half], and has `half` samples before it in the line.
  const int half = filter_len / 2;
  Mox32f* line = moxsMalloc_32f(3 * half + block);
  Mox32f* y = moxsMalloc_32f((int)((half + block) * (double)rate / in_rate) + 2);
  if (!line || !y) return 1;
  Mox64f time = 0;
  int held = half;
  moxsZero_32f(line, half);  // silence before the first block
  for (int more = 1; more;) {
    int added = (int)sf_read_float(in, line + held, block);
    more = added == block;
    if (!more) {  // and behind the last
      moxsZero_32f(line + held + added, half);
      added += half;
    }
    held += added;
    const int ready = held - 2 * half;  // samples that have `half` others on either side
    if (ready < 1) continue;
    moxsResamplePolyphaseFixed_32f(line + half, ready, y, 1, &time, &count, state);
    sf_write_float(out, y, count);
    const int done = (int)time;
    time -= done;
    held -= done;
    moxsMove_32f(line + done, line, held);
  }
  moxsFree(y);
  moxsFree(line);
  free(state);
  return sf_close(in) || sf_close(out);
}
