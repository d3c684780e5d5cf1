// Conversions that keep the value, or round it once to the destination's precision.
#include <moxsp/convert.h>

#include "convert/convert.h"
#include "frame/export.h"
#include "frame/map.h"
#include "frame/packed24.h"
#include "frame/rounding.h"
#include "frame/rounding_control.h"

namespace mox::convert {
namespace {

// 16-bit integers times s = 2^-scaleFactor with one float operation: the bits of 2^23 s with the
// low word w are the float 2^23 s + w s. False, with nothing done, where a power of two isn't
// normal or a difference of equals would be -0. Where integers have registers as wide as floats, a
// conversion is faster.
template <class S>
requires(sizeof(S) == 2 && integerBytes < vectorBytes) bool wordsToFloats(const S* src, Mox32f* dst,
                                                                          long len,
                                                                          int scaleFactor) {
  if (scaleFactor < -104 || scaleFactor > 126 || roundsDown()) return false;
  constexpr Mox16u lift = std::is_signed_v<S> ? 0x8000 : 0;  // makes a signed word unsigned
  const Mox32f base = powerOfTwo<Mox32f>(23 - scaleFactor);
  const Mox32f surplus = base + lift * powerOfTwo<Mox32f>(-scaleFactor);
  const auto upperHalf = broadcast<I<Mox16u>>(Mox16u(std::bit_cast<Mox32u>(base) >> 16));
  mapWidened<I<S>, Stores::bypassing>(
      [=](auto words) {
        const auto w = I<Mox16u>(words) ^ lift;
        return join<V<Mox32f>>(unpackLow<Mox16u>(w, upperHalf), unpackHigh<Mox16u>(w, upperHalf)) -
               surplus;
      },
      dst, len, src);
  return true;
}

template <class S, class D>
bool wordsToFloats(const S*, D*, long, int) {
  return false;
}

template <class Packed = void, class S, class D>
MoxStatus widen(const S* src, D* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  convertValues(samples<Packed>(src), dst, len);
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
    mapWidened<Register<S>, Stores::bypassing>(
        [](auto v) { return __builtin_convertvector(v, V<D, laneCount<Register<S>>>); }, dst, len,
        src);
  else
    mapWidened<Register<D>, Stores::bypassing>([](auto v) { return v; }, dst, len, src);
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
    mapWidened<Register<D>, Stores::bypassing>([=](auto v) { return v * scale; }, dst, len, src);
  } else {
    const D scale = powerOfTwo<D>(1 - largest);
    const D rest = powerOfTwo<D>(largest - 1 - std::min(scaleFactor, 2 * largest - 2));
    mapWidened<Register<D>, Stores::bypassing>([=](auto v) { return v * scale * rest; }, dst, len,
                                               src);
  }
}

template void convertScaledValues(const Mox16s*, Mox32f*, long, int);
template void convertScaledValues(const Mox32s*, Mox32f*, long, int);
template void convertValues(const Mox8s*, Mox32f*, long);
template void convertValues(const Mox8u*, Mox32f*, long);
template void convertValues(const Mox16s*, Mox32f*, long);
template void convertValues(const Mox16u*, Mox32f*, long);
template void convertValues(const Mox16s*, Mox64f*, long);
template void convertValues(const Mox32s*, Mox32f*, long);
template void convertValues(const Mox32s*, Mox64f*, long);
template void convertValues(const Mox32f*, Mox64f*, long);
template void convertValues(const Mox64f*, Mox32f*, long);

MOX_EXPORT(moxsConvert_8s16s, widen);
MOX_EXPORT(moxsConvert_8s32f, widen);
MOX_EXPORT(moxsConvert_8u32f, widen);
MOX_EXPORT(moxsConvert_16s32s, widen);
MOX_EXPORT(moxsConvert_16s32f, widen);
MOX_EXPORT(moxsConvert_16u32f, widen);
MOX_EXPORT(moxsConvert_24s32s, widen<Packed24s>);
MOX_EXPORT(moxsConvert_24s32f, widen<Packed24s>);
MOX_EXPORT(moxsConvert_24u32u, widen<Packed24u>);
MOX_EXPORT(moxsConvert_24u32f, widen<Packed24u>);
MOX_EXPORT(moxsConvert_32s32f, widen);
MOX_EXPORT(moxsConvert_32s64f, widen);
MOX_EXPORT(moxsConvert_32f64f, widen);
MOX_EXPORT(moxsConvert_64s64f, widen);
MOX_EXPORT(moxsConvert_64f32f, widen);

MOX_EXPORT(moxsConvert_16s32f_Sfs, scaledToFloat);
MOX_EXPORT(moxsConvert_16s64f_Sfs, scaledToFloat);
MOX_EXPORT(moxsConvert_32s32f_Sfs, scaledToFloat);
MOX_EXPORT(moxsConvert_32s64f_Sfs, scaledToFloat);

}  // namespace mox::convert
