// Goertz against its sum in long double, and in double precision to the bit.
#include "support/filters.h"

namespace {

using namespace test;

constexpr double twoPi = 6.283185307179586;

template <class E>
Sum sumAt(const std::vector<E>& x, double f) {
  const Exact turn = std::polar(1.0L, (long double)(twoPi * f));
  Sum sum = {};
  for (const E& e : x) {
    sum.value = sum.value * turn + exactly(e);
    sum.magnitude += std::abs(exactly(e));
  }
  sum.value *= turn;
  return sum;
}

const long lengths[] = {1, 2, 3, 4, 5, 7, 8, 15, 16, 17, 31, 32, 33, 70, 205, 1000, 20011};
// Among them those at which some lanes see a constant, which lets rounding errors grow most.
const double frequencies[] = {0, 0x1p-20, 0.0625, 0.125, 0.2, 0.25, 0.4999, 0.5, 0.77, 0.99999994};

// Calls one(src, len, dst, f) and two(src, len, dst, relFreq) at each length and frequency.
template <class E, class C, class F, class Check>
void forAll(auto one, auto two, Check check) {
  Random random;
  for (const long len : lengths)
    for (const double f : frequencies) {
      SCOPED_TRACE(testing::Message() << "length " << len << " frequency " << f);
      auto x = random.vector<E>(len);
      if (len % 2)  // a tone at the frequency
        for (long n = 0; n < len; ++n)
          reinterpret_cast<mox::Part<E>*>(&x[n])[0] = mox::Part<E>(
              (sizeof(F) > sizeof(mox::Part<E>) ? 32767 : 1) * std::cos(twoPi * f * n));
      const F both[] = {F(f), F(0.3)};
      C single, pair[2];
      ASSERT_OK(one(x.data(), len, &single, both[0]));
      check(x, double(both[0]), single);
      ASSERT_OK(two(x.data(), len, pair, both));
      for (int k = 0; k < 2; ++k) check(x, double(both[k]), pair[k]);
    }
}

template <class E>
void expectFloats(auto one, auto two) {
  forAll<E, Mox32fc, Mox32f>(one, two, [](const auto& x, double f, Mox32fc got) {
    const Sum sum = sumAt(x, f);
    const long double n = x.size(), bound = (0x1p-24L + 0x1p-57L * n * n) * sum.magnitude;
    EXPECT_LE(std::fabs(got.re - sum.value.real()), bound);
    EXPECT_LE(std::fabs(got.im - sum.value.imag()), bound);
  });
}

TEST(Goertzel, SingleResultsAreNearTheSum) {
  expectFloats<Mox32f>(moxsGoertz_32f, moxsGoertzTwo_32f);
  expectFloats<Mox32fc>(moxsGoertz_32fc, moxsGoertzTwo_32fc);
}

// The recurrence in the order of its operations.
template <class E>
void expectBits(auto one, auto two) {
  forAll<E, Mox64fc, Mox64f>(one, two, [](const auto& x, double f, Mox64fc got) {
    const double c = std::cos(twoPi * f), s = std::sin(twoPi * f);
    double last[2] = {}, before[2] = {};
    for (const E& e : x)
      for (int part = 0; part < mox::partsPerElement<E>; ++part) {
        const double next = last[part] * (c + c) + (mox::parts(&e)[part] - before[part]);
        before[part] = last[part], last[part] = next;
      }
    const bool isComplex = mox::Complex<E>;
    EXPECT_EQ(got.re, (isComplex ? last[0] * c - last[1] * s : last[0] * c) - before[0]);
    EXPECT_EQ(got.im, isComplex ? last[0] * s + last[1] * c - before[1] : last[0] * s);
  });
}

TEST(Goertzel, DoubleResultsFollowTheRecurrenceToTheBit) {
  expectBits<Mox64f>(moxsGoertz_64f, moxsGoertzTwo_64f);
  expectBits<Mox64fc>(moxsGoertz_64fc, moxsGoertzTwo_64fc);
}

// By the scale rule, but for what is as near to a tie as the sum is exact.
void expectScaled(Sum sum, long len, int factor, Mox16sc got) {
  for (const auto& [part, exact] :
       {std::pair(got.re, sum.value.real()), std::pair(got.im, sum.value.imag())}) {
    const long double bound = 0x1p-57L * len * len * sum.magnitude + 1e-9L;
    const auto rounded = [&](long double v) {
      return std::clamp(std::nearbyint(std::ldexp(v, -std::clamp(factor, -99, 99))), -32768.0L,
                        32767.0L);
    };
    EXPECT_LE(rounded(exact - bound), part) << "factor " << factor;
    EXPECT_GE(rounded(exact + bound), part) << "factor " << factor;
  }
}

template <class E>
void expectIntegers(auto one, auto two) {
  for (const int factor : {0, 5, -2, 64, INT_MAX, INT_MIN})
    forAll<E, Mox16sc, Mox32f>([&](auto... args) { return one(args..., factor); },
                               [&](auto... args) { return two(args..., factor); },
                               [&](const auto& x, double f, Mox16sc got) {
                                 expectScaled(sumAt(x, f), long(x.size()), factor, got);
                               });
}

TEST(Goertzel, IntegerResultsAreScaledAndSaturated) {
  expectIntegers<Mox16sc>(moxsGoertz_16sc_Sfs, moxsGoertzTwo_16sc_Sfs);
  const auto twice = [](const Mox16s* src, int len, Mox16sc* dst, const Mox32f* f, int factor) {
    moxsGoertz_16s_Sfs(src, len, dst, f[0], factor);
    return moxsGoertz_16s_Sfs(src, len, dst + 1, f[1], factor);
  };
  expectIntegers<Mox16s>(moxsGoertz_16s_Sfs, twice);
}

TEST(Goertzel, FixedPointFrequenciesAreTheFloatingOnes) {
  const auto x = Random(1).vector<Mox16sc>(205);
  for (const Mox16s q15 : {0, 1, 4096, 12345, 32767}) {
    const Mox16s both[] = {q15, 777};
    const Mox32f f[] = {q15 / 32768.0f, 777 / 32768.0f};
    Mox16sc one, expected, pair[2], expectedPair[2];
    ASSERT_OK(moxsGoertzQ15_16sc_Sfs(x.data(), 205, &one, q15, 4));
    moxsGoertz_16sc_Sfs(x.data(), 205, &expected, f[0], 4);
    EXPECT_EQ(std::memcmp(&one, &expected, sizeof one), 0);
    ASSERT_OK(moxsGoertzTwoQ15_16sc_Sfs(x.data(), 205, pair, both, 4));
    moxsGoertzTwo_16sc_Sfs(x.data(), 205, expectedPair, f, 4);
    EXPECT_EQ(std::memcmp(pair, expectedPair, sizeof pair), 0);
  }
}

}  // namespace
