#include <moxsp/arith.h>

#include "arith/mul_complex.h"
#include "frame/checks.h"
#include "frame/elements.h"
#include "frame/export.h"
#include "frame/in_place.h"
#include "frame/map_scaled.h"

namespace mox {
namespace {

template <class E>
MoxStatus square(const E* src, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if constexpr (Complex<E>)
    mulComplex(src, src, dst, len);
  else
    mapElements([](auto x) { return x * x; }, dst, len, src);
  return moxOk;
}

// Lanes hold pairs (a, b); the square of a pair is (a * a - b * b, 2 * a * b). Of 16-bit integers
// only 2 * -32768 * -32768 leaves 32 bits; as 2^31 - 1 it has the same result under every factor.
V<Mox32s, 4> squarePairs(V<Mox32s, 4> v) {
  const V<Mox32s, 4> squares = v * v, product = v * __builtin_shufflevector(v, v, 1, 0, 3, 2);
  const V<Mox32s, 4> re = squares - __builtin_shufflevector(squares, squares, 1, 0, 3, 2);
  const V<Mox32s, 4> im =
      V<Mox32s, 4>(V<Mox32u, 4>(product) * 2 + V<Mox32u, 4>(product == (1 << 30)));
  return __builtin_shufflevector(re, im, 0, 5, 2, 7);
}

template <class E>
MoxStatus squareScaled(const E* src, E* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  mapScaled<2 * 8 * sizeof(E) - 2 * std::is_signed_v<E>>(
      scaleFactor, [](auto x) { return x * x; }, dst, len, src);
  return moxOk;
}

template <>
MoxStatus squareScaled(const Mox16sc* src, Mox16sc* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  Scale<Mox16s, 31>(scaleFactor).withRule([&](auto rule) {
    const auto squares = [&](const Mox16s* p) {
      return rule(squarePairs(loadWidened<V<Mox32s, 4>>(p)));
    };
    forBlocks<16>(
        false, dst, len,
        [&](long i) {
          const Exact<31> a = load<Mox16sc>(src + i).re, b = load<Mox16sc>(src + i).im;
          store(dst + i,
                Mox16sc{saturate<Mox16s>(rule(a * a - b * b)), saturate<Mox16s>(rule(2 * a * b))});
        },
        [&](long i, auto put) {
          for (int half = 0; half < 2; ++half) {
            const Mox16s* from = parts(src + i + 8 * half);
            storeSaturated(
                parts(dst + i + 8 * half),
                {squares(from), squares(from + 4), squares(from + 8), squares(from + 12)}, put);
          }
        });
  });
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsSqr_32f, square<Mox32f>);
MOX_EXPORT(moxsSqr_64f, square<Mox64f>);
MOX_EXPORT(moxsSqr_32fc, square<Mox32fc>);
MOX_EXPORT(moxsSqr_64fc, square<Mox64fc>);
MOX_EXPORT(moxsSqr_32f_I, inPlace<square<Mox32f>>);
MOX_EXPORT(moxsSqr_64f_I, inPlace<square<Mox64f>>);
MOX_EXPORT(moxsSqr_32fc_I, inPlace<square<Mox32fc>>);
MOX_EXPORT(moxsSqr_64fc_I, inPlace<square<Mox64fc>>);
MOX_EXPORT(moxsSqr_8u_Sfs, squareScaled<Mox8u>);
MOX_EXPORT(moxsSqr_16s_Sfs, squareScaled<Mox16s>);
MOX_EXPORT(moxsSqr_16u_Sfs, squareScaled<Mox16u>);
MOX_EXPORT(moxsSqr_16sc_Sfs, squareScaled<Mox16sc>);
MOX_EXPORT(moxsSqr_8u_ISfs, inPlace<squareScaled<Mox8u>>);
MOX_EXPORT(moxsSqr_16s_ISfs, inPlace<squareScaled<Mox16s>>);
MOX_EXPORT(moxsSqr_16u_ISfs, inPlace<squareScaled<Mox16u>>);
MOX_EXPORT(moxsSqr_16sc_ISfs, inPlace<squareScaled<Mox16sc>>);

}  // namespace mox
