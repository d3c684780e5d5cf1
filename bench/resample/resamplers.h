// Whole signals resampled by the library and by its peers, which both the times and the table of
// qualities are measured on.
#pragma once

#include <moxsp.h>
#include <samplerate.h>
#include <soxr.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <string>
#include <vector>

namespace bench {

// Taps at the input's rate for growing rates; as many lobes more where the rate falls.
struct Setting {
  int taps;
  float rollf, alpha;
};

class FixedResampler {
 public:
  FixedResampler(int in, int out, Setting s) : ratio_(double(out) / in) {
    const int taps = int(std::ceil(s.taps * std::max(1.0, 1 / ratio_)));
    int size, filters;
    moxsResamplePolyphaseFixedGetSize_32f(in, out, taps, &size, &filterLen_, &filters, 0);
    memory_.resize(size);
    moxsResamplePolyphaseFixedInit_32f(in, out, taps, s.rollf, s.alpha, state(), 0);
  }

  int filterLen() const { return filterLen_; }
  // With silence before and after.
  void run(const std::vector<float>& x, std::vector<float>& y) {
    padded_.assign(x.size() + 2 * filterLen_, 0);
    std::copy(x.begin(), x.end(), padded_.begin() + filterLen_);
    y.resize(std::size_t(double(x.size()) * ratio_) + 1);
    double time = 0;
    int count = 0;
    moxsResamplePolyphaseFixed_32f(padded_.data() + filterLen_, int(x.size()), y.data(), 1, &time,
                                   &count, state());
    y.resize(count);
  }

 private:
  MoxsResamplePolyphaseFixedState* state() {
    return reinterpret_cast<MoxsResamplePolyphaseFixedState*>(memory_.data());
  }
  double ratio_;
  int filterLen_;
  std::vector<Mox8u> memory_;
  std::vector<float> padded_;
};

class VariableResampler {
 public:
  VariableResampler(int in, int out, Setting s) : factor_(double(out) / in) {
    constexpr int points = 1024;
    int size;
    moxsResamplePolyphaseGetSize_32f(float(s.taps), points, &size, 0);
    memory_.resize(size);
    margin_ = int(s.taps / std::min(factor_, 1.0)) + 2;
    moxsResamplePolyphaseInit_32f(float(s.taps), points, s.rollf, s.alpha, state(), 0);
  }
  void run(const std::vector<float>& x, std::vector<float>& y) {
    padded_.assign(x.size() + 2 * margin_, 0);
    std::copy(x.begin(), x.end(), padded_.begin() + margin_);
    y.resize(std::size_t(double(x.size()) * factor_) + 2);
    double time = 0;
    int count = 0;
    moxsResamplePolyphase_32f(padded_.data() + margin_, int(x.size()), y.data(), factor_, 1, &time,
                              &count, state());
    y.resize(count);
  }

 private:
  MoxsResamplePolyphaseState* state() {
    return reinterpret_cast<MoxsResamplePolyphaseState*>(memory_.data());
  }
  double factor_;
  int margin_;
  std::vector<Mox8u> memory_;
  std::vector<float> padded_;
};

enum class Peer { srcMedium, srcBest, soxrHigh, soxrVeryHigh };

inline const char* nameOf(Peer p) {
  constexpr const char* names[] = {"libsamplerate medium", "libsamplerate best", "soxr HQ",
                                   "soxr VHQ"};
  return names[int(p)];
}

// A setting of the library's that measures no worse.
inline Setting like(Peer p) {
  return p == Peer::srcMedium ? Setting{128, 0.96f, 12} : Setting{192, 0.957f, 13};
}

inline void runPeer(Peer p, const std::vector<float>& x, int in, int out, std::vector<float>& y) {
  y.resize(std::size_t(double(x.size()) * out / in) + 100);
  if (p == Peer::srcMedium || p == Peer::srcBest) {
    SRC_DATA d = {};
    d.data_in = x.data(), d.input_frames = long(x.size());
    d.data_out = y.data(), d.output_frames = long(y.size());
    d.src_ratio = double(out) / in;
    src_simple(&d, p == Peer::srcBest ? SRC_SINC_BEST_QUALITY : SRC_SINC_MEDIUM_QUALITY, 1);
    y.resize(d.output_frames_gen);
  } else {
    const auto quality = soxr_quality_spec(p == Peer::soxrHigh ? SOXR_HQ : SOXR_VHQ, 0);
    std::size_t taken, made;
    soxr_oneshot(in, out, 1, x.data(), x.size(), &taken, y.data(), y.size(), &made, nullptr,
                 &quality, nullptr);
    y.resize(made);
  }
}

}  // namespace bench
