// Thresholds on complex 16-bit integers: four elements to a register, each seen as 32 bits.
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

using Elements = I<Mox32s>;

// No level tells the largest square, 2^31, from the next number below.
Elements squaredMagnitudes(Elements z) { return exactSquaredMagnitude(I<Mox16s>(z)); }

// dst[i] = op(src[i]) with an operation on registers.
template <class Op>
void mapRegisters(Op op, const Mox16sc* src, Mox16sc* dst, long len) {
  const auto onBoth = [=](auto z) {
    if constexpr (std::is_same_v<decltype(z), Elements>)
      return op(z);
    else
      return op(Elements{z})[0];
  };
  mapElements<Stores::bypassing, sizeof(Elements)>(onBoth, reinterpret_cast<Mox32s*>(dst), len,
                                                   reinterpret_cast<const Mox32s*>(src));
}

// `level` times the direction of each element, rounded; the real axis for zero.
Elements toLevel(Elements z, Elements m, Mox16s level) {
  const auto wide = [](Elements v) { return __builtin_convertvector(v, V<Mox64f>); };
  const V<Mox64f> factors = level / squareRoot(greater(wide(m), broadcast<V<Mox64f>>(1.0)));
  const auto scaled = [&](Elements part) {
    return toInteger(nearestInteger(wide(part) * factors));
  };
  const Elements re = scaled(z << 16 >> 16), im = scaled(z >> 16);
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
  const auto square = broadcast<Elements>(Mox32s(level) * level);
  mapRegisters(
      [=](Elements z) {
        const auto m = squaredMagnitudes(z);
        const auto changes = Relation::changes(m, square);
        return anyLane(changes) ? where(changes, toLevel(z, m, level), z) : z;
      },
      src, dst, len);
  return moxOk;
}

template <class Relation>
MoxStatus replace(const Mox16sc* src, Mox16sc* dst, int len, Mox16s level, Mox16sc value) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (MoxStatus s = NoNegativeLevel::check(level)) return s;
  const auto square = broadcast<Elements>(Mox32s(level) * level);
  const auto values = broadcast<Elements>(std::bit_cast<Mox32s>(value));
  mapRegisters(
      [=](Elements z) { return where(Relation::keeps(squaredMagnitudes(z), square), z, values); },
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
