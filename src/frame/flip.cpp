#include <moxsp/frame.h>

#include <utility>

#include "frame/checks.h"
#include "frame/elements.h"
#include "frame/export.h"
#include "frame/vec.h"

namespace mox {
namespace {

// Elements are moved as integers, so that no NaN changes. Those below four bytes are shuffled 16
// bytes at a time, wider ones by the lanes of a whole vector.
template <class E>
struct Element {
  using Bits = BitsOf<E>;
  using Vector = V<Bits, (sizeof(E) < 4 ? 16 : vectorBytes) / int(sizeof(E))>;
};
template <>
struct Element<Mox64fc> {
  using Bits = V<Mox64u, 2>;
  using Vector = V<Mox64u>;
};

template <class E>
using Bits = typename Element<E>::Bits;
template <class E>
using Vector = typename Element<E>::Vector;
template <class E>
constexpr long lanes = sizeof(Vector<E>) / sizeof(E);

template <class E>
[[gnu::always_inline]] inline Vector<E> reversed(Vector<E> v) {
  constexpr int words = sizeof(E) / sizeof(v[0]);
  return shuffle<[](int i) { return (int(lanes<E>) - 1 - i / words) * words + i % words; }>(v);
}

template <class E>
void reverseCopy(const E* src, E* dst, long len) {
  long i = 0;
  const auto vector = [&](long at) {
    store(dst + at, reversed<E>(load<Vector<E>>(src + len - at - lanes<E>)));
  };
  if (len < lanes<E>) {
    for (; i < len; ++i) store(dst + i, load<Bits<E>>(src + len - 1 - i));
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
  const auto swapEnds = [&]<class T>(E* low, E* high, auto turn) {
    const T a = load<T>(low), b = load<T>(high);
    store(low, turn(b));
    store(high, turn(a));
  };
  long low = 0, high = len;
  const auto swapVectors = [&] {
    swapEnds.template operator()<Vector<E>>(srcDst + low, srcDst + high - lanes<E>, reversed<E>);
    low += lanes<E>, high -= lanes<E>;
  };
  // Two vectors may overlap in the middle, where both put the same elements.
  while (high - low >= lanes<E>) swapVectors();
  for (; high - low > 1; ++low, --high)
    swapEnds.template operator()<Bits<E>>(srcDst + low, srcDst + high - 1,
                                          [](auto v) { return v; });
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
