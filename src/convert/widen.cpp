// Conversions that keep the value, or round it once to the destination's precision.
#include <moxsp/convert.h>

#include "convert/convert.h"
#include "frame/checks.h"
#include "frame/export.h"
#include "frame/map.h"
#include "frame/packed24.h"
#include "frame/rounding.h"
#include "frame/rounding_control.h"

namespace mox::convert {
namespace {

// Float lanes fill a register; AVX has integer operations on half of one only.
template <class D>
using Lanes = V<D, (std::is_floating_point_v<D> ? vectorBytes : vectorBytes / 2) / int(sizeof(D))>;

// 16-bit integers times 2^-scaleFactor with one float operation: a word beneath the upper half of
// 2^23 * 2^-scaleFactor is the float that exceeds that by the word in units of 2^-scaleFactor.
// False, with nothing done, where a power of two isn't normal or a difference of equals would be
// -0.
template <class S>
requires(sizeof(S) == 2) bool wordsToFloats(const S* src, Mox32f* dst, long len, int scaleFactor) {
  if (scaleFactor < -104 || scaleFactor > 126 || roundsDown()) return false;
  constexpr Mox16u lift = std::is_signed_v<S> ? 0x8000 : 0;  // makes a signed word unsigned
  const Mox32f base = powerOfTwo<Mox32f>(23 - scaleFactor);
  const Mox32f surplus = base + lift * powerOfTwo<Mox32f>(-scaleFactor);
  const auto upperHalf = broadcast<I<Mox16u>>(Mox16u(std::bit_cast<Mox32u>(base) >> 16));
  mapWidened<V<S, 8>, Stores::bypassing>(
      [=](auto words) {
        const auto w = I<Mox16u>(words) ^ lift;
        const auto low = __builtin_shufflevector(w, upperHalf, 0, 8, 1, 9, 2, 10, 3, 11);
        const auto high = __builtin_shufflevector(w, upperHalf, 4, 12, 5, 13, 6, 14, 7, 15);
        return join<V<Mox32f>>(low, high) - surplus;
      },
      dst, len, src);
  return true;
}

template <class S, class D>
bool wordsToFloats(const S*, D*, long, int) {
  return false;
}

template <class S, class D>
MoxStatus widen(const Public<S>* src, D* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  convertValues(reinterpret_cast<const S*>(src), dst, len);
  return moxOk;
}

template <class S, class D>
MoxStatus scaledToFloat(const S* src, D* dst, int len, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  convertScaledValues(src, dst, len, scaleFactor);
  return moxOk;
}

}  // namespace

template <class S, class D>
void convertValues(const S* src, D* dst, long len) {
  if (wordsToFloats(src, dst, len, 0)) return;
  if constexpr (std::is_same_v<S, Mox64s>)  // AVX has no vectors of this conversion
    for (long i = 0; i < len; ++i) store(dst + i, D(load<S>(src + i)));
  else if constexpr (sizeof(S) > sizeof(D))
    mapWidened<Lanes<S>, Stores::bypassing>(
        [](auto v) { return __builtin_convertvector(v, V<D, laneCount<Lanes<S>>>); }, dst, len,
        src);
  else
    mapWidened<Lanes<D>, Stores::bypassing>([](auto v) { return v; }, dst, len, src);
}

// The power of two stays a normal number: a factor further below 0 counts as the one whose power
// brings the largest integers just short of infinity. Where the result may not be normal, a second
// multiplication does what is left, so that it is rounded once.
template <class S, class D>
void convertScaledValues(const S* src, D* dst, long len, int scaleFactor) {
  constexpr int largest = std::numeric_limits<D>::max_exponent - 1;
  if (scaleFactor == 0) {
    convertValues(src, dst, len);
  } else if (wordsToFloats(src, dst, len, scaleFactor)) {
    return;
  } else if (scaleFactor < largest) {
    const D scale = powerOfTwo<D>(-std::max(scaleFactor, Limits<S>::digits - largest));
    mapWidened<Lanes<D>, Stores::bypassing>([=](auto v) { return v * scale; }, dst, len, src);
  } else {
    const D scale = powerOfTwo<D>(1 - largest);
    const D rest = powerOfTwo<D>(largest - 1 - std::min(scaleFactor, 2 * largest - 2));
    mapWidened<Lanes<D>, Stores::bypassing>([=](auto v) { return v * scale * rest; }, dst, len,
                                            src);
  }
}

template void convertScaledValues(const Mox16s*, Mox32f*, long, int);
template void convertScaledValues(const Mox32s*, Mox32f*, long, int);
template void convertValues(const Mox16s*, Mox32f*, long);
template void convertValues(const Mox16s*, Mox64f*, long);
template void convertValues(const Mox32s*, Mox64f*, long);
template void convertValues(const Mox32f*, Mox64f*, long);
template void convertValues(const Mox64f*, Mox32f*, long);

MOX_EXPORT(moxsConvert_8s16s, widen<Mox8s, Mox16s>);
MOX_EXPORT(moxsConvert_8s32f, widen<Mox8s, Mox32f>);
MOX_EXPORT(moxsConvert_8u32f, widen<Mox8u, Mox32f>);
MOX_EXPORT(moxsConvert_16s32s, widen<Mox16s, Mox32s>);
MOX_EXPORT(moxsConvert_16s32f, widen<Mox16s, Mox32f>);
MOX_EXPORT(moxsConvert_16u32f, widen<Mox16u, Mox32f>);
MOX_EXPORT(moxsConvert_24s32s, widen<Packed24s, Mox32s>);
MOX_EXPORT(moxsConvert_24s32f, widen<Packed24s, Mox32f>);
MOX_EXPORT(moxsConvert_24u32u, widen<Packed24u, Mox32u>);
MOX_EXPORT(moxsConvert_24u32f, widen<Packed24u, Mox32f>);
MOX_EXPORT(moxsConvert_32s32f, widen<Mox32s, Mox32f>);
MOX_EXPORT(moxsConvert_32s64f, widen<Mox32s, Mox64f>);
MOX_EXPORT(moxsConvert_32f64f, widen<Mox32f, Mox64f>);
MOX_EXPORT(moxsConvert_64s64f, widen<Mox64s, Mox64f>);
MOX_EXPORT(moxsConvert_64f32f, widen<Mox64f, Mox32f>);

MOX_EXPORT(moxsConvert_16s32f_Sfs, scaledToFloat<Mox16s, Mox32f>);
MOX_EXPORT(moxsConvert_16s64f_Sfs, scaledToFloat<Mox16s, Mox64f>);
MOX_EXPORT(moxsConvert_32s32f_Sfs, scaledToFloat<Mox32s, Mox32f>);
MOX_EXPORT(moxsConvert_32s64f_Sfs, scaledToFloat<Mox32s, Mox64f>);

}  // namespace mox::convert
