// Dot products of floats against lanes in plain code where those are defined, else within the
// rounding of their format.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <cmath>
#include <limits>

#include "stats/lanes.h"
#include "stats/placed.h"

namespace {

using namespace test;

// Four accumulators of `group` lanes; (0 + 1) + (2 + 3), then halves.
template <class W, class F>
W fourAccumulators(const F* a, const F* b, long n, std::size_t group) {
  Lanes<W> lane(4 * group);
  const long step = long(lane.size());
  long i = 0;
  for (; n - i >= step; i += step)
    for (long j = 0; j < step; ++j) lane[j] += W(a[i + j]) * W(b[i + j]);
  for (; n - i >= 2; i += 2)
    for (long j = 0; j < 2; ++j) lane[j] += W(a[i + j]) * W(b[i + j]);
  if (i < n) lane[0] += W(a[i]) * W(b[i]);
  Lanes<W> sum(group);
  for (std::size_t j = 0; j < group; ++j)
    sum[j] = (lane[j] + lane[group + j]) + (lane[2 * group + j] + lane[3 * group + j]);
  return foldHalves(sum, 1)[0];
}

float singleDot(const float* a, const float* b, long n) {
  if (n > 15) return fourAccumulators<float>(a, b, n, 4);
  float lane[2] = {};
  long i = 0;
  for (; n - i >= 2; i += 2)
    for (long j = 0; j < 2; ++j) lane[j] += a[i + j] * b[i + j];
  if (i < n) lane[1] += a[i] * b[i];
  return lane[1] + lane[0];
}

template <class F, class D, class Model>
void sweepExactly(MoxStatus (*dot)(const F*, const F*, int, D*), Model model) {
  const auto a = roundingData<F>(65536 + 31, 5), b = roundingData<F>(65536 + 31, 6);
  atLengthsAndOffsets(1, [&](long len, long offset) {
    const Placed<F> x({a.begin(), a.begin() + len}, offset);
    const Placed<F> y({b.begin(), b.begin() + len}, 5 * offset % 48);
    D got;
    ASSERT_EQ(dot(x, y, int(len), &got), moxOk);
    ASSERT_TRUE(same(got, D(model(a.data(), b.data(), len)), at(len, offset)));
  });
}

TEST(DotProd, Floats) { sweepExactly<Mox32f, Mox32f>(moxsDotProd_32f, singleDot); }
TEST(DotProd, FloatsInDouble) {
  sweepExactly<Mox32f, Mox64f>(moxsDotProd_32f64f, [](auto a, auto b, long n) {
    return fourAccumulators<double>(a, b, n, 4);
  });
}
TEST(DotProd, Doubles) {
  sweepExactly<Mox64f, Mox64f>(
      moxsDotProd_64f, [](auto a, auto b, long n) { return fourAccumulators<double>(a, b, n, 2); });
}

struct Part {
  long double sum = 0, magnitude = 0;
  void add(long double product) { sum += product, magnitude += std::fabs(product); }
};

// Real numbers have no imaginary part; the result does not depend on how a sum is grouped.
template <class A, class B, class D>
void sweepComplex(MoxStatus (*dot)(const A*, const B*, int, D*)) {
  using F = mox::Part<D>;
  const auto a = roundingData<A>(9000, 7);
  const auto b = roundingData<B>(9000, 8);
  const auto check = [&](long len, long offset) {
    Part re, im;
    for (long i = 0; i < len; ++i) {
      const long double ar = mox::parts(&a[i])[0], br = b[i].re, bi = b[i].im;
      re.add(ar * br), im.add(ar * bi);
      if constexpr (mox::Complex<A>) re.add(-a[i].im * (long double)(bi)), im.add(a[i].im * br);
    }
    const Placed<A> x({a.begin(), a.begin() + len}, offset);
    const Placed<B> y({b.begin(), b.begin() + len}, 5 * offset % 48);
    D got;
    ASSERT_EQ(dot(x, y, int(len), &got), moxOk);
    // A lane has at most 5 + len / 4 roundings, of which few are as large as the bound.
    const long double unit = std::numeric_limits<F>::epsilon() / 2 * (8.0L + len / 16);
    ASSERT_NEAR(got.re, re.sum, re.magnitude * unit) << at(len, offset);
    ASSERT_NEAR(got.im, im.sum, im.magnitude * unit) << at(len, offset);
  };
  for (long len = 1; len <= 70; ++len)
    for (long offset = 0; offset < 33; ++offset) check(len, offset);
  check(9000, 4);
}

TEST(DotProd, Complex) {
  sweepComplex<Mox32fc, Mox32fc, Mox32fc>(moxsDotProd_32fc);
  sweepComplex<Mox64fc, Mox64fc, Mox64fc>(moxsDotProd_64fc);
  sweepComplex<Mox32fc, Mox32fc, Mox64fc>(moxsDotProd_32fc64fc);
}
TEST(DotProd, RealWithComplex) {
  sweepComplex<Mox32f, Mox32fc, Mox32fc>(moxsDotProd_32f32fc);
  sweepComplex<Mox64f, Mox64fc, Mox64fc>(moxsDotProd_64f64fc);
  sweepComplex<Mox32f, Mox32fc, Mox64fc>(moxsDotProd_32f32fc64fc);
}

}  // namespace
