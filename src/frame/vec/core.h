// Registers: V<E> of floats and of elements that only move, I<E> of integers; how they come from
// memory and go there; the smaller and the larger of two.
#pragma once

#include <immintrin.h>
#include <moxsp/types.h>

#include <cstdint>
#include <cstring>
#include <type_traits>

namespace mox {

// The width of a register is a fact of the build.
constexpr int vectorBytes = 32;
constexpr int integerBytes = 16;  // AVX has no arithmetic on wider registers of integers

// What results are defined by, whatever the registers: lanes of sums, and where sums start.
constexpr int orderBytes = 32;

namespace detail {
template <class E, int N>
struct VectorOf {
  typedef E type __attribute__((vector_size(N * sizeof(E))));
};
}  // namespace detail

template <class E>
constexpr int lanesOf = vectorBytes / int(sizeof(E));

// N elements of E: as many as fill a register, unless an order or a layout asks for a number.
template <class E, int N = lanesOf<E>>
using V = typename detail::VectorOf<E, N>::type;

// A register that takes part in arithmetic on integers.
template <class E>
using I = V<E, integerBytes / int(sizeof(E))>;

// The register in which arithmetic on E goes.
template <class E>
constexpr int registerBytes = std::is_integral_v<E> ? integerBytes : vectorBytes;
template <class E>
using Register = V<E, registerBytes<E> / int(sizeof(E))>;

template <class Vector>
using Lane = std::remove_cvref_t<decltype(Vector{}[0])>;

template <class Vector>
constexpr int laneCount = int(sizeof(Vector) / sizeof(Lane<Vector>));

// As many E as the vector has lanes.
template <class E, class Vector>
using Beside = V<E, laneCount<Vector>>;

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

// Stores that bypass the cache; end a run of them with streamFence().
template <class T>
[[gnu::always_inline]] inline void storeStream(void* p, T v) {
  static_assert(sizeof v == vectorBytes || sizeof v == integerBytes);
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

inline std::uintptr_t addressOf(const void* p) { return reinterpret_cast<std::uintptr_t>(p); }

inline bool isAligned(const void* p, std::uintptr_t alignment) {
  return (addressOf(p) & (alignment - 1)) == 0;
}

// The bits of vectors of floats.
template <class T>
using Bits =
    std::conditional_t<sizeof(Lane<T>) == 4, V<Mox32u, laneCount<T>>, V<Mox64u, laneCount<T>>>;

template <class T>
constexpr Lane<Bits<T>> signBit = Lane<Bits<T>>(1) << (8 * sizeof(Lane<T>) - 1);

}  // namespace mox
