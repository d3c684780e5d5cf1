// Half floats, by the processor's instructions and in software.
#include <bit>

#include "support/core_probe.h"
#include "support/exact_model.h"
#include "support/members.h"
#include "support/moxcore.h"
#include "support/values.h"

namespace {

using namespace test;

// Runs a check with the instructions, where this processor has them, and without.
void onBothPaths(auto check) {
  if (ownGetFeature(mox::cpuHalfFloat)) check();
  SCOPED_TRACE("software");
  CoreProbe probe;
  probe.fixFeatures(0);
  check();
}

// A half float from its definition.
Mox32u decoded(Mox16f half) {
  const Mox32u sign = half >> 15, exponent = half >> 10 & 31, fraction = half & 1023;
  if (exponent == 31) return sign << 31 | 0x7F800000 | fraction << 13 | (fraction ? 0x400000 : 0);
  const float value = exponent ? std::ldexp(1024.0f + fraction, int(exponent) - 25)
                               : std::ldexp(float(fraction), -24);
  return std::bit_cast<Mox32u>(value) | sign << 31;
}

// The magnitude in units of the half float's last place, rounded; exact in doubles.
Mox16f encoded(Mox32f x, bool nearest) {
  const Mox32u bits = std::bit_cast<Mox32u>(x);
  const Mox16f sign = Mox16f(bits >> 16 & 0x8000);
  if (std::isnan(x)) return Mox16f(sign | 0x7E00 | (bits >> 13 & 1023));
  if (std::isinf(x)) return Mox16f(sign | 0x7C00);
  int exponent;
  std::frexp(std::fabs(x), &exponent);  // in 2^(exponent - 1) to 2^exponent
  exponent = x == 0 ? -13 : std::max(exponent, -13);
  const double units = std::ldexp(std::fabs(double(x)), 11 - exponent);
  double whole = std::floor(units);
  const double rest = units - whole;
  if (nearest && (rest > 0.5 || (rest == 0.5 && std::fmod(whole, 2) == 1))) ++whole;
  // A carry out of the fraction raises the exponent by itself.
  const double code = (exponent + 13) * 1024.0 + whole;
  if (code >= 0x7C00) return Mox16f(sign | (nearest ? 0x7C00 : 0x7BFF));
  return Mox16f(sign | Mox16f(code));
}

const std::vector<Mox16f> allHalves = allOrMany<Mox16f>();

TEST(Half, AllPatternsWidenToTheBitOnBothPaths) {
  withCallsInAllRoundings([&] {
    onBothPaths([&] {
      const auto floats = run(MEMBER(Convert_16f32f), allHalves).values;
      for (std::size_t i = 0; i < floats.size(); ++i)
        ASSERT_EQ(std::bit_cast<Mox32u>(floats[i]), decoded(allHalves[i])) << allHalves[i];
    });
  });
}

// Every half float and its middle to the next, each with its neighbours; NaN of all kinds.
std::vector<Mox32f> floatsToEncode() {
  std::vector<Mox32f> values;
  const auto add = [&](Mox32u bits) {
    const Mox32f x = std::bit_cast<Mox32f>(bits);
    values.insert(values.end(), {x, -x});
  };
  for (Mox32u half = 0; half <= 0x7C01; ++half) {
    const Mox32u at = half < 0x7C00 ? decoded(Mox16f(half)) : 0x47800000 + (half - 0x7C00);
    for (const Mox32u offset : {0u, 0x0FFFu, 0x1000u, 0x1001u, 0x1FFFu}) add(at + offset);
  }
  for (const Mox32u bits : {0x7F800000u, 0x7F800001u, 0x7FBFFFFFu, 0x7FC00000u, 0x7FFFFFFFu,
                            0x7F7FFFFFu, 1u, 0x007FFFFFu, 0x33000000u, 0x33000001u, 0x32FFFFFFu})
    add(bits);
  Random random;
  for (int i = 0; i < 20000; ++i)
    values.push_back(std::ldexp(random.value<Mox32f>(), int(random.below(45)) - 28));
  return values;
}

TEST(Half, NarrowingRoundsByTheModeOnBothPaths) {
  const auto src = floatsToEncode();
  const auto integers = allOrMany<Mox16s>();
  for (const int roundMode : {0, 1, 7, -1}) {
    const auto model = [=](Mox32f x) { return encoded(x, roundMode != 0); };
    withCallsInAllRoundings([&] {
      onBothPaths([&] {
        expectEach(run(MEMBER(Convert_32f16f), src, roundMode), model);
        expectEach(run(MEMBER(Convert_16s16f), integers, roundMode), model);
      });
    });
  }
}

TEST(Half, NoExceptionTrapsInSoftware) {
  const std::vector<Mox32f> src = {1e-7f, std::numeric_limits<Mox32f>::signaling_NaN(), 1e30f};
  CoreProbe probe;
  probe.fixFeatures(0);
  const UnmaskedExceptions scope;
  EXPECT_OK(run(MEMBER(Convert_32f16f), src, moxRoundNearEven).status);
}

TEST(Half, IntegersComeByWayOfFloats) {
  for (const int factor : {INT_MIN, -40, -3, 0, 1, 5, 30, 200, INT_MAX})
    for (const int roundMode : {0, 1, 7})
      onBothPaths([&] {
        SCOPED_TRACE(testing::Message() << "mode " << roundMode << ", factor " << factor);
        expectEach(run(MEMBER(Convert_16f16s_Sfs), allHalves, roundMode, factor), [&](Mox16f h) {
          const Mox32f x = std::bit_cast<Mox32f>(decoded(h));
          const Mode mode = Mode(std::min(roundMode, 2));
          return std::isnan(x) ? 32767 : int(scaledFloat(x, factor, rangeOf<Mox16s>, mode));
        });
      });
}

}  // namespace
