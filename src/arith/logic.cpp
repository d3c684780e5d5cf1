// Bitwise And, Or, Xor and Not.
#include <moxsp/arith.h>

#include "arith/element_wise.h"
#include "frame/export.h"
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

MOX_EXPORT(moxsAnd_8u, mapPair<bitAnd, Mox8u>);
MOX_EXPORT(moxsAnd_16u, mapPair<bitAnd, Mox16u>);
MOX_EXPORT(moxsAnd_32u, mapPair<bitAnd, Mox32u>);
MOX_EXPORT(moxsAnd_8u_I, inPlace<mapPair<bitAnd, Mox8u>>);
MOX_EXPORT(moxsAnd_16u_I, inPlace<mapPair<bitAnd, Mox16u>>);
MOX_EXPORT(moxsAnd_32u_I, inPlace<mapPair<bitAnd, Mox32u>>);

MOX_EXPORT(moxsOr_8u, mapPair<bitOr, Mox8u>);
MOX_EXPORT(moxsOr_16u, mapPair<bitOr, Mox16u>);
MOX_EXPORT(moxsOr_32u, mapPair<bitOr, Mox32u>);
MOX_EXPORT(moxsOr_8u_I, inPlace<mapPair<bitOr, Mox8u>>);
MOX_EXPORT(moxsOr_16u_I, inPlace<mapPair<bitOr, Mox16u>>);
MOX_EXPORT(moxsOr_32u_I, inPlace<mapPair<bitOr, Mox32u>>);

MOX_EXPORT(moxsXor_8u, mapPair<bitXor, Mox8u>);
MOX_EXPORT(moxsXor_16u, mapPair<bitXor, Mox16u>);
MOX_EXPORT(moxsXor_32u, mapPair<bitXor, Mox32u>);
MOX_EXPORT(moxsXor_8u_I, inPlace<mapPair<bitXor, Mox8u>>);
MOX_EXPORT(moxsXor_16u_I, inPlace<mapPair<bitXor, Mox16u>>);
MOX_EXPORT(moxsXor_32u_I, inPlace<mapPair<bitXor, Mox32u>>);

MOX_EXPORT(moxsAndC_8u, mapConstant<bitAnd, Mox8u>);
MOX_EXPORT(moxsAndC_16u, mapConstant<bitAnd, Mox16u>);
MOX_EXPORT(moxsAndC_32u, mapConstant<bitAnd, Mox32u>);
MOX_EXPORT(moxsAndC_8u_I, inPlace<mapConstant<bitAnd, Mox8u>>);
MOX_EXPORT(moxsAndC_16u_I, inPlace<mapConstant<bitAnd, Mox16u>>);
MOX_EXPORT(moxsAndC_32u_I, inPlace<mapConstant<bitAnd, Mox32u>>);

MOX_EXPORT(moxsOrC_8u, mapConstant<bitOr, Mox8u>);
MOX_EXPORT(moxsOrC_16u, mapConstant<bitOr, Mox16u>);
MOX_EXPORT(moxsOrC_32u, mapConstant<bitOr, Mox32u>);
MOX_EXPORT(moxsOrC_8u_I, inPlace<mapConstant<bitOr, Mox8u>>);
MOX_EXPORT(moxsOrC_16u_I, inPlace<mapConstant<bitOr, Mox16u>>);
MOX_EXPORT(moxsOrC_32u_I, inPlace<mapConstant<bitOr, Mox32u>>);

MOX_EXPORT(moxsXorC_8u, mapConstant<bitXor, Mox8u>);
MOX_EXPORT(moxsXorC_16u, mapConstant<bitXor, Mox16u>);
MOX_EXPORT(moxsXorC_32u, mapConstant<bitXor, Mox32u>);
MOX_EXPORT(moxsXorC_8u_I, inPlace<mapConstant<bitXor, Mox8u>>);
MOX_EXPORT(moxsXorC_16u_I, inPlace<mapConstant<bitXor, Mox16u>>);
MOX_EXPORT(moxsXorC_32u_I, inPlace<mapConstant<bitXor, Mox32u>>);

MOX_EXPORT(moxsNot_8u, bitNot<Mox8u>);
MOX_EXPORT(moxsNot_16u, bitNot<Mox16u>);
MOX_EXPORT(moxsNot_32u, bitNot<Mox32u>);
MOX_EXPORT(moxsNot_8u_I, inPlace<bitNot<Mox8u>>);
MOX_EXPORT(moxsNot_16u_I, inPlace<bitNot<Mox16u>>);
MOX_EXPORT(moxsNot_32u_I, inPlace<bitNot<Mox32u>>);

}  // namespace mox::arith
