// DFTs of all forms and methods against the defining sum, and what holds for any spectrum.
#include <gtest/gtest.h>

#include <climits>

#include "transforms/dft_analysis.h"
#include "transforms/dft_api.h"

namespace {

using test::bin;
using test::Complex;
using test::Dft;
using test::DftApi;
using test::Flag;
using test::flags;
using test::Noise;
using test::noise;
using test::Room;

template <class T>
class DftForm : public testing::Test {
 public:
  static constexpr const DftApi& api = test::dftKinds[&T::kind - test::kinds];
};
TYPED_TEST_SUITE(DftForm, test::DftForms);

// In the L2 norm.
template <class F>
long double bound(long n, bool real) {
  const bool chirp =
      mox::transforms::analyseDft<F>(int(n), real).method == mox::transforms::DftMethod::chirp;
  return (sizeof(F) == 4 ? 3e-7L : 6e-16L) * std::sqrt(std::log2(std::max(n, 2L))) *
         (chirp ? 4 : 1);
}

template <class T>
std::vector<typename T::F> samples(const Noise& noise) {
  const long n = long(noise.signal.size());
  std::vector<typename T::F> x(T::parts * n);
  for (long i = 0; i < n; ++i) {
    x[T::place(n, i, 0)] = noise.signal[i].real();
    if (T::parts > 1) x[T::place(n, i, 1)] = noise.signal[i].imag();
  }
  return x;
}

TYPED_TEST(DftForm, FollowsTheDefiningSumAtEveryLength) {
  using T = TypeParam;
  using F = typename T::F;
  SCOPED_TRACE(test::seedNote());
  for (long n = 1; n <= 600; ++n) {
    const Flag& flag = flags[n % 4];
    const long slack = n % 3 == 0 ? 0 : n % 3 == 1 ? long(sizeof(F)) : 1;
    SCOPED_TRACE(testing::Message() << "length " << n << " flag " << flag.value);
    const auto x = samples<T>(noise(n));
    const long numbers = T::numbers(n);
    Dft dft(this->api, int(n), flag.value);
    const long double up = std::pow((long double)n, flag.forward);
    const long double back = std::pow((long double)n, 1 + flag.forward + flag.inverse);
    const long double tolerance = bound<F>(n, T::kind.real);
    const Room<F> src(x, T::parts * n, slack), dst({}, numbers, slack), both(x, numbers, slack),
        again({}, T::parts * n, slack);

    ASSERT_EQ(T::run(true, src.data(), dst.data(), n, dft, nullptr), moxOk);
    const auto spectrum = dst.numbers();
    ASSERT_LE(test::spectrumError<T>(spectrum.data(), n, 1,
                                     [&](long k) { return up * bin(noise(n), k, T::kind.real); }),
              tolerance);
    ASSERT_EQ(T::run(true, both.data(), both.data(), n, dft, dft.buffer()), moxOk);
    ASSERT_EQ(both.numbers(), spectrum);

    ASSERT_EQ(T::run(false, dst.data(), again.data(), n, dft, dft.buffer()), moxOk);
    const auto signal = again.numbers();
    ASSERT_LE(test::signalError(signal.data(), x, back), 2 * tolerance);
    ASSERT_EQ(dst.numbers(), spectrum) << "the source has changed";
    ASSERT_EQ(T::run(false, both.data(), both.data(), n, dft, nullptr), moxOk);
    ASSERT_EQ(std::memcmp(both.data(), signal.data(), signal.size() * sizeof(F)), 0);
  }
}

// Some bins of noise by the defining sum, and the way back.
TYPED_TEST(DftForm, FollowsTheDefiningSumAtLongLengths) {
  using T = TypeParam;
  using F = typename T::F;
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  // Products of small primes, primes, their powers and doubles, and chirps around the lengths of
  // convolutions that are tabulated.
  for (const long n : {1000,  1009,  1024,  1331,  1500,  2000,   2002,   2018,   2401,   3125,
                       4001,  4096,  4097,  4410,  8191,  8194,   9973,   10080,  16384,  19683,
                       28561, 51200, 65521, 65536, 83521, 107811, 131042, 151200, 177147, 200000}) {
    SCOPED_TRACE(testing::Message() << "length " << n);
    const auto x = random.vector<F>(T::parts * n);
    std::vector<Complex> roots(n);
    for (long k = 0; k < n; ++k) roots[k] = test::turn(k, n);
    std::vector<F> spectrum(T::numbers(n)), signal(x.size());
    Dft dft(this->api, int(n), 2);
    const long double tolerance = bound<F>(n, T::kind.real);
    ASSERT_EQ(T::run(true, x.data(), spectrum.data(), n, dft, dft.buffer()), moxOk);
    long double error = 0, energy = 0;
    for (const F sample : x) energy += (long double)sample * sample;
    constexpr int probes = 12;
    for (int probe = 0; probe < probes; ++probe) {
      const long k = random.below(T::bins(n));
      Complex sum = 0;
      for (long i = 0; i < n; ++i)
        sum += roots[i * k % n] *
               Complex(x[T::place(n, i, 0)], T::parts > 1 ? x[T::place(n, i, 1)] : 0);
      error += std::norm(T::bin(spectrum.data(), n, k) - sum);
    }
    EXPECT_LE(std::sqrt(error / (probes * energy)), 2 * tolerance);
    ASSERT_EQ(T::run(false, spectrum.data(), signal.data(), n, dft, dft.buffer()), moxOk);
    EXPECT_LE(test::signalError(signal.data(), x, 1), 2 * tolerance);
  }
}

struct Sizes {
  int spec, init, work;
};

// In memory that ends at an inaccessible page, at the least and at the most slack of alignment, an
// object gives the same bits as one in library memory.
TYPED_TEST(DftForm, FitsItsSizeWhereverItLies) {
  using T = TypeParam;
  for (const int n : {1,   16,  17,  18,  32,   34,   51,   53,   60,   81,   83,
                      106, 212, 360, 509, 1000, 1009, 2002, 4096, 8194, 19683})
    for (const int slack : {0, 63}) {
      SCOPED_TRACE(testing::Message() << "length " << n << " slack " << slack);
      Sizes sizes;
      ASSERT_EQ(this->api.getSize(n, 8, 0, &sizes.spec, &sizes.init, &sizes.work), moxOk);
      const test::GuardedArray<Mox8u> memory(sizes.spec + slack), scratch(sizes.init + slack),
          work(sizes.work + slack);
      ASSERT_EQ(this->api.init(n, 8, 0, memory.data(), sizes.init ? scratch.data() : nullptr),
                moxOk);
      auto* const spec = reinterpret_cast<MoxsDFTSpec*>(memory.data());
      int bufSize = -1;
      ASSERT_EQ(this->api.getBufSize(spec, &bufSize), moxOk);
      EXPECT_EQ((bufSize + 63) / 64 * 64 + (bufSize ? 64 : 0), sizes.work);

      auto here = test::Random().vector<typename T::F>(T::numbers(n)), there = here;
      EXPECT_EQ(T::run(true, here.data(), here.data(), n, spec, work.data()), moxOk);
      EXPECT_EQ(T::run(true, there.data(), there.data(), n, Dft(this->api, n, 8), nullptr), moxOk);
      EXPECT_EQ(here, there);
    }
}

TEST(DftObject, SizesAreTheDocumentedOnes) {
  for (int i = 0; i < 6; ++i) {
    const test::Kind& kind = test::kinds[i];
    const DftApi& api = test::dftKinds[i];
    SCOPED_TRACE(kind.name);
    const auto sizesOf = [&](int n) {
      Sizes sizes = {-1, -1, -1};
      EXPECT_EQ(api.getSize(n, 8, 0, &sizes.spec, &sizes.init, &sizes.work), moxOk);
      return sizes;
    };
    const int record = kind.part == 4 ? 576 : 584;
    for (int n = 1; n <= 16; ++n) {
      const Sizes sizes = sizesOf(n);
      EXPECT_EQ(sizes.spec, record + 64);
      EXPECT_EQ(sizes.init, 0);
      EXPECT_EQ(sizes.work, 0);
    }
    for (int order = 5; order <= kind.maxOrder; order += 3) {
      Sizes fft, sizes = sizesOf(1 << order);
      kind.getSize(order, 8, 0, &fft.spec, &fft.init, &fft.work);
      EXPECT_EQ(sizes.spec, record + (fft.spec + 63) / 64 * 64 + 64);
      EXPECT_EQ(sizes.init, fft.init);
      EXPECT_EQ(sizes.work, fft.work);
    }
    const auto status = [&](int n) {
      Sizes sizes;
      return api.getSize(n, 8, 0, &sizes.spec, &sizes.init, &sizes.work);
    };
    const int limit = kind.part == 4 ? 0x7FFFFFF : 0x3FFFFFF;
    EXPECT_EQ(status(1 << kind.maxOrder), moxOk);
    EXPECT_EQ(status(1 << 30), moxErrFftOrder);
    EXPECT_EQ(status(limit + 2), moxErrSize);
    EXPECT_EQ(status(INT_MAX), moxErrSize);
  }
  // The direct and the chirp method, of 47 and 53 in single precision.
  Sizes sizes;
  moxsDFTGetSize_C_32fc(47, 8, 0, &sizes.spec, &sizes.init, &sizes.work);
  EXPECT_EQ(sizes.work, 448 + 64);
  moxsDFTGetSize_R_32f(47, 8, 0, &sizes.spec, &sizes.init, &sizes.work);
  EXPECT_EQ(sizes.work, 256 + 64);
  moxsDFTGetSize_C_32fc(53, 8, 0, &sizes.spec, &sizes.init, &sizes.work);
  EXPECT_EQ(sizes.work, 1024 + 8 * 128 + 64 + 64);
}

}  // namespace
