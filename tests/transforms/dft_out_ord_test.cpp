// Out-of-order DFTs against the defining sum and the DFT in natural order.
#include <gtest/gtest.h>

#include "transforms/dft_api.h"

namespace {

using test::Complex;
using test::Room;

template <class C>
struct Api;
#define OUT_ORD_API(C, t, tolerance, natural)                         \
  template <>                                                         \
  struct Api<C> {                                                     \
    static constexpr auto initAlloc = moxsDFTOutOrdInitAlloc_C_##t;   \
    static constexpr auto free = moxsDFTOutOrdFree_C_##t;             \
    static constexpr auto getBufSize = moxsDFTOutOrdGetBufSize_C_##t; \
    static constexpr auto forward = moxsDFTOutOrdFwd_CToC_##t;        \
    static constexpr auto inverse = moxsDFTOutOrdInv_CToC_##t;        \
    static constexpr auto ordered = moxsDFTFwd_CToC_##t;              \
    static constexpr auto multiply = moxsMul_##t##_I;                 \
    static constexpr auto& orderedApi = test::dftKinds[natural];      \
    static constexpr long double unit = tolerance;                    \
  }
OUT_ORD_API(Mox32fc, 32fc, 0x4p-24L, 0);
OUT_ORD_API(Mox64fc, 64fc, 0x4p-53L, 3);

template <class C>
class OutOrd {
 public:
  OutOrd(int len, int flag) {
    EXPECT_EQ(Api<C>::initAlloc(&spec_, len, flag, 0), moxOk);
    int bytes = 0;
    Api<C>::getBufSize(spec_, &bytes);
    buffer_.resize(std::size_t(bytes) + 65);
  }
  ~OutOrd() { EXPECT_EQ(Api<C>::free(spec_), moxOk); }
  OutOrd(const OutOrd&) = delete;
  OutOrd& operator=(const OutOrd&) = delete;

  void forward(const C* src, C* dst) {
    EXPECT_EQ(Api<C>::forward(src, dst, spec_, buffer_.data() + 1), moxOk);
  }
  void inverse(const C* src, C* dst) {
    EXPECT_EQ(Api<C>::inverse(src, dst, spec_, nullptr), moxOk);
  }

 private:
  MoxsDFTOutOrdSpec* spec_ = nullptr;
  std::vector<Mox8u> buffer_;
};

// Digits by the prime factors up to 13, in rising order, become those of the place.
struct Order {
  std::vector<long> place;
  long rest;

