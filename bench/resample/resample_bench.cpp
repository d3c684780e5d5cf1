// Resampling beside libsamplerate and soxr, in settings of the quality that docs/resampling.md
// tells; sampling beside plain loops.
#include <moxsp.h>

#include "fir/signals.h"
#include "resample/resamplers.h"
#include "support/compare.h"

namespace {

void addRates(int in, int out) {
  const auto x = std::make_shared<std::vector<float>>(bench::noise<float>(10 * in));
  for (const auto& [setting, peer] :
       {std::pair(bench::like(bench::Peer::srcMedium), bench::Peer::srcMedium),
        {bench::like(bench::Peer::soxrHigh), bench::Peer::soxrHigh}}) {
    const auto ours = std::make_shared<bench::FixedResampler>(in, out, setting);
    const auto y = std::make_shared<std::vector<float>>();
    bench::add(
        {.family = "resample_" + std::to_string(in) + "_" + std::to_string(out),
         .size = setting.taps,
         .work = {},
         .ours = [=] { ours->run(*x, *y); },
         .peers = {{bench::nameOf(peer), [=, p = peer] { bench::runPeer(p, *x, in, out, *y); }}}});
  }
}

template <class E>
void addSampling(const char* type, auto up, auto down, int factor) {
  constexpr int len = 20000;
  const auto x = std::make_shared<std::vector<E>>(bench::noise<E>(len * factor));
  const auto y = std::make_shared<std::vector<E>>(len * factor);
  bench::add({.family = std::string("sample_up_") + type,
              .size = factor,
              .work = {},
              .ours =
                  [=] {
                    int count, phase = 0;
                    up(x->data(), len, y->data(), &count, factor, &phase);
                  },
              .peers = {{"loop", [=] {
                           for (int i = 0; i < len * factor; ++i)
                             (*y)[i] = i % factor ? E{} : (*x)[i / factor];
                           bench::clobber(y->data());
                         }}}});
  bench::add({.family = std::string("sample_down_") + type,
              .size = factor,
              .work = {},
              .ours =
                  [=] {
                    int count, phase = 0;
                    down(x->data(), len * factor, y->data(), &count, factor, &phase);
                  },
              .peers = {{"loop", [=] {
                           for (int i = 0; i < len; ++i) (*y)[i] = (*x)[i * factor];
                           bench::clobber(y->data());
                         }}}});
}

const bool registered = [] {
  addRates(44100, 48000);
  addRates(48000, 16000);
  addRates(8000, 48000);
  for (const int factor : {2, 3, 8}) {
    addSampling<Mox32f>("32f", moxsSampleUp_32f, moxsSampleDown_32f, factor);
    addSampling<Mox16s>("16s", moxsSampleUp_16s, moxsSampleDown_16s, factor);
  }
  return true;
}();

}  // namespace
