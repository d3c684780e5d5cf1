// Goertzel's recurrence beside spandsp's, on the blocks of its tone detectors and on longer ones.
#include <moxsp.h>
#include <spandsp.h>

#include <cmath>
#include <memory>
#include <vector>

#include "support/compare.h"

namespace {

struct Data {
  explicit Data(long len) : words(len), floats(len), doubles(len) {
    for (long i = 0; i < len; ++i) {
      words[i] = Mox16s(10000 * std::sin(0.6 * double(i)));
      floats[i] = words[i], doubles[i] = words[i];
    }
    make_goertzel_descriptor(&tone, 770, int(len));
    goertzel_init(&peer, &tone);
  }
  std::vector<Mox16s> words;
  std::vector<Mox32f> floats;
  std::vector<Mox64f> doubles;
  goertzel_descriptor_t tone;
  goertzel_state_t peer;
};

constexpr Mox32f relFreq = 770.0f / 8000;

template <class Ours>
void addSizes(const char* family, double bytes, double ops, Ours ours) {
  for (const long len : {102L, 205L, 1024L, 65536L}) {
    const auto data = std::make_shared<Data>(len);
    bench::add({.family = family,
                .size = len,
                .work = {.bytesRead = bytes * double(len), .doubleOps = ops * double(len)},
                .ours = [=] { ours(*data, int(len)); },
                .peers = {{"spandsp", [=] {
                             goertzel_update(&data->peer, data->words.data(), int(len));
                             const auto energy = goertzel_result(&data->peer);
                             bench::clobber(&energy);
                           }}}});
  }
}

const bool registered = [] {
  addSizes("Goertz_32f", 4, 3, [](Data& d, int n) {
    Mox32fc bin;
    moxsGoertz_32f(d.floats.data(), n, &bin, relFreq);
    bench::clobber(&bin);
  });
  addSizes("Goertz_16s_Sfs", 2, 3, [](Data& d, int n) {
    Mox16sc bin;
    moxsGoertz_16s_Sfs(d.words.data(), n, &bin, relFreq, 8);
    bench::clobber(&bin);
  });
  addSizes("GoertzTwo_32f", 4, 6, [](Data& d, int n) {
    Mox32fc bins[2];
    const Mox32f both[] = {relFreq, 2 * relFreq};
    moxsGoertzTwo_32f(d.floats.data(), n, bins, both);
    bench::clobber(bins);
  });
  addSizes("Goertz_64f", 8, 3, [](Data& d, int n) {
    Mox64fc bin;
    moxsGoertz_64f(d.doubles.data(), n, &bin, relFreq);
    bench::clobber(&bin);
  });
  return true;
}();

}  // namespace
