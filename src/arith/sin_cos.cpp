#include "arith/sin_cos.h"

#include <cmath>

#include "frame/checks.h"
#include "frame/rounding_control.h"
#include "frame/vec.h"
#include "transforms/pairs.h"

namespace mox {
namespace {

using Doubles = V<Mox64f>;
constexpr int lanes = lanesOf<Mox64f>;

// 1/k! with alternating signs: 1/first!, -1/(first + 2)!, ... `count` of them.
template <int first, int count>
struct Taylor {
  double at[count];
  constexpr Taylor() : at() {
    long double term = 1;
    for (int k = 2; k <= first; ++k) term /= k;
    for (int i = 0; i < count; ++i) {
      at[i] = double(i % 2 ? -term : term);
      term /= (long double)(first + 2 * i + 1) * (first + 2 * i + 2);
    }
  }
};

template <int first, int count>
[[gnu::always_inline]] inline Doubles taylor(Doubles z) {
  constexpr Taylor<first, count> c;
  Doubles sum = broadcast<Doubles>(c.at[count - 1]);
  for (int i = count - 2; i >= 0; --i) sum = sum * z + c.at[i];
  return sum;
}

// The remainder of an angle by pi / 2, as a rounded value and its error, both in -pi/4 to pi/4.
struct Remainder {
  Doubles value, error;
};

Doubles sine(Remainder r) {
  const Doubles z = r.value * r.value;
  const Doubles cubic = r.value * z * -taylor<3, 8>(z);
  return r.value + (cubic + r.error * (1.0 - 0.5 * z));
}

Doubles cosine(Remainder r) {
  const Doubles z = r.value * r.value, half = 0.5 * z, one = broadcast<Doubles>(1.0);
  const Doubles rounded = one - half;
  return rounded + (((one - rounded) - half) + (z * z * taylor<4, 8>(z) - r.value * r.error));
}

// Up to here the quarter turns below, of 33 bits each, have exact multiples.
constexpr double largestVectorAngle = 1024;

// The sine of the angle plus that many quarter turns.
template <int quarterTurns>
Doubles sineOf(Doubles angle) {
  constexpr double quarter[] = {0x1.921fb544p+0, 0x1.0b4611a6p-34, 0x1.3198a2e037073p-69};
  const Doubles n = nearestInteger(angle * 0.63661977236758134308);
  const Doubles most = angle - n * quarter[0], next = n * quarter[1];
  const Doubles upper = most - next, lost = (most - upper) - next;
  const Doubles rest = n * quarter[2] - lost;
  Remainder r;
  r.value = upper - rest;
  r.error = (upper - r.value) - rest;
  const Doubles turns = n + double(quarterTurns), halfTurns = 0.5 * turns;
  const auto odd = halfTurns != nearestInteger(halfTurns);
  const Doubles pairs = 0.25 * (turns - (odd ? broadcast<Doubles>(1.0) : Doubles{}));
  const Doubles result = odd ? cosine(r) : sine(r);
  return pairs != nearestInteger(pairs) ? -result : result;
}

template <int quarterTurns, class F>
void sineOfVector(const F* src, F* dst, int len) {
  if (len < 1 || anyNull(src, dst)) return;
  const RoundingScope scope(Rounding::nearEven, Traps::masked);
  for (int i = 0; i < len; i += lanes) {
    const int count = len - i < lanes ? len - i : lanes;
    F x[lanes] = {F(0.75), F(0.75), F(0.75), F(0.75)};
    std::memcpy(x, src + i, unsigned(count) * sizeof(F));
    const Doubles angle = {Mox64f(x[0]), Mox64f(x[1]), Mox64f(x[2]), Mox64f(x[3])};
    const Doubles result = sineOf<quarterTurns>(angle);
    for (int j = 0; j < count; ++j) {
      F value = F(result[j]);
      if (!(std::abs(x[j]) <= F(largestVectorAngle)))
        value = quarterTurns ? std::cos(x[j]) : std::sin(x[j]);
      store(dst + i + j, value);
    }
  }
}

}  // namespace

template <class F>
void ownsSin(const F* src, F* dst, int len) {
  sineOfVector<0>(src, dst, len);
}

template <class F>
void ownsCos(const F* src, F* dst, int len) {
  sineOfVector<1>(src, dst, len);
}

template void ownsSin(const Mox32f*, Mox32f*, int);
template void ownsSin(const Mox64f*, Mox64f*, int);
template void ownsCos(const Mox32f*, Mox32f*, int);
template void ownsCos(const Mox64f*, Mox64f*, int);

}  // namespace mox
