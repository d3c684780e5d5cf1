// Reductions of integers against exact models, under every kind of factor.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <algorithm>
#include <bit>
#include <climits>
#include <cmath>

#include "stats/placed.h"
#include "support/float_environment.h"

namespace {

using namespace test;
using Wide = mox::Int128;

const std::vector<int> factors = [] {
  std::vector<int> f = {INT_MIN, INT_MIN + 1, -70000, -1100, -1024, -1023, INT_MAX, 1023, 1024};
  for (int n = -100; n <= 100; ++n) f.push_back(n);
  return f;
}();

template <class T>
T held(Wide x) {
  return T(std::clamp<Wide>(x, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
}

// x * 2^-factor as a real number; rounded to nearest, ties to even.
long double power(int factor) { return std::ldexp(1.0L, -std::clamp(factor, -2000, 2000)); }
template <class T>
T rounded(long double x) {
  x = std::nearbyint(std::clamp(x, -0x1p100L, 0x1p100L));
  return held<T>(Wide(x));
}

// Ordinary data, and the extremes that meet the widths of intermediate sums.
template <class E>
std::vector<std::vector<E>> samples(std::uint64_t stream) {
  using P = mox::Part<E>;
  std::vector<std::vector<E>> all;
  Random random(stream);
  for (const long len : {2L, 3L, 7L, 8L, 9L, 31L, 1000L, 65536L, 65537L, 131072L + 11})
    all.push_back(random.vector<E>(len));
  for (const long len : {2L, 5L, 65536L, 65537L, 200000L})
    for (const P extreme : {std::numeric_limits<P>::min(), std::numeric_limits<P>::max()}) {
      std::vector<E> v(len);
      std::fill_n(mox::parts(v.data()), len * mox::partsPerElement<E>, extreme);
      all.push_back(v);
    }
  all.push_back({E{}, E{}, E{}});
  for (auto& v : std::vector(all))  // small sums with either sign
    if (v.size() == 7 || v.size() == 8) {
      for (E& e : v)
        for (int p = 0; p < mox::partsPerElement<E>; ++p) mox::parts(&e)[p] %= 3;
      all.push_back(v);
    }
  return all;
}

template <class E>
Wide sum(const std::vector<E>& v, int part = 0) {
  Wide s = 0;
  for (const E& e : v) s += mox::parts(&e)[part];
  return s;
}

// function(v, len, &result, factor) against expected(sum, len, factor) for each part.
template <class D, class E, class Expected>
void expectScaled(MoxStatus (*function)(const E*, int, D*, int), Expected expected,
                  std::uint64_t stream) {
  for (const auto& v : samples<E>(stream)) {
    const Placed<E> src(v, long(v.size()) & 31);
    const Wide sums[] = {sum(v), sum(v, mox::partsPerElement<E> - 1)};
    for (const int factor : factors) {
      D got;
      ASSERT_EQ(function(src, int(v.size()), &got, factor), moxOk);
      for (int p = 0; p < mox::partsPerElement<D>; ++p)
        ASSERT_EQ(mox::parts(&got)[p], expected(sums[p], long(v.size()), factor))
            << "factor " << factor << ", length " << v.size() << ", part " << p << seedNote();
    }
  }
}

TEST(IntegerSum, IsScaledAndSaturated) {
  const auto model = []<class T>(T) {
    return [](Wide s, long, int n) { return rounded<T>((long double)(s)*power(n)); };
  };
  expectScaled(moxsSum_16s_Sfs, model(Mox16s()), 1);
  expectScaled(moxsSum_16s32s_Sfs, model(Mox32s()), 1);
  expectScaled(moxsSum_16sc_Sfs, model(Mox16s()), 1);
  expectScaled(moxsSum_16sc32sc_Sfs, model(Mox32s()), 1);
  expectScaled(moxsSum_32s_Sfs, model(Mox32s()), 1);
}

TEST(IntegerSum, RoundsInTheCurrentMode) {
  const Mox16s x[] = {1, 2, 0, -9};
  for (const auto& [mode, expected] : {std::pair{FE_UPWARD, -1}, {FE_DOWNWARD, -2}}) {
    const UnderRounding mode_(mode);
    Mox16s got;
    ASSERT_EQ(moxsSum_16s_Sfs(x, 4, &got, 2), moxOk);
    EXPECT_EQ(got, expected);
  }
}

TEST(IntegerMean, Of16Bits) {
  const auto model = [](Wide s, long len, int n) {
    return rounded<Mox16s>(double(s) * std::ldexp(1.0, -std::clamp(n, -900, 900)) / double(len));
  };
  expectScaled(moxsMean_16s_Sfs, model, 2);
  expectScaled(moxsMean_16sc_Sfs, model, 2);
}

Wide quotient(Wide x, Wide n) {
  const Wide m = x < 0 ? -x : x, q = m / n, twice = m % n * 2;
  const Wide r = q + (twice > n ? 1 : twice == n ? q & 1 : 0);
  return x < 0 ? -r : r;
}

TEST(IntegerMean, Of32Bits) {
  const auto model = [](Wide s, long len, int n) -> Mox32s {
    const Wide mean = quotient(s, len);
    if (n >= 0) {
      const Wide m = mean < 0 ? -mean : mean, bit = n ? m >> ((n - 1) & 31) & 1 : 0;
      const Wide scaled = (m + bit) >> (n & 31);
      return Mox32s(mean < 0 ? -scaled : scaled);
    }
    if (n <= -32) return mean > 0 ? INT_MAX : mean < 0 ? INT_MIN : 0;
    const Wide factor = Wide(1) << -n;
    return held<Mox32s>(s == held<Mox32s>(s) ? quotient(s * factor, len) : mean * factor);
  };
  expectScaled(moxsMean_32s_Sfs, model, 3);
  const auto mean = [](std::vector<Mox32s> v, int factor) {
    Mox32s got = 0;
    EXPECT_EQ(moxsMean_32s_Sfs(v.data(), int(v.size()), &got, factor), moxOk);
    return got;
  };
  EXPECT_EQ(mean({1, 1, 1, 2}, 0), 1);
  EXPECT_EQ(mean({6, 6}, 2), 1) << "the bit is added before the shift, not half a unit";
  EXPECT_EQ(mean({1, 1, 1, 2}, -2), 5);
}

TEST(IntegerStdDev, IsScaledAndSaturated) {
  const auto deviation = [](const std::vector<Mox16s>& v) {
    const double n = double(v.size()), s = double(sum(v));
    double q = 0;
    for (const Mox16s x : v) q += double(x) * x;
    return std::sqrt(std::max(0.0, (q * n - s * s) / (n * (n - 1))));
  };
  const auto factorOf = [](int n) { return std::ldexp(1.0, -std::clamp(n, -900, 900)); };
  for (const auto& v : samples<Mox16s>(4)) {
    const double exact = deviation(v), total = double(sum(v));
    for (const int n : factors) {
      Mox32s mean, stdDev;
      Mox16s mean16, stdDev16;
      const int len = int(v.size());
      const Placed<Mox16s> src(v, n & 31);
      const double expected = exact * factorOf(n);
      ASSERT_EQ(moxsMeanStdDev_16s32s_Sfs(src, len, &mean, &stdDev, n), moxOk);
      ASSERT_EQ(stdDev, rounded<Mox32s>(expected)) << n << ", length " << len;
      ASSERT_EQ(mean, rounded<Mox32s>(total / len * factorOf(n))) << n;
      ASSERT_EQ(moxsMeanStdDev_16s_Sfs(src, len, &mean16, &stdDev16, n), moxOk);
      ASSERT_EQ(stdDev16, held<Mox16s>(stdDev)) << n;
      ASSERT_EQ(mean16, held<Mox16s>(mean)) << n;
      ASSERT_EQ(moxsStdDev_16s32s_Sfs(src, len, &mean, n), moxOk);
      ASSERT_EQ(mean, stdDev) << n;
      ASSERT_EQ(moxsStdDev_16s_Sfs(src, len, &mean16, n), moxOk);
      ASSERT_EQ(mean16, stdDev16) << n;
    }
  }
}

struct Norms {
  Wide inf = 0, l1 = 0, squares = 0;
  void add(Wide x) {
    const Wide m = x < 0 ? -x : x;
    inf = std::max(inf, m), l1 += m, squares += m * m;
  }
};

Mox32s shifted(Wide x, int n) {
  if (n == 0) return Mox32s(Mox32u(x));
  return n > 0 ? held<Mox32s>(x >> std::min(n, 100))
               : held<Mox32s>(x << std::min(-(n + 1), 31) << 1);
}
Mox64s shiftedWide(Wide x, int n) {
  if (n > 31) return Mox64s((x >> 32) >> n % 32);
  if (n >= 0) return Mox64s(x >> n);
  return held<Mox64s>(x << (n < -63 ? 63 : -n));
}
Mox32s scaledRoot(Wide x, int n) {
  const double p = Mox32s(1u << ((n < 0 ? 0u - unsigned(n) : unsigned(n)) & 31));
  const double root = std::sqrt(double(Mox64s(x))), scaled = n > 0 ? root / p : root * p;
  return scaled > 0x7FFFFFFF ? INT_MAX : scaled < -0x1p31 ? INT_MIN : Mox32s(scaled);
}

// Every form of a norm of one vector, or of the difference of two.
template <class Call>
void expectNorms(const Norms& e, Call call) {
  Mox32f f;
  ASSERT_EQ(call(moxsNorm_Inf_16s32f, moxsNormDiff_Inf_16s32f, &f), moxOk);
  ASSERT_EQ(f, Mox32f(e.inf));
  ASSERT_EQ(call(moxsNorm_L1_16s32f, moxsNormDiff_L1_16s32f, &f), moxOk);
  ASSERT_EQ(f, Mox32f(e.l1));
  ASSERT_EQ(call(moxsNorm_L2_16s32f, moxsNormDiff_L2_16s32f, &f), moxOk);
  ASSERT_EQ(f, Mox32f(std::sqrt(double(Mox64s(e.squares)))));
  for (const int n : factors) {
    Mox32s i;
    Mox64s w;
    const std::string what = "factor " + std::to_string(n);
    ASSERT_EQ(call(moxsNorm_Inf_16s32s_Sfs, moxsNormDiff_Inf_16s32s_Sfs, &i, n), moxOk);
    ASSERT_EQ(i, shifted(e.inf, n)) << what;
    ASSERT_EQ(call(moxsNorm_L1_16s32s_Sfs, moxsNormDiff_L1_16s32s_Sfs, &i, n), moxOk);
    ASSERT_EQ(i, shifted(e.l1, n)) << what;
    ASSERT_EQ(call(moxsNorm_L1_16s64s_Sfs, moxsNormDiff_L1_16s64s_Sfs, &w, n), moxOk);
    ASSERT_EQ(w, shiftedWide(e.l1, n)) << what;
    ASSERT_EQ(call(moxsNorm_L2Sqr_16s64s_Sfs, moxsNormDiff_L2Sqr_16s64s_Sfs, &w, n), moxOk);
    ASSERT_EQ(w, shiftedWide(e.squares, n)) << what;
    ASSERT_EQ(call(moxsNorm_L2_16s32s_Sfs, moxsNormDiff_L2_16s32s_Sfs, &i, n), moxOk);
    ASSERT_EQ(i, scaledRoot(e.squares, n)) << what;
  }
}

TEST(IntegerNorm, EveryFormAndFactor) {
  for (const auto& v : samples<Mox16s>(5)) {
    const int len = int(v.size());
    const Placed<Mox16s> src(v, len & 31), other(std::vector<Mox16s>(v.rbegin(), v.rend()), 6),
        extreme(std::vector<Mox16s>(v.size(), v[0] < 0 ? 32767 : -32768), 2);
    Norms own, reversed, farthest;
    for (int i = 0; i < len; ++i) {
      own.add(v[i]);
      reversed.add(v[i] - v[len - 1 - i]);
      farthest.add(v[i] - extreme[i]);
    }
    expectNorms(own,
                [&](auto norm, auto, auto* out, auto... n) { return norm(src, len, out, n...); });
    expectNorms(reversed, [&](auto, auto normDiff, auto* out, auto... n) {
      return normDiff(src, other, len, out, n...);
    });
    expectNorms(farthest, [&](auto, auto normDiff, auto* out, auto... n) {
      return normDiff(src, extreme, len, out, n...);
    });
  }
}

TEST(IntegerNorm, LongSumsAreStoredWithoutSaturation) {
  const std::vector<Mox16s> v(65537, -32768);
  Mox32s got;
  ASSERT_EQ(moxsNorm_L1_16s32s_Sfs(v.data(), 65537, &got, 0), moxOk);
  EXPECT_EQ(Mox32u(got), 0x80008000u);
}

// The parts of a product, of which a real factor has none imaginary.
template <class A, class B>
Wide exactDot(const std::vector<A>& a, const std::vector<B>& b, int part) {
  Wide s = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const auto *x = mox::parts(&a[i]), *y = mox::parts(&b[i]);
    s += Wide(x[0]) * y[part];
    if constexpr (mox::Complex<A>) s += Wide(part ? 1 : -1) * x[1] * y[1 - part];
  }
  return s;
}

template <class D, class A, class B, class Expected, class... Factor>
void expectDot(MoxStatus (*dot)(const A*, const B*, int, D*, Factor...), Expected expected) {
  const auto left = samples<A>(6);
  const auto right = samples<B>(7);
  for (std::size_t k = 0; k < left.size(); ++k) {
    const auto& a = left[k];
    const auto& b = right[k];
    const Placed<A> x(a, long(k) & 31);
    const Placed<B> y(b, long(3 * k) & 31);
    Wide exact[2];
    for (int p = 0; p < mox::partsPerElement<D>; ++p) exact[p] = exactDot(a, b, p);
    const auto check = [&](auto... n) {
      D got;
      ASSERT_EQ(dot(x, y, int(a.size()), &got, n...), moxOk);
      for (int p = 0; p < mox::partsPerElement<D>; ++p)
        ASSERT_EQ(mox::parts(&got)[p], expected(exact[p], n...))
            << "length " << a.size() << ", part " << p << testing::PrintToString(std::tuple(n...));
    };
    if constexpr (sizeof...(Factor) == 0)
      check();
    else
      for (const int n : factors) check(n);
  }
}

TEST(IntegerDotProd, Of16BitsIsExact) {
  const auto whole = [](Wide s) { return Mox64s(s); };
  const auto real = [](Wide s) { return Mox32f(Mox64s(s)); };
  expectDot(moxsDotProd_16s64s, whole);
  expectDot(moxsDotProd_16s16sc64sc, whole);
  expectDot(moxsDotProd_16sc64sc, whole);
  expectDot(moxsDotProd_16s32f, real);
  expectDot(moxsDotProd_16s16sc32fc, real);
  expectDot(moxsDotProd_16sc32fc, real);
}

TEST(IntegerDotProd, Of16BitsIsScaled) {
  const auto model = []<class T>(T) {
    return [](Wide s, int n) { return rounded<T>((long double)(s)*power(std::min(n, 31))); };
  };
  expectDot(moxsDotProd_16s_Sfs, model(Mox16s()));
  expectDot(moxsDotProd_16s32s_Sfs, model(Mox32s()));
  expectDot(moxsDotProd_16s16sc_Sfs, model(Mox16s()));
  expectDot(moxsDotProd_16s16sc32sc_Sfs, model(Mox32s()));
  expectDot(moxsDotProd_16sc_Sfs, model(Mox16s()));
  expectDot(moxsDotProd_16sc32sc_Sfs, model(Mox32s()));
}

// In double: the sum, times a power of two within bounds, to nearest in every mode.
Mox32s scaledDouble(double sum, int n) {
  return rounded<Mox32s>((long double)(sum * std::ldexp(1.0, -std::clamp(n, -31, 93))));
}

TEST(IntegerDotProd, Of32BitsAddsDoublesInFourLanes) {
  const auto b = roundingData<Mox64f>(4099, 9);
  std::vector<Mox32s> x(4099), y(4099);
  std::vector<Mox16s> narrow(4099);
  for (std::size_t i = 0; i < x.size(); ++i) {
    x[i] = Mox32s(b[i] * 0x1p11) | 1, y[i] = Mox32s(b[4098 - i] * 0x1p11) | 1;
    narrow[i] = Mox16s(x[i]);
  }
  for (int len = 1; len < 4099; len += 1 + len / 20) {
    double lane[4] = {}, narrowLane[4] = {};
    for (int i = 0; i < len; ++i) {
      const int j = i < len / 4 * 4 ? i % 4 : i % 2;
      lane[j] += double(x[i]) * y[i];
      narrowLane[j] += double(narrow[i]) * y[i];
    }
    const double sum = (lane[0] + lane[2]) + (lane[1] + lane[3]);
    const double narrowSum = (narrowLane[0] + narrowLane[2]) + (narrowLane[1] + narrowLane[3]);
    const int some[] = {INT_MIN, -31, 0, 5, 20, 31, 40, 93, INT_MAX};
    for (const int n : some)
      for (const int mode : allRoundings) {
        const Mox32s expected = scaledDouble(sum, n), expectedNarrow = scaledDouble(narrowSum, n);
        const UnderRounding scope(mode);
        Mox32s got;
        ASSERT_EQ(moxsDotProd_32s_Sfs(x.data(), y.data(), len, &got, n), moxOk);
        ASSERT_EQ(got, expected) << "factor " << n << ", length " << len;
        ASSERT_EQ(moxsDotProd_16s32s32s_Sfs(narrow.data(), y.data(), len, &got, n), moxOk);
        ASSERT_EQ(got, expectedNarrow) << "factor " << n << ", length " << len;
      }
  }
}

// Parts small enough for sums without rounding: the order doesn't show.
TEST(IntegerDotProd, Of32BitComplexIsExactBelow53Bits) {
  Random random(10);
  for (const int len : {1, 2, 3, 5, 8, 1001}) {
    auto a = random.vector<Mox32sc>(len), b = random.vector<Mox32sc>(len);
    std::vector<Mox32s> real(len);
    for (int i = 0; i < len; ++i)
      a[i] = {a[i].re >> 12, a[i].im >> 12}, b[i] = {b[i].re >> 12, b[i].im >> 12},
      real[i] = a[i].im;
    for (const int n : factors) {
      Mox32sc got;
      ASSERT_EQ(moxsDotProd_32sc_Sfs(a.data(), b.data(), len, &got, n), moxOk);
      ASSERT_EQ(got.re, scaledDouble(double(exactDot(a, b, 0)), n)) << n << ", length " << len;
      ASSERT_EQ(got.im, scaledDouble(double(exactDot(a, b, 1)), n)) << n << ", length " << len;
      ASSERT_EQ(moxsDotProd_32s32sc_Sfs(real.data(), b.data(), len, &got, n), moxOk);
      ASSERT_EQ(got.re, scaledDouble(double(exactDot(real, b, 0)), n)) << n << ", length " << len;
      ASSERT_EQ(got.im, scaledDouble(double(exactDot(real, b, 1)), n)) << n << ", length " << len;
    }
  }
}

}  // namespace
