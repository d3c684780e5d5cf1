// What FIR filters are measured against: their definition, in wider numbers for floats and to the
// bit for sums of 32 bits that wrap around.
#pragma once

#include "fir/fir_api.h"
#include "support/test.h"

namespace test {

// Zeros inserted, filtered, outputs dropped: f(k, i) for every tap and the sample that it meets in
// output j; samples below 0 are those of the delay line.
void forTerms(long taps, const Rates& r, long j, auto f) {
  for (long k = 0; k < taps; ++k)
    if (const long place = r.down * j + r.downPhase - k - r.upPhase; place % r.up == 0)
      f(k, place / r.up);
}

// Samples behind their past, x[-1], x[-2] and so on, which may be silence.
template <class D>
struct Signal {
  std::vector<D> past, samples;

  D operator[](long i) const {
    if (i >= 0) return samples[i];
    return -1 - i < long(past.size()) ? past[-1 - i] : D{};
  }
  // The newest samples first.
  std::vector<D> lastPast() const {
    std::vector<D> last;
    for (long k = 0; k < long(past.size()); ++k)
      last.push_back((*this)[long(samples.size()) - 1 - k]);
    return last;
  }
};

// Of floats.
template <class F>
class Model {
  using Tap = typename F::Tap;
  using Data = typename F::Data;
  using P = mox::Part<Data>;
  static constexpr long double roundoff = std::numeric_limits<mox::Part<Tap>>::epsilon() / 2;
  std::vector<Tap> taps_;

 public:
  Model(const std::vector<Tap>& taps, int) : taps_(taps) {}

  int scaleFor(long) const { return 0; }

  void expectTaps(const MoxsFIRState* s) const {
    std::vector<Tap> got(taps_.size());
    ASSERT_OK(F::getTaps(s, got.data()));
    ASSERT_EQ(std::memcmp(got.data(), taps_.data(), got.size() * sizeof(Tap)), 0);
  }

  // Outputs from `first` on.
  void expectOutputs(const Signal<Data>& x, const Rates& r, int, const std::vector<Data>& got,
                     long first = 0) const {
    std::vector<Sum> sums(got.size());
    for (long j = 0; j < long(got.size()); ++j)
      forTerms(long(taps_.size()), r, first + j,
               [&](long k, long i) { sums[j].add(exactly(taps_[k]), exactly(x[i])); });
    const int stages = 4 + int(std::log2(taps_.size()));
    const long double largest = std::ranges::max(sums, {}, &Sum::magnitude).magnitude;
    for (std::size_t j = 0; j < got.size(); ++j) {
      const Exact value = inRange<Data>(sums[j].value);
      const long double bound = roundoff * (byFft ? stages * largest : terms * sums[j].magnitude);
      ASSERT_LE(std::abs(exactly(got[j]) - value), bound + storeError(value))
          << "output " << first + long(j) << ", " << taps_.size() << " taps";
    }
  }

  // By way of a spectrum, outputs are as far off as one rounding of the largest for each stage of a
  // transform; else as the roundings of a chain of as many products as taps.
  bool byFft = false;
  long terms = 2 * long(taps_.size()) + 2;

 private:
  // Half a unit in each part, or a roundoff.
  static long double storeError(Exact value) {
    return std::is_integral_v<P> ? std::sqrt(0.5L) + 1e-9L
                                 : std::abs(value) * std::numeric_limits<P>::epsilon() / 2;
  }
};

enum class Rule { down, nearEven, halfAway, oddUp };

// sum * 2^shift as the functions round and saturate it.
inline Mox16s rounded(Mox32u wrapped, long shift, Rule rule) {
  const long s = std::clamp(shift, -31L, 31L);
  const long sum = Mox32s(wrapped);
  long r = sum;
  if (s > 0) {
    r = Mox32s(wrapped << s);
  } else if (s == 0) {
    if (rule == Rule::oddUp) r += sum & 1;
  } else {
    const long unit = 1L << -s, floor = sum >> -s, rest = sum - floor * unit;
    const bool up = rule == Rule::down       ? false
                    : 2 * rest != unit       ? 2 * rest > unit
                    : rule == Rule::halfAway ? sum > 0
                                             : floor & 1;
    r = floor + up;
  }
  return Mox16s(std::clamp(r, -32768L, 32767L));
}

// Of 16-bit taps that stand for 2^factor.
template <class F>
requires isFixedPoint<F>
class Model<F> {
  using Tap = typename F::Tap;
  using Data = typename F::Data;
  using P = mox::Part<Tap>;
  static constexpr int width = mox::partsPerElement<Data>;

