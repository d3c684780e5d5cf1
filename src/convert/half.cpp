// Half floats: by the processor's instructions where it has them, else in software.
#include "convert/half.h"

#include <moxsp/convert.h>

#include "convert/convert.h"
#include "frame/export.h"
#include "frame/map.h"
#include "frame/rounding_control.h"
#include "support/moxcore.h"

namespace mox::convert {
namespace {

bool hasInstructions() { return ownGetFeature(cpuHalfFloat) != 0; }

void decode(const Mox16f* src, Mox32f* dst, long len) {
  if (hasInstructions())
    mapWidened<Beside<Mox16u, V<Mox32f>>, Stores::bypassing>([](auto v) { return halfToFloat(v); },
                                                             dst, len, src);
  else
    mapWidened<V<Mox32u>>(
        [](auto v) { return inIntegers(v, [](auto bits) { return decodeHalf(bits); }); }, dst, len,
        src);
}

template <HalfRounding rounding>
void encodeRounding(const Mox32f* src, Mox16f* dst, long len) {
  if (hasInstructions()) {
    const HiddenExceptions scope;
    mapWidened<V<Mox32f>, Stores::bypassing>([](auto v) { return floatToHalf<int(rounding)>(v); },
                                             dst, len, src);
    return;
  }
  const RoundingScope scope(
      rounding == HalfRounding::nearEven ? Rounding::nearEven : Rounding::zero, Exceptions::hidden);
  mapWidened<V<Mox32f>>(
      [](V<Mox32f> v) {
        return narrowed<Mox16u>(inIntegers(
            v, [](auto x) { return Beside<Mox32s, decltype(x)>(encodeHalf<rounding>(x)); }));
      },
      dst, len, src);
}

// Modes beyond the three stand for rounding to nearest.
void encode(const Mox32f* src, Mox16f* dst, long len, int roundMode) {
  if (roundMode == moxRoundZero)
    encodeRounding<HalfRounding::zero>(src, dst, len);
  else
    encodeRounding<HalfRounding::nearEven>(src, dst, len);
}

MoxStatus checkMode(int roundMode) {
  return roundMode == moxRoundHalfAway ? MoxStatus(moxErrRoundMode) : moxOk;
}

MoxStatus halfToFloats(const Mox16f* src, Mox32f* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  decode(src, dst, len);
  return moxOk;
}

MoxStatus floatsToHalf(const Mox32f* src, Mox16f* dst, int len, int roundMode) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (MoxStatus s = checkMode(roundMode)) return s;
  encode(src, dst, len, roundMode);
  return moxOk;
}

MoxStatus integersToHalf(const Mox16s* src, Mox16f* dst, int len, int roundMode) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (MoxStatus s = checkMode(roundMode)) return s;
  inPieces<Mox32f>(len, [&](Mox32f* piece, long start, long count) {
    convertValues(src + start, piece, count);
    encode(piece, dst + start, count, roundMode);
  });
  return moxOk;
}

MoxStatus halfToIntegers(const Mox16f* src, Mox16s* dst, int len, int roundMode, int scaleFactor) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (MoxStatus s = checkMode(roundMode)) return s;
  const HiddenExceptions scope;
  inPieces<Mox32f>(len, [&](Mox32f* piece, long start, long count) {
    decode(src + start, piece, count);
    convertToInteger(piece, dst + start, count, roundMode, scaleFactor);
  });
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsConvert_16f32f, halfToFloats);
MOX_EXPORT(moxsConvert_32f16f, floatsToHalf);
MOX_EXPORT(moxsConvert_16s16f, integersToHalf);
MOX_EXPORT(moxsConvert_16f16s_Sfs, halfToIntegers);

}  // namespace mox::convert
