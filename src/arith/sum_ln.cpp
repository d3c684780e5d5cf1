// Sums of logarithms as the logarithm of a product: exponents are added as integers, mantissas
// multiplied, and one logarithm is taken at the end. The lanes are the same at every address.
#include <moxsp/arith.h>

#include <algorithm>
#include <limits>
#include <optional>

#include "arith/ln.h"
#include "frame/export.h"
#include "frame/widen.h"

namespace mox::arith {
namespace {

// The lanes of an order of additions: they are four on every machine.
using Lanes = V<Mox64f, orderBytes / sizeof(Mox64f)>;
constexpr int lanes = laneCount<Lanes>, vectorsPerStep = 4,
              elementsPerStep = vectorsPerStep * lanes;

class Product {
 public:
  void multiply(LnArgument<Lanes> x) {
    exponent_ += x.exponent;
    mantissa_ *= x.mantissa;
  }

  void multiplyByPowerOfTwo(int n) { exponent_[0] += n; }

  // Brings the mantissas back to about 1; due before a thousand of them can leave the range.
  void normalize() {
    const LnArgument split(mantissa_);
    exponent_ += split.exponent;
    mantissa_ = split.mantissa;
  }

  Mox64f ln() {
    normalize();
    LnArgument all(mantissa_);
    all.exponent = Lanes{exponent_[0] + exponent_[1] + exponent_[2] + exponent_[3]};
    const Lanes r = lnOf(all);
    return r[0] + ((r[1] + r[2]) + r[3]);
  }

 private:
  Lanes exponent_ = broadcast<Lanes>(0.0), mantissa_ = broadcast<Lanes>(1.0);
};

// What a number that is not positive and finite has for a logarithm; nothing for the others.
std::optional<Mox64f> lnOfSpecial(Mox64f x, int& code) {
  using Range = std::numeric_limits<Mox64f>;
  if (x == 0) {
    code = lnOfZero;
    return -Range::infinity();
  }
  if (x < 0) {
    code = lnOfNegative;
    return Range::quiet_NaN();
  }
  if (!(x <= Range::max())) return x * x;  // infinity and NaN
  return {};
}

class LnSum {
 public:
  template <class S>
  void add(const S* src) {
    Lanes x[vectorsPerStep];
    for (int j = 0; j < vectorsPerStep; ++j) {
      x[j] = loadWidened<Lanes>(src + lanes * j);
      if (signBits(Ln64f::special(x[j]))) [[unlikely]]
        x[j] = takeSpecial(x[j]);
    }
    if constexpr (sizeof(S) < 8) {  // four factors can't leave the range of a double
      product_.multiply(LnArgument((x[0] * x[1]) * (x[2] * x[3])));
    } else {
      for (int j = 0; j < vectorsPerStep; ++j) product_.multiply(LnArgument(x[j]));
    }
    if (++steps_ % 128 == 0) product_.normalize();
  }

  Mox64f value() { return product_.ln() + special_; }
  MoxStatus status() const { return lnStatus(code_); }

 private:
  // Makes subnormal numbers normal. Of what has no logarithm the result is added instead, and 1
  // takes its place.
  [[gnu::noinline, gnu::cold]] Lanes takeSpecial(Lanes x) {
    const int bits = signBits(Ln64f::special(x));
    for (int lane = 0; lane < lanes; ++lane) {
      if (!(bits >> lane & 1)) continue;
      int noted = 0;
      if (const auto special = lnOfSpecial(x[lane], noted)) {
        special_ += *special;
        x[lane] = 1;
      } else {
        product_.multiplyByPowerOfTwo(-54);
        x[lane] *= 0x1p54;
      }
      if (code_ == 0) code_ = noted;
    }
    return x;
  }

  Product product_;
  Mox64f special_ = 0;
  int code_ = 0;
  unsigned steps_ = 0;
};

template <class S, class D>
MoxStatus sumLn(const S* src, int len, D* sum) {
  if (MoxStatus s = checkArrays(len, src, sum)) return s;
  LnSum total;
  int i = 0;
  for (; i <= len - elementsPerStep; i += elementsPerStep) total.add(src + i);
  if (i < len) {
    S rest[elementsPerStep];
    std::fill(rest, rest + elementsPerStep, S(1));
    for (int j = 0; i + j < len; ++j) rest[j] = load<S>(src + i + j);
    total.add(rest);
  }
  store(sum, D(total.value()));
  return total.status();
}

}  // namespace

MOX_EXPORT(moxsSumLn_32f, sumLn);
MOX_EXPORT(moxsSumLn_64f, sumLn);
MOX_EXPORT(moxsSumLn_32f64f, sumLn);
MOX_EXPORT(moxsSumLn_16s32f, sumLn);

}  // namespace mox::arith
