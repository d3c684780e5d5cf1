// How callers hold complex numbers: interleaved in one array, or split into an array of real and
// one of imaginary parts. Both views give kernels the same registers, at an index that counts
// numbers; an array of real elements is seen the same way.
#pragma once

#include <concepts>

#include "frame/map.h"
#include "frame/pair.h"

namespace mox {

// What drivers need of a view. Piece<n> has room for n numbers: load() copies up to n of them from
// the caller's memory, and store() copies them back.
template <class View>
concept ComplexView = requires(View view, typename View::template Piece<16> piece, long i) {
  View::bytes;
  { view.from(i) } -> std::same_as<View>;
  { view.peel() } -> std::same_as<int>;
  { view.aligned() } -> std::same_as<bool>;
  { piece.array() } -> std::same_as<View>;
  piece.load(view, i), piece.store(view, i);
};

// Consecutive numbers from `z` on, each part widened to a lane of T.
template <class T, class F>
[[gnu::always_inline]] inline Pair<T> loadDeinterleavedAs(const F* z) {
  constexpr int lanes = laneCount<T>;
  if constexpr (std::is_same_v<F, Lane<T>>) {
    return loadDeinterleaved<T>(z);
  } else if constexpr (Of<T, Mox32s>) {
    if constexpr (int(sizeof(T)) > integerBytes) {
      using Half = V<Mox32s, lanes / 2>;
      const Pair low = loadDeinterleavedAs<Half>(z), high = loadDeinterleavedAs<Half>(z + lanes);
      return {join<T>(low.re, high.re), join<T>(low.im, high.im)};
    } else {
      const T words = load<T>(z);
      return {T(Beside<Mox32u, T>(words) << 16) >> 16, words >> 16};
    }
  } else {
    using Exact = std::conditional_t<sizeof(F) == 2, Mox32s, F>;
    const auto parts = loadDeinterleavedAs<V<Exact, lanes>>(z);
    return {__builtin_convertvector(parts.re, T), __builtin_convertvector(parts.im, T)};
  }
}

template <class T>
[[gnu::always_inline]] inline void storeInterleaved(Lane<T>* z, Pair<T> v, auto put) {
  const auto [low, high] = interleaved(v).of;
  put(z, low), put(z + laneCount<T>, high);
}

// One array, of real or of complex elements.
template <class E>
struct Array {
  using Value = std::remove_const_t<E>;
  using F = Part<Value>;
  using Const = Array<const E>;
  static constexpr long bytes = sizeof(E);

  E* p;

  template <int count>
  struct Piece {
    alignas(widestBytes) Value e[count];
    Array array() { return {e}; }
    // Zeros behind the last number.
    void load(Array src, long n) {
      using Words = V<Mox32f, std::min(widestBytes, count * int(bytes)) / 4>;
      for (long at = 0; at < count * bytes; at += sizeof(Words))
        storeAligned(
            reinterpret_cast<Mox8u*>(e) + at,
            loadFirst<Words>(reinterpret_cast<const Mox8u*>(src.p) + at, (n * bytes - at) / 4, 0));
      if constexpr (bytes < 4)
        if (n % 2) e[n - 1] = mox::load<Value>(src.p + n - 1);
    }
    void store(Array dst, long n) const { std::memcpy(dst.p, e, std::size_t(n * bytes)); }
  };

  bool anyNull() const { return p == nullptr; }
  Array from(long i) const { return {p + i}; }
  int peel() const { return peelCount<widestBytes>(p); }
  bool aligned() const { return isAligned(p, widestBytes); }

  template <class T>
  [[gnu::always_inline]] auto lanes(long i) const {
    if constexpr (Complex<Value>)
      return loadDeinterleavedAs<T>(parts(p + i));
    else
      return loadWidened<T>(p + i);
  }
  template <class T>
  [[gnu::always_inline]] void store(long i, T v, auto put) const {
    if constexpr (Complex<Value>)
      storeInterleaved(parts(p + i), v, put);
    else
      put(p + i, v);
  }

  // Whole registers of numbers: their parts apart, or next to each other; and one number.
  [[gnu::always_inline]] void putPair(long i, Pair<V<F>> z) const {
    storeInterleaved(parts(p + i), z, [](void* at, auto v) { mox::store(at, v); });
  }
  [[gnu::always_inline]] V<F> interleaved(long i) const { return mox::load<V<F>>(p + i); }
  [[gnu::always_inline]] void putInterleaved(long i, V<F> z) const { mox::store(p + i, z); }
  Pair<F> number(long i) const {
    return {mox::load<F>(parts(p + i)), mox::load<F>(parts(p + i) + 1)};
  }
  void putNumber(long i, Pair<F> z) const {
    mox::store(parts(p + i), z.re);
    mox::store(parts(p + i) + 1, z.im);
  }
};

// Two arrays of the parts of complex elements.
template <class E>
struct Split {
  using F = std::remove_const_t<E>;
  using Const = Split<const E>;
  static constexpr long bytes = 2 * sizeof(E);

  E *re, *im;

  template <int count>
  struct Piece {
    typename Array<E>::template Piece<count> re, im;
    Split array() { return {re.e, im.e}; }
    void load(Split src, long n) { re.load({src.re}, n), im.load({src.im}, n); }
    void store(Split dst, long n) const { re.store({dst.re}, n), im.store({dst.im}, n); }
  };

  bool anyNull() const { return re == nullptr || im == nullptr; }
  Split from(long i) const { return {re + i, im + i}; }
  int peel() const { return peelCount<widestBytes>(re); }
  bool aligned() const { return isAligned(re, widestBytes) && isAligned(im, widestBytes); }

  template <class T>
  [[gnu::always_inline]] Pair<T> lanes(long i) const {
    return {loadWidened<T>(re + i), loadWidened<T>(im + i)};
  }
  template <class T>
  [[gnu::always_inline]] void store(long i, Pair<T> v, auto put) const {
    put(re + i, v.re);
    put(im + i, v.im);
  }

  [[gnu::always_inline]] Pair<V<F>> pair(long i) const {
    return {mox::load<V<F>>(re + i), mox::load<V<F>>(im + i)};
  }
  [[gnu::always_inline]] void putPair(long i, Pair<V<F>> z) const {
    mox::store(re + i, z.re);
    mox::store(im + i, z.im);
  }
  [[gnu::always_inline]] V<F> interleaved(long i) const {
    constexpr int n = lanesOf<F> / 2;
    const auto a = mox::load<V<F, n>>(re + i), b = mox::load<V<F, n>>(im + i);
    return shuffle<[](int k) { return k % 2 * n + k / 2; }, 2 * n>(a, b);
  }
  [[gnu::always_inline]] void putInterleaved(long i, V<F> z) const {
    constexpr int n = lanesOf<F> / 2;
    mox::store(re + i, shuffle<[](int k) { return 2 * k; }, n>(z, z));
    mox::store(im + i, shuffle<[](int k) { return 2 * k + 1; }, n>(z, z));
  }
  Pair<F> number(long i) const { return {mox::load<F>(re + i), mox::load<F>(im + i)}; }
  void putNumber(long i, Pair<F> z) const {
    mox::store(re + i, z.re);
    mox::store(im + i, z.im);
  }
};

}  // namespace mox
