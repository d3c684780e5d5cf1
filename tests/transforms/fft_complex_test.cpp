#include <gtest/gtest.h>

#include <cmath>

#include "support/accuracy.h"
#include "support/core_probe.h"
#include "support/guarded_array.h"
#include "transforms/fft_complex_api.h"

namespace {

using test::Complex;
using test::Fft;
using test::Way;

template <class T>
class FftComplex : public testing::Test {};
using Precisions = testing::Types<test::Single, test::Double>;
TYPED_TEST_SUITE(FftComplex, Precisions);

template <class C>
std::vector<Complex> definingSum(const std::vector<C>& x, Way way) {
  const long n = long(x.size());
  std::vector<Complex> w(n), sum(n);
  for (long k = 0; k < n; ++k) w[k] = test::turn(way == Way::forward ? k : n - k, n);
  for (long k = 0; k < n; ++k)
    for (long j = 0; j < n; ++j) sum[k] += Complex(x[j].re, x[j].im) * w[j * k % n];
  return sum;
}

template <class C>
void expectClose(const C* got, const std::vector<Complex>& exact, double bound) {
  test::RelativeError error;
  for (std::size_t i = 0; i < exact.size(); ++i) {
    error.add(got[i].re, exact[i].real());
    error.add(got[i].im, exact[i].imag());
  }
  EXPECT_LT(error.value(), bound);
}

TYPED_TEST(FftComplex, MatchesTheDefiningSumInEveryForm) {
  using F = typename TypeParam::F;
  using C = typename TypeParam::C;
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  for (int order = 0; order <= 12; ++order)
    for (const Way way : {Way::forward, Way::inverse}) {
      SCOPED_TRACE("order " + std::to_string(order) +
                   (way == Way::forward ? " forward" : " inverse"));
      const long n = 1L << order;
      const auto x = random.vector<C>(n);
      const auto exact = definingSum(x, way);
      const double bound = TypeParam::tolerance * std::sqrt(order + 1.0);

      Fft<TypeParam> fft(order, 8);
      test::GuardedArray<C> dst(n);
      fft.run(way, x.data(), dst.data());
      ASSERT_EQ(fft.status(), moxOk);
      expectClose(dst.data(), exact, bound);

      // Nothing but rounding may depend on where the arrays lie, and in place works anywhere.
      std::vector<Mox8u> bytes(n * sizeof(C) + 32);
      for (int offset : {0, 1, 4, 8, 16}) {
        C* const unaligned = reinterpret_cast<C*>(bytes.data() + offset);
        std::memcpy(static_cast<void*>(unaligned), x.data(), n * sizeof(C));
        fft.run(way, unaligned, unaligned);
        ASSERT_EQ(fft.status(), moxOk);
        EXPECT_EQ(std::memcmp(unaligned, dst.data(), n * sizeof(C)), 0) << "offset " << offset;
      }

      Fft<TypeParam> split(order, 8, true);
      std::vector<F> re(n), im(n), outRe(n), outIm(n);
      std::vector<C> joined(n);
      for (long i = 0; i < n; ++i) re[i] = x[i].re, im[i] = x[i].im;
      split.run(way, re.data(), im.data(), outRe.data(), outIm.data());
      for (long i = 0; i < n; ++i) joined[i] = {outRe[i], outIm[i]};
      expectClose(joined.data(), exact, bound);
      split.run(way, re.data(), im.data(), re.data(), im.data());
      EXPECT_EQ(re, outRe);
      EXPECT_EQ(im, outIm);
    }
}

// A few impulses have a spectrum that is known at every frequency, at any length.
TYPED_TEST(FftComplex, ImpulsesGiveTheirTurnsAtEveryOrder) {
  using C = typename TypeParam::C;
  test::Random random(1);
  for (int order = 13; order <= TypeParam::hugeOrder; ++order)
    for (const bool inPlace : {false, true}) {
      SCOPED_TRACE("order " + std::to_string(order) + (inPlace ? " in place" : ""));
      const long n = 1L << order;
      Fft<TypeParam> fft(order, 8);
      ASSERT_EQ(fft.status(), moxOk);
      std::vector<C> x(n), y(n);
      long places[3];
      C weights[3];
      for (int i = 0; i < 3; ++i) {
        places[i] = random.below(n);
        weights[i] = random.value<C>();
        x[places[i]].re += weights[i].re;
        x[places[i]].im += weights[i].im;
      }
      C* const out = inPlace ? x.data() : y.data();
      fft.run(Way::forward, x.data(), out);
      ASSERT_EQ(fft.status(), moxOk);
      test::RelativeError error;
      for (long k = 0; k < n; k += 1 + random.below(31)) {  // some frequencies of all residues
        Complex sum = 0;
        for (int i = 0; i < 3; ++i)
          sum += Complex(weights[i].re, weights[i].im) * test::turn(places[i] * k % n, n);
        error.add(out[k].re, sum.real());
        error.add(out[k].im, sum.imag());
      }
      EXPECT_LT(error.value(), TypeParam::tolerance * std::sqrt(double(order)));
    }
}

TYPED_TEST(FftComplex, RoundTripParsevalAndShiftHoldForAllFlags) {
  using F = typename TypeParam::F;
  using C = typename TypeParam::C;
  test::Random random(2);
  for (int order : {0, 1, 5, 6, 7, 8, 11, 12, 15, 16, TypeParam::largeOrder - 1,
                    TypeParam::largeOrder, TypeParam::largeOrder + 1, 22})
    for (int flag : {1, 2, 4, 8}) {
      SCOPED_TRACE("order " + std::to_string(order) + " flag " + std::to_string(flag));
      const long n = 1L << order;
      const double bound = TypeParam::tolerance * std::sqrt(order + 1.0);
      const double fwdFactor = flag == 1 ? 1.0 / n : flag == 4 ? 1 / std::sqrt(double(n)) : 1;
      const double invFactor = flag == 2 ? 1.0 / n : flag == 4 ? 1 / std::sqrt(double(n)) : 1;
      const auto x = random.vector<C>(n);
      std::vector<C> spectrum(n), back(n);
      Fft<TypeParam> fft(order, flag);
      fft.run(Way::forward, x.data(), spectrum.data());
      fft.run(Way::inverse, spectrum.data(), back.data());
      ASSERT_EQ(fft.status(), moxOk);
      test::RelativeError error;
      long double energy = 0, spectralEnergy = 0;
      for (long i = 0; i < n; ++i) {
        error.add(back[i].re, x[i].re * fwdFactor * invFactor * n);
        error.add(back[i].im, x[i].im * fwdFactor * invFactor * n);
        energy += (long double)x[i].re * x[i].re + (long double)x[i].im * x[i].im;
        spectralEnergy += (long double)spectrum[i].re * spectrum[i].re +
                          (long double)spectrum[i].im * spectrum[i].im;
      }
      EXPECT_LT(error.value(), 2 * bound);
      EXPECT_NEAR(double(spectralEnergy / energy / n / fwdFactor / fwdFactor), 1, 2 * bound);

      // The split form of the rotated signal: its spectrum is turned.
      const long shift = n / 3;
      std::vector<F> re(n), im(n);
      for (long i = 0; i < n; ++i) re[i] = x[(i + shift) % n].re, im[i] = x[(i + shift) % n].im;
      Fft<TypeParam> split(order, flag, true);
      split.run(Way::forward, re.data(), im.data(), re.data(), im.data());
      ASSERT_EQ(split.status(), moxOk);
      test::RelativeError shifted;
      for (long k = 0; k < n; k += 1 + random.below(15)) {
        const Complex expected =
            Complex(spectrum[k].re, spectrum[k].im) * std::conj(test::turn(shift * k % n, n));
        shifted.add(re[k], expected.real());
        shifted.add(im[k], expected.imag());
      }
      EXPECT_LT(shifted.value(), 2 * bound);
    }
}

TYPED_TEST(FftComplex, LargeTransformsWorkAtAnyAddressAndSplit) {
  using F = typename TypeParam::F;
  using C = typename TypeParam::C;
  test::Random random(3);
  for (int order : {TypeParam::largeOrder, TypeParam::hugeOrder}) {
    const long n = 1L << order;
    const auto x = random.vector<C>(n);
    std::vector<C> plain(n);
    Fft<TypeParam> fft(order, 2);
    fft.run(Way::inverse, x.data(), plain.data());
    ASSERT_EQ(fft.status(), moxOk);

    test::GuardedBytes bytes(n * sizeof(C) + 3, test::Guard::after);
    C* const unaligned = reinterpret_cast<C*>(bytes.data() + 3);
    fft.run(Way::inverse, x.data(), unaligned);
    EXPECT_EQ(std::memcmp(unaligned, plain.data(), n * sizeof(C)), 0);

    std::vector<F> re(n), im(n), outRe(n), outIm(n);
    for (long i = 0; i < n; ++i) re[i] = x[i].re, im[i] = x[i].im;
    Fft<TypeParam> split(order, 2, true);
    split.run(Way::inverse, re.data(), im.data(), outRe.data(), outIm.data());
    split.run(Way::inverse, re.data(), im.data(), re.data(), im.data());
    ASSERT_EQ(split.status(), moxOk);
    for (long i = 0; i < n; ++i)
      ASSERT_TRUE(outRe[i] == plain[i].re && outIm[i] == plain[i].im && re[i] == outRe[i] &&
                  im[i] == outIm[i])
          << i;
  }
}

TYPED_TEST(FftComplex, ChecksTheObjectBeforeTheData) {
  using F = typename TypeParam::F;
  using C = typename TypeParam::C;
  C x[8] = {};
  F p[8] = {};
  EXPECT_EQ(TypeParam::fwd(x, x, nullptr, nullptr), moxErrNullPtr);
  Fft<TypeParam> fft(3, 8), split(3, 8, true);
  EXPECT_EQ(TypeParam::fwd(nullptr, x, split.spec(), nullptr), moxErrContext);
  EXPECT_EQ(TypeParam::splitInv(p, p, p, nullptr, fft.spec(), nullptr), moxErrContext);
  EXPECT_EQ(TypeParam::fwd(nullptr, x, fft.spec(), nullptr), moxErrNullPtr);
  EXPECT_EQ(TypeParam::inv(x, nullptr, fft.spec(), nullptr), moxErrNullPtr);
  EXPECT_EQ(TypeParam::splitFwd(p, p, nullptr, p, split.spec(), nullptr), moxErrNullPtr);
  EXPECT_EQ(TypeParam::splitInvInPlace(p, nullptr, split.spec(), nullptr), moxErrNullPtr);
}

TYPED_TEST(FftComplex, TakesWorkMemoryOnlyWhenItNeedsSomeAndGotNone) {
  using C = typename TypeParam::C;
  for (int order : {0, 6, 7, TypeParam::largeOrder}) {
    const long n = 1L << order;
    Fft<TypeParam> fft(order, 8);
    std::vector<C> x(n, C{1, 2}), y(n, C{3, 4});
    CoreProbe probe;
    EXPECT_EQ(TypeParam::fwd(x.data(), y.data(), fft.spec(), fft.buffer()), moxOk);
    EXPECT_EQ(probe.allocations(), 0);
    EXPECT_EQ(TypeParam::fwd(x.data(), y.data(), fft.spec(), nullptr), moxOk);
    EXPECT_EQ(probe.allocations(), order > 6 ? 1 : 0);
    EXPECT_EQ(probe.live(), 0);
    if (order <= 6) continue;
    std::fill(y.begin(), y.end(), C{3, 4});
    probe.failAllocation(1);
    EXPECT_EQ(TypeParam::inv(x.data(), y.data(), fft.spec(), nullptr), moxErrMemAlloc);
    for (const C& c : y) ASSERT_TRUE(c.re == 3 && c.im == 4);
  }
}

}  // namespace
