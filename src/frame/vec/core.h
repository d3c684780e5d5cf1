// Registers: V<E> of floats and of elements that only move, I<E> of integers; how they come from
// memory and go there; the smaller and the larger of two.
#pragma once

#include <immintrin.h>
#include <moxsp/types.h>

#include <cstdint>
#include <cstring>
#include <type_traits>

namespace mox {

// The width of a register is a fact of the build: that of integers, and the widest one, in which
// the drivers of element-wise functions go. The kernels of transforms and filters, whose tables and
// transposes are cut for it, have vectorBytes.
#if defined __AVX512VL__
constexpr int widestBytes = 64, integerBytes = 64;
#elif defined __AVX2__
constexpr int widestBytes = 32, integerBytes = 32;
#else
constexpr int widestBytes = 32, integerBytes = 16;  // AVX has no wider arithmetic on integers
#endif
constexpr int vectorBytes = 32;

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
constexpr int registerBytes = std::is_integral_v<E> ? integerBytes : widestBytes;
template <class E>
using Register = V<E, registerBytes<E> / int(sizeof(E))>;

template <class Vector>
using Lane = std::remove_cvref_t<decltype(Vector{}[0])>;

template <class Vector>
constexpr int laneCount = int(sizeof(Vector) / sizeof(Lane<Vector>));

// As many E as the vector has lanes.
template <class E, class Vector>
using Beside = V<E, laneCount<Vector>>;

// A register of E, of any width.
template <class T, class E>
concept Of = sizeof(T) >= 16 && std::is_same_v<T, V<E, sizeof(T) / sizeof(E)>>;

// As the type that the instructions take.
template <class T>
[[gnu::always_inline]] inline auto raw(T v) {
  using F = Lane<T>;
  if constexpr (std::is_same_v<F, Mox32f>)
    return V<float, sizeof(T) / sizeof(float)>(v);
  else if constexpr (std::is_same_v<F, Mox64f>)
    return V<double, sizeof(T) / sizeof(double)>(v);
  else
    return V<long long, sizeof(T) / sizeof(long long)>(v);
}

// The body of a function whose instruction has a name for each width.
#define MOX_BY_WIDTH(T, ...)          \
  if constexpr (sizeof(T) == 16)      \
    return T(_mm_##__VA_ARGS__);      \
  else if constexpr (sizeof(T) == 32) \
    return T(_mm256_##__VA_ARGS__);   \
  else                                \
    return T(_mm512_##__VA_ARGS__)

// Registers one behind the other in memory.
template <class T, int count = 1>
struct Registers {
  T of[count];
};
template <class T>
Registers(T) -> Registers<T>;

// Callers' arrays need not be aligned, not even to their element: kernels reach elements and
// vectors alike through load and store, never by dereferencing a pointer.
template <class T>
[[gnu::always_inline]] inline T load(const void* p) {
  T v;
  std::memcpy(&v, p, sizeof v);
  return v;
}

// The same value, held in a register from here on: GCC takes a load for free and repeats it for
// every use. Short vectors and integers need no help.
template <class T>
[[gnu::always_inline]] inline T inRegister(T v) {
  if constexpr (sizeof v >= 16 || std::is_floating_point_v<T>) {
#ifdef __AVX512VL__
    asm("" : "+v"(v));  // any of 32 registers
#else
    asm("" : "+x"(v));
#endif
  }
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
  static_assert(sizeof v >= 16);
  if constexpr (sizeof v == 16)
    _mm_stream_si128(static_cast<__m128i*>(p), __m128i(v));
  else if constexpr (sizeof v == 32)
    _mm256_stream_si256(static_cast<__m256i*>(p), __m256i(v));
  else
    _mm512_stream_si512(static_cast<__m512i*>(p), __m512i(v));
}
inline void streamFence() { _mm_sfence(); }

// The smaller and the larger of two values lane by lane, for scalars and vectors; the second
// operand where they compare neither way, as with NaN.
template <class T>
[[gnu::always_inline]] inline T lesser(T a, T b) {
  return a < b ? a : b;
}
template <class T>
[[gnu::always_inline]] inline T greater(T a, T b) {
  return a > b ? a : b;
}
template <Of<Mox32f> T>
[[gnu::always_inline]] inline T lesser(T a, T b) {
  MOX_BY_WIDTH(T, min_ps(a, b));
}
template <Of<Mox64f> T>
[[gnu::always_inline]] inline T lesser(T a, T b) {
  MOX_BY_WIDTH(T, min_pd(a, b));
}
template <Of<Mox32f> T>
[[gnu::always_inline]] inline T greater(T a, T b) {
  MOX_BY_WIDTH(T, max_ps(a, b));
}
template <Of<Mox64f> T>
[[gnu::always_inline]] inline T greater(T a, T b) {
  MOX_BY_WIDTH(T, max_pd(a, b));
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
