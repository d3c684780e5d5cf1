// Products of complex integers, of two vectors and with a constant.
#include <moxsp/arith.h>

#include "arith/scaled.h"
#include "frame/export.h"
#include "frame/in_place.h"

namespace mox {
namespace {

// One part of the product of element i. The one that needs a bit more than its type, 2 * 2^30 or
// 2 * 2^62, is taken as one less: it scales to the same results.
template <class R, class A, class B>
R exactPart(A a, B b, long i, int part) {
  using Unsigned = std::make_unsigned_t<R>;
  const R aRe = partFrom(a, i, 0), aIm = partFrom(a, i, 1);
  const R bRe = partFrom(b, i, 0), bIm = partFrom(b, i, 1);
  if (part == 0) return aRe * bRe - aIm * bIm;
  const R im = R(Unsigned(aRe * bIm) + Unsigned(aIm * bRe));
  return im == std::numeric_limits<R>::min() ? std::numeric_limits<R>::max() : im;
}

template <class A, class B>
void multiply(int factor, Mox16sc* dst, long len, A a, B b) {
  constexpr int magnitude = 31;
  using Lanes = V<Mox16s, 8>;
  using Sums = V<Mox32s, 4>;
  const Lanes imaginary = {0, -1, 0, -1, 0, -1, 0, -1};
  Scale<Mox16s, magnitude>(factor).withRule([&](auto rule) {
    mapInteger(
        dst, len,
        [&](long i, int part) {
          return saturate<Mox16s>(rule(exactPart<Exact<magnitude>>(a, b, i, part)));
        },
        [&](long i) {
          const auto x = lanesFrom<Lanes>(a, i), y = lanesFrom<Lanes>(b, i);
          // There is no -d in 16 bits for every d, but there is ~d, which is -d - 1.
          const Sums re = addWrapping(multiplyAddPairs(x, y ^ imaginary), Sums(x) >> 16);
          const Sums im = multiplyAddPairs(x, swapParts(y));
          const Sums held = im ^ (im == std::numeric_limits<Mox32s>::min());
          return shuffle<[](int k) { return k % 2 * 4 + k / 2; }>(
              packSaturated<Mox16s>(rule(re), rule(held)));
        },
        a, b);
  });
}

template <class A, class B>
void multiply(int factor, Mox32sc* dst, long len, A a, B b) {
  constexpr int magnitude = 63;
  Scale<Mox32s, magnitude>(factor).withRule([&](auto rule) {
    for (long i = 0; i < len; ++i) {
      const auto part = [&](int p) {
        return saturate<Mox32s>(rule(exactPart<Exact<magnitude>>(a, b, i, p)));
      };
      store(dst + i, Mox32sc{part(0), part(1)});
    }
  });
}

template <class E>
MoxStatus mul(const E* src1, const E* src2, E* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  multiply(scaleFactor, dst, len, src1, src2);
  return moxOk;
}

template <class E>
MoxStatus mulConstant(const E* src, E val, E* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  multiply(scaleFactor, dst, len, src, Same<E>{val});
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsMul_16sc_Sfs, mul<Mox16sc>);
MOX_EXPORT(moxsMul_16sc_ISfs, inPlace<mul<Mox16sc>>);
MOX_EXPORT(moxsMul_32sc_Sfs, mul<Mox32sc>);
MOX_EXPORT(moxsMul_32sc_ISfs, inPlace<mul<Mox32sc>>);
MOX_EXPORT(moxsMulC_16sc_Sfs, mulConstant<Mox16sc>);
MOX_EXPORT(moxsMulC_16sc_ISfs, inPlace<mulConstant<Mox16sc>>);
MOX_EXPORT(moxsMulC_32sc_Sfs, mulConstant<Mox32sc>);
MOX_EXPORT(moxsMulC_32sc_ISfs, inPlace<mulConstant<Mox32sc>>);

}  // namespace mox
