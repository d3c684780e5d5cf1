// The square root of floats.
#include <moxsp/arith.h>

#include <bit>
#include <type_traits>

#include "frame/in_place.h"
#include "frame/map.h"

namespace mox::arith {
namespace {

// Remembers whether any element has its sign set.
template <class E>
class SignNote {
  using Lanes = Bits<V<E>>;
  using Word = Lane<Lanes>;

 public:
  void see(V<E> x) { lanes_ |= Lanes(x); }
  void see(E x) { one_ |= std::bit_cast<Word>(x); }

  bool any() const { return signBits(V<E>(lanes_)) || one_ >> (8 * sizeof(Word) - 1); }

 private:
  Lanes lanes_ = {};
  Word one_ = 0;
};

// The divider sets the pace, and only a scalar root, at that of a vector, costs time: so there is
// no peel, unless for stores that bypass the cache.
template <class E>
MoxStatus squareRoots(const E* src, E* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  SignNote<E> negative;
  const auto root = [&](auto x) {
    negative.see(x);
    return squareRoot(x);
  };
  constexpr long lanes = lanesOf<E>;
  if (bypasses<Stores::bypassing>(dst, len, src)) {
    mapElements<Stores::bypassing>(root, dst, len, src);
  } else {
    long i = 0;
    for (; i <= len - lanes; i += lanes) store(dst + i, root(load<V<E>>(src + i)));
    for (; i < len; ++i) store(dst + i, root(load<E>(src + i)));
  }
  return negative.any() ? moxWarnSqrtNegArg : moxOk;
}

}  // namespace

MOX_EXPORT_BOTH(moxsSqrt_32f, moxsSqrt_32f_I, squareRoots);
MOX_EXPORT_BOTH(moxsSqrt_64f, moxsSqrt_64f_I, squareRoots);

}  // namespace mox::arith
