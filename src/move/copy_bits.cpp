#include <moxsp/move.h>

#include "frame/export.h"
#include "frame/vec/vec.h"
#include "move/copy.h"

namespace mox::move {
namespace {

// The two ways to number the bits of a byte. Each tells how a shift by n places toward the first
// or the last bit looks, on single bytes and on vectors of them, and which bits are the first n.
struct HighestFirst {
  template <class T>
  static T towardFirst(T bytes, int n) {
    return T(bytes << n);
  }
  template <class T>
  static T towardLast(T bytes, int n) {
    return T(bytes >> n);
  }
  static Mox8u firstBits(int n) { return Mox8u(0xFF00 >> n); }
};
struct LowestFirst {
  template <class T>
  static T towardFirst(T bytes, int n) {
    return T(bytes >> n);
  }
  template <class T>
  static T towardLast(T bytes, int n) {
    return T(bytes << n);
  }
  static Mox8u firstBits(int n) { return Mox8u(0xFF >> (8 - n)); }
};

// `count` whole bytes from the bit `offset` of src on, 1 to 7, each joined from two of src.
template <class Order>
void copyShifted(const Mox8u* src, int offset, Mox8u* dst, long count) {
  long i = 0;
  // Vectors are shifted by pairs of bytes, and what crosses from one into the other masked off.
  const auto join = [&]<class Pairs>(Pairs) {
    const Mox8u early = Order::firstBits(8 - offset);
    const Pairs mask = broadcast<Pairs>(Mox16u(early * 0x0101));
    for (const long size = sizeof(Pairs); i <= count - size; i += size) {
      const Pairs first = Order::towardFirst(load<Pairs>(src + i), offset);
      const Pairs second = Order::towardLast(load<Pairs>(src + i + 1), 8 - offset);
      store(dst + i, Pairs((first & mask) | (second & ~mask)));
    }
  };
  join(I<Mox16u>());
  join(V<Mox16u, 4>());
  for (; i < count; ++i)
    dst[i] = Order::towardFirst(src[i], offset) | Order::towardLast(src[i + 1], 8 - offset);
}

// Copies n bits within one byte of dst, 1 to 8 - dstOffset.
template <class Order>
void copyWithinByte(const Mox8u* src, int srcOffset, Mox8u* dst, int dstOffset, int n) {
  Mox8u bits = Order::towardFirst(src[0], srcOffset);
  if (srcOffset + n > 8) bits |= Order::towardLast(src[1], 8 - srcOffset);
  const Mox8u mask = Order::towardLast(Order::firstBits(n), dstOffset);
  *dst = Mox8u((*dst & ~mask) | (Order::towardLast(bits, dstOffset) & mask));
}

template <class Order>
MoxStatus copyBits(const Mox8u* src, int srcBitOffset, Mox8u* dst, int dstBitOffset, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (srcBitOffset < 0 || dstBitOffset < 0) return moxErrSize;
  int from = srcBitOffset & 7;
  if (const int to = dstBitOffset & 7; to != 0) {
    const int n = len < 8 - to ? len : 8 - to;
    copyWithinByte<Order>(src, from, dst++, to, n);
    from += n, len -= n;
    src += from >> 3, from &= 7;
  }
  const long whole = len >> 3;
  if (from == 0)
    copyBytes(src, dst, whole);
  else
    copyShifted<Order>(src, from, dst, whole);
  if (const int rest = len & 7; rest != 0)
    copyWithinByte<Order>(src + whole, from, dst + whole, 0, rest);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsCopy_1u, copyBits<HighestFirst>);
MOX_EXPORT(moxsCopyLE_1u, copyBits<HighestFirst>);
MOX_EXPORT(moxsCopyBE_1u, copyBits<LowestFirst>);

}  // namespace mox::move
