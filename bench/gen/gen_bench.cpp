// Windows, tones and random numbers beside what a user would write: loops at -O3 over the formula,
// with the functions of the C library or SLEEF's vectors, and the generators of the C++ library.
#include <moxsp.h>
#include <sleef.h>

#include <cmath>
#include <cstdint>
#include <random>

#include "support/vectors.h"

namespace {

constexpr int len = 4096;
constexpr float pi = 3.14159265f;

template <class T>
struct Data {
  bench::Vector<T> src{len}, dst{len};
  Data() {
    for (int i = 0; i < len; ++i) src.data()[i] = T(i % 100);
  }
};

template <class T>
bench::Work passOver(double reads) {
  return {.bytesRead = reads * len * sizeof(T), .bytesWritten = 1.0 * len * sizeof(T)};
}

// dst[i] = weight(i) * src[i], eight at a time.
template <class Weight>
void weighBySleef(Data<float>& d, Weight weight) {
  __m256 n = _mm256_setr_ps(0, 1, 2, 3, 4, 5, 6, 7);
  for (int i = 0; i < len; i += 8) {
    _mm256_storeu_ps(d.dst.data() + i, weight(n) * _mm256_loadu_ps(d.src.data() + i));
    n += 8.0f;
  }
  bench::clobber(d.dst.data());
}

template <class F>
F near(F x) {
  const F y = x * (1 / 3.75f), t = y * y;
  return 1 + t * (3.5156229f +
                  t * (3.0899424f +
                       t * (1.2067492f + t * (0.2659732f + t * (0.0360768f + t * 0.0045813f)))));
}
template <class F>
F far(F x) {
  const F t = 3.75f / x;
  return 0.39894228f +
         t * (0.01328592f +
              t * (0.00225319f +
                   t * (-0.00157565f +
                        t * (0.00916281f +
                             t * (-0.02057706f +
                                  t * (0.02635537f + t * (-0.01647633f + t * 0.00392377f)))))));
}
float besselI0(float x) { return x < 3.75f ? near(x) : far(x) * std::exp(x) / std::sqrt(x); }
__m256 besselI0(__m256 x) {
  const __m256 large = far(x) * Sleef_expf8_u10avx(x) / _mm256_sqrt_ps(x);
  return _mm256_blendv_ps(large, near(x), _mm256_cmp_ps(x, _mm256_set1_ps(3.75f), _CMP_LT_OQ));
}

void addWindows() {
  const auto data = std::make_shared<Data<float>>();
  Data<float>& d = *data;
  constexpr float theta = 2 * pi / (len - 1), alpha = 17.0f / (len - 1);
  bench::add<Data<float>>(
      "winhann_32f", len, passOver<float>(1), data,
      {{"", [&d] { moxsWinHann_32f(d.src.data(), d.dst.data(), len); }},
       {"loop",
        [&d] {
          for (int i = 0; i < len; ++i)
            d.dst.data()[i] = d.src.data()[i] * (0.5f - 0.5f * std::cos(theta * float(i)));
          bench::clobber(d.dst.data());
        }},
       {"sleef", [&d] {
          weighBySleef(d, [](__m256 n) { return 0.5f - 0.5f * Sleef_cosf8_u10avx(theta * n); });
        }}});
  const float peak = besselI0(alpha * (len - 1) / 2);
  bench::add<Data<float>>(
      "winkaiser_32f", len, passOver<float>(1), data,
      {{"", [&d] { moxsWinKaiser_32f(d.src.data(), d.dst.data(), len, alpha); }},
       {"loop",
        [&d, peak] {
          for (int i = 0; i < len; ++i) {
            const float x = alpha * std::sqrt(float(i) * (len - 1 - float(i)));
            d.dst.data()[i] = d.src.data()[i] * (besselI0(x) / peak);
          }
          bench::clobber(d.dst.data());
        }},
       {"sleef", [&d, peak] {
          weighBySleef(d, [peak](__m256 n) {
            return besselI0(alpha * _mm256_sqrt_ps(n * (float(len - 1) - n))) * (1 / peak);
          });
        }}});
}

template <class T, class F>
bench::Call toneOf(Data<T>& d, MoxStatus (*tone)(T*, int, F, F, F*, int), int hint) {
  return [&d, tone, hint, phase = F(0)]() mutable {
    tone(d.dst.data(), len, 1, F(0.01), &phase, hint);
  };
}

template <class F>
void cosineLoop(F* dst) {
  constexpr F w = F(0.0628318530717958648);
  for (int i = 0; i < len; ++i) dst[i] = std::cos(w * F(i));
  bench::clobber(dst);
}

struct Tones {
  Data<float> single;
  Data<double> wide;
  bench::Vector<Mox32fc> z{len};
};

void addTones() {
  const auto data = std::make_shared<Tones>();
  Tones& d = *data;
  for (const int hint : {moxHintFast, moxHintAccurate})
    bench::add<Tones>(hint == moxHintFast ? "tone_32f fast" : "tone_32f accurate", len,
                      passOver<float>(0), data,
                      {{"", toneOf(d.single, moxsTone_Direct_32f, hint)},
                       {"loop", [&d] { cosineLoop(d.single.dst.data()); }}});
  bench::add<Tones>("tone_64f", len, passOver<double>(0), data,
                    {{"", toneOf(d.wide, moxsTone_Direct_64f, moxHintAccurate)},
                     {"loop", [&d] { cosineLoop(d.wide.dst.data()); }}});
  bench::add<Tones>("tone_32fc accurate", len, passOver<Mox32fc>(0), data,
                    {{"",
                      [&d, phase = 0.0f]() mutable {
                        moxsTone_Direct_32fc(d.z.data(), len, 1, 0.01f, &phase, moxHintAccurate);
                      }},
                     {"loop", [&d] {
                        for (int i = 0; i < len; ++i) {
                          const float angle = 0.0628318531f * float(i);
                          d.z.data()[i] = {std::cos(angle), std::sin(angle)};
                        }
                        bench::clobber(d.z.data());
                      }}});
}

struct Xoshiro128Plus {
  std::uint32_t s[4] = {1, 2, 3, 4};
  float operator()() {
    const std::uint32_t result = s[0] + s[3], t = s[1] << 9;
    s[2] ^= s[0], s[3] ^= s[1], s[1] ^= s[2], s[0] ^= s[3];
    s[2] ^= t, s[3] = s[3] << 11 | s[3] >> 21;
    return float(result >> 8) * 0x1p-24f;
  }
};

template <class T>
struct Random : Data<T> {
  MoxRandUniformState* uniform;
  MoxRandGaussState* gauss;
  Mox32u seed = 1;
  std::mt19937 engine;
  Xoshiro128Plus xoshiro;
  std::uniform_real_distribution<T> even;
  std::normal_distribution<T> normal;

