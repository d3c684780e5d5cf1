// FFTs, DFTs and out-of-order DFTs of all forms against the defining sum, and back.
#include <bit>

#include "support/accuracy.h"
#include "support/guarded_array.h"
#include "transforms/dft_analysis.h"
#include "transforms/forms.h"

namespace {

using test::Complex;
using test::Flag;
using test::Layout;
using test::Noise;
using test::Object;
using test::Random;

std::vector<long> range(long first, long last) {
  std::vector<long> all;
  for (long i = first; i <= last; ++i) all.push_back(i);
  return all;
}

// Relative errors in the L2 norm.
template <class F>
constexpr long double unit = sizeof(F) == 4 ? 3e-7L : 6e-16L;

template <class Form, int kindIndex>
struct Fft : Form {
  using F = mox::Part<typename Form::T>;
  static constexpr auto& kind = test::fftKinds[kindIndex];
  static constexpr auto& life = kind.life;
  static int sizeOf(long n) { return std::bit_width(unsigned(n)) - 1; }
  static long double bound(long n) { return unit<F> * std::sqrt(sizeOf(n) + 1.0L); }
  // Transforms in the cache, in one area, and beyond them: complex ones from 2^19 or 2^18 on.
  static constexpr int largeOrder = sizeof(F) == 4 ? 19 : 18;
  static std::vector<long> orders(std::vector<long> some) {
    for (long& order : some) order = 1L << order;
    return some;
  }
  static std::vector<long> lengths() {
    auto some = range(0, 12);
    for (const int order : {14, 17, largeOrder - 1, largeOrder, largeOrder + 1})
      some.push_back(order);
    return orders(some);
  }
  static std::vector<long> longLengths() { return orders(range(13, largeOrder + 4 + Form::real)); }
  static std::vector<long> boundedLengths() {
    return orders({0, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 17, 18, 19, 20, 21});
  }
  static const MoxsFFTSpec* init(long n, Mox8u* memory, Mox8u* scratch) {
    MoxsFFTSpec* spec = nullptr;
    EXPECT_OK(kind.init(&spec, sizeOf(n), 8, 0, memory, scratch));
    return spec;
  }
};

template <class Form, int kindIndex>
struct Dft : Form {
  using F = mox::Part<typename Form::T>;
  static constexpr auto& kind = test::dftKinds[kindIndex];
  static constexpr auto& life = kind.life;
  static int sizeOf(long n) { return int(n); }
  static long double bound(long n) {
    using namespace mox::transforms;
    const bool chirp = analyseDft<F>(int(n), Form::real).method == DftMethod::chirp;
    return unit<F> * std::sqrt(std::log2(std::max(n, 2L))) * (chirp ? 4 : 1);
  }
  static std::vector<long> lengths() { return range(1, 600); }
  // Products of small primes, primes, their powers and doubles, and chirps around the lengths of
  // convolutions that are tabulated.
  static std::vector<long> longLengths() {
    return {1000,  1009,  1024,  1331,  1500,  2000,   2002,   2018,   2401,   3125,
            4001,  4096,  4097,  4410,  8191,  8194,   9973,   10080,  16384,  19683,
            28561, 51200, 65521, 65536, 83521, 107811, 131042, 151200, 177147, 200000};
  }
  static std::vector<long> boundedLengths() {
    return {1,   16,  17,  18,  32,   34,   51,   53,   60,   81,   83,
            106, 212, 360, 509, 1000, 1009, 2002, 4096, 8194, 19683};
  }
  static const MoxsDFTSpec* init(long n, Mox8u* memory, Mox8u* scratch) {
    EXPECT_OK(kind.init(int(n), 8, 0, memory, scratch));
    return reinterpret_cast<const MoxsDFTSpec*>(memory);
  }
};

// Digits by the prime factors up to 13, in rising order, become those of the place.
struct Reversed {
  long place = 0, rest;

