// 16-bit taps and samples beside a plain loop with exact 32-bit sums, and filters that convert
// beside those that don't.
#include <moxsp.h>

#include <algorithm>

#include "fir/signals.h"
#include "support/compare.h"

namespace {

constexpr int len = 1 << 16;

void plainFir(const Mox16s* __restrict x, Mox16s* __restrict y, int count,
              const Mox16s* __restrict taps, int n) {
  for (int i = 0; i < count; ++i) {
    int sum = 0;
    for (int k = 0; k < n; ++k) sum += taps[k] * x[i - k];
    y[i] = Mox16s(std::clamp(sum >> 15, -32768, 32767));
  }
}

// The taps from the last to the first: both arrays run forward.
void reversedFir(const Mox16s* __restrict x, Mox16s* __restrict y, int count,
                 const Mox16s* __restrict revTaps, int n) {
  for (int i = 0; i < count; ++i) {
    int sum = 0;
    for (int k = 0; k < n; ++k) sum += revTaps[k] * x[i - n + 1 + k];
    y[i] = Mox16s(std::clamp(sum >> 15, -32768, 32767));
  }
}

void addWords(int taps, bool wide) {
  const bench::Group group("filters");
  struct Data {
    std::vector<Mox16s> h, padded, y = std::vector<Mox16s>(len);
  };
  auto d = std::make_shared<Data>(
      Data{bench::noise<Mox16s>(taps), bench::noise<Mox16s>(len + taps - 1)});
  for (auto& h : d->h) h = Mox16s(h / taps);
  const Mox16s* x = d->padded.data() + taps - 1;
  MoxsFIRState* state;
  if (wide) {
    const std::vector<Mox32s> wideTaps(d->h.begin(), d->h.end());
    moxsFIRInitAlloc32s_16s(&state, wideTaps.data(), taps, -15, nullptr);
  } else {
    moxsFIRInitAlloc_16s(&state, d->h.data(), taps, -15, nullptr);
  }
  const auto fir = bench::shared(state, wide ? moxsFIRFree32s_16s : moxsFIRFree_16s);
  const auto run = wide ? moxsFIR32s_16s_Sfs : moxsFIR_16s_Sfs;
  bench::add({.family = wide ? "fir_32s_16s" : "fir_16s",
              .size = taps,
              .work = {.floatOps = double(taps) * len},
              .ours = [=] { run(x, d->y.data(), len, fir.get(), 0); },
              .peers = {{"loop",
                         [=] {
                           plainFir(x, d->y.data(), len, d->h.data(), taps);
                           bench::clobber(d->y.data());
                         }},
                        {"reversed loop", [=] {
                           reversedFir(x, d->y.data(), len, d->h.data(), taps);
                           bench::clobber(d->y.data());
                         }}}});
}

// A filter whose data changes its type, beside the one that holds the same type.
template <class D, class T>
struct Pair {
  std::vector<T> h;
  std::vector<D> x, y;
  std::vector<T> plainX, plainY;
};
template <class D, class T, class Make, class MakePlain, class Run, class RunPlain, class Free>
void addConverting(const char* family, int taps, Make make, Free freeMixed, Run run,
                   MakePlain makePlain, Free freePlain, RunPlain runPlain) {
  auto d = std::make_shared<Pair<D, T>>(Pair<D, T>{bench::noise<T>(taps), bench::noise<D>(len),
                                                   std::vector<D>(len), bench::noise<T>(len),
                                                   std::vector<T>(len)});
  MoxsFIRState *mixed, *plain;
  make(&mixed, d->h.data(), taps, nullptr);
  makePlain(&plain, d->h.data(), taps, nullptr);
  const auto a = bench::shared(mixed, freeMixed), b = bench::shared(plain, freePlain);
  bench::add({.family = family,
              .size = taps,
              .work = {.doubleOps = 2.0 * taps * len},
              .ours = [=] { run(d->x.data(), d->y.data(), len, a.get()); },
              .peers = {{"one type",
                         [=] { runPlain(d->plainX.data(), d->plainY.data(), len, b.get()); }}}});
}

const bool registered = [] {
  for (const int taps : {16, 64, 256})
    for (const bool wide : {false, true}) addWords(taps, wide);
  for (const int taps : {16, 48, 256}) {
    addConverting<Mox16s, Mox32f>(
        "fir_32f_16s", taps, moxsFIRInitAlloc32f_16s, moxsFIRFree32f_16s,
        [](auto... a) { moxsFIR32f_16s_Sfs(a..., 0); }, moxsFIRInitAlloc_32f, moxsFIRFree_32f,
        moxsFIR_32f);
    addConverting<Mox32f, Mox64f>("fir_64f_32f", taps, moxsFIRInitAlloc64f_32f, moxsFIRFree64f_32f,
                                  moxsFIR64f_32f, moxsFIRInitAlloc_64f, moxsFIRFree_64f,
                                  moxsFIR_64f);
    addConverting<Mox32s, Mox64f>(
        "fir_64f_32s", taps, moxsFIRInitAlloc64f_32s, moxsFIRFree64f_32s,
        [](auto... a) { moxsFIR64f_32s_Sfs(a..., 20); }, moxsFIRInitAlloc_64f, moxsFIRFree_64f,
        moxsFIR_64f);
    addConverting<Mox32fc, Mox64fc>("fir_64fc_32fc", taps, moxsFIRInitAlloc64fc_32fc,
                                    moxsFIRFree64fc_32fc, moxsFIR64fc_32fc, moxsFIRInitAlloc_64fc,
                                    moxsFIRFree_64fc, moxsFIR_64fc);
  }
  return true;
}();

}  // namespace
