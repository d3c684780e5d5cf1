// The passes between half-length complex and real spectra, and the straight-line real kernels,
// against their defining formulas in long double. No complex transform takes part.
#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

#include "frame/arena.h"
#include "support/accuracy.h"
#include "support/random.h"
#include "transforms/fft_real_post.h"
#include "transforms/fft_real_small.h"
#include "transforms/packed.h"

namespace {

using Complex = std::complex<long double>;
using test::Layout;

Complex unitRoot(long k, long n) {
  return std::polar(1.0L, -2 * std::numbers::pi_v<long double> * k / n);
}

template <class F>
constexpr long double roundOff = std::numeric_limits<F>::epsilon();

template <class F>
std::vector<F> quarterWave(int order) {
  const long n = 1L << order;
  std::vector<F> s(n / 4 + 1);
  for (long i = 0; i <= n / 4; ++i) s[i] = F(-unitRoot(i, n).imag());
  s[n / 4] = 1;
  return s;
}

template <class F>
F* alignedTable(std::vector<F>& memory) {
  return mox::alignUp(memory.data(), 64);
}

template <class F>
struct RealPass : testing::Test {};
using FloatTypes = testing::Types<Mox32f, Mox64f>;
TYPED_TEST_SUITE(RealPass, FloatTypes);

// Orders with one table and with two levels, the sine table as fine as the transform or finer.
TYPED_TEST(RealPass, PostAndPreFollowTheirFormulas) {
  using F = TypeParam;
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  for (const int order : {5, 6, 7, 8, 10, 13, 17, 18, 19}) {
    SCOPED_TRACE(testing::Message() << "order " << order);
    const long n = 1L << order, m = n / 2;
    const int sinLog = std::max(order, 10);
    const auto sine = quarterWave<F>(sinLog);
    const long places = 2 * mox::realTwiddleCount<F>(order);
    std::vector<F> forward(places + 16, 99), inverse(places + 16, 99);
    EXPECT_EQ(reinterpret_cast<F*>(mox::ownFftRealTwiddleFwd(
                  order, mox::QuarterSine<F>{sine.data(), sinLog}, alignedTable(forward))),
              mox::alignUp(alignedTable(forward) + places, 64));
    mox::ownFftRealTwiddleInv(order, mox::QuarterSine<F>{sine.data(), sinLog},
                              alignedTable(inverse));

    // Behind a neighbour on each side that must stay as it is, at an odd address.
    const auto z = random.vector<F>(n);
    std::vector<char> bytes((n + 2) * sizeof(F) + 1, 77);
    F* data = reinterpret_cast<F*>(bytes.data() + 1) + 1;
    const auto at = [](const F* p, long k) {
      return Complex(mox::load<F>(p + 2 * k), mox::load<F>(p + 2 * k + 1));
    };
    const auto check = [&](const F* got, auto expected) {
      test::RelativeError error;
      for (long k = 1; k < m; ++k) {
        const Complex x = expected(k), y = at(got, k);
        error.add(y.real(), x.real());
        error.add(y.imag(), x.imag());
      }
      EXPECT_LT(error.value(), 2 * roundOff<F>);
    };

    std::memcpy(data, z.data(), n * sizeof(F));
    mox::ownFftRealPost(data, m, alignedTable(forward));
    check(data, [&](long k) {
      const Complex a = at(z.data(), k), b = std::conj(at(z.data(), m - k));
      return (a + b) * 0.5L - Complex(0, 1) * unitRoot(k, n) * (a - b) * 0.5L;
    });
    EXPECT_EQ(at(data, 0), at(z.data(), 0));
    EXPECT_EQ(bytes[sizeof(F)], 77);
    EXPECT_EQ(bytes[bytes.size() - sizeof(F)], 77);

    const auto doubled = [&](long k) {
      const Complex a = at(z.data(), k), b = std::conj(at(z.data(), m - k));
      return a + b + Complex(0, 1) * std::conj(unitRoot(k, n)) * (a - b);
    };
    mox::ownFftRealPre(z.data(), data, m, alignedTable(inverse));
    check(data, doubled);
    std::memcpy(data, z.data(), n * sizeof(F));
    mox::ownFftRealPre(data, data, m, alignedTable(inverse));
    check(data, doubled);
  }
}

TYPED_TEST(RealPass, StraightLineKernelsFollowTheDefiningSums) {
  using F = TypeParam;
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  const F factor = F(0.3);
  for (int order = 0; order <= 4; ++order) {
    SCOPED_TRACE(testing::Message() << "order " << order);
    const long n = 1L << order;
    const auto x = random.vector<F>(n);
    std::vector<Complex> spectrum(n / 2 + 1);
    for (long k = 0; k <= n / 2; ++k)
      for (long i = 0; i < n; ++i) spectrum[k] += (long double)x[i] * unitRoot(i * k % n, n);
    const auto exact = test::packed<long double>(Layout::perm, spectrum, n);
    const auto& fwd = mox::realKernelsFwd<F>;
    const auto& inv = mox::realKernelsInv<F>;

    std::vector<F> plain(n), scaled = x, back(n), scaledBack;
    fwd.plain[order](x.data(), plain.data(), factor);
    fwd.scaled[order](scaled.data(), scaled.data(), factor);
    inv.plain[order](plain.data(), back.data(), factor);
    scaledBack = plain;
    inv.scaled[order](scaledBack.data(), scaledBack.data(), factor);
    const long double bound = 4 * n * roundOff<F>;
    for (long i = 0; i < n; ++i) {
      EXPECT_NEAR(plain[i], exact[i], bound) << i;
      EXPECT_EQ(scaled[i], plain[i] * factor) << i;
      EXPECT_NEAR(back[i], n * x[i], bound) << i;
      EXPECT_EQ(scaledBack[i], back[i] * factor) << i;
    }
  }
}

}  // namespace
