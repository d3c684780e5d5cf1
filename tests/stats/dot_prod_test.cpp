// Dot products of floats against their schemes of lanes where those are defined, else within the
// rounding of their format.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <limits>

#include "stats/reductions.h"

namespace {

using namespace test;

// Four accumulators of `lanes` in all; what is left goes by pairs.
template <class W, class F>
W fourAccumulators(const Operands<F>& o, long lanes) {
  long i = 0;
  const auto product = [&](long k) { return W(o.x[k]) * W(o.y[k]); };
  const auto lane = deal(Lanes<W>(lanes), i, o.len, {{lanes}, {2}, {1}}, product);
  return foldHalves(foldQuarters(lane), 1)[0];
}

float singleDot(const Operands<float>& o) {
  if (o.len > 15) return fourAccumulators<float>(o, 16);
  long i = 0;
  const auto product = [&](long k) { return o.x[k] * o.y[k]; };
  auto lane = deal(Lanes<float>(2), i, o.len, {{2}}, product);
  if (i < o.len) lane[1] += product(i);
  return lane[1] + lane[0];
}

TEST(DotProd, Real) {
  const auto floats = [](const auto& o) { return Results{singleDot(o)}; };
  const auto mixed = [](const auto& o) { return Results{fourAccumulators<double>(o, 16)}; };
  const auto doubles = [](const auto& o) { return Results{fourAccumulators<double>(o, 8)}; };
  expectReduction<Mox32f, Mox32f>(floats, 1, moxsDotProd_32f);
  expectReduction<Mox64f, Mox32f>(mixed, 1, moxsDotProd_32f64f);
  expectReduction<Mox64f, Mox64f>(doubles, 1, moxsDotProd_64f);
}

struct Sum {
  long double value = 0, magnitude = 0;
  void add(long double product) { value += product, magnitude += std::fabs(product); }
};

// Real numbers have no imaginary part; the result does not depend on how a sum is grouped.
template <class A, class B, class D>
void expectClose(MoxStatus (*dot)(const A*, const B*, int, D*)) {
  const auto a = roundingData<A>(9000, 7);
  const auto b = roundingData<B>(9000, 8);
  Sum re, im;
  for (long len = 1; len <= 9000; ++len) {
    const long i = len - 1;
    const long double ar = mox::parts(&a[i])[0], br = b[i].re, bi = b[i].im;
    re.add(ar * br), im.add(ar * bi);
    if constexpr (mox::Complex<A>) re.add(-a[i].im * bi), im.add(a[i].im * br);
    if (len > 70 && len < 9000) continue;
    D got;
    ASSERT_EQ(dot(a.data(), b.data(), int(len), &got), moxOk);
    // A lane has at most 5 + len / 4 roundings, of which few are as large as the bound.
    const long double unit = std::numeric_limits<mox::Part<D>>::epsilon() / 2 * (8.0L + len / 16);
    ASSERT_NEAR(got.re, re.value, re.magnitude * unit) << "length " << len;
    ASSERT_NEAR(got.im, im.value, im.magnitude * unit) << "length " << len;
  }
}

TEST(DotProd, Complex) {
  expectClose(moxsDotProd_32fc);
  expectClose(moxsDotProd_64fc);
  expectClose(moxsDotProd_32fc64fc);
  expectClose(moxsDotProd_32f32fc);
  expectClose(moxsDotProd_64f64fc);
  expectClose(moxsDotProd_32f32fc64fc);
}

}  // namespace
