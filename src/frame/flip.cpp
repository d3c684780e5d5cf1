#include <moxsp/frame.h>

#include <type_traits>

#include "frame/checks.h"
#include "frame/elements.h"
#include "frame/export.h"
#include "frame/vec.h"

namespace mox {
namespace {

// What carries an element from place to place, its bits unchanged. Under AVX integers are shuffled
// 16 bytes at a time, while the lanes of float vectors go through a whole one.
template <class E>
struct Carrier {
  using Single = BitsOf<E>;
  using Vector = std::conditional_t<
      sizeof(E) == 8, V<Mox64f>,
      std::conditional_t<sizeof(E) == 4, V<Mox32f>, V<Single, 16 / int(sizeof(E))>>>;
};
template <>
struct Carrier<Mox64fc> {
  using Single = V<Mox64f, 2>;
  using Vector = V<Mox64f>;
};

template <class E>
using Single = typename Carrier<E>::Single;
template <class E>
using Vector = typename Carrier<E>::Vector;
template <class E>
constexpr long lanes = sizeof(Vector<E>) / sizeof(E);

template <class E>
[[gnu::always_inline]] inline Vector<E> reversed(Vector<E> v) {
  constexpr int perHalf = 16 / sizeof(E);
  if constexpr (sizeof v == vectorBytes)
    v = Vector<E>(shuffle<[](int i) { return i ^ 2; }>(V<Mox64f>(v)));
  return shuffle<[](int i) { return i ^ (perHalf - 1); }>(v);
}

template <class E>
void reverseCopy(const E* src, E* dst, long len) {
  long i = 0;
  const auto vector = [&](long at) {
    store(dst + at, reversed<E>(load<Vector<E>>(src + len - at - lanes<E>)));
  };
  if (len < lanes<E>) {
    for (; i < len; ++i) store(dst + i, load<Single<E>>(src + len - 1 - i));
    return;
  }
  vector(0);
  i = lanes<E> - long(addressOf(dst) % sizeof(Vector<E>)) / long(sizeof(E));
  for (; i < len - 4 * lanes<E>; i += 4 * lanes<E>)
    for (int j = 0; j < 4; ++j) vector(i + j * lanes<E>);
  for (; i < len - lanes<E>; i += lanes<E>) vector(i);
  vector(len - lanes<E>);
}

template <class E>
void reverseInPlace(E* srcDst, long len) {
  long low = 0, high = len;
  // Two vectors may overlap in the middle, where both put the same elements.
  for (; high - low >= lanes<E>; low += lanes<E>, high -= lanes<E>) {
    E* const last = srcDst + high - lanes<E>;
    const auto a = load<Vector<E>>(srcDst + low), b = load<Vector<E>>(last);
    store(srcDst + low, reversed<E>(b));
    store(last, reversed<E>(a));
  }
  for (; high - low > 1; ++low, --high) {
    const auto a = load<Single<E>>(srcDst + low), b = load<Single<E>>(srcDst + high - 1);
    store(srcDst + low, b);
    store(srcDst + high - 1, a);
  }
}

template <class E>
MoxStatus flipInPlace(E* srcDst, int len) {
  if (MoxStatus s = checkArrays(len, srcDst)) return s;
  reverseInPlace(srcDst, len);
  return moxOk;
}

template <class E>
MoxStatus flip(const E* src, E* dst, int len) {
  if (src == dst) return flipInPlace(dst, len);
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  reverseCopy(src, dst, len);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsFlip_8u, flip<Mox8u>);
MOX_EXPORT(moxsFlip_16u, flip<Mox16u>);
MOX_EXPORT(moxsFlip_32f, flip<Mox32f>);
MOX_EXPORT(moxsFlip_32fc, flip<Mox32fc>);
MOX_EXPORT(moxsFlip_64f, flip<Mox64f>);
MOX_EXPORT(moxsFlip_64fc, flip<Mox64fc>);
MOX_EXPORT(moxsFlip_8u_I, flipInPlace<Mox8u>);
MOX_EXPORT(moxsFlip_16u_I, flipInPlace<Mox16u>);
MOX_EXPORT(moxsFlip_32f_I, flipInPlace<Mox32f>);
MOX_EXPORT(moxsFlip_32fc_I, flipInPlace<Mox32fc>);
MOX_EXPORT(moxsFlip_64f_I, flipInPlace<Mox64f>);
MOX_EXPORT(moxsFlip_64fc_I, flipInPlace<Mox64fc>);

}  // namespace mox
