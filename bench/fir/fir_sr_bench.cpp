#include <moxsp.h>

#include "fir/signals.h"
#include "support/compare.h"

namespace {

constexpr int len = 1 << 16;

void addFirSr(int tapsLen) {
  struct Data {
    std::vector<float> x = bench::noise<float>(len), y = x, history;
    std::vector<Mox8u> memory, buffer;
  };
  auto d = std::make_shared<Data>();
  const std::vector<float> taps = bench::noise<float>(tapsLen);
  int specSize, bufSize;
  moxsFIRSRGetSize(tapsLen, moxType32f, &specSize, &bufSize);
  d->memory.resize(specSize), d->buffer.resize(bufSize), d->history.resize(tapsLen);
  auto* spec = reinterpret_cast<MoxsFIRSRSpec*>(d->memory.data());
  moxsFIRSRInit_32f(taps.data(), tapsLen, moxAlgAuto, spec);
  MoxsFIRState* state;
  moxsFIRInitAlloc_32f(&state, taps.data(), tapsLen, nullptr);
  const auto fir = bench::shared(state, moxsFIRFree_32f);
  bench::add(
      {.family = "fir_sr_32f",
       .size = tapsLen,
       .work = {},
       .ours =
           [=] {
             moxsFIRSR_32f(d->x.data(), d->y.data(), len, d->history.data(), d->history.data(),
                           spec, d->buffer.data());
           },
       .peers = {{"moxsFIR_32f", [=] { moxsFIR_32f(d->x.data(), d->y.data(), len, fir.get()); }}}});
}

const bool registered = [] {
  for (const int taps : {16, 64, 256, 1024, 4096}) addFirSr(taps);
  return true;
}();

}  // namespace
