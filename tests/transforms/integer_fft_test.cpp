// Transforms of integers against a transform in long double, within the stated bound.
#include <gtest/gtest.h>
#include <moxsp.h>

#include <algorithm>
#include <climits>
#include <cmath>

#include "transforms/fft_data.h"

namespace {

using test::Complex;
using test::Layout;

// The elements of samples and of spectra, how they lie, and the functions.
template <class T_, class S_, bool isReal, Layout layout, auto init, auto free, auto fwd, auto inv,
          auto fwdInPlace, auto invInPlace>
struct Form {
  using T = T_;
  using S = S_;
  static constexpr bool real = isReal, inPlace = !std::is_same_v<decltype(fwdInPlace), int>;
  static constexpr bool split = !real && !mox::Complex<T>;
  static constexpr auto initAlloc = init;
  static constexpr auto release = free;
  static constexpr bool isSingle = sizeof(mox::Part<T>) == 2;
  static constexpr bool inverseIsExact = sizeof(T) == sizeof(S);  // else parts become floats

  static long samples(long n) { return split ? 2 * n : n; }
  static long places(long n) { return real ? test::packedSize(layout, n) : samples(n); }
  template <class A>
  static Complex at(const std::vector<A>& v, long n, long i) {
    if constexpr (mox::Complex<A>)
      return {(long double)v[i].re, (long double)v[i].im};
    else if constexpr (split)
      return {(long double)v[i], (long double)v[n + i]};
    else
      return (long double)v[i];
  }
  static Complex bin(const std::vector<S>& v, long n, long k) {
    if constexpr (!real) return at(v, n, k);
    if (2 * k > n) return std::conj(bin(v, n, n - k));
    const long place = test::realPlace(layout, n, k);
    const bool hasIm = k != 0 && 2 * k != n;
    return {(long double)mox::parts(v.data())[place],
            hasIm ? (long double)mox::parts(v.data())[place + 1] : 0};
  }
  template <auto f, class A, class B>
  static MoxStatus call(const A* src, B* dst, long n, const MoxsFFTSpec* spec, int factor,
                        Mox8u* buffer) {
    if constexpr (split)
      return f(src, src + n, dst, dst + n, spec, factor, buffer);
    else
      return f(src, dst, spec, factor, buffer);
  }
  template <auto f, class A>
  static MoxStatus callInPlace(A* data, [[maybe_unused]] long n, const MoxsFFTSpec* spec,
                               int factor, Mox8u* buffer) {
    if constexpr (!inPlace)
      return moxOk;
    else if constexpr (split)
      return f(data, data + n, spec, factor, buffer);
    else
      return f(data, spec, factor, buffer);
  }
  static MoxStatus forward(const T* src, S* dst, long n, const MoxsFFTSpec* spec, int factor,
                           Mox8u* buffer = nullptr) {
    return call<fwd>(src, dst, n, spec, factor, buffer);
  }
  static MoxStatus inverse(const S* src, T* dst, long n, const MoxsFFTSpec* spec, int factor,
                           Mox8u* buffer = nullptr) {
    return call<inv>(src, dst, n, spec, factor, buffer);
  }
};

#define OBJECT(kind) moxsFFTInitAlloc_##kind, moxsFFTFree_##kind
#define RUNS(to, back, t)                                                                   \
  moxsFFTFwd_##to##_##t##_Sfs, moxsFFTInv_##back##_##t##_Sfs, moxsFFTFwd_##to##_##t##_ISfs, \
      moxsFFTInv_##back##_##t##_ISfs
using C16sc = Form<Mox16sc, Mox16sc, false, Layout::perm, OBJECT(C_16sc), RUNS(CToC, CToC, 16sc)>;
using C16s = Form<Mox16s, Mox16s, false, Layout::perm, OBJECT(C_16s), RUNS(CToC, CToC, 16s)>;
using C32sc = Form<Mox32sc, Mox32sc, false, Layout::perm, OBJECT(C_32sc), RUNS(CToC, CToC, 32sc)>;
using C32s = Form<Mox32s, Mox32s, false, Layout::perm, OBJECT(C_32s), RUNS(CToC, CToC, 32s)>;
using Perm = Form<Mox16s, Mox16s, true, Layout::perm, OBJECT(R_16s), RUNS(RToPerm, PermToR, 16s)>;
using Pack = Form<Mox16s, Mox16s, true, Layout::pack, OBJECT(R_16s), RUNS(RToPack, PackToR, 16s)>;
using Ccs = Form<Mox16s, Mox16s, true, Layout::ccs, OBJECT(R_16s), RUNS(RToCCS, CCSToR, 16s)>;
using Ccs32 = Form<Mox32s, Mox32s, true, Layout::ccs, OBJECT(R_32s), RUNS(RToCCS, CCSToR, 32s)>;
using Mixed = Form<Mox16s, Mox32s, true, Layout::ccs, OBJECT(R_16s32s),
                   moxsFFTFwd_RToCCS_16s32s_Sfs, moxsFFTInv_CCSToR_32s16s_Sfs, 0, 0>;

template <class T>
class IntegerFft : public testing::Test {
 protected:
  MoxsFFTSpec* spec = nullptr;
  void make(int order, int flag, int hint = 0) {
    if (spec) T::release(spec);
    ASSERT_EQ(T::initAlloc(&spec, order, flag, hint), moxOk);
  }
  void TearDown() override {
    if (spec) T::release(spec);
  }
};
using Forms = testing::Types<C16sc, C16s, C32sc, C32s, Perm, Pack, Ccs, Ccs32, Mixed>;
TYPED_TEST_SUITE(IntegerFft, Forms);

// got = clamp(factor * exact), rounded, within the bound; exactly where the bound is 0.
template <class P>
void expectNear(P got, long double scaled, long double bound) {
  const auto limits = [](long double v) {
    return std::clamp(v, (long double)std::numeric_limits<P>::min(),
                      (long double)std::numeric_limits<P>::max());
  };
  if (bound == 0)
    ASSERT_EQ(got, std::nearbyint(limits(scaled)));
  else
    ASSERT_LE(std::fabs(got - limits(scaled)), 0.5L + bound);
}

enum class Signal { noise, tone, square, impulse };

template <class E>
std::vector<E> signalOf(Signal kind, long count) {
  using P = mox::Part<E>;
  static test::Random random;
  auto x = random.vector<E>(count);
  const double full = std::numeric_limits<P>::max();
  for (long i = 0; i < count && kind != Signal::noise; ++i)
    for (int part = 0; part < mox::partsPerElement<E>; ++part)
      mox::parts(&x[i])[part] = kind == Signal::tone ? P(full * std::cos(2 * M_PI * 0.1 * i - part))
                                : kind == Signal::square ? P(i / 3 % 2 ? -full : full)
                                                         : P(i == 0 ? full : 0);
  return x;
}

TYPED_TEST(IntegerFft, IsTheRoundedTransformWithEveryFlagAndFactor) {
  using T = TypeParam;
  SCOPED_TRACE(test::seedNote());
  const long double eps = T::isSingle ? 0x1p-24L : 0x1p-53L;
  for (const int order : {0, 1, 2, 3, 4, 5, 6, 7, 8, 10, 13, 16, 19})
    for (const Signal kind : {Signal::noise, Signal::tone, Signal::square, Signal::impulse}) {
      if (order > 10 && kind != Signal::noise) continue;
      const long n = 1L << order;
      // What is transformed: samples, or a spectrum.
      const auto x = signalOf<typename T::T>(kind, T::samples(n));
      const auto y = signalOf<typename T::S>(kind, T::places(n));
      std::vector<Complex> in(n), spectrum(n);
      long double norm = 0, spectrumNorm = 0;
      for (long i = 0; i < n; ++i) {
        norm += std::norm(in[i] = T::at(x, n, i));
        spectrumNorm += std::norm(spectrum[i] = T::bin(y, n, i));
      }
      const auto X = test::exactTransform(in), Y = test::exactTransform(spectrum, true);
      const auto most = [](const auto& v) {
        return std::abs(*std::ranges::max_element(v, {}, [](Complex z) { return std::abs(z); }));
      };
      for (const auto& flag : test::flags) {
        if (order > 7 && &flag != &test::flags[order % 4]) continue;
        for (const int factor : {0, order / 2, order, -3, 40, 64, INT_MAX, INT_MIN}) {
          if (order > 10 && factor != order / 2) continue;
          SCOPED_TRACE(testing::Message() << "order " << order << " signal " << int(kind)
                                          << " flag " << flag.value << " factor " << factor);
          this->make(order, flag.value, factor & 2);
          const bool exact = order <= 2 && !(order == 1 && flag.value == 4);
          const auto scale = [&](double power) {
            return std::pow((long double)n, power) *
                   std::exp2(-(long double)std::clamp(factor, -300, 300));
          };
          const auto bound = [&](long double s, const auto& result, long double ofSource,
                                 bool mayBeExact = true) {
            if (exact && mayBeExact) return 0.0L;
            return 4 * eps * s * (std::sqrt((long double)order * ofSource) + most(result));
          };
          const long double up = scale(flag.forward), down = scale(flag.inverse);

          std::vector<typename T::S> forward(T::places(n));
          ASSERT_EQ(T::forward(x.data(), forward.data(), n, this->spec, factor), moxOk);
          const long double upBound = bound(up, X, norm);
          for (long k = 0; k < (T::real ? n / 2 + 1 : n); ++k) {
            const Complex got = T::bin(forward, n, k);
            expectNear(mox::Part<typename T::S>(got.real()), up * X[k].real(), upBound);
            if (!T::real || (k != 0 && 2 * k != n))
              expectNear(mox::Part<typename T::S>(got.imag()), up * X[k].imag(), upBound);
          }
          std::vector<typename T::T> inverse(T::samples(n));
          ASSERT_EQ(T::inverse(y.data(), inverse.data(), n, this->spec, factor), moxOk);
          const long double downBound = bound(down, Y, spectrumNorm, T::inverseIsExact);
          for (long i = 0; i < n; ++i) {
            const Complex got = T::at(inverse, n, i);
            using P = mox::Part<typename T::T>;
            expectNear(P(got.real()), down * Y[i].real(), downBound);
            if (!T::real) expectNear(P(got.imag()), down * Y[i].imag(), downBound);
          }
          if (this->HasFatalFailure()) return;
        }
      }
    }
}

TEST(IntegerFftSizes, AreThoseOfFloatsAndRoomForTheNumbers) {
  const struct {
    decltype(moxsFFTGetSize_C_16sc)*ours, *ofFloats;
    int top, perNumber, more;
    bool bare;
  } kinds[] = {{moxsFFTGetSize_C_16sc, moxsFFTGetSize_C_32fc, 28, 8, 0, true},
               {moxsFFTGetSize_C_16s, moxsFFTGetSize_C_32f, 28, 8, 0, true},
               {moxsFFTGetSize_R_16s, moxsFFTGetSize_R_32f, 29, 4, 8, true},
               {moxsFFTGetSize_C_32sc, moxsFFTGetSize_C_64fc, 27, 16, 0, false},
               {moxsFFTGetSize_C_32s, moxsFFTGetSize_C_64f, 27, 16, 0, false},
               {moxsFFTGetSize_R_32s, moxsFFTGetSize_R_64f, 28, 8, 16, false},
               {moxsFFTGetSize_R_16s32s, moxsFFTGetSize_R_32f, 29, 4, 8, false}};
  for (const auto& kind : kinds)
    for (int order = 0; order <= kind.top; ++order) {
      SCOPED_TRACE(testing::Message() << "order " << order);
      int spec, init, work, floatSpec, floatInit, floatWork;
      ASSERT_EQ(kind.ours(order, 8, 0, &spec, &init, &work), moxOk);
      ASSERT_EQ(kind.ofFloats(order, 8, 0, &floatSpec, &floatInit, &floatWork), moxOk);
      const bool bare = kind.bare && order == 0;
      EXPECT_EQ(spec, bare ? 116 : floatSpec + 128);
      EXPECT_EQ(init, floatInit);
      const long area = ((long(kind.perNumber) << order) + kind.more + 63) / 64 * 64;
      EXPECT_EQ(work, bare                ? 0
                      : order == kind.top ? floatWork
                                          : floatWork + area + (floatWork ? 0 : 64));
    }
}

}  // namespace
