#include <numeric>

#include "support/filters.h"

namespace {

using namespace test;

template <class E>
constexpr auto init = moxsFIRSRInit_32f;
template <>
constexpr auto init<Mox64f> = moxsFIRSRInit_64f;
template <class E>
constexpr auto filter = moxsFIRSR_32f;
template <>
constexpr auto filter<Mox64f> = moxsFIRSR_64f;

TYPED_SUITE(FirSr, Mox32f, Mox64f);

// The delay line moves on in place.
TYPED_TEST(FirSr, StaysWithinTheBoundsOfItsMethodHoweverAStreamIsCut) {
  using E = TypeParam;
  constexpr int len = 6000;
  Random random;
  const long double eps = std::numeric_limits<E>::epsilon() / 2;
  for (const int n : {1, 2, 3, 8, 31, 63, 64, 100, 300, 1000}) {
    const auto taps = random.vector<E>(n), past = random.vector<E>(n - 1),
               src = random.vector<E>(len);
    std::vector<E> x(past.rbegin(), past.rend());
    x.insert(x.end(), src.begin(), src.end());
    std::vector<Sum> sums(len);
    for (int i = 0; i < len; ++i)
      for (int k = 0; k < n; ++k) sums[i].add(taps[k], x[n - 1 + i - k]);
    std::vector<long double> energy = {0};  // of all samples before
    for (const E sample : x) energy.push_back(energy.back() + (long double)sample * sample);
    const long double tapsNorm = std::inner_product(taps.begin(), taps.end(), taps.begin(), 0.0L);
    const auto normNear = [&](long i) {
      const long near = 16L * n + 64, last = long(x.size());
      return energy[std::min(i + n - 1 + near, last)] - energy[std::max(i + n - 1 - near, 0L)];
    };
    int specSize, bufSize;
    ASSERT_OK(moxsFIRSRGetSize(n, sizeof(E) == 4 ? moxType32f : moxType64f, &specSize, &bufSize));
    std::vector<E> first;
    for (int way = 0; way < 12; ++way) {
      const int algType = way % 3;
      const bool inPlace = way / 3 % 2;
      SCOPED_TRACE(testing::Message()
                   << n << " taps, method " << algType << (inPlace ? ", in place" : ""));
      std::vector<Mox8u> memory(specSize), buffer(bufSize);
      auto* const spec = reinterpret_cast<MoxsFIRSRSpec*>(memory.data());
      ASSERT_OK(init<E>(taps.data(), n, algType, spec));
      std::vector<E> y = inPlace ? src : std::vector<E>(len), line = past;
      for (const Piece& p : cut(random, len, way % 2 ? len : 700))
        ASSERT_OK(filter<E>(inPlace ? &y[p.at] : &src[p.at], &y[p.at], p.len, line.data(),
                            line.data(), spec, buffer.data()));
      for (int i = 0; i < len; ++i) {
        const long double bound = algType == moxAlgDirect
                                      ? (n + 1) * eps * sums[i].magnitude
                                      : 8 * eps * std::sqrt(tapsNorm * normNear(i));
        ASSERT_LE(std::abs(exactly(y[i]) - sums[i].value), bound) << i;
      }
      for (int k = 0; k < n - 1; ++k) ASSERT_EQ(line[k], src[len - 1 - k]);
      if (algType != moxAlgDirect) continue;
      if (first.empty()) first = y;
      EXPECT_EQ(y, first);
    }
  }
}

}  // namespace
