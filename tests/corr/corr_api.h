// Convolutions and correlations by their definitions, and the functions of one element type.
#pragma once

#include <gtest/gtest.h>
#include <moxsp.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <numeric>

#include "support/core_probe.h"
#include "support/random.h"

namespace test {

using Exact = std::complex<long double>;

template <class E>
Exact exactly(E e) {
  if constexpr (mox::Complex<E>)
    return {e.re, e.im};
  else
    return e;
}

// A sum, the sum of the magnitudes of its terms, and how many it has.
struct Sum {
  Exact value = 0;
  long double magnitude = 0;
  long terms = 0;

  void add(Exact x, Exact y) {
    value +=
        Exact(x.real() * y.real() - x.imag() * y.imag(), x.real() * y.imag() + x.imag() * y.real());
    magnitude += std::sqrt(std::norm(x) * std::norm(y)), ++terms;
  }
};

// The sums over k of a[k] * b[sign * k + n] for n = first to first + count - 1.
template <class E>
std::vector<Sum> sumsOf(const std::vector<E>& a, const std::vector<E>& b, int sign, long first,
                        long count) {
  std::vector<Sum> sums(count);
  for (long i = 0; i < count; ++i)
    for (long k = 0; k < long(a.size()); ++k)
      if (const long j = sign * k + first + i; j >= 0 && j < long(b.size())) {
        const Exact x = exactly(a[k]);
        sums[i].add(sign > 0 ? std::conj(x) : x, exactly(b[j]));
      }
  return sums;
}
template <class E>
std::vector<Sum> convolution(const std::vector<E>& a, const std::vector<E>& b) {
  return sumsOf(a, b, -1, 0, long(a.size() + b.size()) - 1);
}

template <class E>
long double norm(const std::vector<E>& v) {
  return std::sqrt(std::accumulate(v.begin(), v.end(), 0.0L,
                                   [](auto sum, E e) { return sum + std::norm(exactly(e)); }));
}

// As near as the header promises; `scale` is the product of the norms where transforms ran, else 0.
template <class E>
void expectNear(const std::vector<E>& got, const std::vector<Sum>& sums, long double scale) {
  const long double u = std::numeric_limits<mox::Part<E>>::epsilon() / 2;
  for (std::size_t i = 0; i < sums.size(); ++i) {
    const auto& [value, magnitude, terms] = sums[i];
    const long double bound = scale > 0 ? 16 * u * scale : u * (3 * terms + 2) * magnitude;
    ASSERT_LE(std::abs(exactly(got[i]) - value), bound) << "output " << i << "; " << seedNote();
  }
}

template <class E>
struct CorrApi;
#define CORR_API(E, type, fft)                                      \
  template <>                                                       \
  struct CorrApi<E> {                                               \
    static constexpr int dataType = moxType##type;                  \
    static constexpr auto fftSize = moxsFFTGetSize_##fft##_##type;  \
    static constexpr auto autoCorr = moxsAutoCorr_##type;           \
    static constexpr auto autoCorrA = moxsAutoCorr_NormA_##type;    \
    static constexpr auto autoCorrB = moxsAutoCorr_NormB_##type;    \
    static constexpr auto autoCorrNorm = moxsAutoCorrNorm_##type;   \
    static constexpr auto crossCorr = moxsCrossCorr_##type;         \
    static constexpr auto crossCorrNorm = moxsCrossCorrNorm_##type; \
  }
CORR_API(Mox32f, 32f, R);
CORR_API(Mox64f, 64f, R);
CORR_API(Mox32fc, 32fc, C);
CORR_API(Mox64fc, 64fc, C);

// What size queries tell of `arrays` arrays of 2^order elements and their transform.
template <class E>
int publishedSize(int order, int arrays) {
  const auto up = [](long bytes) { return (bytes + 63) / 64 * 64; };
  int spec, init, work;
  EXPECT_EQ(CorrApi<E>::fftSize(order, moxNormInverse, 0, &spec, &init, &work), moxOk);
  return int(up(spec) + up(init) + up(work) + up((long(arrays) * sizeof(E)) << order) + 64);
}

// A buffer of that size at any address, and bytes behind it.
class Buffer {
 public:
  Buffer(int bytes, int offset) : memory_(bytes + 192, 0x5A) {
    first_ = memory_.data() + offset + 64 - reinterpret_cast<std::uintptr_t>(memory_.data()) % 64;
    behind_ = first_ + bytes;
  }
  Mox8u* data() { return first_; }
  bool isIntact() const {
    return std::all_of(behind_, memory_.data() + memory_.size(), [](int b) { return b == 0x5A; });
  }

 private:
  std::vector<Mox8u> memory_;
  Mox8u* first_;
  const Mox8u* behind_;
};

// Fails the allocations of a call one after the other; counts those of the call that succeeds.
template <class Call>
int allocationsOf(Call call) {
  for (int nth = 1;; ++nth) {
    CoreProbe probe;
    probe.failAllocation(nth);
    const MoxStatus status = call();
    EXPECT_EQ(probe.live(), 0);
    if (probe.allocations() < nth) {
      EXPECT_EQ(status, moxOk);
      return nth - 1;
    }
    EXPECT_EQ(status, moxErrMemAlloc);
  }
}

}  // namespace test
