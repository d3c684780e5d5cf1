// Reductions of integers against exact sums, under every kind of factor.
#include "stats/reductions.h"
#include "support/exact_model.h"
#include "support/float_environment.h"

namespace {

using namespace test;

const std::vector<int> factors = [] {
  std::vector<int> f = {INT_MIN, INT_MIN + 1, -70000, -1100, -1024, -1023, INT_MAX, 1023, 1024};
  for (int n = -100; n <= 100; ++n) f.push_back(n);
  return f;
}();

template <class E>
std::vector<E> filled(Random& random, long len, auto part) {
  using P = mox::Part<E>;
  std::vector<E> v(len);
  P* const parts = mox::parts(v.data());
  std::generate_n(parts, len * mox::partsPerElement<E>, [&] { return part(random.value<P>()); });
  return v;
}

// Two sources: ordinary data, small sums of either sign, and all pairs of the extremes that meet
// the widths of intermediate sums. Parts are divided by 2^shift.
template <class A, class B>
auto samples(int shift) {
  Random random(1);
  std::vector<std::pair<std::vector<A>, std::vector<B>>> all;
  const auto add = [&](long len, auto left, auto right) {
    all.emplace_back(filled<A>(random, len, [=](auto p) { return left(p) >> shift; }),
                     filled<B>(random, len, [=](auto p) { return right(p) >> shift; }));
  };
  const auto zero = [](auto) { return 0; };
  const auto one = [](auto) { return 1; };
  const auto same = [](auto p) { return p; };
  const auto small = [](auto p) { return p % 3; };
  const auto least = [](auto p) { return std::numeric_limits<decltype(p)>::min(); };
  const auto most = [](auto p) { return std::numeric_limits<decltype(p)>::max(); };
  for (const long len : {2L, 3L, 7L, 8L, 9L, 31L, 1000L, 65536L, 65537L, 131072L + 11})
    add(len, same, same);
  for (const long len : {3L, 7L, 8L}) add(len, small, small);
  for (const long len : {2L, 5L, 65536L, 65537L, 300000L})
    add(len, least, least), add(len, most, most), add(len, least, most), add(len, most, least);
  add(1200000, least, least);  // fills the longest block
  // Parts of a complex product that do not cancel.
  add(8, least, most);
  B* const mixed = all.back().second.data();
  for (int i = 1; i < 8 * mox::partsPerElement<B>; i += 2)
    mox::parts(mixed)[i] = mox::Part<B>(least(mox::Part<B>()) >> shift);
  add(2, one, zero);
  add(3, zero, zero);
  return all;
}

// For each result, or part of one: rule(exact(x, y, part), len, factor).
template <class D, class A, class B = A, class Function, class Exact, class Rule>
void expectExact(Function function, Exact exact, Rule rule, int shift = 0) {
  using P = mox::Part<D>;
  int k = 0;
  for (const auto& [a, b] : samples<A, B>(shift)) {
    const int len = int(a.size());
    const Placed<A> x(a, ++k & 31);
    const Placed<B> y(b, 3 * k & 31);
    const decltype(exact(a, b, 0)) values[] = {exact(a, b, 0), exact(a, b, 1)};
    const auto check = [&](auto f, int factor) {
      std::vector<P> got;
      store<D, decltype(f), A, B>(got, f, x, y, len);
      for (std::size_t p = 0; p < got.size(); ++p)
        ASSERT_EQ(got[p], P(rule(values[p], len, factor)))
            << "factor " << factor << ", length " << len << ", part " << p;
    };
    if constexpr (Reduction<Function, D, A, B>)
      check(function, 0);
    else
      for (const int factor : len < 1000000 ? factors : std::vector{0, 16})
        check(with(function, factor), factor);
  }
}

template <class A>
Int128 total(const std::vector<A>& x, const auto&, int part) {
  Int128 s = 0;
  for (const A& e : x) s += mox::parts(&e)[mox::Complex<A> ? part : 0];
  return s;
}

// To nearest, ties to even.
template <class T>
auto scaled(int leastFactor, int mostFactor) {
  return [=](Int128 s, long, int n) {
    return scaledInteger(s, std::clamp(n, leastFactor, mostFactor), rangeOf<T>);
  };
}
template <class T>
Int128 scaledReal(double x, long, int n) {
  return scaledFloat(x, n, rangeOf<T>, Mode::nearEven);
}

const auto sumOf = [](const auto& x, const auto& y, int p) { return total(x, y, p); };
const auto meanOf = [](const auto& x, const auto& y, int p) {
  return double(total(x, y, p)) / double(x.size());
};

TEST(IntegerSum, IsScaledAndSaturated) {
  const auto to16 = scaled<Mox16s>(INT_MIN, INT_MAX);
  const auto to32 = scaled<Mox32s>(INT_MIN, INT_MAX);
  expectExact<Mox16s, Mox16s>(moxsSum_16s_Sfs, sumOf, to16);
  expectExact<Mox32s, Mox16s>(moxsSum_16s32s_Sfs, sumOf, to32);
  expectExact<Mox16sc, Mox16sc>(moxsSum_16sc_Sfs, sumOf, to16);
  expectExact<Mox32sc, Mox16sc>(moxsSum_16sc32sc_Sfs, sumOf, to32);
  expectExact<Mox32s, Mox32s>(moxsSum_32s_Sfs, sumOf, to32);
}

TEST(IntegerSum, RoundsInTheCurrentModeAndSoDoesTheMean) {
  const Mox16s x[] = {1, 2, 0, -9};
  for (const auto& [mode, expected] : {std::pair{FE_UPWARD, -1}, {FE_DOWNWARD, -2}}) {
    const UnderRounding scope(mode);
    Mox16s got;
    ASSERT_OK(moxsSum_16s_Sfs(x, 4, &got, 2));
    EXPECT_EQ(got, expected);
    ASSERT_OK(moxsMean_16s_Sfs(x, 4, &got, 0));
    EXPECT_EQ(got, expected);
  }
}

Int128 quotient(Int128 x, Int128 n) {
  const Int128 m = x < 0 ? -x : x, q = m / n, twice = m % n * 2;
  const Int128 r = q + (twice > n ? 1 : twice == n ? q & 1 : 0);
  return x < 0 ? -r : r;
}

// The bit below the last one kept is added before the shift, which counts modulo 32.
Int128 mean32(Int128 s, long len, int n) {
  const Int128 mean = quotient(s, len), m = mean < 0 ? -mean : mean;
  const Range range = rangeOf<Mox32s>;
  if (n >= 0) {
    const Int128 bit = n ? m >> ((n - 1) & 31) & 1 : 0, shifted = (m + bit) >> (n & 31);
    return mean < 0 ? -shifted : shifted;
  }
  if (n <= -32) return mean > 0 ? range.max : mean < 0 ? range.min : 0;
  const Int128 factor = Int128(1) << -n;
  return saturated(s == saturated(s, range) ? quotient(s * factor, len) : mean * factor, range);
}

TEST(IntegerMean, IsScaledAndSaturated) {
  expectExact<Mox16s, Mox16s>(moxsMean_16s_Sfs, meanOf, scaledReal<Mox16s>);
  expectExact<Mox16sc, Mox16sc>(moxsMean_16sc_Sfs, meanOf, scaledReal<Mox16s>);
  expectExact<Mox32s, Mox32s>(moxsMean_32s_Sfs, sumOf, mean32);
  const Mox32s sixes[] = {6, 6};
  Mox32s got;
  ASSERT_OK(moxsMean_32s_Sfs(sixes, 2, &got, 2));
  EXPECT_EQ(got, 1) << "not half a unit";
}

TEST(IntegerStdDev, IsScaledAndSaturated) {
  const auto deviation = [](const auto& x, const auto& y, int) {
    const double n = double(x.size()), s = double(total(x, y, 0));
    double q = 0;
    for (const double e : x) q += e * e;
    return std::sqrt(std::max(0.0, (q * n - s * s) / (n * (n - 1))));
  };
  const auto both = [=](const auto& x, const auto& y, int p) {
    return p ? deviation(x, y, p) : meanOf(x, y, p);
  };
  expectExact<Mox32s, Mox16s>(moxsMeanStdDev_16s32s_Sfs, both, scaledReal<Mox32s>);
  expectExact<Mox16s, Mox16s>(moxsMeanStdDev_16s_Sfs, both, scaledReal<Mox16s>);
  expectExact<Mox32s, Mox16s>(moxsStdDev_16s32s_Sfs, deviation, scaledReal<Mox32s>);
  expectExact<Mox16s, Mox16s>(moxsStdDev_16s_Sfs, deviation, scaledReal<Mox16s>);
}

Int128 shifted32(Int128 x, long, int n) {
  if (n == 0) return Mox32s(Mox32u(x));  // stored without saturation
  return saturated(n > 0 ? x >> std::min(n, 100) : x << std::min(-(n + 1), 31) << 1,
                   rangeOf<Mox32s>);
}
Int128 shifted64(Int128 x, long, int n) {
  if (n > 31) return (x >> 32) >> n % 32;
  return n >= 0 ? x >> n : saturated(x << (n < -63 ? 63 : -n), rangeOf<Mox64s>);
}
Int128 scaledRoot(Int128 x, long, int n) {
  const double p = Mox32s(1u << ((n < 0 ? 0u - unsigned(n) : unsigned(n)) & 31));
  const double root = std::sqrt(double(Mox64s(x))), scaled = n > 0 ? root / p : root * p;
  return scaled > 0x7FFFFFFF ? INT_MAX : scaled < -0x1p31 ? INT_MIN : Int128(scaled);
}

// A norm of one vector, and of the difference of two.
template <class D, class Function, class FunctionOfTwo, class Join, class Rule>
void expectNorms(Function norm, FunctionOfTwo normDiff, Join join, Rule rule) {
  const auto reduced = [=](const auto& x, auto term) {
    Int128 s = 0;
    for (std::size_t i = 0; i < x.size(); ++i) s = join(s, Int128(std::abs(term(i))));
    return s;
  };
  expectExact<D, Mox16s>(
      norm, [=](const auto& x, auto&, int) { return reduced(x, [&](auto i) { return +x[i]; }); },
      rule);
  const auto difference = [=](const auto& x, const auto& y, int) {
    return reduced(x, [&](auto i) { return x[i] - y[i]; });
  };
  expectExact<D, Mox16s>(normDiff, difference, rule);
}

TEST(IntegerNorm, EveryFormAndFactor) {
  const auto most = [](Int128 s, Int128 m) { return std::max(s, m); };
  const auto add = [](Int128 s, Int128 m) { return s + m; };
  const auto square = [](Int128 s, Int128 m) { return s + m * m; };
  const auto real = [](Int128 x, long, int) { return Mox64s(x); };
  const auto root = [](Int128 x, long, int) { return std::sqrt(double(Mox64s(x))); };
  expectNorms<Mox32f>(moxsNorm_Inf_16s32f, moxsNormDiff_Inf_16s32f, most, real);
  expectNorms<Mox32f>(moxsNorm_L1_16s32f, moxsNormDiff_L1_16s32f, add, real);
  expectNorms<Mox32f>(moxsNorm_L2_16s32f, moxsNormDiff_L2_16s32f, square, root);
  expectNorms<Mox32s>(moxsNorm_Inf_16s32s_Sfs, moxsNormDiff_Inf_16s32s_Sfs, most, shifted32);
  expectNorms<Mox32s>(moxsNorm_L1_16s32s_Sfs, moxsNormDiff_L1_16s32s_Sfs, add, shifted32);
  expectNorms<Mox64s>(moxsNorm_L1_16s64s_Sfs, moxsNormDiff_L1_16s64s_Sfs, add, shifted64);
  expectNorms<Mox64s>(moxsNorm_L2Sqr_16s64s_Sfs, moxsNormDiff_L2Sqr_16s64s_Sfs, square, shifted64);
  expectNorms<Mox32s>(moxsNorm_L2_16s32s_Sfs, moxsNormDiff_L2_16s32s_Sfs, square, scaledRoot);
}

// A part of the dot product; a real factor has no imaginary one.
const auto productOf = []<class A>(const std::vector<A>& a, const auto& b, int part) {
  Int128 s = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const auto *x = mox::parts(&a[i]), *y = mox::parts(&b[i]);
    if constexpr (mox::Complex<A>) s += Int128(part ? 1 : -1) * x[1] * y[1 - part];
    s += Int128(x[0]) * y[sizeof b[i] > sizeof *y ? part : 0];
  }
  return s;
};

