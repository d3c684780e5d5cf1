#include <moxsp.h>
#include <spandsp.h>

#include <memory>
#include <random>
#include <vector>

#include "support/compare.h"

namespace {

struct Data {
  explicit Data(long len) : codes(len), more(len), words(len), floats(len) {
    std::minstd_rand engine;
    for (long i = 0; i < len; ++i) {
      codes[i] = Mox8u(engine() >> 8);
      words[i] = Mox16s(engine() >> 8);
      floats[i] = float(words[i]) / 32768;
    }
  }
  std::vector<Mox8u> codes, more;
  std::vector<Mox16s> words;
  std::vector<float> floats;
};

// Ours beside the peer's, over arrays of two frames of a call, of a second of it, and of minutes.
template <class Ours, class Peer>
void addSizes(const char* family, double bytesRead, double bytesWritten, Ours ours, Peer peer) {
  for (const long len : {320L, 8000L, 4L << 20}) {
    const auto data = std::make_shared<Data>(len);
    bench::add(
        {.family = family,
         .size = len,
         .work = {.bytesRead = bytesRead * double(len), .bytesWritten = bytesWritten * double(len)},
         .ours = [=] { ours(*data, int(len)); },
         .peers = {{"spandsp", [=] { peer(*data, int(len)), bench::clobber(&*data); }}}});
  }
}

// The peer's coder for a law; the loops over arrays are in its library.
g711_state_t* coder(int law) { return g711_init(nullptr, law); }

const bool registered = [] {
  const auto a = coder(G711_ALAW), mu = coder(G711_ULAW);
  addSizes(
      "ALawToLin_8u16s", 1, 2,
      [](Data& d, int n) { moxsALawToLin_8u16s(d.codes.data(), d.words.data(), n); },
      [=](Data& d, int n) { g711_decode(a, d.words.data(), d.codes.data(), n); });
  addSizes(
      "MuLawToLin_8u16s", 1, 2,
      [](Data& d, int n) { moxsMuLawToLin_8u16s(d.codes.data(), d.words.data(), n); },
      [=](Data& d, int n) { g711_decode(mu, d.words.data(), d.codes.data(), n); });
  addSizes(
      "LinToALaw_16s8u", 2, 1,
      [](Data& d, int n) { moxsLinToALaw_16s8u(d.words.data(), d.codes.data(), n); },
      [=](Data& d, int n) { g711_encode(a, d.codes.data(), d.words.data(), n); });
  addSizes(
      "LinToMuLaw_16s8u", 2, 1,
      [](Data& d, int n) { moxsLinToMuLaw_16s8u(d.words.data(), d.codes.data(), n); },
      [=](Data& d, int n) { g711_encode(mu, d.codes.data(), d.words.data(), n); });
  addSizes(
      "ALawToMuLaw_8u", 1, 1,
      [](Data& d, int n) { moxsALawToMuLaw_8u(d.codes.data(), d.more.data(), n); },
      [=](Data& d, int n) { g711_transcode(a, d.more.data(), d.codes.data(), n); });
  addSizes(
      "MuLawToALaw_8u", 1, 1,
      [](Data& d, int n) { moxsMuLawToALaw_8u(d.codes.data(), d.more.data(), n); },
      [=](Data& d, int n) { g711_transcode(mu, d.more.data(), d.codes.data(), n); });

  // The peer has no float samples: it is given the conversion as well.
  addSizes(
      "MuLawToLin_8u32f", 1, 4,
      [](Data& d, int n) { moxsMuLawToLin_8u32f(d.codes.data(), d.floats.data(), n); },
      [=](Data& d, int n) {
        for (int i = 0; i < n; ++i)
          d.floats[i] = float(ulaw_to_linear(d.codes[i])) * (1.0f / 32768);
      });
  addSizes(
      "LinToMuLaw_32f8u", 4, 1,
      [](Data& d, int n) { moxsLinToMuLaw_32f8u(d.floats.data(), d.codes.data(), n); },
      [=](Data& d, int n) {
        for (int i = 0; i < n; ++i) d.codes[i] = linear_to_ulaw(int(d.floats[i] * 32767));
      });
  return true;
}();

}  // namespace
