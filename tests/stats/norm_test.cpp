// Norms of floating vectors and of differences against lanes in plain code, bit for bit.
#include <gtest/gtest.h>
#include <immintrin.h>
#include <moxsp.h>

#include <cmath>

#include "stats/lanes.h"
#include "stats/placed.h"

namespace {

using namespace test;

enum Kind { Inf, L1, L2 };

// The elements, or their differences to others, and the peel of the first source.
template <class E>
struct Elements {
  std::vector<E> x;
  long peel;
};

template <class F>
F realNorm(Kind kind, const Elements<F>& e) {
  const auto op = [kind](F a, F b) { return kind == Inf ? larger(a, b) : a + b; };
  const long n = long(e.x.size()), lanes = 32 / sizeof(F);
  Lanes<F> lane(lanes);
  const auto add = [&](long j, long i) {
    lane[j] = op(lane[j], kind == L2 ? e.x[i] * e.x[i] : std::fabs(e.x[i]));
  };
  long i = 0;
  for (; i < e.peel; ++i) add(0, i);
  for (; n - i >= lanes; i += lanes)
    for (long j = 0; j < lanes; ++j) add(j, i + j);
  for (long odd = lanes / 2; odd > 0; odd /= 2)
    if ((n - i) & odd)
      for (long j = 0; j < odd; ++j) add(j, i++);
  const F folded = foldHalves(lane, 1, op)[0];
  return kind == L2 ? std::sqrt(folded) : folded;
}

template <class E>
mox::Part<E> squared(E z) {
  return z.re * z.re + z.im * z.im;
}

// One lane for each number of a group, single numbers to lane 0.
template <class E, class Op, class Group>
Lanes<mox::Part<E>> groups(const Elements<E>& e, long lanes, Op op, Group group) {
  Lanes<mox::Part<E>> lane(lanes);
  const long n = long(e.x.size());
  long i = 0;
  for (; i < e.peel; ++i) lane[0] = op(lane[0], group(&e.x[i], 1)[0]);
  for (; n - i >= lanes; i += lanes) {
    const auto terms = group(&e.x[i], lanes);
    for (long j = 0; j < lanes; ++j) lane[j] = op(lane[j], terms[j]);
  }
  for (; i < n; ++i) lane[0] = op(lane[0], group(&e.x[i], 1)[0]);
  return lane;
}

// Exact roots unless four numbers without a zero make use of the processor's estimate.
Lanes<float> quickMagnitudes(const Mox32fc* z, long count) {
  Lanes<float> m(count);
  bool zero = false;
  for (long j = 0; j < count; ++j) m[j] = squared(z[j]), zero |= m[j] == 0;
  for (float& x : m)
    if (count == 1 || zero) {
      x = std::sqrt(x);
    } else {
      const float y = _mm_cvtss_f32(_mm_rsqrt_ss(_mm_set_ss(x))), t = x * y;
      x = 0.5f * (3.0f - t * y) * t;
    }
  return m;
}

double complexNorm(Kind kind, const Elements<Mox32fc>& e) {
  const long n = long(e.x.size());
  const auto squares = [](const Mox32fc* z, long count) {
    Lanes<float> m;
    for (long j = 0; j < count; ++j) m.push_back(squared(z[j]));
    return m;
  };
  if (kind == Inf) return std::sqrt(foldHalves(groups(e, 4, larger, squares), 1, larger)[0]);
  if (kind == L1) return foldHalves(widen(groups(e, 4, plus, quickMagnitudes)), 1)[0];
  Lanes<float> lane(8);
  const auto add = [&](long j, Mox32fc z) {
    lane[j] += z.re * z.re;
    lane[j + 1] += z.im * z.im;
  };
  long i = 0;
  for (; i < e.peel; ++i) add(0, e.x[i]);
  for (; n - i >= 4; i += 4)
    for (long j = 0; j < 4; ++j) add(2 * j, e.x[i + j]);
  for (; i < n; ++i) add(0, e.x[i]);
  return std::sqrt(foldHalves(widen(foldHalves(lane, 4)), 1)[0]);
}

double complexNorm(Kind kind, const Elements<Mox64fc>& e) {
  const auto terms = [kind](const Mox64fc* z, long count) {
    Lanes<double> m;
    for (long j = 0; j < count; ++j)
      m.push_back(kind == L1 ? std::sqrt(squared(z[j])) : squared(z[j]));
    return m;
  };
  if (kind == Inf) return std::sqrt(foldHalves(groups(e, 2, larger, terms), 1, larger)[0]);
  const double sum = foldHalves(groups(e, 2, plus, terms), 1)[0];
  return kind == L1 ? sum : std::sqrt(sum);
}

template <class E>
double model(Kind kind, const Elements<E>& e) {
  if constexpr (mox::Complex<E>)
    return complexNorm(kind, e);
  else
    return double(realNorm<E>(kind, e));
}

template <class E, class D>
void sweep(Kind kind, MoxStatus (*norm)(const E*, int, D*),
           MoxStatus (*normDiff)(const E*, const E*, int, D*)) {
  auto data = roundingData<E>(65536 + 31, 3);
  const auto others = roundingData<E>(65536 + 31, 4);
  for (std::size_t i = 5; i < data.size(); i += 37) data[i] = {};
  atLengthsAndOffsets(1, [&](long len, long offset) {
    Elements<E> e{{data.begin(), data.begin() + len}, peelOf(offset, 16, sizeof(E), len)};
    const Placed<E> src(e.x, offset),
        other({others.begin(), others.begin() + len}, 3 * offset % 40);
    D got;
    ASSERT_EQ(norm(src, int(len), &got), moxOk);
    ASSERT_TRUE(same(got, D(model(kind, e)), at(len, offset)));
    ASSERT_EQ(normDiff(src, other, int(len), &got), moxOk);
    for (long i = 0; i < len; ++i)
      for (int p = 0; p < mox::partsPerElement<E>; ++p)
        mox::parts(&e.x[i])[p] -= mox::parts(&others[i])[p];
    ASSERT_TRUE(same(got, D(model(kind, e)), at(len, offset) + ", difference"));
  });
}

TEST(Norm, InfFloats) { sweep(Inf, moxsNorm_Inf_32f, moxsNormDiff_Inf_32f); }
TEST(Norm, InfDoubles) { sweep(Inf, moxsNorm_Inf_64f, moxsNormDiff_Inf_64f); }
TEST(Norm, InfComplexFloats) { sweep(Inf, moxsNorm_Inf_32fc32f, moxsNormDiff_Inf_32fc32f); }
TEST(Norm, InfComplexDoubles) { sweep(Inf, moxsNorm_Inf_64fc64f, moxsNormDiff_Inf_64fc64f); }
TEST(Norm, L1Floats) { sweep(L1, moxsNorm_L1_32f, moxsNormDiff_L1_32f); }
TEST(Norm, L1Doubles) { sweep(L1, moxsNorm_L1_64f, moxsNormDiff_L1_64f); }
TEST(Norm, L1ComplexFloats) { sweep(L1, moxsNorm_L1_32fc64f, moxsNormDiff_L1_32fc64f); }
TEST(Norm, L1ComplexDoubles) { sweep(L1, moxsNorm_L1_64fc64f, moxsNormDiff_L1_64fc64f); }
TEST(Norm, L2Floats) { sweep(L2, moxsNorm_L2_32f, moxsNormDiff_L2_32f); }
TEST(Norm, L2Doubles) { sweep(L2, moxsNorm_L2_64f, moxsNormDiff_L2_64f); }
TEST(Norm, L2ComplexFloats) { sweep(L2, moxsNorm_L2_32fc64f, moxsNormDiff_L2_32fc64f); }
TEST(Norm, L2ComplexDoubles) { sweep(L2, moxsNorm_L2_64fc64f, moxsNormDiff_L2_64fc64f); }

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
