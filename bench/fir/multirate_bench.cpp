// Filters that change the rate beside those of liquid-dsp, and beside the single-rate filter that
// makes as many products.
#include <liquid/liquid.h>
#include <moxsp.h>

#include <algorithm>

#include "fir/signals.h"
#include "support/compare.h"

namespace {

struct Real {
  using E = float;
  static constexpr const char* name = "32f";
  static constexpr double ops = 2;
  static constexpr auto initAlloc = moxsFIRMRInitAlloc_32f;
  static constexpr auto initSingle = moxsFIRInitAlloc_32f;
  static constexpr auto run = moxsFIR_32f;
  static constexpr auto free = moxsFIRFree_32f;
};
struct Complex {
  using E = Mox32fc;
  static constexpr const char* name = "32fc";
  static constexpr double ops = 8;
  static constexpr auto initAlloc = moxsFIRMRInitAlloc_32fc;
  static constexpr auto initSingle = moxsFIRInitAlloc_32fc;
  static constexpr auto run = moxsFIR_32fc;
  static constexpr auto free = moxsFIRFree_32fc;
};

// peer(x, y, iterations) makes a call of the peer's.
template <class F, class Peer>
void add(const char* way, int taps, int up, int down, Peer peer) {
  using E = typename F::E;
  const int iterations = (1 << 16) / std::max(up, down), outputs = iterations * up;
  const int products = (taps + up - 1) / up;
  struct Data {
    std::vector<E> h, x, y, single;
  };
  auto d = std::make_shared<Data>(Data{bench::noise<E>(taps), bench::noise<E>(iterations * down),
                                       std::vector<E>(outputs), bench::noise<E>(outputs)});
  MoxsFIRState *state, *single;
  F::initAlloc(&state, d->h.data(), taps, up, 0, down, 0, nullptr);
  F::initSingle(&single, d->h.data(), products, nullptr);
  const auto fir = bench::shared(state, F::free), one = bench::shared(single, F::free);
  bench::add({.family = std::string(way) + "_" + F::name,
              .size = taps,
              .work = {.floatOps = F::ops * products * outputs},
              .ours = [=] { F::run(d->x.data(), d->y.data(), iterations, fir.get()); },
              .peers = {{"liquid", peer(d->h, d->x.data(), d->y.data(), iterations)},
                        {"single rate", [=] {  // in blocks that are not transformed
                           constexpr int block = 255;
                           for (int i = 0; i < outputs; i += block)
                             F::run(&d->single[i], &d->y[i], std::min(block, outputs - i),
                                    one.get());
                         }}}});
}

template <class To, class E>
To* as(E* p) {
  return reinterpret_cast<To*>(const_cast<std::remove_const_t<E>*>(p));
}

#define LIQUID(object, kind, T, create)                                                       \
  [=](auto& h, const auto* x, auto* y, int iterations) -> bench::Call {                       \
    const auto q = bench::shared(object##_##kind##_create create, object##_##kind##_destroy); \
    return [=] { object##_##kind##_execute_block(q.get(), as<T>(x), iterations, as<T>(y)); }; \
  }

const bool registered = [] {
  using Z = liquid_float_complex;
  constexpr int taps = 64;
  add<Real>("decimate4", taps, 1, 4, LIQUID(firdecim, rrrf, float, (4, as<float>(h.data()), taps)));
  add<Complex>("decimate4", taps, 1, 4, LIQUID(firdecim, cccf, Z, (4, as<Z>(h.data()), taps)));
  add<Real>("interpolate4", taps, 4, 1,
            LIQUID(firinterp, rrrf, float, (4, as<float>(h.data()), taps)));
  add<Complex>("interpolate4", taps, 4, 1, LIQUID(firinterp, cccf, Z, (4, as<Z>(h.data()), taps)));
  constexpr int m = 11, rational = 2 * 3 * m;
  add<Real>("rational3_2", rational, 3, 2,
            LIQUID(rresamp, rrrf, float, (3, 2, m, as<float>(h.data()))));
  add<Complex>("rational3_2", rational, 3, 2, LIQUID(rresamp, cccf, Z, (3, 2, m, as<Z>(h.data()))));
  return true;
}();

}  // namespace
