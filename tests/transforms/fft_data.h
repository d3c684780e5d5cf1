// Data and references of the tests of transforms.
#pragma once

#include <cstring>

#include "support/accuracy.h"
#include "support/guarded_array.h"
#include "transforms/fft_api.h"

namespace test {

struct Flag {
  int value;
  double forward, inverse;  // the factors are N to these powers
};
constexpr Flag flags[] = {{8, 0, 0}, {1, -1, 0}, {2, 0, -1}, {4, -0.5, -0.5}};

template <class T, class Exact>
long double spectrumError(const typename T::F* spectrum, long n, long step, Exact exact) {
  RelativeError error;
  for (long k = 0; k < T::bins(n); k += 1 + (k + k / 7) % step) {
    const Complex got = T::bin(spectrum, n, k), expected = exact(k);
    error.add(got.real(), expected.real());
    error.add(got.imag(), expected.imag());
  }
  return error.value();
}

template <class F>
long double signalError(const F* got, const std::vector<F>& x, long double factor) {
  RelativeError error;
  for (std::size_t i = 0; i < x.size(); ++i) error.add(got[i], factor * x[i]);
  return error.value();
}

// Numbers that end so many bytes before an inaccessible page, beginning with those of x.
template <class F>
class Room {
 public:
  Room(const std::vector<F>& x, long numbers, long slack)
      : numbers_(numbers), bytes_(numbers * sizeof(F) + slack, Guard::after) {
    if (!x.empty()) std::memcpy(bytes_.data(), x.data(), x.size() * sizeof(F));
  }
  F* data() const { return reinterpret_cast<F*>(bytes_.data()); }
  std::vector<F> numbers() const {
    std::vector<F> v(numbers_);
    std::memcpy(v.data(), bytes_.data(), numbers_ * sizeof(F));
    return v;
  }

 private:
  long numbers_;
  GuardedBytes bytes_;
};

}  // namespace test
