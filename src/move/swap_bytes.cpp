#include <moxsp/move.h>

#include <utility>

#include "frame/in_place.h"
#include "frame/map.h"
#include "frame/packed24.h"

namespace mox::move {
namespace {

Mox16u swapped(Mox16u e) { return __builtin_bswap16(e); }
Mox32u swapped(Mox32u e) { return __builtin_bswap32(e); }
Mox64u swapped(Mox64u e) { return __builtin_bswap64(e); }
Packed24u swapped(Packed24u e) {
  std::swap(e.bytes[0], e.bytes[2]);
  return e;
}

using Bytes = I<Mox8u>;

// Where the byte that belongs at place i stands: mirrored within its element.
template <int size>
constexpr int mirrored(int i) {
  return i / size * size + size - 1 - i % size;
}

template <int size>
[[gnu::always_inline]] inline void swapBlock(Bytes (&v)[4]) {
  for (Bytes& b : v) b = shuffle<mirrored<size>>(b);
}

// Sixteen elements of three bytes: those across a vector boundary draw from both sides.
template <int size>
[[gnu::always_inline]] inline void swapBlock(Bytes (&v)[3]) {
  constexpr auto first = [](int i) { return mirrored<3>(i); };
  constexpr auto last = [](int i) { return mirrored<3>(32 + i) - 16; };
  // Place 1 of the middle draws from the first vector and place 14 from the last one.
  constexpr auto middle = [](int i) { return i == 14 ? 30 : mirrored<3>(16 + i); };
  constexpr auto third = [](int i) { return i == 14 ? 16 : i; };
  const Bytes a = shuffle<first>(v[0], v[1]), c = shuffle<last>(v[1], v[2]);
  v[1] = shuffle<third>(shuffle<middle>(v[0], v[1]), v[2]);
  v[0] = a, v[2] = c;
}

template <class E>
void swapElements(const E* src, E* dst, long len) {
  constexpr int size = sizeof(E), vecs = size == 3 ? 3 : 4;
  constexpr long vector = sizeof(Bytes), block = vecs * vector / size;
  forBlocks<block>(
      bypasses<Stores::bypassing>(dst, len, src), dst, len,
      [&](long i) { store(dst + i, swapped(load<E>(src + i))); },
      [&](long i, auto put) {
        const auto* from = reinterpret_cast<const Mox8u*>(src + i);
        auto* to = reinterpret_cast<Mox8u*>(dst + i);
        Bytes v[vecs];
        for (int j = 0; j < vecs; ++j) v[j] = load<Bytes>(from + j * vector);
        swapBlock<size>(v);
        for (int j = 0; j < vecs; ++j) put(to + j * vector, v[j]);
      });
}

template <class Packed = void, class E>
MoxStatus swapBytes(const E* src, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  swapElements(samples<Packed>(src), samples<Packed>(dst), len);
  return moxOk;
}

}  // namespace

MOX_EXPORT_BOTH(moxsSwapBytes_16u, moxsSwapBytes_16u_I, swapBytes);
MOX_EXPORT_BOTH(moxsSwapBytes_24u, moxsSwapBytes_24u_I, swapBytes<Packed24u>);
MOX_EXPORT_BOTH(moxsSwapBytes_32u, moxsSwapBytes_32u_I, swapBytes);
MOX_EXPORT_BOTH(moxsSwapBytes_64u, moxsSwapBytes_64u_I, swapBytes);

}  // namespace mox::move
