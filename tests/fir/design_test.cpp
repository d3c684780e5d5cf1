// Designed filters against their defining formulas in long double.
#include "support/test.h"
#include "support/windows.h"

namespace {

using namespace test;
using Real = long double;

Weight windowOf(int type) {
  return type == moxWindowBartlett      ? bartlett
         : type == moxWindowBlackmanOpt ? blackmanOpt
         : type == moxWindowHamming     ? hamming
         : type == moxWindowHann        ? hann
                                        : rectangular;
}

enum Kind { lowpass, highpass, bandpass, bandstop };

Real idealAt(Kind kind, Real low, Real high, Real d, bool isEven) {
  const auto s = [&](Real f) { return d == 0 ? 2 * f : std::sin(2 * pi * f * d) / (pi * d); };
  const Real unit = d == 0 ? 1 : 0;
  if (kind == lowpass) return s(high);
  if (kind == bandpass) return s(high) - s(low);
  if (kind == bandstop) return unit - s(high) + s(low);
  return isEven ? std::cos(2 * pi * high * d) / (pi * d) : unit - s(high);
}

MoxStatus generate(Kind kind, double low, double high, Mox64f* taps, int len, int type,
                   int normal) {
  const auto ofOne = kind == lowpass ? moxsFIRGenLowpass_64f : moxsFIRGenHighpass_64f;
  const auto ofTwo = kind == bandpass ? moxsFIRGenBandpass_64f : moxsFIRGenBandstop_64f;
  return kind < bandpass ? ofOne(high, taps, len, type, normal)
                         : ofTwo(low, high, taps, len, type, normal);
}

double magnitude(const std::vector<Mox64f>& taps, Real f) {
  Real re = 0, im = 0;
  for (std::size_t i = 0; i < taps.size(); ++i) {
    re += taps[i] * std::cos(2 * pi * f * i);
    im += taps[i] * std::sin(2 * pi * f * i);
  }
  return double(std::hypot(re, im));
}

TEST(FIRGen, IsTheWindowedIdealResponse) {
  for (const Kind kind : {lowpass, highpass, bandpass, bandstop})
    for (const int len : {5, 6, 7, 8, 31, 64, 511, 2000})
      for (int type = -1; type <= 4; ++type)
        for (const auto& [low, high] : {std::pair(0.1, 0.23), {0.001, 0.499}}) {
          std::vector<Mox64f> taps(len), normal(len);
          ASSERT_OK(generate(kind, low, high, taps.data(), len, type, 0));
          ASSERT_OK(generate(kind, low, high, normal.data(), len, type, -3));
          const bool turns = kind == highpass && len % 2 == 0;
          for (int i = 0; i < len; ++i) {
            const Real d = Real(len - 1) / 2 - i;
            const Real ideal = idealAt(kind, low, high, turns ? d : std::abs(d), len % 2 == 0);
            ASSERT_NEAR(taps[i], double(ideal * windowOf(type)(i, len - 1, 0)), 1e-14)
                << kind << " of " << len << ", window " << type << ", tap " << i;
            ASSERT_EQ(taps[i], (turns ? -1 : 1) * taps[len - 1 - i]);
            ASSERT_EQ(normal[i], (turns ? -1 : 1) * normal[len - 1 - i]);
          }
          const Real reference = kind == highpass   ? 0.5
                                 : kind == bandpass ? (Real(low) + high) / 2
                                                    : 0;
          if (magnitude(taps, reference) > 1e-3) {
            ASSERT_NEAR(magnitude(normal, reference), 1, 1e-13) << kind << " of " << len;
          }
        }
}

}  // namespace