  Random() {
    moxsRandUniformInitAlloc_32f(&uniform, 0, 1, 1);
    moxsRandGaussInitAlloc_32f(&gauss, 0, 1, 1);
  }
  ~Random() { moxsRandUniformFree_32f(uniform), moxsRandGaussFree_32f(gauss); }
  Random(const Random&) = delete;
  Random& operator=(const Random&) = delete;

  template <class Draw>
  void fill(Draw draw) {
    for (int i = 0; i < len; ++i) this->dst.data()[i] = draw();
    bench::clobber(this->dst.data());
  }
};

void addRandom() {
  const auto data = std::make_shared<Random<float>>();
  Random<float>& d = *data;
  bench::add<Random<float>>("randuniform_32f", len, passOver<float>(0), data,
                            {{"", [&d] { moxsRandUniform_32f(d.dst.data(), len, d.uniform); }},
                             {"mt19937", [&d] { d.fill([&d] { return d.even(d.engine); }); }},
                             {"xoshiro128+", [&d] { d.fill([&d] { return d.xoshiro(); }); }}});
  bench::add<Random<float>>(
      "randgauss_32f", len, passOver<float>(0), data,
      {{"", [&d] { moxsRandGauss_32f(d.dst.data(), len, d.gauss); }},
       {"mt19937, normal_distribution", [&d] { d.fill([&d] { return d.normal(d.engine); }); }}});
  const auto wide = std::make_shared<Random<double>>();
  Random<double>& w = *wide;
  bench::add<Random<double>>(
      "randgauss_64f", len, passOver<double>(0), wide,
      {{"", [&w] { moxsRandGauss_Direct_64f(w.dst.data(), len, 0, 1, &w.seed); }},
       {"mt19937, normal_distribution", [&w] { w.fill([&w] { return w.normal(w.engine); }); }}});
}

const bool added = (addWindows(), addTones(), addRandom(), true);

}  // namespace
