// The Haar transform beside the loops that a user would write, which the compiler vectorises.
#include <moxsp.h>

#include <limits>
#include <memory>
#include <string>
#include <type_traits>

#include "fir/signals.h"
#include "support/compare.h"

namespace {

// Sum or difference over 2, to nearest with ties to even.
template <class E>
E halved(E a, E b, bool add) {
  using Wide =
      std::conditional_t<sizeof(E) == 1, short, std::conditional_t<sizeof(E) == 2, int, long>>;
  const Wide v = Wide(add ? a + Wide(b) : b - Wide(a)), half = Wide((v + (v >> 1 & 1)) >> 1);
  return E(half > std::numeric_limits<E>::max() ? std::numeric_limits<E>::max() : half);
}

template <class E>
void forward(const E* __restrict x, long pairs, E* __restrict low, E* __restrict high) {
  for (long k = 0; k < pairs; ++k) {
    if constexpr (std::is_integral_v<E>) {
      low[k] = halved(x[2 * k], x[2 * k + 1], true);
      high[k] = halved(x[2 * k], x[2 * k + 1], false);
    } else {
      const E h = (x[2 * k + 1] - x[2 * k]) * E(0.5);
      high[k] = h;
      low[k] = x[2 * k] + h;
    }
  }
}

template <class E>
void inverse(const E* __restrict low, const E* __restrict high, E* __restrict x, long pairs) {
  using Wide = std::conditional_t<std::is_floating_point_v<E>, E,
                                  std::conditional_t<sizeof(E) < 4, int, long>>;
  const auto saturated = [](Wide v) {
    constexpr Wide least = std::numeric_limits<E>::lowest(), most = std::numeric_limits<E>::max();
    return E(std::is_floating_point_v<E> ? v : v < least ? least : v > most ? most : v);
  };
  for (long k = 0; k < pairs; ++k) {
    x[2 * k] = saturated(Wide(low[k]) - high[k]);
    x[2 * k + 1] = saturated(Wide(low[k]) + high[k]);
  }
}

template <class E>
void add(const std::string& type, MoxStatus (*fwd)(const E*, int, E*, E*),
         MoxStatus (*inv)(const E*, const E*, E*, int)) {
  for (const long bytes : {4L << 10, 256L << 10}) {
    const int len = int(bytes / long(sizeof(E))), pairs = len / 2;
    const auto x = std::make_shared<std::vector<E>>(bench::noise<E>(len));
    const auto bands = std::make_shared<std::vector<E>>(bench::noise<E>(len));
    const auto low = [=] { return bands->data(); }, high = [=] { return bands->data() + pairs; };
    const bench::Work work = {.bytesRead = double(bytes), .bytesWritten = double(bytes)};
    bench::add({"haar_fwd_" + type,
                bytes,
                work,
                [=] { fwd(x->data(), len, low(), high()); },
                {{"loop", [=] {
                    forward(x->data(), pairs, low(), high());
                    bench::clobber(low());
                  }}}});
    bench::add({"haar_inv_" + type,
                bytes,
                work,
                [=] { inv(low(), high(), x->data(), len); },
                {{"loop", [=] {
                    inverse(low(), high(), x->data(), pairs);
                    bench::clobber(x->data());
                  }}}});
  }
}

const bool registered = [] {
  add("32f", moxsWTHaarFwd_32f, moxsWTHaarInv_32f);
  add("64f", moxsWTHaarFwd_64f, moxsWTHaarInv_64f);
  add("8s", moxsWTHaarFwd_8s, moxsWTHaarInv_8s);
  add("16s", moxsWTHaarFwd_16s, moxsWTHaarInv_16s);
  add("32s", moxsWTHaarFwd_32s, moxsWTHaarInv_32s);
  return true;
}();

}  // namespace
