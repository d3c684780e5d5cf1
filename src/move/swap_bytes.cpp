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

// Where the byte that belongs at place i stands: mirrored within its element.
template <int size>
constexpr int mirrored(int i) {
  return i / size * size + size - 1 - i % size;
}

// Sixteen elements of three bytes: those across a vector boundary draw from both sides.
using Bytes = V<Mox8u, 16>;
[[gnu::always_inline]] inline Registers<Bytes, 3> mirroredTriples(const Mox8u* src) {
  constexpr auto first = [](int i) { return mirrored<3>(i); };
  constexpr auto last = [](int i) { return mirrored<3>(32 + i) - 16; };
  // Place 1 of the middle draws from the first vector and place 14 from the last one.
  constexpr auto middle = [](int i) { return i == 14 ? 30 : mirrored<3>(16 + i); };
  constexpr auto third = [](int i) { return i == 14 ? 16 : i; };
  const auto a = load<Bytes>(src), b = load<Bytes>(src + 16), c = load<Bytes>(src + 32);
  return {{shuffle<first>(a, b), shuffle<third>(shuffle<middle>(a, b), c), shuffle<last>(b, c)}};
}

template <class E>
void swapElements(const E* src, E* dst, long len) {
  constexpr int size = sizeof(E), step = size == 3 ? 16 : integerBytes / size;
  forSteps<step, size == 3 ? 1 : 4, 16 / (size == 3 ? 1 : size)>(
      bypasses<Stores::bypassing>(dst, len, src), dst, len,
      [&](auto n, long i) {
        const auto* from = reinterpret_cast<const Mox8u*>(src + i);
        if constexpr (size == 3)
          return mirroredTriples(from);
        else
          return Registers{shuffle<mirrored<size>>(load<V<Mox8u, n * size>>(from))};
      },
      [&](long i) { store(dst + i, swapped(load<E>(src + i))); });
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
