// Random test data. Every run uses the same seed unless MOXSP_TEST_SEED names another; a failing
// test prints it.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "frame/elements.h"

namespace test {

inline std::uint64_t seed() {
  static const char* text = std::getenv("MOXSP_TEST_SEED");
  static const std::uint64_t value = text ? std::strtoull(text, nullptr, 0) : 20261124;
  return value;
}

inline std::string seedNote() { return "MOXSP_TEST_SEED=" + std::to_string(seed()); }

class Random {
 public:
  // `stream` keeps the draws of different tests apart.
  explicit Random(std::uint64_t stream = 0) : engine_(seed() * 0x9E3779B97F4A7C15u + stream) {}

  std::uint64_t bits() { return engine_(); }
  long below(long n) { return long(bits() % std::uint64_t(n)); }

  // Integers over their whole range, floats in -1 to 1, complex elements by parts.
  template <class E>
  E value() {
    if constexpr (mox::Complex<E>) {
      const auto re = value<mox::Part<E>>();
      return {re, value<mox::Part<E>>()};
    } else if constexpr (std::is_floating_point_v<E>) {
      return E(double(std::int64_t(bits()) >> 11) * 0x1p-52);
    } else {
      return E(bits());
    }
  }

  template <class E>
  std::vector<E> vector(long len) {
    std::vector<E> v(len);
    for (E& e : v) e = value<E>();
    return v;
  }

  // Ordinary floats, and zeros of both signs, infinities, NaN and all sizes among them.
  template <class E>
  E special() {
    if constexpr (mox::Complex<E>) {
      const auto re = special<mox::Part<E>>();
      return {re, special<mox::Part<E>>()};
    } else {
      using Limits = std::numeric_limits<E>;
      const E kinds[] = {0, Limits::infinity(), Limits::quiet_NaN(), Limits::denorm_min() * 3,
                         anyFloat<E>()};
      const long kind = below(12);
      return std::copysign(kind < 5 ? kinds[kind] : value<E>(), value<E>());
    }
  }
  // The first of them zero.
  template <class E>
  std::vector<E> specials(long len) {
    std::vector<E> v(len);
    for (long i = 1; i < len; ++i) v[i] = special<E>();
    return v;
  }

  // Floats over all bit patterns: infinities, NaN and subnormals among them.
  template <class E>
  E anyFloat() {
    std::conditional_t<sizeof(E) == 4, std::uint32_t, std::uint64_t> pattern = bits();
    E e;
    std::memcpy(&e, &pattern, sizeof e);
    return e;
  }

 private:
  std::mt19937_64 engine_;
};

}  // namespace test
