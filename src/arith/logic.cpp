// Bitwise And, Or, Xor and Not.
#include <moxsp/arith.h>

#include "arith/element_wise.h"
#include "frame/in_place.h"

namespace mox::arith {
namespace {

constexpr auto bitAnd = [](auto a, auto b) { return a & b; };
constexpr auto bitOr = [](auto a, auto b) { return a | b; };
constexpr auto bitXor = [](auto a, auto b) { return a ^ b; };

template <class E>
MoxStatus bitNot(const E* src, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  mapElements<Stores::bypassing>([](auto a) { return ~a; }, dst, len, src);
  return moxOk;
}

}  // namespace

MOX_EXPORT_BOTH(moxsAnd_8u, moxsAnd_8u_I, mapPair<bitAnd>);
MOX_EXPORT_BOTH(moxsAnd_16u, moxsAnd_16u_I, mapPair<bitAnd>);
MOX_EXPORT_BOTH(moxsAnd_32u, moxsAnd_32u_I, mapPair<bitAnd>);

MOX_EXPORT_BOTH(moxsOr_8u, moxsOr_8u_I, mapPair<bitOr>);
MOX_EXPORT_BOTH(moxsOr_16u, moxsOr_16u_I, mapPair<bitOr>);
MOX_EXPORT_BOTH(moxsOr_32u, moxsOr_32u_I, mapPair<bitOr>);

MOX_EXPORT_BOTH(moxsXor_8u, moxsXor_8u_I, mapPair<bitXor>);
MOX_EXPORT_BOTH(moxsXor_16u, moxsXor_16u_I, mapPair<bitXor>);
MOX_EXPORT_BOTH(moxsXor_32u, moxsXor_32u_I, mapPair<bitXor>);

MOX_EXPORT_BOTH(moxsAndC_8u, moxsAndC_8u_I, mapConstant<bitAnd>);
MOX_EXPORT_BOTH(moxsAndC_16u, moxsAndC_16u_I, mapConstant<bitAnd>);
MOX_EXPORT_BOTH(moxsAndC_32u, moxsAndC_32u_I, mapConstant<bitAnd>);

MOX_EXPORT_BOTH(moxsOrC_8u, moxsOrC_8u_I, mapConstant<bitOr>);
MOX_EXPORT_BOTH(moxsOrC_16u, moxsOrC_16u_I, mapConstant<bitOr>);
MOX_EXPORT_BOTH(moxsOrC_32u, moxsOrC_32u_I, mapConstant<bitOr>);

MOX_EXPORT_BOTH(moxsXorC_8u, moxsXorC_8u_I, mapConstant<bitXor>);
MOX_EXPORT_BOTH(moxsXorC_16u, moxsXorC_16u_I, mapConstant<bitXor>);
MOX_EXPORT_BOTH(moxsXorC_32u, moxsXorC_32u_I, mapConstant<bitXor>);

MOX_EXPORT_BOTH(moxsNot_8u, moxsNot_8u_I, bitNot);
MOX_EXPORT_BOTH(moxsNot_16u, moxsNot_16u_I, bitNot);
MOX_EXPORT_BOTH(moxsNot_32u, moxsNot_32u_I, bitNot);

}  // namespace mox::arith
