// Companding against libspandsp, whose codes of the positive side are those of G.711.
#include <spandsp.h>

#include <numeric>

#include "support/members.h"

namespace {

using namespace test;

const struct Family {
  Member<const Mox8u*, Mox16s*, int> toIntegers;
  Member<const Mox8u*, Mox32f*, int> toFloats;
  Member<const Mox16s*, Mox8u*, int> fromIntegers;
  Member<const Mox32f*, Mox8u*, int> fromFloats;
  Mox16s (*expand)(Mox8u);
  Mox8u (*ofPositive)(int);
  bool signOfUnrounded;

  int compress(int sample, bool negative) const {
    return ofPositive(sample < 0 ? ~sample : sample) ^ (negative ? 0x80 : 0);
  }
} families[] = {{MEMBER(ALawToLin_8u16s), MEMBER(ALawToLin_8u32f), MEMBER(LinToALaw_16s8u),
                 MEMBER(LinToALaw_32f8u), alaw_to_linear, linear_to_alaw, false},
                {MEMBER(MuLawToLin_8u16s), MEMBER(MuLawToLin_8u32f), MEMBER(LinToMuLaw_16s8u),
                 MEMBER(LinToMuLaw_32f8u), ulaw_to_linear, linear_to_ulaw, true}};

template <class E>
std::vector<E> from(long first, long count) {
  std::vector<E> all(count);
  std::iota(all.begin(), all.end(), E(first));
  return all;
}
const auto allCodes = from<Mox8u>(0, 256);

TEST(Companding, AllCodesExpandToTheValueOfTheirInterval) {
  for (const auto& f : families) {
    expectEach(run(f.toIntegers, allCodes), f.expand);
    expectEach(run(f.toFloats, allCodes), [&](Mox8u c) { return f.expand(c) / 32768.0; });
  }
}

TEST(Companding, AllSamplesCompressToTheIntervalTheyLieIn) {
  const auto samples = from<Mox16s>(-32768, 65536);
  for (const auto& f : families)
    expectEach(run(f.fromIntegers, samples), [&](int s) { return f.compress(s, s < 0); });
}

// Every 16-bit number, both sides of every half between two, and what lies beyond.
std::vector<Mox32f> floatSamples() {
  std::vector<Mox32f> v = {NAN};
  for (const Mox32f x : {0.0f, 1e-9f, 1e-45f, 2.0f, 3e38f, INFINITY}) v.insert(v.end(), {x, -x});
  for (int s = -32770; s <= 32770; ++s)
    for (Mox32f y : {Mox32f(s), Mox32f(s) + 0.5f, std::nextafter(Mox32f(s) + 0.5f, 0.0f)})
      v.push_back(y / 32768);
  return v;
}

TEST(Companding, FloatsAreRoundedHalfAwayFirst) {
  const auto samples = floatSamples();
  for (const auto& f : families)
    expectEach(run(f.fromFloats, samples), [&](Mox32f x) {
      // The sum is a float: just below one half it rounds up to 1.
      const Mox32f y = 32768 * x, sum = y < 0 ? y - 0.5f : y + 0.5f;
      const int s = std::isnan(x) ? 0 : int(std::clamp(std::trunc(sum), -32768.0f, 32767.0f));
      return f.compress(s, f.signOfUnrounded ? x < 0 : s < 0);
    });
}

TEST(Companding, CodesTranslateAsInTheTablesOfG711) {
  expectEach(run(MEMBER(ALawToMuLaw_8u), allCodes), alaw_to_ulaw);
  expectEach(run(MEMBER(MuLawToALaw_8u), allCodes), ulaw_to_alaw);
}

}  // namespace
