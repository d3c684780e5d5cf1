// The logarithm of one float in double precision, by a table over the mantissa.
#include <array>

#include "arith/ln.h"

namespace mox::arith {
namespace {

struct Row {
  double reciprocal, logHigh, logLow;
};

// ln((1 + s) / (1 - s)) for s up to 1/3, by the series of artanh.
constexpr long double lnOfRatio(long double s) {
  long double sum = 0, power = s;
  for (int k = 1; k < 60; k += 2, power *= s * s) sum += 2 * power / k;
  return sum;
}

// The leading 21 bits or so of a logarithm: times an exponent they are exact, and so are sums.
constexpr double highPart(long double v) {
  return std::bit_cast<double>(std::bit_cast<Mox64u>(double(v)) & ~Mox64u(0xFFFFFFFF));
}

constexpr long double ln2 = lnOfRatio(1 / 3.0L);

// Row i serves mantissas from c = 1 + i / 128 on.
constexpr auto table = [] {
  std::array<Row, 128> rows{};
  for (int i = 0; i < 128; ++i) {
    const long double log = lnOfRatio(i / (256.0L + i));
    rows[i] = {128.0 / (128 + i), highPart(log), double(log - highPart(log))};
  }
  return rows;
}();

// (ln(1 + d) - d) / (d * d) + 0.5 over d, for |d| up to 0.009765625.
double series(double d) {
  return ((((d * -0.1250214602960357 + 0.1428756883852146) * d - 0.1666666651884978) * d +
           0.19999999911565072) *
              d -
          0.25000000000003386) *
             d +
         0.33333333333334386;
}

double lnOfPositive(double x) {
  const double d = x - 1;
  if (std::abs(d) <= 0.009765625) return (series(d) * d - 0.5) * (d * d) + d;

  constexpr int fractionBits = 52, bias = 1023, rowBits = 7;
  constexpr Mox64u fraction = (Mox64u(1) << fractionBits) - 1;
  const Mox64u bits = std::bit_cast<Mox64u>(x);
  const double exponent = int(bits >> fractionBits) - bias;
  const double m = std::bit_cast<double>((bits & fraction) | Mox64u(bias) << fractionBits);
  const Row& row = table[(bits & fraction) >> (fractionBits - rowBits)];
  const double high = (m + 0x1p21) - 0x1p21;  // so short that its product is exact
  const double t = (row.reciprocal * high - 1) + row.reciprocal * (m - high);
  const double logOfRest = (series(t) * t - 0.5) * (t * t) + t;
  return (exponent * highPart(ln2) + row.logHigh) +
         (logOfRest + (exponent * double(ln2 - highPart(ln2)) + row.logLow));
}

}  // namespace

Mox32f lnOfFloat(Mox32f x, int& code) {
  if (const auto special = lnOutsideItsDomain(x, code)) return *special;
  return Mox32f(lnOfPositive(x));
}

}  // namespace mox::arith