 public:
  // Integers are halved while the largest is above the limit; floats get the power of two that the
  // largest needs.
  Model(const std::vector<Tap>& taps, int factor, long limit = F::limit) : factor_(factor) {
    const P* const p = mox::parts(taps.data());
    const long n = long(taps.size()) * width;
    long double largest = 0;
    for (long i = 0; i < n; ++i) largest = std::max(largest, std::fabs((long double)p[i]));
    int shift = 0;
    if (takesFactor<F>) {
      for (long l = long(largest); l > limit; l /= 2) ++shift;
      factor_ += shift;
    } else {
      for (factor_ = -33; factor_ < 33 && largest > std::ldexp(32767.0L, factor_);) ++factor_;
    }
    for (long i = 0; i < n; ++i)
      if constexpr (takesFactor<F>)
        taps_.push_back(long(p[i]) >> shift);
      else
        taps_.push_back(long(
            std::clamp(std::round(std::ldexp((long double)p[i], -factor_)), -32767.0L, 32767.0L)));
  }

  int scaleFor(long shift) const { return int(factor_ - shift); }

  void expectTaps(const MoxsFIRState* s) const {
    std::vector<Tap> got(taps_.size() / width);
    int factor = factor_;
    if constexpr (takesFactor<F>)
      ASSERT_OK(F::getTaps(s, got.data(), &factor));
    else
      ASSERT_OK(F::getTaps(s, got.data()));
    EXPECT_EQ(factor, factor_);
    for (std::size_t i = 0; i < taps_.size(); ++i)
      ASSERT_EQ((long double)mox::parts(got.data())[i],
                std::ldexp((long double)taps_[i], takesFactor<F> ? 0 : factor_));
  }

  void expectOutputs(const Signal<Data>& x, const Rates& r, int scale, const std::vector<Data>& got,
                     long first = 0) const {
    for (long j = 0; j < long(got.size()); ++j) {
      Mox32u sum[2] = {};
      forTerms(long(taps_.size()) / width, r, first + j, [&](long k, long i) {
        const Data d = x[i];
        const auto* v = mox::parts(&d);
        const long* t = &taps_[k * width];
        sum[0] += Mox32u(t[0] * v[0]);
        if constexpr (width == 2) {
          sum[0] -= Mox32u(t[1] * v[1]);
          sum[1] += Mox32u(t[0] * v[1] + t[1] * v[0]);
        }
      });
      for (int p = 0; p < width; ++p)
        ASSERT_EQ(mox::parts(&got[j])[p], rounded(sum[p], long(factor_) - scale, rule))
            << "output " << first + j << ", shift " << long(factor_) - scale;
    }
  }

  Rule rule = Rule::nearEven;

 private:
  std::vector<long> taps_;  // as parts
  int factor_;
};

// Taps whose outputs fill, but seldom exceed, the range of the data; in fixed point any size up to
// one that is drawn.
template <class F>
std::vector<typename F::Tap> someTaps(Random& random, long n) {
  auto taps = random.vector<typename F::Tap>(n);
  using P = mox::Part<typename F::Tap>;
  const int places = int(random.below(8 * sizeof(P)));
  const double size =
      isFixedPoint<F> ? std::ldexp(1.0, 2 * places - 20) : 1.5 / std::sqrt(double(n));
  for (long i = 0; i < n * mox::partsPerElement<typename F::Tap>; ++i)
    if constexpr (std::is_integral_v<P>)
      mox::parts(taps.data())[i] >>= places;
    else
      mox::parts(taps.data())[i] *= P(size);
  return taps;
}

}  // namespace test
