// Sums of correlations turned into means.
#pragma once

#include "arith/mul_constant.h"
#include "frame/map.h"

namespace mox::corr {

// What callers name by the second byte of an algorithm selector.
enum class Normalization { none = 0, byLength = 0x100, byTerms = 0x200 };

template <class E>
void multiplyBy(Part<E> factor, E* dst, long len) {
  arith::ownsMulC_I(factor, parts(dst), len * partsPerElement<E>);
}

// Element i divided by first + i * step.
template <class E>
void divideByRamp(long first, long step, E* dst, long len) {
  const auto inAllParts = [](long value) {
    E e;
    std::fill_n(parts(&e), partsPerElement<E>, Part<E>(value));
    return e;
  };
  mapElements([](auto a, auto b) { return a / b; }, dst, len, dst,
              Ramp<E>{inAllParts(first), inAllParts(step)});
}

}  // namespace mox::corr
