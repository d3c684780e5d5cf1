// Registers: V<E, N> is N elements of E, 32 bytes unless N is given. Arithmetic, comparisons,
// shifts, __builtin_convertvector and __builtin_shufflevector are the compiler's own, so that one
// generic lambda serves vectors and scalars. What the language has no word for is wrapped here,
// once, under a name that says what it does. No kernel names a register width except through V.
#pragma once

#include <immintrin.h>
#include <moxsp/types.h>

#include <cstdint>
#include <cstring>

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

// Callers' arrays need not be aligned, not even to their element: kernels reach elements and
// vectors alike through load and store, never by dereferencing a pointer.
template <class T>
[[gnu::always_inline]] inline T load(const void* p) {
  T v;
  std::memcpy(&v, p, sizeof v);
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
  static_assert(sizeof v == 32 || sizeof v == 16);
  if constexpr (sizeof v == 32)
    _mm256_stream_si256(static_cast<__m256i*>(p), __m256i(v));
  else
    _mm_stream_si128(static_cast<__m128i*>(p), __m128i(v));
}
inline void streamFence() { _mm_sfence(); }

// Every lane holds the same value.
template <class T, class E>
[[gnu::always_inline]] inline T broadcast(E e) {
  T v;
  for (unsigned i = 0; i < sizeof(T) / sizeof(E); ++i) v[i] = e;
  return v;
}

inline std::uintptr_t addressOf(const void* p) { return reinterpret_cast<std::uintptr_t>(p); }

inline bool isAligned(const void* p, std::uintptr_t alignment) {
  return (addressOf(p) & (alignment - 1)) == 0;
}

}  // namespace mox
