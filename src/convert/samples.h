// Samples on their way into a filter and results on their way out, in the types of both sides.
#pragma once

#include <cstring>

#include "convert/convert.h"
#include "frame/elements.h"

namespace mox::convert {

// Exact, or rounded in the current mode where the filter holds fewer digits.
template <class Data, class Held>
void takeIn(const Data* src, Held* dst, long len) {
  if constexpr (std::is_same_v<Data, Held>)
    std::memcpy(dst, src, std::size_t(len) * sizeof(Held));
  else
    convertValues(parts(src), parts(dst), len * partsPerElement<Data>);
}

// Integers come out as the results times 2^-scaleFactor, to nearest and saturated.
template <class Sum, class Data>
void giveOut(const Sum* src, Data* dst, long len, int scaleFactor) {
  if constexpr (std::is_integral_v<Part<Data>>)
    convertToInteger(parts(src), parts(dst), len * partsPerElement<Data>, moxRoundNearEven,
                     scaleFactor);
  else
    takeIn(src, dst, len);
}

// One element in another type, toward zero where that has no fraction.
template <class To, class From>
To converted(From e) {
  if constexpr (Complex<From>)
    return {Part<To>(e.re), Part<To>(e.im)};
  else
    return To(e);
}

}  // namespace mox::convert
