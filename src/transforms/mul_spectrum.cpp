// Products of two spectra of one layout: the spectrum of a circular convolution, or with the
// conjugate of one of them of a circular correlation.
#include <moxsp/transforms.h>

#include <limits>

#include "frame/checks.h"
#include "frame/export.h"
#include "frame/in_place.h"
#include "frame/rounding.h"
#include "transforms/fft_real.h"
#include "transforms/packed_layouts.h"
#include "transforms/pairs.h"

namespace mox {
namespace {

struct Product {
  template <class T>
  Pair<T> operator()(Pair<T> x, Pair<T> y) const {
    return {x.re * y.re - x.im * y.im, y.re * x.im + y.im * x.re};
  }
};

// The second factor's conjugate.
struct ConjugateProduct {
  template <class T>
  Pair<T> operator()(Pair<T> x, Pair<T> y) const {
    return {x.re * y.re + x.im * y.im, x.im * y.re - x.re * y.im};
  }
};

template <class Layout, class E, class Op = Product>
MoxStatus mul(const E* src1, const E* src2, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  const auto real = [=](long place) {
    store(dst + place, load<E>(src1 + place) * load<E>(src2 + place));
  };
  real(0);
  if (hasMiddle(len)) real(Layout::middle(len));
  const long first = Layout::firstPair(len);
  mapPairs<V<E>, V<E, lanesOf<E> / 2>, E>(Op(), dst + first, interiorPairs(len), src1 + first,
                                          src2 + first);
  return moxOk;
}

// In 32 bits the imaginary part can be 2^31, and that alone; it is taken as 2^31 - 1, which every
// scale factor turns into the same 16-bit result.
struct ExactProduct : Product {
  using Product::operator();
  using Lanes = V<Mox32s, 4>;

  Pair<Lanes> operator()(Pair<Lanes> x, Pair<Lanes> y) const {
    const auto a = V<Mox32u, 4>(y.re * x.im), b = V<Mox32u, 4>(y.im * x.re);
    const Lanes sum = Lanes(a + b);
    return {x.re * y.re - x.im * y.im, sum ^ (sum == std::numeric_limits<Mox32s>::min())};
  }
};

template <class Layout>
MoxStatus mulScaled(const Mox16s* src1, const Mox16s* src2, Mox16s* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src1, src2, dst)) return s;
  constexpr int magnitude = 31;
  using Wide = Exact<magnitude>;
  const long first = Layout::firstPair(len);
  Scale<Mox16s, magnitude>(scaleFactor).withRule([=](auto rule) {
    const auto real = [=](long place) {
      const Wide a = load<Mox16s>(src1 + place), b = load<Mox16s>(src2 + place);
      store(dst + place, saturate<Mox16s>(rule(a * b)));
    };
    real(0);
    if (hasMiddle(len)) real(Layout::middle(len));
    const auto product = [=](auto x, auto y) {
      const auto exact = ExactProduct()(x, y);
      return Pair{saturate<Mox16s>(rule(exact.re)), saturate<Mox16s>(rule(exact.im))};
    };
    mapPairs<V<Mox32s, 4>, Wide>(product, dst + first, interiorPairs(len), src1 + first,
                                 src2 + first);
  });
  return moxOk;
}

}  // namespace

template <class F>
MoxStatus ownMulPerm_I(const F* src, F* srcDst, int len) {
  return mul<PermLayout>(src, srcDst, srcDst, len);
}
template MoxStatus ownMulPerm_I(const Mox32f*, Mox32f*, int);
template MoxStatus ownMulPerm_I(const Mox64f*, Mox64f*, int);

MOX_EXPORT(moxsMulPack_32f, mul<PackLayout, Mox32f>);
MOX_EXPORT(moxsMulPack_64f, mul<PackLayout, Mox64f>);
MOX_EXPORT(moxsMulPack_32f_I, inPlace<mul<PackLayout, Mox32f>>);
MOX_EXPORT(moxsMulPack_64f_I, inPlace<mul<PackLayout, Mox64f>>);
MOX_EXPORT(moxsMulPerm_32f, mul<PermLayout, Mox32f>);
MOX_EXPORT(moxsMulPerm_64f, mul<PermLayout, Mox64f>);
MOX_EXPORT(moxsMulPerm_32f_I, inPlace<mul<PermLayout, Mox32f>>);
MOX_EXPORT(moxsMulPerm_64f_I, inPlace<mul<PermLayout, Mox64f>>);
MOX_EXPORT(moxsMulPack_16s_Sfs, mulScaled<PackLayout>);
MOX_EXPORT(moxsMulPack_16s_ISfs, inPlace<mulScaled<PackLayout>>);
MOX_EXPORT(moxsMulPerm_16s_Sfs, mulScaled<PermLayout>);
MOX_EXPORT(moxsMulPerm_16s_ISfs, inPlace<mulScaled<PermLayout>>);
MOX_EXPORT(moxsMulPackConj_32f_I, inPlace<mul<PackLayout, Mox32f, ConjugateProduct>>);
MOX_EXPORT(moxsMulPackConj_64f_I, inPlace<mul<PackLayout, Mox64f, ConjugateProduct>>);

}  // namespace mox