TEST(IntegerDotProd, Of16Bits) {
  const auto whole = [](Int128 s, long, int) { return Mox64s(s); };
  expectExact<Mox64s, Mox16s>(moxsDotProd_16s64s, productOf, whole);
  expectExact<Mox64sc, Mox16s, Mox16sc>(moxsDotProd_16s16sc64sc, productOf, whole);
  expectExact<Mox64sc, Mox16sc>(moxsDotProd_16sc64sc, productOf, whole);
  expectExact<Mox32f, Mox16s>(moxsDotProd_16s32f, productOf, whole);
  expectExact<Mox32fc, Mox16s, Mox16sc>(moxsDotProd_16s16sc32fc, productOf, whole);
  expectExact<Mox32fc, Mox16sc>(moxsDotProd_16sc32fc, productOf, whole);
  const auto to16 = scaled<Mox16s>(INT_MIN, 31);
  const auto to32 = scaled<Mox32s>(INT_MIN, 31);
  expectExact<Mox16s, Mox16s>(moxsDotProd_16s_Sfs, productOf, to16);
  expectExact<Mox32s, Mox16s>(moxsDotProd_16s32s_Sfs, productOf, to32);
  expectExact<Mox16sc, Mox16s, Mox16sc>(moxsDotProd_16s16sc_Sfs, productOf, to16);
  expectExact<Mox32sc, Mox16s, Mox16sc>(moxsDotProd_16s16sc32sc_Sfs, productOf, to32);
  expectExact<Mox16sc, Mox16sc>(moxsDotProd_16sc_Sfs, productOf, to16);
  expectExact<Mox32sc, Mox16sc>(moxsDotProd_16sc32sc_Sfs, productOf, to32);
}

