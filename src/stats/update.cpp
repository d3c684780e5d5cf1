// Recursive means: y = alpha * y + (1 - alpha) * x over the elements of a vector.
#include <moxsp/measures.h>

#include <algorithm>
#include <cstdlib>

#include "frame/control_word.h"
#include "frame/export.h"
#include "frame/rounding.h"

namespace mox::stats {
namespace {

struct Linear {
  static constexpr int largestShift = 15;
  int operator()(int x) const { return x; }
};
struct Power {
  static constexpr int largestShift = 31;
  int operator()(int x) const { return x * x; }
};

// Exact. With a factor beyond -1 to 1, y grows with every element once it is past 2^47, and only
// its sign matters: it is kept there. With the other factors it stays far below 2^62.
template <class Term>
Mox32s updatedExactly(Term term, long len, Mox64s y, int alpha) {
  const Mox64s limit = std::abs(alpha) > 1 ? Mox64s(1) << 47 : Mox64s(1) << 62;
  for (long i = 0; i < len; ++i)
    y = std::clamp(alpha * y + Mox64s(1 - alpha) * term(i), -limit, limit);
  return saturate<Mox32s>(y);
}

// Four elements a step, what is left by two and one.
template <class Term>
Mox32s updatedInDouble(Term term, long len, Mox64f y, int alpha) {
  const HiddenExceptions scope;
  const Mox64f a = alpha, a2 = a * a, a3 = a2 * a, a4 = a2 * a2, rest = 1 - a;
  const auto x = [&](long i) { return Mox64f(term(i)); };
  long i = 0;
  for (; i <= len - 4; i += 4)
    y = a4 * y + rest * (a3 * x(i) + a2 * x(i + 1) + a * x(i + 2) + x(i + 3));
  if (len & 2) {
    y = a2 * y + rest * (a * x(i) + x(i + 1));
    i += 2;
  }
  if (len & 1) y = a * y + rest * x(i);
  return scope.settled(saturate<Mox32s>(nearestInteger(broadcast<V<Mox64f>>(y)))[0]);
}

template <class Kind>
MoxStatus update(const Mox16s* src, int len, Mox32s* srcDst, int shift, Mox16s alpha, int) {
  if (MoxStatus s = checkArrays(len, src, srcDst)) return s;
  const int places = std::clamp(shift, 0, Kind::largestShift);
  const auto term = [=](long i) { return Kind()(load<Mox16s>(src + i)) >> places; };
  const Mox32s y = load<Mox32s>(srcDst);
  const bool inIntegers = -180 <= alpha && alpha <= 181;
  store(srcDst, inIntegers ? updatedExactly(term, len, y, alpha)
                           : updatedInDouble(term, len, Mox64f(y), alpha));
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsUpdateLinear_16s32s_I, update<Linear>);
MOX_EXPORT(moxsUpdatePower_16s32s_I, update<Power>);

}  // namespace mox::stats
