// Norms of floating vectors and of differences against their schemes of lanes, bit for bit.
#include <gtest/gtest.h>
#include <immintrin.h>
#include <moxsp.h>

#include "stats/reductions.h"

namespace {

using namespace test;

enum Kind { Inf, L1, L2 };

template <class F>
double realNorm(Kind kind, const std::vector<F>& x, long peel) {
  const auto op = [kind](F a, F b) { return kind == Inf ? larger(a, b) : a + b; };
  const auto term = [&](long k) { return kind == L2 ? x[k] * x[k] : std::fabs(x[k]); };
  constexpr long lanes = 32 / sizeof(F);
  long i = 0;
  auto lane = deal(Lanes<F>(lanes), i, peel, {{1}}, term, op);
  lane = deal(lane, i, long(x.size()), halving(lanes), term, op);
  const F folded = foldHalves(lane, 1, op)[0];
  return kind == L2 ? std::sqrt(folded) : folded;
}

template <class E>
mox::Part<E> squared(E z) {
  return z.re * z.re + z.im * z.im;
}

Lanes<double> magnitudes(const std::vector<Mox64fc>& z, long) {
  Lanes<double> m;
  for (const Mox64fc& e : z) m.push_back(std::sqrt(squared(e)));
  return m;
}

// Exact roots unless four numbers without a zero make use of the processor's estimate.
Lanes<float> magnitudes(const std::vector<Mox32fc>& z, long peel) {
  Lanes<float> m;
  for (const Mox32fc& e : z) m.push_back(squared(e));
  const long n = long(m.size()), ofFours = peel + (n - peel) / 4 * 4;
  for (long i = 0; i < n;) {
    const bool four = i >= peel && i < ofFours;
    const long next = four ? i + 4 : i + 1;
    const bool exact = !four || std::count(&m[i], &m[i] + 4, 0.0f) > 0;
    for (; i < next; ++i) {
      const float y = _mm_cvtss_f32(_mm_rsqrt_ss(_mm_set_ss(m[i]))), t = m[i] * y;
      m[i] = exact ? std::sqrt(m[i]) : 0.5f * (3.0f - t * y) * t;
    }
  }
  return m;
}

// Lanes of 16 bytes of magnitudes or squares, and single elements to the first; the squares of
// single precision are summed by parts.
template <class E>
double complexNorm(Kind kind, const std::vector<E>& z, long peel) {
  using F = mox::Part<E>;
  const bool byParts = kind == L2 && sizeof(F) == 4;
  const long unit = byParts ? 2 : 1, lanes = (byParts ? 8 : 32 / long(sizeof(E)));
  const auto op = [kind](auto a, auto b) { return kind == Inf ? larger(a, b) : a + b; };
  const Lanes<F> m = kind == L1 ? magnitudes(z, peel) : Lanes<F>();
  const F* parts = mox::parts(z.data());
  const auto term = [&](long k) {
    return byParts ? parts[k] * parts[k] : kind == L1 ? m[k] : squared(z[k]);
  };
  long i = 0;
  auto lane = deal(Lanes<F>(lanes), i, unit * peel, {{unit}}, term, op);
  lane = deal(lane, i, unit * long(z.size()), {{lanes}, {unit}}, term, op);
  const double folded = foldHalves(widen(foldHalves(lane, 4, op)), 1, op)[0];
  return kind == L1 ? folded : std::sqrt(folded);
}

template <class E, class D>
void expectNorms(Kind kind, MoxStatus (*norm)(const E*, int, D*),
                 MoxStatus (*normDiff)(const E*, const E*, int, D*)) {
  const auto model = [kind](const Operands<E>& o) -> Results {
    const auto normOf = [&](const std::vector<E>& x) {
      if constexpr (mox::Complex<E>)
        return complexNorm(kind, x, o.peel(16));
      else
        return realNorm(kind, x, o.peel(16));
    };
    std::vector<E> x(o.x, o.x + o.len);
    const double own = normOf(x);
    for (long i = 0; i < o.len * mox::partsPerElement<E>; ++i)
      mox::parts(x.data())[i] -= mox::parts(o.y)[i];
    return {own, normOf(x)};
  };
  expectReduction<D, E>(model, 1, norm, normDiff);
}

TEST(Norm, Inf) {
  expectNorms(Inf, moxsNorm_Inf_32f, moxsNormDiff_Inf_32f);
  expectNorms(Inf, moxsNorm_Inf_64f, moxsNormDiff_Inf_64f);
  expectNorms(Inf, moxsNorm_Inf_32fc32f, moxsNormDiff_Inf_32fc32f);
  expectNorms(Inf, moxsNorm_Inf_64fc64f, moxsNormDiff_Inf_64fc64f);
}
TEST(Norm, L1) {
  expectNorms(L1, moxsNorm_L1_32f, moxsNormDiff_L1_32f);
  expectNorms(L1, moxsNorm_L1_64f, moxsNormDiff_L1_64f);
  expectNorms(L1, moxsNorm_L1_32fc64f, moxsNormDiff_L1_32fc64f);
  expectNorms(L1, moxsNorm_L1_64fc64f, moxsNormDiff_L1_64fc64f);
}
TEST(Norm, L2) {
  expectNorms(L2, moxsNorm_L2_32f, moxsNormDiff_L2_32f);
  expectNorms(L2, moxsNorm_L2_64f, moxsNormDiff_L2_64f);
  expectNorms(L2, moxsNorm_L2_32fc64f, moxsNormDiff_L2_32fc64f);
  expectNorms(L2, moxsNorm_L2_64fc64f, moxsNormDiff_L2_64fc64f);
}

// The number behind a NaN in its lane takes its place, whatever came before.
TEST(Norm, NaNLeavesALaneWithTheNextNumber) {
  alignas(16) Mox32f x[24] = {};
  x[3] = 9;
  x[8 + 3] = NAN;
  x[16 + 3] = 2;
  x[20] = 1;
  Mox32f got;
  ASSERT_EQ(moxsNorm_Inf_32f(x, 24, &got), moxOk);
  EXPECT_EQ(got, 2);
  ASSERT_EQ(moxsNorm_Inf_32f(x, 16, &got), moxOk);
  EXPECT_EQ(got, 0) << "a NaN that is left in the first accumulator gives way to the second";
}

}  // namespace
