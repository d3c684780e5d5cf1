// Transforms of 16-bit integers beside those of floats, which they run.
#include <moxsp.h>

#include <cmath>
#include <memory>

#include "support/vectors.h"

namespace {

struct Data {
  explicit Data(int order)
      : words(1L << order),
        wordsOut(1L << order),
        floats(1L << order),
        floatsOut(1L << order),
        buffer(1024 + (16L << order)),
        peerBuffer(1024 + (16L << order)) {
    moxsFFTInitAlloc_C_16sc(&ours, order, 1, 0);
    moxsFFTInitAlloc_C_32fc(&peer, order, 1, 0);
    for (long i = 0; i < 1L << order; ++i) {
      words.data()[i] = {Mox16s(9000 * std::sin(0.1 * double(i))), Mox16s(i * 77)};
      floats.data()[i] = {Mox32f(words.data()[i].re), Mox32f(words.data()[i].im)};
    }
  }
  ~Data() {
    moxsFFTFree_C_16sc(ours);
    moxsFFTFree_C_32fc(peer);
  }
  Data(const Data&) = delete;
  Data& operator=(const Data&) = delete;

  MoxsFFTSpec *ours = nullptr, *peer = nullptr;
  bench::Vector<Mox16sc> words, wordsOut;
  bench::Vector<Mox32fc> floats, floatsOut;
  bench::Vector<Mox8u> buffer, peerBuffer;
};

const bool registered = [] {
  for (int order = 8; order <= 14; ++order) {
    const auto d = std::make_shared<Data>(order);
    const double n = std::ldexp(1, order);
    bench::add(
        "fft_fwd_c_to_c_16sc", long(n), {.floatOps = 5 * n * order}, d,
        {{"moxsp",
          [&d = *d] {
            moxsFFTFwd_CToC_16sc_Sfs(d.words.data(), d.wordsOut.data(), d.ours, 0, d.buffer.data());
          }},
         {"32fc", [&d = *d] {
            moxsFFTFwd_CToC_32fc(d.floats.data(), d.floatsOut.data(), d.peer, d.peerBuffer.data());
          }}});
  }
  return true;
}();

}  // namespace
