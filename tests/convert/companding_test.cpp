// Companding against the decision values of the laws, added up interval by interval, and against
// libspandsp.
#include <gtest/gtest.h>
#include <moxsp.h>
#include <spandsp.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

namespace {

// A law as G.711 tabulates it: where its intervals begin on the positive side, and the values that
// stand for them, in 16-bit units.
struct Law {
  std::vector<int> begin, value;
  int inversion;

  void addIntervals(int intervals, int width) {
    for (int i = 0; i < intervals; ++i) {
      value.push_back(begin.back() + width / 2);
      begin.push_back(begin.back() + width);
    }
  }
  int code(int interval, bool negative) const {
    return (interval | (negative ? 0 : 0x80)) ^ inversion;
  }
  int compress(int sample, bool negative) const {
    const int magnitude = sample < 0 ? ~sample : sample;
    const auto at = std::upper_bound(begin.begin(), begin.end(), magnitude) - begin.begin() - 1;
    return code(std::min(int(at), 127), negative);
  }
};

Law makeALaw() {
  Law law = {{0}, {}, 0x55};
  law.addIntervals(32, 16);
  for (int width = 32; width <= 1024; width *= 2) law.addIntervals(16, width);
  return law;
}

// Only the upper half of the first interval is on the positive side.
Law makeMuLaw() {
  Law law = {{0, 4}, {0}, 0x7F};
  law.addIntervals(15, 8);
  for (int width = 16; width <= 1024; width *= 2) law.addIntervals(16, width);
  return law;
}

struct Member {
  const char* name;
  Law law;
  decltype(&moxsALawToLin_8u16s) toIntegers;
  decltype(&moxsALawToLin_8u32f) toFloats;
  decltype(&moxsLinToALaw_16s8u) fromIntegers;
  decltype(&moxsLinToALaw_32f8u) fromFloats;
  Mox16s (*peerExpand)(Mox8u);
  Mox8u (*peerCompress)(int);
  bool signOfUnrounded;
};

const Member members[] = {
    {"A-law", makeALaw(), moxsALawToLin_8u16s, moxsALawToLin_8u32f, moxsLinToALaw_16s8u,
     moxsLinToALaw_32f8u, alaw_to_linear, linear_to_alaw, false},
    {"mu-law", makeMuLaw(), moxsMuLawToLin_8u16s, moxsMuLawToLin_8u32f, moxsLinToMuLaw_16s8u,
     moxsLinToMuLaw_32f8u, ulaw_to_linear, linear_to_ulaw, true},
};

std::vector<Mox8u> allCodes() {
  std::vector<Mox8u> codes(256);
  std::iota(codes.begin(), codes.end(), Mox8u(0));
  return codes;
}

TEST(Companding, AllCodesExpandToTheValueOfTheirInterval) {
  const auto codes = allCodes();
  std::vector<Mox16s> integers(256);
  std::vector<Mox32f> floats(256);
  for (const Member& m : members) {
    ASSERT_EQ(m.toIntegers(codes.data(), integers.data(), 256), moxOk);
    ASSERT_EQ(m.toFloats(codes.data(), floats.data(), 256), moxOk);
    for (int interval = 0; interval < 128; ++interval)
      for (bool negative : {false, true}) {
        const int code = m.law.code(interval, negative);
        const int value = negative ? -m.law.value[interval] : m.law.value[interval];
        EXPECT_EQ(integers[code], value) << m.name << ", code " << code;
        EXPECT_EQ(floats[code], value / 32768.0) << m.name << ", code " << code;
        EXPECT_EQ(m.peerExpand(Mox8u(code)), value) << m.name << ", code " << code;
      }
  }
}

TEST(Companding, AllSamplesCompressToTheIntervalTheyLieIn) {
  std::vector<Mox16s> samples(65536);
  std::iota(samples.begin(), samples.end(), Mox16s(-32768));
  std::vector<Mox8u> codes(65536);
  for (const Member& m : members) {
    ASSERT_EQ(m.fromIntegers(samples.data(), codes.data(), 65536), moxOk);
    int differences = 0;
    for (int i = 0; i < 65536; ++i) {
      const int s = samples[i];
      ASSERT_EQ(codes[i], m.law.compress(s, s < 0)) << m.name << " of " << s;
      if (codes[i] == m.peerCompress(s)) continue;
      // The peer takes the code of -s, which is another one only where an interval begins there.
      ++differences;
      ASSERT_EQ(m.law.compress(-s, true), m.peerCompress(s)) << m.name << " of " << s;
      ASSERT_TRUE(std::binary_search(m.law.begin.begin(), m.law.begin.end(), -s)) << s;
    }
    EXPECT_EQ(differences, m.signOfUnrounded ? 127 : 0) << m.name;
  }
}

// Every 16-bit number, both sides of every half between two, and what lies beyond.
std::vector<Mox32f> floatSamples() {
  constexpr Mox32f infinity = std::numeric_limits<Mox32f>::infinity();
  std::vector<Mox32f> v = {0.0f,
                           -0.0f,
                           1e-9f,
                           -1e-9f,
                           1e-45f,
                           -1e-45f,
                           2,
                           -2,
                           3e38f,
                           -3e38f,
                           infinity,
                           -infinity,
                           std::numeric_limits<Mox32f>::quiet_NaN()};
  for (int s = -32770; s <= 32770; ++s)
    for (Mox32f y : {Mox32f(s), Mox32f(s) + 0.5f, std::nextafter(Mox32f(s) + 0.5f, 0.0f)})
      v.push_back(y / 32768);
  return v;
}

TEST(Companding, FloatsAreRoundedHalfAwayFirst) {
  const auto samples = floatSamples();
  const int len = int(samples.size());
  std::vector<Mox8u> codes(samples.size());
  for (const Member& m : members) {
    ASSERT_EQ(m.fromFloats(samples.data(), codes.data(), len), moxOk);
    for (int i = 0; i < len; ++i) {
      const Mox32f x = samples[i], y = 32768 * x;
      // The sum is a float: just below one half it rounds up to 1.
      const Mox32f sum = y < 0 ? y - 0.5f : y + 0.5f;
      const int s = std::isnan(x) ? 0 : int(std::clamp(std::trunc(sum), -32768.0f, 32767.0f));
      ASSERT_EQ(codes[i], m.law.compress(s, m.signOfUnrounded ? x < 0 : s < 0))
          << m.name << " of " << y << " / 32768";
    }
  }
}

TEST(Companding, CodesTranslateAsInTheTablesOfG711) {
  const auto codes = allCodes();
  std::vector<Mox8u> toMu(256), toA(256);
  ASSERT_EQ(moxsALawToMuLaw_8u(codes.data(), toMu.data(), 256), moxOk);
  ASSERT_EQ(moxsMuLawToALaw_8u(codes.data(), toA.data(), 256), moxOk);
  for (int c = 0; c < 256; ++c) {
    EXPECT_EQ(toMu[c], alaw_to_ulaw(Mox8u(c))) << c;
    EXPECT_EQ(toA[c], ulaw_to_alaw(Mox8u(c))) << c;
  }
}

}  // namespace
