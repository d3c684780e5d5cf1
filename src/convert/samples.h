// Samples on their way into a filter and results on their way out, in the types of both sides.
#pragma once

#include <cstring>
#include <limits>

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

// One element in another type: toward zero where that has no fraction, and saturated.
template <class To, class From>
To converted(From e) {
  if constexpr (Complex<From>) {
    return {converted<Part<To>>(e.re), converted<Part<To>>(e.im)};
  } else if constexpr (std::is_integral_v<To> && std::is_floating_point_v<From>) {
    using Range = std::numeric_limits<To>;
    static_assert(Range::digits <= std::numeric_limits<From>::digits);
    return To(greater(lesser(e, From(Range::max())), From(Range::min())));
  } else {
    return To(e);
  }
}

}  // namespace mox::convert
