// Analytic signals against their defining sum, and of tones.
#include "support/accuracy.h"
#include "support/test.h"
#include "transforms/exact_transform.h"

namespace {

using test::Complex;

template <class S, class D, class... Factor>
std::vector<D> analytic(auto init, auto run, auto free, const std::vector<S>& x, Factor... factor) {
  MoxsHilbertSpec* spec = nullptr;
  std::vector<D> z(x.size());
  EXPECT_OK(init(&spec, int(x.size()), 0));
  EXPECT_OK(run(x.data(), z.data(), spec, factor...));
  EXPECT_OK(free(spec));
  return z;
}
#define ANALYTIC(S, D, t, suffix, ...)                                                   \
  analytic<S, D>(moxsHilbertInitAlloc_##t, moxsHilbert_##t##suffix, moxsHilbertFree_##t, \
                 __VA_ARGS__)

// The spectrum of the samples without its negative frequencies, and back.
template <class S>
std::vector<Complex> exactly(const std::vector<S>& x) {
  const long n = long(x.size());
  auto spectrum = test::exactTransform(std::vector<Complex>(x.begin(), x.end()));
  for (long k = 0; k < n; ++k)
    spectrum[k] *= (k == 0 || 2 * k == n ? 1.0L : 2 * k < n ? 2.0L : 0.0L) / n;
  auto z = test::exactTransform(spectrum, true);
  if (n < 3)
    for (Complex& v : z) v = v.real();
  return z;
}

long double bound(long n) { return 2.5e-7L * std::sqrt(1 + std::log2((long double)n)); }

void expectNear(const std::vector<Mox32fc>& got, const std::vector<Complex>& exact) {
  test::RelativeError error;
  for (std::size_t i = 0; i < got.size(); ++i) {
    error.add(got[i].re, exact[i].real());
    error.add(got[i].im, exact[i].imag());
  }
  EXPECT_LE(error.value(), bound(long(got.size())));
}

TEST(Hilbert, DropsTheNegativeFrequencies) {
  test::Random random;
  std::vector<long> lengths = {211, 256, 500, 501, 509, 1000, 1009, 1024, 4410};
  for (long n = 1; n <= 100; ++n) lengths.push_back(n);
  for (const long n : lengths) {
    SCOPED_TRACE(testing::Message() << "length " << n);
    const auto x = random.vector<Mox32f>(n);
    expectNear(ANALYTIC(Mox32f, Mox32fc, 32f32fc, , x), exactly(x));
    const auto words = random.vector<Mox16s>(n);
    const auto exact = exactly(words);
    expectNear(ANALYTIC(Mox16s, Mox32fc, 16s32fc, , words), exact);
    for (const int factor : {0, 3, -2, 40, INT_MAX, INT_MIN}) {
      const auto got = ANALYTIC(Mox16s, Mox16sc, 16s16sc, _Sfs, words, factor);
      const long double scale = std::exp2(-(long double)std::clamp(factor, -99, 99));
      const long double error = 65536 * scale * std::sqrt((long double)n) * bound(n);
      for (long i = 0; i < n; ++i) {
        test::expectRounded<Mox16s>(got[i].re, scale * exact[i].real(), error);
        test::expectRounded<Mox16s>(got[i].im, scale * exact[i].imag(), error);
      }
    }
  }
}

}  // namespace
