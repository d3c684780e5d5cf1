#include "support/test.h"

namespace {

using namespace test;

// Functions by type of the samples.
template <class E>
struct Sr;
template <>
struct Sr<Mox32f> {
  static constexpr int type = moxType32f;
  static constexpr auto init = moxsFIRSRInit_32f;
  static constexpr auto run = moxsFIRSR_32f;
};
template <>
struct Sr<Mox64f> {
  static constexpr int type = moxType64f;
  static constexpr auto init = moxsFIRSRInit_64f;
  static constexpr auto run = moxsFIRSR_64f;
};

// An object and a buffer at odd addresses.
template <class E>
class Filter {
 public:
  Filter(const std::vector<E>& taps, int algType) : tapsLen_(int(taps.size())) {
    int specSize, bufSize;
    EXPECT_EQ(moxsFIRSRGetSize(tapsLen_, Sr<E>::type, &specSize, &bufSize), moxOk);
    memory_.resize(specSize + 1), buffer_.resize(bufSize + 1);
    EXPECT_EQ(Sr<E>::init(taps.data(), tapsLen_, algType, spec()), moxOk);
  }
  MoxsFIRSRSpec* spec() { return reinterpret_cast<MoxsFIRSRSpec*>(memory_.data() + 1); }

  // One call; the delay line moves on in place.
  void run(const E* src, E* dst, int len, std::vector<E>& line) {
    ASSERT_EQ(Sr<E>::run(src, dst, len, line.data(), line.data(), spec(), buffer_.data() + 1),
              moxOk);
  }

 private:
  int tapsLen_;
  std::vector<Mox8u> memory_, buffer_;
};

TYPED_SUITE(FirSr, Mox32f, Mox64f);

TYPED_TEST(FirSr, StaysWithinTheBoundsOfItsMethodHoweverAStreamIsCut) {
  using E = TypeParam;
  Random random;
  const long double eps = std::numeric_limits<E>::epsilon() / 2;
  for (const int n : {1, 2, 3, 8, 31, 63, 64, 100, 300, 1000}) {
    const auto taps = random.vector<E>(n), past = random.vector<E>(n - 1),
               src = random.vector<E>(6000);
    std::vector<E> x(past.rbegin(), past.rend());
    x.insert(x.end(), src.begin(), src.end());
    long double tapsNorm = 0;
    for (const E tap : taps) tapsNorm += (long double)tap * tap;
    std::vector<long double> energy = {0};  // of all samples before
    for (const E sample : x) energy.push_back(energy.back() + (long double)sample * sample);
    const auto normNear = [&](long i) {
      const long near = 16L * n + 64, last = long(x.size());
      return energy[std::min(i + n - 1 + near, last)] - energy[std::max(i + n - 1 - near, 0L)];
    };
    std::vector<E> first;
    for (int way = 0; way < 12; ++way) {
      const int algType = way % 3;
      const bool inPlace = way / 3 % 2;
      SCOPED_TRACE(testing::Message()
                   << n << " taps, method " << algType << (inPlace ? ", in place" : ""));
      Filter<E> filter(taps, algType);
      std::vector<E> y = inPlace ? src : std::vector<E>(src.size()), line = past;
      for (int done = 0, len; done < 6000; done += len) {
        len = int(std::min(6000L - done, 1 + random.below(way % 2 ? 6000 : 700)));
        filter.run(inPlace ? &y[done] : &src[done], &y[done], len, line);
      }
      for (int i = 0; i < 6000; ++i) {
        long double sum = 0, magnitude = 0;
        for (int k = 0; k < n; ++k) {
          const long double term = (long double)taps[k] * x[n - 1 + i - k];
          sum += term, magnitude += std::abs(term);
        }
        const long double bound = algType == moxAlgDirect
                                      ? (n + 1) * eps * magnitude
                                      : 8 * eps * std::sqrt(tapsNorm * normNear(i));
        ASSERT_LE(std::abs(y[i] - sum), bound) << i;
      }
      for (int k = 0; k < n - 1; ++k) ASSERT_EQ(line[k], k < 6000 ? src[5999 - k] : past[k - 6000]);
      if (algType == moxAlgDirect) {
        if (first.empty()) first = y;
        EXPECT_EQ(y, first);
      }
    }
  }
}

}  // namespace