  Reversed(long k, long n) : rest(n) {
    for (const long p : {2, 3, 5, 7, 11, 13})
      for (; rest % p == 0; k /= p) place += k % p * (rest /= p);
    place += k;
  }
};

template <class Form, const test::Life<MoxsDFTOutOrdSpec>& life_>
struct OutOrd : Form {
  using C = typename Form::T;
  static constexpr auto& life = life_;
  static int sizeOf(long n) { return int(n); }
  static long double bound(long n) {
    const long double eps = sizeof(C) == 8 ? 0x1p-24L : 0x1p-53L;
    return 4 * eps * std::sqrt(1 + std::log2((long double)n)) * (Reversed(0, n).rest > 1 ? 4 : 1);
  }
  static std::vector<long> lengths() { return range(1, 600); }
  static std::vector<long> longLengths() {
    return {1001, 2048, 5040, 8191, 10080, 13122, 16384, 65536, 131072, 131342, 720720};
  }
  static Complex bin(const C* p, long n, long k) { return Form::bin(p, n, Reversed(k, n).place); }
};

#define FORM(family, T, layout, to, back, t) \
  test::Form<T, T, Layout::layout, moxs##family##Fwd_##to##_##t, moxs##family##Inv_##back##_##t>
#define FORMS(Case, family)                                       \
  Case<FORM(family, Mox32fc, complex, CToC, CToC, 32fc), 0>,      \
      Case<FORM(family, Mox32f, complex, CToC, CToC, 32f), 1>,    \
      Case<FORM(family, Mox32f, perm, RToPerm, PermToR, 32f), 2>, \
      Case<FORM(family, Mox32f, pack, RToPack, PackToR, 32f), 2>, \
      Case<FORM(family, Mox32f, ccs, RToCCS, CCSToR, 32f), 2>,    \
      Case<FORM(family, Mox64fc, complex, CToC, CToC, 64fc), 3>,  \
      Case<FORM(family, Mox64f, complex, CToC, CToC, 64f), 4>,    \
      Case<FORM(family, Mox64f, perm, RToPerm, PermToR, 64f), 5>, \
      Case<FORM(family, Mox64f, pack, RToPack, PackToR, 64f), 5>, \
      Case<FORM(family, Mox64f, ccs, RToCCS, CCSToR, 64f), 5>
constexpr test::Life<MoxsDFTOutOrdSpec> outOrd32fc = TRANSFORM_LIFE(DFTOutOrd, C_32fc),
                                        outOrd64fc = TRANSFORM_LIFE(DFTOutOrd, C_64fc);
using OutOrd32fc = OutOrd<FORM(DFTOutOrd, Mox32fc, complex, CToC, CToC, 32fc), outOrd32fc>;
using OutOrd64fc = OutOrd<FORM(DFTOutOrd, Mox64fc, complex, CToC, CToC, 64fc), outOrd64fc>;

template <class T>
class FloatTransform : public testing::Test {};
using Forms = testing::Types<FORMS(Fft, FFT), FORMS(Dft, DFT), OutOrd32fc, OutOrd64fc>;
TYPED_TEST_SUITE(FloatTransform, Forms);

long double errorOf(long count, long step, auto at) {
  test::RelativeError error;
  for (long i = 0; i < count; i += 1 + (i + i / 7) % step) {
    const auto [got, exact] = at(i);
    error.add(got.real(), exact.real()), error.add(got.imag(), exact.imag());
  }
  return error.value();
}
template <class T>
long double spectrumError(const typename T::S* got, long n, long step, auto exact) {
  return errorOf(T::bins(n), step, [&](long k) { return std::pair(T::bin(got, n, k), exact(k)); });
}
template <class T>
long double signalError(const typename T::T* got, const typename T::T* x, long n,
                        long double factor) {
  return errorOf(n, 1,
                 [&](long i) { return std::pair(T::at(got, n, i), factor * T::at(x, n, i)); });
}

TYPED_TEST(FloatTransform, FollowsTheDefiningSumWithEveryFlag) {
  using T = TypeParam;
  using E = typename T::T;
  for (const long n : T::lengths())
    for (const Flag& flag : test::flags) {
      if (n > 4096 && &flag != &test::flags[n % 4]) continue;
      SCOPED_TRACE(testing::Message() << "length " << n << " flag " << flag.value);
      const Noise& noise = Noise::of(n);
      const long double up = std::pow((long double)n, flag.forward), tolerance = T::bound(n);
      const long double back = std::pow((long double)n, 1 + flag.forward + flag.inverse);
      std::vector<E> x(T::samples(n));
      for (long i = 0; i < n; ++i) T::put(x.data(), n, i, noise.signal[i]);
      const test::GuardedArray<E> src(T::samples(n)), both(T::places(n)), dst(T::places(n)),
          again(T::samples(n));
      std::copy(x.begin(), x.end(), src.begin()), std::copy(x.begin(), x.end(), both.begin());
      std::memset((void*)dst.data(), 0x5A, dst.size() * sizeof(E));  // to be overwritten
      std::memset((void*)again.data(), 0x5A, again.size() * sizeof(E));
      Object object(T::life, T::sizeOf(n), flag.value);
      const auto same = [&](const auto& array) {
        return std::memcmp(both.data(), array.data(), array.size() * sizeof(E)) == 0;
      };

      ASSERT_OK(T::forward(src.data(), dst.data(), n, object, nullptr));
      const auto exact = [&](long k) { return up * noise.bin(k, T::real); };
      ASSERT_LE(spectrumError<T>(dst.data(), n, 1, exact), tolerance);
      if (T::real) {
        ASSERT_EQ(T::bin(dst.data(), n, 0).imag(), 0);
        ASSERT_EQ(n % 2 ? 0 : T::bin(dst.data(), n, n / 2).imag(), 0);
      }
      ASSERT_OK(T::forward(both.data(), both.data(), n, object, object.buffer()));
      ASSERT_TRUE(same(dst));

      ASSERT_OK(T::inverse(dst.data(), again.data(), n, object, object.buffer()));
      ASSERT_LE(signalError<T>(again.data(), x.data(), n, back), 2 * tolerance);
      ASSERT_TRUE(same(dst)) << "the source has changed";
      ASSERT_OK(T::inverse(both.data(), both.data(), n, object, nullptr));
      ASSERT_TRUE(same(again));
    }
}

// A few impulses have a spectrum that is known at every frequency, at any length; noise comes back.
template <class T>
void expectTurnsOfImpulses(const std::vector<long>& lengths) {
  using E = typename T::T;
  Random random(1);
  for (const long n : lengths) {
    SCOPED_TRACE(testing::Message() << "length " << n);
    std::vector<E> x(T::samples(n)), again(T::samples(n));
    std::vector<typename T::S> spectrum(T::places(n));
    std::map<long, Complex> impulses;
    for (int i = 0; i < 4; ++i) {
      const long at = random.below(n);
      T::put(x.data(), n, at, {random.value<float>(), random.value<float>()});
      impulses[at] = T::at(x.data(), n, at);
    }
    Object object(T::life, T::sizeOf(n), 8);
    ASSERT_OK(T::forward(x.data(), spectrum.data(), n, object, nullptr));
    const auto exact = [&](long k) {
      Complex sum = 0;
      for (const auto& [at, weight] : impulses) sum += weight * test::turn(at * k, n);
      return sum;
    };
    EXPECT_LE(spectrumError<T>(spectrum.data(), n, 31, exact), T::bound(n));
    x = random.vector<E>(T::samples(n));
    std::copy(x.begin(), x.end(), spectrum.begin());
    ASSERT_OK(T::forward(spectrum.data(), spectrum.data(), n, object, object.buffer()));
    ASSERT_OK(T::inverse(spectrum.data(), again.data(), n, object, object.buffer()));
    EXPECT_LE(signalError<T>(again.data(), x.data(), n, n), 2 * T::bound(n));
  }
}

TYPED_TEST(FloatTransform, ImpulsesGiveTheirTurnsAtLongLengths) {
  expectTurnsOfImpulses<TypeParam>(TypeParam::longLengths());
}

TYPED_TEST(FloatTransform, DISABLED_ImpulsesGiveTheirTurnsAtTheLongestPowersOfTwo) {
  if constexpr (requires { TypeParam::largeOrder; })
    for (const int order : {TypeParam::kind.maxOrder - 1, TypeParam::kind.maxOrder})
      expectTurnsOfImpulses<TypeParam>({1L << order});
}

// In memory that ends at an inaccessible page, at the least and at the most slack of alignment, an
// object gives the same bits as one in library memory.
TYPED_TEST(FloatTransform, FitsItsSizeWhereverItLies) {
  using T = TypeParam;
  if constexpr (requires { T::kind; })
    for (const long n : T::boundedLengths())
      for (const int slack : {0, 63}) {
        SCOPED_TRACE(testing::Message() << "length " << n << " slack " << slack);
        test::Sizes sizes;
        ASSERT_OK(T::kind.getSize(T::sizeOf(n), 8, 0, &sizes.spec, &sizes.init, &sizes.work));
        const test::GuardedArray<Mox8u> memory(sizes.spec + slack), scratch(sizes.init + slack),
            work(sizes.work + slack);
        const auto* const spec = T::init(n, memory.data(), sizes.init ? scratch.data() : nullptr);
        // The query of an FFT tells the slack as well.
        int bufSize = -1;
        ASSERT_OK(T::life.getBufSize(spec, &bufSize));
        const bool tellsSlack = std::is_same_v<decltype(spec), const MoxsFFTSpec* const>;
        EXPECT_EQ((bufSize + 63) / 64 * 64 + (bufSize && !tellsSlack ? 64 : 0), sizes.work);

        auto here = Random().vector<typename T::T>(T::places(n)), there = here;
        EXPECT_OK(T::forward(here.data(), here.data(), n, spec, work.data()));
        Object object(T::life, T::sizeOf(n), 8);
        EXPECT_OK(T::forward(there.data(), there.data(), n, object, nullptr));
        EXPECT_EQ(std::memcmp(here.data(), there.data(), here.size() * sizeof here[0]), 0);
      }
}

// Of arrays of parts one may be shared, the other not.
TYPED_TEST(FloatTransform, OneArrayOfPartsMayBeShared) {
  using T = TypeParam;
  if constexpr (T::split)
    for (const long n : {256, 1 << 19}) {
      Object object(T::life, T::sizeOf(n), 8);
      const auto x = Random(3).vector<typename T::T>(2 * n);
      auto both = x;
      ASSERT_OK(T::forward(both.data(), both.data(), n, object, nullptr));
      for (const bool sharesRe : {true, false}) {
        auto y = x, other = x;
        auto *const re = sharesRe ? &y[0] : &other[0], *const im = sharesRe ? &other[0] : &y[n];
        ASSERT_OK(T::forwardFunction(&y[0], &y[n], re, im, object, nullptr));
        EXPECT_TRUE(std::equal(re, re + n, &both[0]));
        EXPECT_TRUE(std::equal(im, im + n, &both[n]));
      }
    }
}

TEST(OutOrdOrder, DigitsAreReversed) {
  const int bins[] = {0, 6, 12, 2, 8, 14, 4, 10, 16, 1, 7, 13, 3, 9, 15, 5, 11, 17};
  for (int place = 0; place < 18; ++place) EXPECT_EQ(Reversed(bins[place], 18).place, place);
}

}  // namespace
