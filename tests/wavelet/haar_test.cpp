#include "support/exact_model.h"
#include "support/test.h"
#include "support/values.h"

namespace {

using namespace test;

template <class E>
struct Haar;
#define HAAR(type)                                                    \
  template <>                                                         \
  struct Haar<Mox##type> {                                            \
    static constexpr auto forward = moxsWTHaarFwd_##type;             \
    static constexpr auto inverse = moxsWTHaarInv_##type;             \
    static constexpr auto forwardScaled = moxsWTHaarFwd_##type##_Sfs; \
    static constexpr auto inverseScaled = moxsWTHaarInv_##type##_Sfs; \
  }
HAAR(8s);
HAAR(16s);
HAAR(32s);
HAAR(64s);

// All pairs of the lattice, or one in `step` of them, and a last element.
template <class E>
std::vector<E> pairsOf(std::size_t step = 1) {
  const auto values = lattice<E>(20);
  std::vector<E> all;
  for (std::size_t i = 0; i < values.size() * values.size(); i += step)
    all.push_back(values[i / values.size()]), all.push_back(values[i % values.size()]);
  all.push_back(E(5));
  return all;
}

TYPED_SUITE(HaarOfIntegers, Mox8s, Mox16s, Mox32s, Mox64s);

TYPED_TEST(HaarOfIntegers, ScalesExactSumsAndDifferences) {
  using E = TypeParam;
  const auto x = pairsOf<E>(sizeof(E) == 1 ? 17 : 1);
  const long len = long(x.size()), pairs = len / 2;
  std::vector<E> low(pairs + 1), high(pairs), y(len);
  forAllFactors([&](int factor) {
    const auto scaled = [=](Int128 v, long f) { return E(scaledInteger(v, f, rangeOf<E>)); };
    ASSERT_OK(Haar<E>::forwardScaled(x.data(), len, low.data(), high.data(), factor));
    ASSERT_OK(Haar<E>::inverseScaled(x.data(), x.data() + pairs + 1, y.data(), len, factor));
    for (long k = 0; k < pairs; ++k) {
      const Int128 a = x[2 * k], b = x[2 * k + 1], l = x[k], h = x[pairs + 1 + k];
      const bool limits =
          sizeof(E) == 4 && factor == 0 && a < rangeOf<E>.min + 2 && b > rangeOf<E>.max - 2;
      ASSERT_EQ(low[k], limits ? E(0) : scaled(a + b, factor + 1L))
          << Mox64s(a) << ' ' << Mox64s(b);
      ASSERT_EQ(high[k], limits ? E(rangeOf<E>.max) : scaled(b - a, factor + 1L));
      ASSERT_EQ(y[2 * k], scaled(l - h, factor)) << Mox64s(l) << ' ' << Mox64s(h);
      ASSERT_EQ(y[2 * k + 1], scaled(l + h, factor)) << Mox64s(l) << ' ' << Mox64s(h);
    }
    EXPECT_EQ(low[pairs], scaled(5, factor));
    EXPECT_EQ(y[2 * pairs], scaled(x[pairs], factor));
    ASSERT_OK(Haar<E>::forwardScaled(&x[3], 1, low.data(), high.data(), factor));
    ASSERT_OK(Haar<E>::inverseScaled(&x[2], high.data(), y.data(), 1, factor));
    EXPECT_EQ(low[0], x[3]);
    EXPECT_EQ(y[0], x[2]);
  });
}

// Over all pairs of 8 bits, and where the sums of wider ones saturate.
TYPED_TEST(HaarOfIntegers, ComesBackWithinAUnit) {
  using E = TypeParam;
  const auto x = pairsOf<E>();
  const long len = long(x.size());
  std::vector<E> low(len / 2 + 1), high(len / 2), y(len);
  ASSERT_OK(Haar<E>::forward(x.data(), len, low.data(), high.data()));
  ASSERT_OK(Haar<E>::inverse(low.data(), high.data(), y.data(), len));
  for (long i = 0; i < len; ++i) {
    const Int128 error = Int128(y[i]) - x[i];
    ASSERT_LE(error < 0 ? -error : error, 1) << i << ": " << Mox64s(x[i]);
  }
}

template <class F>
void expectHaar(MoxStatus (*forward)(const F*, int, F*, F*),
                MoxStatus (*inverse)(const F*, const F*, F*, int)) {
  Random random(1);
  const auto x = random.vector<F>(101);
  std::vector<F> low(51), high(50), y(101);
  ASSERT_OK(forward(x.data(), 101, low.data(), high.data()));
  ASSERT_OK(inverse(low.data(), high.data(), y.data(), 101));
  for (int k = 0; k < 50; ++k) {
    const F h = (x[2 * k + 1] - x[2 * k]) / 2;
    EXPECT_EQ(high[k], h);
    EXPECT_EQ(low[k], x[2 * k] + h);
    EXPECT_EQ(y[2 * k], low[k] - h);
    EXPECT_EQ(y[2 * k + 1], low[k] + h);
    EXPECT_NEAR(y[2 * k], x[2 * k], std::numeric_limits<F>::epsilon());
  }
  EXPECT_EQ(low[50], x[100]);
  EXPECT_EQ(y[100], x[100]);
}
TEST(HaarOfFloats, ComesBack) {
  expectHaar(moxsWTHaarFwd_32f, moxsWTHaarInv_32f);
  expectHaar(moxsWTHaarFwd_64f, moxsWTHaarInv_64f);
}

}  // namespace