// Parts small enough for sums of doubles without rounding: the order doesn't show.
TEST(IntegerDotProd, Of32BitsIsExactBelow53Bits) {
  const auto to32 = scaled<Mox32s>(-31, 93);
  expectExact<Mox32s, Mox32s>(moxsDotProd_32s_Sfs, productOf, to32, 16);
  expectExact<Mox32sc, Mox32sc>(moxsDotProd_32sc_Sfs, productOf, to32, 16);
  expectExact<Mox32sc, Mox32s, Mox32sc>(moxsDotProd_32s32sc_Sfs, productOf, to32, 16);
}

TEST(IntegerDotProd, Of32BitsAddsDoublesInFourLanes) {
  const auto real = roundingData<Mox64f>(4099, 9);
  std::vector<Mox32s> x, y;
  std::vector<Mox16s> narrow;
  for (int i = 0; i < 4099; ++i) {
    x.push_back(Mox32s(real[i] * 0x1p11) | 1), y.push_back(Mox32s(real[4098 - i] * 0x1p11) | 1);
    narrow.push_back(Mox16s(x[i]));
  }
  const auto check = [&](auto dot, const auto& left, long len) {
    const double sum = reduced<double>({4, Rest::pairs}, len, 0,
                                       [&](long k) { return double(left[k]) * y[k]; })[0];
    for (const int n : {INT_MIN, -31, 0, 5, 20, 31, 40, 93, INT_MAX})
      for (const int mode : allRoundings) {
        const UnderRounding scope(mode);
        Mox32s got;
        ASSERT_OK(dot(left.data(), y.data(), int(len), &got, n));
        ASSERT_EQ(got, scaledReal<Mox32s>(sum, 0, std::clamp(n, -31, 93)))
            << "factor " << n << ", length " << len;
      }
  };
  for (long len = 1; len < 4099; len += 1 + len / 20) {
    check(moxsDotProd_32s_Sfs, x, len);
    check(moxsDotProd_16s32s32s_Sfs, narrow, len);
  }
}

}  // namespace
