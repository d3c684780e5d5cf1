// Dot products of floats, and of 32-bit integers as doubles.
#include <moxsp/reductions.h>

#include "frame/export.h"
#include "frame/rounding.h"
#include "frame/rounding_control.h"
#include "stats/terms.h"

namespace mox::stats {
namespace {

// Four accumulators of `group` lanes, which are added in pairs.
constexpr Order fourAccumulators(int group) {
  return {.lanes = 4 * group, .tail = Tail::pairs, .neighbours = {.at = 4 * group, .group = group}};
}
constexpr Order singleDot = fourAccumulators(4);
constexpr Order doubleDot = fourAccumulators(2);
constexpr Order widenedDot = fourAccumulators(4);
// Of fewer floats than a step of those.
constexpr Order shortDot = {.lanes = 2, .tail = Tail::last};
// Two accumulators of two lanes.
constexpr Order integerDot = {.lanes = 4, .tail = Tail::pairs};
// Parts of products by one part; four registers.
template <class F>
constexpr Order complexDot = {.lanes = 4 * orderBytes / sizeof(F), .tail = Tail::folded};

// In the type F; elements are converted to it first.
template <Order order, class F, class A, class B>
F realDot(const A* a, const B* b, long len) {
  return fold<order, F>(termsOf([](auto x, auto y) { return x * y; }, a, b), len).of[0][0];
}

// A real number goes with both parts of a complex one.
template <Order order, class F, class A, class B>
requires(!Complex<A>)  //
    std::array<F, 2> complexDotOf(const A* a, const B* b, long len) {
  const auto terms = [a, b = parts(b)]<class T>(std::type_identity<T>, long i) {
    if constexpr (std::is_arithmetic_v<T>)
      return std::array{T(load<A>(a + i / 2)) * numberAt<T>(b + i)};
    else
      return std::array{
          __builtin_convertvector(doubled(load<V<A, laneCount<T> / 2>>(a + i / 2)), T) *
          numberAt<T>(b + i)};
  };
  const auto sums = fold<order, F, 2>(terms, 2 * len);
  return {sums.of[0][0], sums.of[0][1]};
}

// Straight products are re * re and im * im in turn; crossed ones re * im and im * re.
template <Order order, class F, Complex E>
std::array<F, 2> complexDotOf(const E* a, const E* b, long len) {
  const auto terms = [a = parts(a), b = parts(b)]<class T>(std::type_identity<T>, long i) {
    if constexpr (std::is_arithmetic_v<T>) {
      const T x = numberAt<T>(a + i);
      return std::array{x * numberAt<T>(b + i), x * numberAt<T>(b + (i ^ 1))};
    } else {
      const T x = inRegister(numberAt<T>(a + i)), y = inRegister(numberAt<T>(b + i));
      return std::array{x * y, x * swapParts(y)};
    }
  };
  const auto sums = fold<order, F, 2>(terms, 2 * len);
  return {sums.of[0][0] - sums.of[0][1], sums.of[1][0] + sums.of[1][1]};
}

// The dot product in the order of its kind, in the type F.
template <class F, class A, class B>
auto dotOf(const A* a, const B* b, long len) {
  constexpr bool integers = std::is_integral_v<Part<B>>;
  constexpr Order complex = integers ? integerDot : complexDot<F>;
  constexpr Order real = integers ? integerDot : sizeof(A) == 4 ? widenedDot : doubleDot;
  if constexpr (Complex<B>)
    return complexDotOf<complex, F>(a, b, len);
  else if constexpr (sizeof(F) == 4)
    return len < singleDot.step ? realDot<shortDot, F>(a, b, len)
                                : realDot<singleDot, F>(a, b, len);
  else
    return realDot<real, F>(a, b, len);
}

template <class A, class B, class D>
MoxStatus dotProd(const A* src1, const B* src2, int len, D* dp) {
  if (MoxStatus s = checkArrays(len, src1, src2, dp)) return s;
  store(dp, dotOf<Part<D>>(src1, src2, len));
  return moxOk;
}

Mox32s scaledDot(Mox64f sum, int factor) {
  const Mox64f scaled = sum * powerOfTwo<Mox64f>(-std::clamp(factor, -31, 93));
  if (scaled > Mox64f(Limits<Mox32s>::max)) return Mox32s(Limits<Mox32s>::max);
  if (scaled < Mox64f(Limits<Mox32s>::min)) return Mox32s(Limits<Mox32s>::min);
  return Mox32s(toInteger(scaled));
}

template <class A, class B, class D>
MoxStatus dotProdScaled(const A* src1, const B* src2, int len, D* dp, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src1, src2, dp)) return s;
  const RoundingScope scope(Rounding::nearEven, Exceptions::hidden);
  const auto sum = dotOf<Mox64f>(src1, src2, len);
  if constexpr (Complex<D>)
    store(dp, D{scaledDot(sum[0], scaleFactor), scaledDot(sum[1], scaleFactor)});
  else
    store(dp, scaledDot(sum, scaleFactor));
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsDotProd_32f, dotProd);
MOX_EXPORT(moxsDotProd_64f, dotProd);
MOX_EXPORT(moxsDotProd_32f64f, dotProd);
MOX_EXPORT(moxsDotProd_32fc, dotProd);
MOX_EXPORT(moxsDotProd_64fc, dotProd);
MOX_EXPORT(moxsDotProd_32fc64fc, dotProd);
MOX_EXPORT(moxsDotProd_32f32fc, dotProd);
MOX_EXPORT(moxsDotProd_64f64fc, dotProd);
MOX_EXPORT(moxsDotProd_32f32fc64fc, dotProd);

MOX_EXPORT(moxsDotProd_32s_Sfs, dotProdScaled);
MOX_EXPORT(moxsDotProd_16s32s32s_Sfs, dotProdScaled);
MOX_EXPORT(moxsDotProd_32sc_Sfs, dotProdScaled);
MOX_EXPORT(moxsDotProd_32s32sc_Sfs, dotProdScaled);

}  // namespace mox::stats
