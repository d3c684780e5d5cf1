// Thresholds on complex 16-bit integers, each seen as 32 bits.
#include <bit>

#include "convert/threshold.h"
#include "frame/complex16.h"
#include "frame/control_word.h"
#include "frame/in_place.h"
#include "frame/map.h"
#include "move/copy.h"
#include "move/fill.h"

namespace mox::convert {
namespace {

// As many as doubles, in which their magnitudes are made.
using Elements = Beside<Mox32s, V<Mox64f>>;

// No level tells the largest square, 2^31, from the next number below.
template <Of<Mox32s> T>
T squaredMagnitudes(T z) {
  return exactSquaredMagnitude(V<Mox16s, 2 * laneCount<T>>(z));
}

// dst[i] = op(src[i]) with an operation on registers.
template <class Op>
void mapRegisters(Op op, const Mox16sc* src, Mox16sc* dst, long len) {
  const auto onBoth = [=](auto z) {
    if constexpr (std::is_same_v<decltype(z), Mox32s>)
      return op(Elements{z})[0];
    else
      return op(z);
  };
  mapElements<Stores::bypassing, sizeof(Elements)>(onBoth, reinterpret_cast<Mox32s*>(dst), len,
                                                   reinterpret_cast<const Mox32s*>(src));
}

// `level` times the direction of each element, rounded; the real axis for zero.
template <Of<Mox32s> T>
T toLevel(T z, T m, Mox16s level) {
  using Doubles = Beside<Mox64f, T>;
  const auto wide = [](T v) { return __builtin_convertvector(v, Doubles); };
  const Doubles factors = level / squareRoot(greater(wide(m), broadcast<Doubles>(1.0)));
  const auto scaled = [&](T part) { return toInteger(nearestInteger(wide(part) * factors)); };
  const T re = scaled(z << 16 >> 16), im = scaled(z >> 16);
  return (re & 0xFFFF) | im << 16 | ((m == 0) & Mox32s(level));
}

template <class Relation>
MoxStatus magnitude(const Mox16sc* src, Mox16sc* dst, int len, Mox16s level) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (MoxStatus s = NoNegativeLevel::check(level)) return s;
  if (level == 0) {
    if (Relation::changes(1, 0))
      move::zeroElements(dst, len);
    else if (src != dst)
      move::copyElements(src, dst, len);
    return moxOk;
  }
  const HiddenExceptions scope;
  mapRegisters(
      [=]<class T>(T z) {
        const T m = squaredMagnitudes(z);
        const auto changes = Relation::changes(m, broadcast<T>(Mox32s(level) * level));
        return anyLane(changes) ? where(changes, toLevel(z, m, level), z) : z;
      },
      src, dst, len);
  return moxOk;
}

template <class Relation>
MoxStatus replace(const Mox16sc* src, Mox16sc* dst, int len, Mox16s level, Mox16sc value) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (MoxStatus s = NoNegativeLevel::check(level)) return s;
  mapRegisters(
      [=]<class T>(T z) {
        const T square = broadcast<T>(Mox32s(level) * level);
        return where(Relation::keeps(squaredMagnitudes(z), square), z,
                     broadcast<T>(std::bit_cast<Mox32s>(value)));
      },
      src, dst, len);
  return moxOk;
}

MoxStatus magnitudeBy(const Mox16sc* src, Mox16sc* dst, int len, Mox16s level, int relOp) {
  return byOperator<NoNegativeLevel, magnitude<LT>, magnitude<GT>>(src, dst, len, level, relOp);
}

}  // namespace

MOX_EXPORT_BOTH(moxsThreshold_16sc, moxsThreshold_16sc_I, magnitudeBy);

MOX_EXPORT_BOTH(moxsThreshold_LT_16sc, moxsThreshold_LT_16sc_I, magnitude<LT>);

MOX_EXPORT_BOTH(moxsThreshold_GT_16sc, moxsThreshold_GT_16sc_I, magnitude<GT>);

MOX_EXPORT_BOTH(moxsThreshold_LTVal_16sc, moxsThreshold_LTVal_16sc_I, replace<LTVal>);

MOX_EXPORT_BOTH(moxsThreshold_GTVal_16sc, moxsThreshold_GTVal_16sc_I, replace<GTVal>);

}  // namespace mox::convert