  explicit Order(long n) : place(n), rest(n) {
    std::vector<long> factors;
    for (const long p : {2, 3, 5, 7, 11, 13})
      for (; rest % p == 0; rest /= p) factors.push_back(p);
    for (long k = 0; k < n; ++k) {
      long digits = k, weight = n;
      for (const long p : factors) place[k] += digits % p * (weight /= p), digits /= p;
      place[k] += digits;
    }
  }
};
template <class C>
long double bound(const Order& order) {
  return Api<C>::unit * std::sqrt(1 + std::log2((long double)order.place.size())) *
         (order.rest > 1 ? 4 : 1);
}

template <class C, class Exact>
long double errorOf(const C* got, long n, Exact exact) {
  test::RelativeError error;
  for (long i = 0; i < n; ++i) {
    const Complex value = exact(i);
    error.add(got[i].re, value.real());
    error.add(got[i].im, value.imag());
  }
  return error.value();
}

template <class C>
class DftOutOrd : public testing::Test {};
using Types = testing::Types<Mox32fc, Mox64fc>;
TYPED_TEST_SUITE(DftOutOrd, Types);

TEST(DftOutOrdOrder, DigitsAreReversed) {
  const auto binsOf = [](long n) {
    const Order order(n);
    std::vector<long> bins(n);
    for (long k = 0; k < n; ++k) bins[order.place[k]] = k;
    return bins;
  };
  using Bins = std::vector<long>;
  EXPECT_EQ(binsOf(8), (Bins{0, 4, 2, 6, 1, 5, 3, 7}));
  EXPECT_EQ(binsOf(12), (Bins{0, 4, 8, 2, 6, 10, 1, 5, 9, 3, 7, 11}));
  EXPECT_EQ(binsOf(18), (Bins{0, 6, 12, 2, 8, 14, 4, 10, 16, 1, 7, 13, 3, 9, 15, 5, 11, 17}));
  EXPECT_EQ(binsOf(106)[1], 2);
  EXPECT_EQ(binsOf(106)[53], 1);
}

TYPED_TEST(DftOutOrd, FollowsTheDefiningSumAtEveryLength) {
  using C = TypeParam;
  SCOPED_TRACE(test::seedNote());
  for (long n = 1; n <= 600; ++n) {
    const test::Flag& flag = test::flags[n % 4];
    SCOPED_TRACE(testing::Message() << "length " << n << " flag " << flag.value);
    const test::Noise& noise = test::noise(n);
    const Order order(n);
    const long double up = std::pow((long double)n, flag.forward);
    const long double back = std::pow((long double)n, 1 + flag.forward + flag.inverse);
    std::vector<C> x;
    for (const Complex& z : noise.signal)
      x.push_back({mox::Part<C>(z.real()), mox::Part<C>(z.imag())});
    std::vector<Complex> placed(n);
    for (long k = 0; k < n; ++k) placed[order.place[k]] = up * noise.spectrum[k];
    const Room<C> src(x, n, n % 3), dst({}, n, n % 3), both(x, n, n % 3);
    OutOrd<C> dft(int(n), flag.value);
    dft.forward(src.data(), dst.data());
    const auto got = dst.numbers();
    ASSERT_LE(errorOf(got.data(), n, [&](long i) { return placed[i]; }), bound<C>(order));
    dft.forward(both.data(), both.data());
    ASSERT_EQ(std::memcmp(both.data(), dst.data(), n * sizeof(C)), 0);
    dft.inverse(dst.data(), src.data());
    const auto again = src.numbers();
    ASSERT_LE(errorOf(again.data(), n, [&](long i) { return back * noise.signal[i]; }),
              2 * bound<C>(order));
    dft.inverse(both.data(), both.data());
    ASSERT_EQ(std::memcmp(both.data(), src.data(), n * sizeof(C)), 0);
  }
}

TYPED_TEST(DftOutOrd, AgreesWithNaturalOrderAtLongLengths) {
  using C = TypeParam;
  SCOPED_TRACE(test::seedNote());
  test::Random random;
  for (const long n :
       {1001, 2048, 5040, 8191, 10080, 13122, 16384, 65536, 131072, 131342, 720720}) {
    SCOPED_TRACE(testing::Message() << "length " << n);
    const auto x = random.vector<C>(n);
    std::vector<C> natural(n), got(n), bins(n);
    test::Dft ordered(Api<C>::orderedApi, int(n), 8);
    ASSERT_EQ(Api<C>::ordered(x.data(), natural.data(), ordered, nullptr), moxOk);
    OutOrd<C> dft(int(n), 2);
    dft.forward(x.data(), got.data());
    const Order order(n);
    for (long k = 0; k < n; ++k) bins[k] = got[order.place[k]];
    const auto as = [](const C& z) { return Complex(z.re, z.im); };
    EXPECT_LE(errorOf(bins.data(), n, [&](long k) { return as(natural[k]); }), 2 * bound<C>(order));
    dft.inverse(got.data(), got.data());
    EXPECT_LE(errorOf(got.data(), n, [&](long i) { return as(x[i]); }), 2 * bound<C>(order));
  }
}

TYPED_TEST(DftOutOrd, ConvolvesByProductsOfSpectra) {
  using C = TypeParam;
  for (const int n : {17, 30, 64, 96, 221, 360}) {
    SCOPED_TRACE(n);
    std::vector<C> x(n), y(n);
    for (int i = 0; i < n; ++i) x[i] = {mox::Part<C>(i), 1};
    y[1] = {2, 0}, y[n - 3] = {0, 1};  // 2 x[i - 1] + i x[i + 3]
    OutOrd<C> dft(n, 2);
    const auto signal = x;
    dft.forward(x.data(), x.data());
    dft.forward(y.data(), y.data());
    ASSERT_EQ(Api<C>::multiply(y.data(), x.data(), n), moxOk);
    dft.inverse(x.data(), x.data());
    const auto at = [&](int i) { return Complex(signal[(i + n) % n].re, signal[(i + n) % n].im); };
    EXPECT_LE(
        errorOf(x.data(), n, [&](int i) { return 2.0L * at(i - 1) + Complex(0, 1) * at(i + 3); }),
        8 * bound<C>(Order(n)));
  }
}

}  // namespace
