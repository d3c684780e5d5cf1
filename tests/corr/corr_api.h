// Convolutions and correlations by their definitions, and the functions of one element type.
#pragma once

#include <array>
#include <numeric>

#include "support/core_probe.h"
#include "support/filters.h"

namespace test {

// The sums over k of a[k] * b[sign * k + n] for n = first to first + count - 1.
template <class E>
std::vector<Sum> sumsOf(const std::vector<E>& a, const std::vector<E>& b, int sign, long first,
                        long count) {
  std::vector<Sum> sums(count);
  for (long i = 0; i < count; ++i)
    for (long k = 0; k < long(a.size()); ++k)
      if (const long j = sign * k + first + i; j >= 0 && j < long(b.size())) {
        const Exact x = exactly(a[k]);
        sums[i].add(sign > 0 ? std::conj(x) : x, exactly(b[j]));
      }
  return sums;
}
template <class E>
long double norm(const std::vector<E>& v) {
  return std::sqrt(std::accumulate(v.begin(), v.end(), 0.0L,
                                   [](auto sum, E e) { return sum + std::norm(exactly(e)); }));
}

// Sums over divisor(i), as near as the header promises; `scale` is the product of the norms where
// transforms ran, else 0.
template <class E, class Divisor>
void expectNear(const std::vector<E>& got, const std::vector<Sum>& sums, long double scale,
                Divisor divisor) {
  const long double u = std::numeric_limits<mox::Part<E>>::epsilon() / 2;
  for (std::size_t i = 0; i < sums.size(); ++i) {
    const auto& [value, magnitude, terms] = sums[i];
    const long double over = terms ? divisor(sums[i]) : 1,
                      error = scale > 0 && terms ? 16 * u * scale : u * (3 * terms + 2) * magnitude;
    ASSERT_LE(std::abs(exactly(got[i]) - value / over), error / over) << "output " << i;
  }
}

// Those of 16 bits times 2^-factor, to nearest and saturated.
template <class Divisor>
void expectScaled(const std::vector<Mox16s>& got, const std::vector<Sum>& sums, int factor,
                  Divisor divisor, double error = 0.5) {
  for (std::size_t i = 0; i < sums.size(); ++i) {
    const double mean = sums[i].terms ? double(sums[i].value.real()) / divisor(sums[i]) : 0;
    ASSERT_NEAR(got[i], std::clamp(std::scalbln(mean, -long(factor)), -32768.0, 32767.0), error)
        << "output " << i << ", factor " << factor;
  }
}

constexpr auto unchanged = [](const Sum&) { return 1; };
constexpr auto overTerms = [](const Sum& sum) { return sum.terms; };

template <class E>
struct CorrApi;
#define CORR_API(E, type, fft)                                      \
  template <>                                                       \
  struct CorrApi<E> {                                               \
    static constexpr int dataType = moxType##type;                  \
    static constexpr auto fftSize = moxsFFTGetSize_##fft##_##type;  \
    static constexpr auto autoCorr = moxsAutoCorr_##type;           \
    static constexpr auto autoCorrA = moxsAutoCorr_NormA_##type;    \
    static constexpr auto autoCorrB = moxsAutoCorr_NormB_##type;    \
    static constexpr auto autoCorrNorm = moxsAutoCorrNorm_##type;   \
    static constexpr auto crossCorr = moxsCrossCorr_##type;         \
    static constexpr auto crossCorrNorm = moxsCrossCorrNorm_##type; \
  }
CORR_API(Mox32f, 32f, R);
CORR_API(Mox64f, 64f, R);
CORR_API(Mox32fc, 32fc, C);
CORR_API(Mox64fc, 64fc, C);

// What size queries tell of `arrays` arrays of 2^order elements and their transform.
template <class E>
int publishedSize(int order, int arrays) {
  const auto up = [](long bytes) { return (bytes + 63) / 64 * 64; };
  int spec, init, work;
  EXPECT_OK(CorrApi<E>::fftSize(order, moxNormInverse, 0, &spec, &init, &work));
  return int(up(spec) + up(init) + up(work) + up((long(arrays) * sizeof(E)) << order) + 64);
}

// The order of a transform of n points.
inline int log2Up(long n) { return int(std::ceil(std::log2(n))); }

// What a function makes of certain signals, and how.
template <class E>
struct Expected {
  std::vector<Sum> sums;
  long double scale;  // of errors by transforms, 0 where none ever runs
  bool isFft;         // by the automatic choice
  int fftBytes, bytes;
  long length = 0;  // that normalization A divides by, if the function has any
};

// Runs all forms of the function: call(form, y, more...) puts the signals before y, size(algType,
// bytes) tells the buffer of the first form. The others have none: plain, with normalization A, B.
template <class E, class Call, class Size, class Run, class... Alone>
void expectForms(const Expected<E>& e, Call call, Size size, Run run, Alone... alone) {
  const std::array runAlone = {alone...};
  Random random(1);
  for (const int algType : {moxAlgAuto, moxAlgDirect, moxAlgFft}) {
    SCOPED_TRACE(testing::Message() << e.sums.size() << " outputs, algorithm " << algType);
    const bool byFft = e.scale > 0 && (algType == moxAlgFft || (algType == moxAlgAuto && e.isFft));
    int bytes = -1;
    ASSERT_OK(size(algType, &bytes));
    EXPECT_EQ(bytes, byFft ? e.fftBytes : e.bytes);
    std::vector<E> y(e.sums.size()), z(y);
    if (e.bytes == 0) {
      EXPECT_EQ(call(run, y.data(), algType, nullptr), byFft ? moxErrNullPtr : moxOk);
    }
    const auto expect = [&](int kind, auto divisor) {
      const long offset = 1 + random.below(64);
      std::vector<Mox8u> buffer(offset + bytes);
      EXPECT_EQ(call(run, y.data(), algType | kind, buffer.data() + offset),
                kind == 0x300 ? moxErrAlgType : moxOk);
      expectNear(y, e.sums, byFft ? e.scale : 0, divisor);
      if (algType != moxAlgAuto || kind / 0x100 >= int(runAlone.size())) return;
      CoreProbe probe;
      probe.failAllocation(1);
      const auto again = [&] { return call(runAlone[kind / 0x100], z.data()); };
      EXPECT_EQ(again(), byFft ? moxErrMemAlloc : moxOk);
      EXPECT_OK(again());
      EXPECT_EQ(probe.live(), 0);
      EXPECT_EQ(std::memcmp(y.data(), z.data(), y.size() * sizeof(E)), 0);
    };
    expect(0, unchanged);
    if (e.length == 0) continue;
    expect(moxAlgNormA, [&](const Sum&) { return e.length; });
    expect(moxAlgNormB, overTerms);
    expect(0x300, unchanged);
    EXPECT_EQ(size(algType | 0x300, &bytes), moxErrAlgType);
  }
}

}  // namespace test
