// Registers: V<E, N> is N elements of E, 32 bytes unless N is given. Arithmetic, comparisons,
// shifts, __builtin_convertvector and __builtin_shufflevector are the compiler's own, so that one
// generic lambda serves vectors and scalars. What the language has no word for is wrapped here,
// once, under a name that says what it does. No kernel names a register width except through V.
#pragma once

#include <immintrin.h>
#include <moxsp/types.h>

#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

namespace mox {

constexpr int vectorBytes = 32;

namespace detail {
template <class E, int N>
struct VectorOf {
  typedef E type __attribute__((vector_size(N * sizeof(E))));
};
}  // namespace detail

template <class E>
constexpr int lanesOf = vectorBytes / int(sizeof(E));

template <class E, int N = lanesOf<E>>
using V = typename detail::VectorOf<E, N>::type;

template <class Vector>
using Lane = std::remove_cvref_t<decltype(Vector{}[0])>;

template <class Vector>
constexpr int laneCount = int(sizeof(Vector) / sizeof(Lane<Vector>));

// Callers' arrays need not be aligned, not even to their element: kernels reach elements and
// vectors alike through load and store, never by dereferencing a pointer.
template <class T>
[[gnu::always_inline]] inline T load(const void* p) {
  T v;
  std::memcpy(&v, p, sizeof v);
  return v;
}

// The same value, held in a register from here on: GCC takes a load for free and repeats it for
// every use.
template <class T>
[[gnu::always_inline]] inline T inRegister(T v) {
  asm("" : "+x"(v));
  return v;
}

template <class T>
[[gnu::always_inline]] inline void store(void* p, T v) {
  std::memcpy(p, &v, sizeof v);
}

template <class T>
[[gnu::always_inline]] inline void storeAligned(void* p, T v) {
  std::memcpy(__builtin_assume_aligned(p, sizeof v), &v, sizeof v);
}

// A vector that is used more than once, and that GCC would load again for each use.
template <class T>
[[gnu::always_inline]] inline T loadedOnce(T v) {
  asm("" : "+x"(v));
  return v;
}

// Stores that bypass the cache; end a run of them with streamFence().
template <class T>
[[gnu::always_inline]] inline void storeStream(void* p, T v) {
  static_assert(sizeof v == 32 || sizeof v == 16);
  if constexpr (sizeof v == 32)
    _mm256_stream_si256(static_cast<__m256i*>(p), __m256i(v));
  else
    _mm_stream_si128(static_cast<__m128i*>(p), __m128i(v));
}
inline void streamFence() { _mm_sfence(); }

// The smaller and the larger of two values lane by lane, for scalars and vectors; the second
// operand where they compare neither way, as with NaN.
template <class T>
[[gnu::always_inline]] inline T lesser(T a, T b) {
  if constexpr (std::is_same_v<T, V<Mox32f>>)
    return T(_mm256_min_ps(a, b));
  else if constexpr (std::is_same_v<T, V<Mox64f>>)
    return T(_mm256_min_pd(a, b));
  else
    return a < b ? a : b;
}
template <class T>
[[gnu::always_inline]] inline T greater(T a, T b) {
  if constexpr (std::is_same_v<T, V<Mox32f>>)
    return T(_mm256_max_ps(a, b));
  else if constexpr (std::is_same_v<T, V<Mox64f>>)
    return T(_mm256_max_pd(a, b));
  else
    return a > b ? a : b;
}

// To the nearest integer, ties to even, whatever the rounding mode in force.
[[gnu::always_inline]] inline V<Mox64f> nearestInteger(V<Mox64f> v) {
  return V<Mox64f>(_mm256_round_pd(v, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
}

[[gnu::always_inline]] inline V<Mox32f> nearestInteger(V<Mox32f> v) {
  return V<Mox32f>(_mm256_round_ps(v, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
}

// To an integer in the rounding mode in force; the minimum for a value that has none.
[[gnu::always_inline]] inline V<Mox32s, 8> toInteger(V<Mox32f> v) {
  return V<Mox32s, 8>(_mm256_cvtps_epi32(v));
}
[[gnu::always_inline]] inline V<Mox32s, 4> toInteger(V<Mox64f> v) {
  return V<Mox32s, 4>(_mm256_cvtpd_epi32(v));
}
inline Mox64s toInteger(Mox64f x) { return _mm_cvtsd_si64(_mm_set_sd(x)); }

// Half floats, for processors that have the instructions. They are spelled out here, for the
// compiler must not use them of its own accord anywhere.
[[gnu::always_inline]] inline V<Mox32f> halfToFloat(V<Mox16u, 8> v) {
  V<Mox32f> r;
  asm("vcvtph2ps %1, %0" : "=x"(r) : "xm"(v));
  return r;
}
template <int rounding>
[[gnu::always_inline]] inline V<Mox16u, 8> floatToHalf(V<Mox32f> v) {
  V<Mox16u, 8> r;
  asm("vcvtps2ph %2, %1, %0" : "=x"(r) : "x"(v), "i"(rounding));
  return r;
}

// Eight lanes as two vectors of four.
template <class E>
struct Halves {
  V<E, 4> low, high;
};
template <class E = Mox32s>
[[gnu::always_inline]] inline Halves<E> halves(V<E, 8> v) {
  return {V<E, 4>(_mm256_castsi256_si128(__m256i(v))),
          V<E, 4>(_mm256_extractf128_si256(__m256i(v), 1))};
}

// Two vectors of 16 bytes as one of 32.
template <class Wide, class Half>
[[gnu::always_inline]] inline Wide join(Half low, Half high) {
  return Wide(_mm256_set_m128i(__m128i(high), __m128i(low)));
}

// Two vectors joined, each lane saturated to E.
template <class E>
[[gnu::always_inline]] inline V<E, 8> packSaturated(V<Mox32s, 4> low, V<Mox32s, 4> high) {
  if constexpr (std::is_same_v<E, Mox16s>)
    return V<E, 8>(_mm_packs_epi32(__m128i(low), __m128i(high)));
  else
    return V<E, 8>(_mm_packus_epi32(__m128i(low), __m128i(high)));
}
template <class E>
[[gnu::always_inline]] inline V<E, 16> packSaturated(V<Mox16s, 8> low, V<Mox16s, 8> high) {
  if constexpr (std::is_same_v<E, Mox8s>)
    return V<E, 16>(_mm_packs_epi16(__m128i(low), __m128i(high)));
  else
    return V<E, 16>(_mm_packus_epi16(__m128i(low), __m128i(high)));
}

namespace detail {
template <class T, class E, int... lane>
[[gnu::always_inline]] inline T broadcastTo(E e, std::integer_sequence<int, lane...>) {
  return T{(void(lane), e)...};
}
template <auto index, class T, int... lane>
[[gnu::always_inline]] inline auto shuffleBy(T a, T b, std::integer_sequence<int, lane...>) {
  return __builtin_shufflevector(a, b, index(lane)...);
}
}  // namespace detail

// Every lane holds the same value.
template <class T, class E>
[[gnu::always_inline]] inline T broadcast(E e) {
  return detail::broadcastTo<T>(e, std::make_integer_sequence<int, laneCount<T>>());
}

// Lane i of the result is lane index(i) of a, or lane index(i) - N of b. The result has as many
// lanes as they have, or `lanes`.
template <auto index, int lanes, class T>
[[gnu::always_inline]] inline auto shuffle(T a, T b) {
  return detail::shuffleBy<index>(a, b, std::make_integer_sequence<int, lanes>());
}
template <auto index, class T>
[[gnu::always_inline]] inline T shuffle(T a, T b) {
  return shuffle<index, laneCount<T>>(a, b);
}
template <auto index, class T>
[[gnu::always_inline]] inline T shuffle(T a) {
  return shuffle<index>(a, a);
}

// Parts of two vectors within their blocks of 16 bytes, elements E of either in turn: the lower or
// the upper half of each block.
template <class E, class T>
[[gnu::always_inline]] inline T unpackLow(T a, T b) {
  constexpr int block = 16 / sizeof(E), lanes = sizeof(T) / sizeof(E);
  using W = V<E, lanes>;
  return T(
      shuffle<[](int i) { return i % 2 * lanes + i / block * block + i % block / 2; }>(W(a), W(b)));
}
template <class E, class T>
[[gnu::always_inline]] inline T unpackHigh(T a, T b) {
  constexpr int block = 16 / sizeof(E), lanes = sizeof(T) / sizeof(E);
  using W = V<E, lanes>;
  return T(
      shuffle<[](int i) { return i % 2 * lanes + i / block * block + block / 2 + i % block / 2; }>(
          W(a), W(b)));
}

// The lower halves of two vectors joined, and the upper ones.
template <class T>
[[gnu::always_inline]] inline T joinLow(T a, T b) {
  constexpr int half = sizeof(T) / sizeof(a[0]) / 2;
  return shuffle<[](int i) { return i < half ? i : i + half; }>(a, b);
}
template <class T>
[[gnu::always_inline]] inline T joinHigh(T a, T b) {
  constexpr int half = sizeof(T) / sizeof(a[0]) / 2;
  return shuffle<[](int i) { return i < half ? i + half : i + 2 * half; }>(a, b);
}

// Lane i is the entry of the table at the low four bits of index[i], 0 where its bit 7 is set.
[[gnu::always_inline]] inline V<Mox8u, 16> lookUp(V<Mox8u, 16> table, V<Mox8u, 16> index) {
  return V<Mox8u, 16>(_mm_shuffle_epi8(__m128i(table), __m128i(index)));
}

// Rows become columns.
[[gnu::always_inline]] inline void transpose(V<Mox64f> (&r)[4]) {
  const V<Mox64f> a = unpackLow<Mox64f>(r[0], r[1]), b = unpackHigh<Mox64f>(r[0], r[1]);
  const V<Mox64f> c = unpackLow<Mox64f>(r[2], r[3]), d = unpackHigh<Mox64f>(r[2], r[3]);
  r[0] = joinLow(a, c);
  r[1] = joinLow(b, d);
  r[2] = joinHigh(a, c);
  r[3] = joinHigh(b, d);
}
[[gnu::always_inline]] inline void transpose(V<Mox32f> (&r)[8]) {
  V<Mox32f> quads[2][4];  // columns of the upper four rows, and of the lower four
  for (int half = 0; half < 2; ++half) {
    const V<Mox32f>* p = r + 4 * half;
    const V<Mox32f> a = unpackLow<Mox32f>(p[0], p[1]), b = unpackHigh<Mox32f>(p[0], p[1]);
    const V<Mox32f> c = unpackLow<Mox32f>(p[2], p[3]), d = unpackHigh<Mox32f>(p[2], p[3]);
    quads[half][0] = unpackLow<Mox64f>(a, c);
    quads[half][1] = unpackHigh<Mox64f>(a, c);
    quads[half][2] = unpackLow<Mox64f>(b, d);
    quads[half][3] = unpackHigh<Mox64f>(b, d);
  }
  for (int i = 0; i < 4; ++i) {
    r[i] = joinLow(quads[0][i], quads[1][i]);
    r[i + 4] = joinHigh(quads[0][i], quads[1][i]);
  }
}

// The lanes in which a comparison holds, as bits: one for each lane of 32 bytes, one for each byte
// of 16.
template <class T>
[[gnu::always_inline]] inline int lanesWhere(T comparison) {
  if constexpr (sizeof comparison == 16)
    return _mm_movemask_epi8(__m128i(comparison));
  else if constexpr (sizeof comparison[0] == 4)
    return _mm256_movemask_ps(__m256(comparison));
  else
    return _mm256_movemask_pd(__m256d(comparison));
}
template <class T>
[[gnu::always_inline]] inline bool anyLane(T comparison) {
  return lanesWhere(comparison) != 0;
}
// The first lane in which it holds, as it does in one.
template <class T>
[[gnu::always_inline]] inline int firstLane(T comparison) {
  const int lane = __builtin_ctz(lanesWhere(comparison));
  return sizeof comparison == 16 ? lane / int(sizeof comparison[0]) : lane;
}

// Sums and differences lane by lane, saturated to the type of a lane.
[[gnu::always_inline]] inline V<Mox8u, 16> addSaturated(V<Mox8u, 16> a, V<Mox8u, 16> b) {
  return V<Mox8u, 16>(_mm_adds_epu8(__m128i(a), __m128i(b)));
}
[[gnu::always_inline]] inline V<Mox16u, 8> addSaturated(V<Mox16u, 8> a, V<Mox16u, 8> b) {
  return V<Mox16u, 8>(_mm_adds_epu16(__m128i(a), __m128i(b)));
}
[[gnu::always_inline]] inline V<Mox16s, 8> addSaturated(V<Mox16s, 8> a, V<Mox16s, 8> b) {
  return V<Mox16s, 8>(_mm_adds_epi16(__m128i(a), __m128i(b)));
}
[[gnu::always_inline]] inline V<Mox32u, 4> addSaturated(V<Mox32u, 4> a, V<Mox32u, 4> b) {
  const auto r = a + b;
  return r | V<Mox32u, 4>(r < a);
}
// `wrapped` where it is the true result, else the limit on the side of `a`.
[[gnu::always_inline]] inline V<Mox32s, 4> unlessWrapped(V<Mox32s, 4> wrapped, V<Mox32s, 4> a,
                                                         V<Mox32s, 4> wrongSign) {
  const auto limit = a >> 31 ^ 0x7FFFFFFF;
  return V<Mox32s, 4>(_mm_blendv_ps(__m128(wrapped), __m128(limit), __m128(wrongSign)));
}
[[gnu::always_inline]] inline V<Mox32s, 4> addSaturated(V<Mox32s, 4> a, V<Mox32s, 4> b) {
  const auto r = V<Mox32s, 4>(V<Mox32u, 4>(a) + V<Mox32u, 4>(b));
  return unlessWrapped(r, a, (a ^ r) & (b ^ r));
}
[[gnu::always_inline]] inline V<Mox8u, 16> subtractSaturated(V<Mox8u, 16> a, V<Mox8u, 16> b) {
  return V<Mox8u, 16>(_mm_subs_epu8(__m128i(a), __m128i(b)));
}
[[gnu::always_inline]] inline V<Mox16u, 8> subtractSaturated(V<Mox16u, 8> a, V<Mox16u, 8> b) {
  return V<Mox16u, 8>(_mm_subs_epu16(__m128i(a), __m128i(b)));
}
[[gnu::always_inline]] inline V<Mox16s, 8> subtractSaturated(V<Mox16s, 8> a, V<Mox16s, 8> b) {
  return V<Mox16s, 8>(_mm_subs_epi16(__m128i(a), __m128i(b)));
}
[[gnu::always_inline]] inline V<Mox32s, 4> subtractSaturated(V<Mox32s, 4> a, V<Mox32s, 4> b) {
  const auto r = V<Mox32s, 4>(V<Mox32u, 4>(a) - V<Mox32u, 4>(b));
  return unlessWrapped(r, a, (a ^ b) & (a ^ r));
}

// Magnitudes of integers, for scalars and vectors; unsigned, so that each has one.
[[gnu::always_inline]] inline V<Mox16u, 8> magnitude(V<Mox16s, 8> v) {
  return V<Mox16u, 8>(_mm_abs_epi16(__m128i(v)));
}
[[gnu::always_inline]] inline V<Mox32u, 4> magnitude(V<Mox32s, 4> v) {
  return V<Mox32u, 4>(_mm_abs_epi32(__m128i(v)));
}
template <class E>
requires std::is_integral_v<E>
[[gnu::always_inline]] inline auto magnitude(E x) {
  using Unsigned = std::make_unsigned_t<E>;
  return Unsigned(x < 0 ? Unsigned(0) - Unsigned(x) : Unsigned(x));
}

// The upper halves of products.
[[gnu::always_inline]] inline V<Mox16u, 8> multiplyHigh(V<Mox16u, 8> a, V<Mox16u, 8> b) {
  return V<Mox16u, 8>(_mm_mulhi_epu16(__m128i(a), __m128i(b)));
}
// Whole products.
[[gnu::always_inline]] inline Halves<Mox32s> multiplyWide(V<Mox16s, 8> a, V<Mox16s, 8> b) {
  const __m128i low = _mm_mullo_epi16(__m128i(a), __m128i(b));
  const __m128i high = _mm_mulhi_epi16(__m128i(a), __m128i(b));
  return {V<Mox32s, 4>(_mm_unpacklo_epi16(low, high)), V<Mox32s, 4>(_mm_unpackhi_epi16(low, high))};
}
[[gnu::always_inline]] inline Halves<Mox32u> multiplyWide(V<Mox16u, 8> a, V<Mox16u, 8> b) {
  const __m128i low = _mm_mullo_epi16(__m128i(a), __m128i(b));
  const __m128i high = _mm_mulhi_epu16(__m128i(a), __m128i(b));
  return {V<Mox32u, 4>(_mm_unpacklo_epi16(low, high)), V<Mox32u, 4>(_mm_unpackhi_epi16(low, high))};
}
// a[2i] * b[2i] + a[2i+1] * b[2i+1] in 32 bits, which a sum of 2^31 leaves.
[[gnu::always_inline]] inline V<Mox32s, 4> multiplyAddPairs(V<Mox16s, 8> a, V<Mox16s, 8> b) {
  return V<Mox32s, 4>(_mm_madd_epi16(__m128i(a), __m128i(b)));
}

// Lanes shifted by up to their width. There is no shift of bytes: those move in pairs, and must not
// have bits that would reach the neighbour.
template <class W>
[[gnu::always_inline]] inline W shiftLeft(W v, int count) {
  const __m128i places = _mm_cvtsi32_si128(count);
  if constexpr (sizeof(Lane<W>) == 4)
    return W(_mm_sll_epi32(__m128i(v), places));
  else
    return W(_mm_sll_epi16(__m128i(v), places));
}

// Complex numbers as interleaved parts, real part first.
template <class T>
[[gnu::always_inline]] inline T realParts(T z) {
  if constexpr (std::is_same_v<T, V<Mox32f>>)
    return T(_mm256_moveldup_ps(z));  // a plain load, where shuffle() takes a shuffle as well
  else
    return shuffle<[](int i) { return i & ~1; }>(z);
}
template <class T>
[[gnu::always_inline]] inline T imaginaryParts(T z) {
  if constexpr (std::is_same_v<T, V<Mox32f>>)
    return T(_mm256_movehdup_ps(z));
  else
    return shuffle<[](int i) { return i | 1; }>(z);
}
template <class T>
[[gnu::always_inline]] inline T swapParts(T z) {
  return shuffle<[](int i) { return i ^ 1; }>(z);
}
// The real parts of a - b and the imaginary parts of a + b.
template <class T>
[[gnu::always_inline]] inline T addSubtract(T a, T b) {
  if constexpr (std::is_same_v<T, V<Mox32f>>)
    return T(_mm256_addsub_ps(a, b));
  else if constexpr (std::is_same_v<T, V<Mox64f>>)
    return T(_mm256_addsub_pd(a, b));
  else
    return shuffle<[](int i) { return i % 2 ? laneCount<T> + i : i; }>(T(a - b), T(a + b));
}
// Each real number twice, to go with both parts of a complex one.
template <class T>
[[gnu::always_inline]] inline auto doubled(T a) {
  if constexpr (std::is_arithmetic_v<T>)
    return a;
  else
    return shuffle<[](int i) { return i / 2; }, 2 * laneCount<T>>(a, a);
}

inline std::uintptr_t addressOf(const void* p) { return reinterpret_cast<std::uintptr_t>(p); }

inline bool isAligned(const void* p, std::uintptr_t alignment) {
  return (addressOf(p) & (alignment - 1)) == 0;
}

// Lane by lane, and for one number.
template <class T>
[[gnu::always_inline]] inline T squareRoot(T v) {
  if constexpr (std::is_same_v<T, V<Mox32f>>)
    return T(_mm256_sqrt_ps(v));
  else if constexpr (std::is_same_v<T, V<Mox64f>>)
    return T(_mm256_sqrt_pd(v));
  else if constexpr (std::is_same_v<T, V<Mox32f, 4>>)
    return T(_mm_sqrt_ps(v));
  else if constexpr (std::is_same_v<T, V<Mox64f, 2>>)
    return T(_mm_sqrt_pd(v));
  else if constexpr (std::is_same_v<T, Mox32f>)
    return _mm_cvtss_f32(_mm_sqrt_ss(_mm_set_ss(v)));
  else
    return _mm_cvtsd_f64(_mm_sqrt_sd(_mm_setzero_pd(), _mm_set_sd(v)));
}

// The processor's estimates of 1 / v and 1 / sqrt(v), to about 12 bits.
[[gnu::always_inline]] inline V<Mox32f> reciprocalEstimate(V<Mox32f> v) {
  return V<Mox32f>(_mm256_rcp_ps(v));
}
[[gnu::always_inline]] inline V<Mox32f, 4> reciprocalRootEstimate(V<Mox32f, 4> v) {
  return V<Mox32f, 4>(_mm_rsqrt_ps(v));
}

// The same of 1 / sqrt(v).
[[gnu::always_inline]] inline V<Mox32f> reciprocalRootEstimate(V<Mox32f> v) {
  return V<Mox32f>(_mm256_rsqrt_ps(v));
}

[[gnu::always_inline]] inline V<Mox32f> truncated(V<Mox32f> v) {
  return V<Mox32f>(_mm256_round_ps(v, _MM_FROUND_TO_ZERO | _MM_FROUND_NO_EXC));
}

// The bits of vectors of floats.
template <class T>
using Bits =
    std::conditional_t<sizeof(Lane<T>) == 4, V<Mox32u, laneCount<T>>, V<Mox64u, laneCount<T>>>;

template <class T>
constexpr Lane<Bits<T>> signBit = Lane<Bits<T>>(1) << (8 * sizeof(Lane<T>) - 1);

// The value without its sign, and with the sign of another.
template <class T>
[[gnu::always_inline]] inline T absolute(T v) {
  return T(Bits<T>(v) & ~signBit<T>);
}
template <class T>
[[gnu::always_inline]] inline T withSignOf(T signs, T v) {
  return T(Bits<T>(v) | (Bits<T>(signs) & signBit<T>));
}

// Masks of the lanes that break a bound; NaN breaks every bound, silently.
[[gnu::always_inline]] inline V<Mox32f> notAtMost(V<Mox32f> v, Mox32f limit) {
  return V<Mox32f>(_mm256_cmp_ps(v, _mm256_set1_ps(limit), _CMP_NLE_UQ));
}
[[gnu::always_inline]] inline V<Mox64f> notAtMost(V<Mox64f> v, Mox64f limit) {
  return V<Mox64f>(_mm256_cmp_pd(v, _mm256_set1_pd(limit), _CMP_NLE_UQ));
}
[[gnu::always_inline]] inline V<Mox32f> notAtLeast(V<Mox32f> v, Mox32f limit) {
  return V<Mox32f>(_mm256_cmp_ps(v, _mm256_set1_ps(limit), _CMP_NGE_UQ));
}
[[gnu::always_inline]] inline V<Mox64f> notAtLeast(V<Mox64f> v, Mox64f limit) {
  return V<Mox64f>(_mm256_cmp_pd(v, _mm256_set1_pd(limit), _CMP_NGE_UQ));
}

// The lanes of either mask.
template <class T>
[[gnu::always_inline]] inline T either(T a, T b) {
  return T(Bits<T>(a) | Bits<T>(b));
}

// One bit for each lane: its sign.
[[gnu::always_inline]] inline int signBits(V<Mox32f> v) { return _mm256_movemask_ps(v); }
[[gnu::always_inline]] inline int signBits(V<Mox64f> v) { return _mm256_movemask_pd(v); }
// The same for a comparison of any lanes.
template <class T>
[[gnu::always_inline]] inline int signBits(T v) {
  constexpr int width = sizeof(Lane<T>);
  if constexpr (sizeof v == vectorBytes)
    return signBits(std::conditional_t<width == 4, V<Mox32f>, V<Mox64f>>(v));
  else if constexpr (width == 4)
    return _mm_movemask_ps(__m128(v));
  else if constexpr (width == 2)
    return _mm_movemask_epi8(_mm_packs_epi16(__m128i(v), _mm_setzero_si128()));
  else
    return _mm_movemask_epi8(__m128i(v));
}

// `yes` in the lanes of the mask, `no` in the others. Spelled out, for GCC takes the intrinsic
// apart into a branch for each lane.
[[gnu::always_inline]] inline V<Mox32f> select(V<Mox32f> mask, V<Mox32f> yes, V<Mox32f> no) {
  V<Mox32f> r;
  asm("vblendvps %3, %2, %1, %0" : "=x"(r) : "x"(no), "xm"(yes), "x"(mask));
  return r;
}
[[gnu::always_inline]] inline V<Mox64f> select(V<Mox64f> mask, V<Mox64f> yes, V<Mox64f> no) {
  V<Mox64f> r;
  asm("vblendvpd %3, %2, %1, %0" : "=x"(r) : "x"(no), "xm"(yes), "x"(mask));
  return r;
}

// The integers that floats hold, in the low bits of a lane; any that fit there.
[[gnu::always_inline]] inline V<Mox32s, 8> integersOf(V<Mox32f> v) {
  return V<Mox32s, 8>(_mm256_cvttps_epi32(v));
}
[[gnu::always_inline]] inline V<Mox32f> floatsOf(V<Mox32s, 8> v) {
  return V<Mox32f>(_mm256_cvtepi32_ps(__m256i(v)));
}

// The quotient of two words by one, where it fits in a word. In the language this is a call of the
// compiler's runtime library.
inline Mox64u divideWide(Mox64u high, Mox64u low, Mox64u divisor) {
  asm("divq %2" : "+a"(low), "+d"(high) : "rm"(divisor) : "cc");
  return low;
}

}  // namespace mox
