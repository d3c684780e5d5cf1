// Reductions of floats in the orders of docs/additions.md, bit for bit.
#include <immintrin.h>

#include "stats/reductions.h"

namespace {

using namespace test;

// Parts of complex elements are terms of their own.
template <class E>
Lanes<double> sumOf(const Operands<E>& o, bool fast) {
  constexpr long parts = mox::partsPerElement<E>, size = sizeof(E) / parts;
  const bool aligned = o.offset % size == 0, whole = size == 4 && !aligned;
  const long n = parts * o.len, peel = whole ? n : peelOf(o.offset, size, 32, n);
  const auto term = [x = mox::parts(o.x)](long i) { return x[i]; };
  const Order floats = {size * parts * 2, Rest::serial, 16, parts};
  const Order doubles = {.lanes = 16,
                         .rest = aligned ? Rest::folded : Rest::serial,
                         .parts = parts,
                         .at = aligned && parts == 1 ? 4 : 0,
                         .group = 1};
  Lanes<double> sums = size == 4 && fast && aligned
                           ? reducedFast(parts, n, peel, term)
                           : reduced<double>(size == 4 ? floats : doubles, n, peel, term);
  if (peel % parts) std::swap(sums[0], sums[1]);
  return sums;
}

template <class E, class Sum, class Mean>
void expectSums(Sum sum, Mean mean, bool fast = false) {
  const auto model = [=](const Operands<E>& o) {
    const Lanes<double> s = sumOf(o, fast);
    const double n = double(o.len);
    Results all(s.begin(), s.end());
    for (const double part : s)
      all.push_back(std::is_same_v<E, Mox64fc> ? part * (1 / n) : part / n);
    return all;
  };
  expectReduction<E, E>(model, 1, sum, mean);
}

TEST(Sum, FastAndAccurate) {
  expectSums<Mox32f>(with(moxsSum_32f, 1), with(moxsMean_32f, 1), true);
  expectSums<Mox32fc>(with(moxsSum_32fc, 1), with(moxsMean_32fc, 1), true);
  expectSums<Mox32f>(with(moxsSum_32f, 2), with(moxsMean_32f, -7));
  expectSums<Mox32fc>(with(moxsSum_32fc, 0), with(moxsMean_32fc, 2));
  expectSums<Mox64f>(moxsSum_64f, moxsMean_64f);
  expectSums<Mox64fc>(moxsSum_64fc, moxsMean_64fc);
}

// Of a reduction of the elements and of their squares, which have the format P.
template <class P, class F, class Reduce>
long double deviation(const Operands<F>& o, Reduce reduce) {
  const auto sum = reduce([&](long i) { return o.x[i]; });
  const auto squares = reduce([&](long i) { return P(o.x[i]) * o.x[i]; });
  const decltype(sum) n = o.len, t = n * squares - sum * sum;
  return t > 0 ? std::sqrt(t / (n * (n - 1))) : 0;
}

TEST(StdDev, Floats) {
  const auto model = [](const Operands<Mox32f>& o) -> Results {
    const auto accurate = [&](auto term) {
      return reduced<double>({16, Rest::halves}, o.len, peelOf(o.offset, 4, 16, o.len), term)[0];
    };
    const auto fast = [&](auto term) {
      return reducedFast(1, o.len, peelOf(o.offset, 4, 32, o.len), term)[0];
    };
    // The second of two sums is added to the first behind the last whole four.
    const auto extended = [&](auto term) {
      return reduced<long double>({2, Rest::serial, 4}, o.len, 0, term)[0];
    };
    const long double d = deviation<double>(o, accurate);
    return {d, o.offset % 4 ? d : deviation<float>(o, fast),
            extended([&](long i) { return o.x[i]; }) / o.len, deviation<long double>(o, extended)};
  };
  expectReduction<Mox32f, Mox32f>(model, 2, with(moxsStdDev_32f, 0), with(moxsStdDev_32f, 1),
                                  with(moxsMeanStdDev_32f, 1));
}

TEST(StdDev, Doubles) {
  const auto model = [](const Operands<Mox64f>& o) -> Results {
    const auto reduce = [&](auto term) {
      return reduced<double>({4, Rest::halves}, o.len, o.offset >> 3 & 1, term)[0];
    };
    const double mean = reduce([&](long i) { return o.x[i]; }) / double(o.len);
    const long double d = deviation<double>(o, reduce);
    return {d, mean, d};
  };
  expectReduction<Mox64f, Mox64f>(model, 2, moxsStdDev_64f, moxsMeanStdDev_64f);
}

TEST(StdDev, OfEqualElementsAndOfNaN) {
  std::vector<Mox32f> x(777, 3.0f);
  Mox32f got, mean;
  const auto stdDev = [&](int hint) {
    EXPECT_OK(moxsStdDev_32f(x.data(), 777, &got, hint));
    return got;
  };
  EXPECT_EQ(stdDev(0), 0);
  x[500] = NAN;
  EXPECT_EQ(stdDev(0), 0);
  EXPECT_EQ(stdDev(1), 0);
  ASSERT_OK(moxsMeanStdDev_32f(x.data(), 777, &mean, &got, 0));
  EXPECT_TRUE(std::isnan(mean) && std::isnan(got));
}

enum Kind { Inf, L1, L2 };

// Magnitudes or squares of numbers, and with one lane in two of squared magnitudes or magnitudes.
template <class F>
double realNorm(Kind kind, const std::vector<F>& x, long offset, auto op) {
  const auto term = [&](long k) { return kind == L2 ? x[k] * x[k] : std::fabs(x[k]); };
  const long n = long(x.size()), peel = peelOf(offset, sizeof(F), 16, n);
  const F all = reduced<F>({32 / sizeof(F), Rest::halves}, n, peel, term, op)[0];
  return kind == L2 ? std::sqrt(all) : all;
}

// Roots of single precision are exact unless four numbers without a zero make use of the
// processor's estimate.
template <class F>
void takeRoots(Lanes<F>& m, long peel) {
  const long n = long(m.size()), ofFours = peel + (n - peel) / 4 * 4;
  for (long i = 0; i < n;) {
    const bool four = i >= peel && i < ofFours;
    const bool exact = sizeof(F) == 8 || !four || std::count(&m[i], &m[i] + 4, F(0)) > 0;
    for (const long next = four ? i + 4 : i + 1; i < next; ++i) {
      const float y = _mm_cvtss_f32(_mm_rsqrt_ss(_mm_set_ss(float(m[i])))), t = float(m[i]) * y;
      m[i] = exact ? std::sqrt(m[i]) : F(0.5f * (3.0f - t * y) * t);
    }
  }
}

template <mox::Complex E>
double complexNorm(Kind kind, const std::vector<E>& z, long offset, auto op) {
  using F = mox::Part<E>;
  const long n = long(z.size()), peel = peelOf(offset, sizeof(E), 16, n);
  const bool byParts = kind == L2 && sizeof(F) == 4;
  Lanes<F> terms;
  for (const E& e : z)
    if (byParts)
      terms.insert(terms.end(), {e.re * e.re, e.im * e.im});
    else
      terms.push_back(e.re * e.re + e.im * e.im);
  if (kind == L1) takeRoots(terms, peel);
  const Order order = byParts ? Order{8, Rest::pairs, 8, 2, 4}
                              : Order{32 / sizeof(E), Rest::single, 32 / sizeof(E), 1, 4};
  const long parts = order.parts;
  const auto lanes = reduced<F>(
      order, parts * n, parts * peel, [&](long i) { return terms[i]; }, op);
  const double all = folded(widen(lanes), {4, Rest::single}, op)[0];
  return kind == L1 ? all : std::sqrt(all);
}

template <class E, class D>
void expectNorms(Kind kind, MoxStatus (*norm)(const E*, int, D*),
                 MoxStatus (*normDiff)(const E*, const E*, int, D*)) {
  const auto op = [kind](auto a, auto b) { return kind == Inf ? larger(a, b) : a + b; };
  const auto model = [=](const Operands<E>& o) -> Results {
    const auto normOf = [&](const std::vector<E>& x) {
      if constexpr (mox::Complex<E>)
        return complexNorm(kind, x, o.offset, op);
      else
        return realNorm(kind, x, o.offset, op);
    };
    std::vector<E> x(o.x, o.x + o.len);
    const double own = normOf(x);
    for (long i = 0; i < o.len * mox::partsPerElement<E>; ++i)
      mox::parts(x.data())[i] -= mox::parts(o.y)[i];
    return {own, normOf(x)};
  };
  expectReduction<D, E>(model, 1, norm, normDiff);
}

#define EXPECT_NORMS(kind, types) \
  expectNorms(kind, moxsNorm_##kind##_##types, moxsNormDiff_##kind##_##types)

TEST(Norm, OfEveryKind) {
  EXPECT_NORMS(Inf, 32f);
  EXPECT_NORMS(Inf, 64f);
  EXPECT_NORMS(Inf, 32fc32f);
  EXPECT_NORMS(Inf, 64fc64f);
  EXPECT_NORMS(L1, 32f);
  EXPECT_NORMS(L1, 64f);
  EXPECT_NORMS(L1, 32fc64f);
  EXPECT_NORMS(L1, 64fc64f);
  EXPECT_NORMS(L2, 32f);
  EXPECT_NORMS(L2, 64f);
  EXPECT_NORMS(L2, 32fc64f);
  EXPECT_NORMS(L2, 64fc64f);
}

// The number behind a NaN in its lane takes its place, whatever came before.
TEST(Norm, NaNLeavesALaneWithTheNextNumber) {
  alignas(16) Mox32f x[24] = {};
  x[3] = 9;
  x[8 + 3] = NAN;
  x[16 + 3] = 2;
  x[20] = 1;
  Mox32f got;
  ASSERT_OK(moxsNorm_Inf_32f(x, 24, &got));
  EXPECT_EQ(got, 2);
  ASSERT_OK(moxsNorm_Inf_32f(x, 16, &got));
  EXPECT_EQ(got, 0) << "a NaN that is left in the first accumulator gives way to the second";
}

// Straight products are those of equal parts, crossed ones those of unequal parts.
template <class D, class A, class B>
void expectDot(MoxStatus (*dot)(const A*, const B*, int, D*), Order order,
               Order ofShort = {0, Rest::single}) {
  using F = mox::Part<D>;
  const auto model = [=](const Operands<A, B>& o) -> Results {
    const auto* x = mox::parts(o.x);
    const auto* y = mox::parts(o.y);
    const long repeats = mox::partsPerElement<B> / mox::partsPerElement<A>;
    const auto sum = [&](long cross) {
      return reduced<F>(ofShort.lanes && o.len < order.step ? ofShort : order, order.parts * o.len,
                        0, [=](long k) { return F(x[k / repeats]) * F(y[k ^ cross]); });
    };
    const Lanes<F> straight = sum(0);
    if constexpr (!mox::Complex<A>) return {straight.begin(), straight.end()};
    const Lanes<F> crossed = sum(mox::Complex<A>);
    return {straight[0] - straight[1], crossed[0] + crossed[1]};
  };
  expectReduction<D, A, B>(model, 1, dot);
}

TEST(DotProd, Real) {
  const Order sixteen = {.lanes = 16, .rest = Rest::pairs, .at = 16, .group = 4};
  expectDot(moxsDotProd_32f, sixteen, {2, Rest::last});
  expectDot(moxsDotProd_32f64f, sixteen);
  expectDot(moxsDotProd_64f, {.lanes = 8, .rest = Rest::pairs, .at = 8, .group = 2});
}

TEST(DotProd, Complex) {
  const Order floats = {.lanes = 32, .rest = Rest::folded, .parts = 2},
              doubles = {.lanes = 16, .rest = Rest::folded, .parts = 2};
  expectDot(moxsDotProd_32fc, floats);
  expectDot(moxsDotProd_32f32fc, floats);
  expectDot(moxsDotProd_64fc, doubles);
  expectDot(moxsDotProd_32fc64fc, doubles);
  expectDot(moxsDotProd_64f64fc, doubles);
  expectDot(moxsDotProd_32f32fc64fc, doubles);
}

}  // namespace
