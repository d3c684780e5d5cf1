#include "support/spectrogram.h"

#include <moxsp.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <numeric>

#include "support/program.h"
#include "support/require.h"
#include "support/sound_file.h"

namespace {

constexpr int order = 10, points = 1 << order;

// A real transform of `points` samples in library memory, with its work buffer.
class RealTransform {
 public:
  RealTransform() {
    MoxsFFTSpec* spec;
    require(moxsFFTInitAlloc_R_32f(&spec, order, moxNormNone, moxHintNone),
            "moxsFFTInitAlloc_R_32f");
    spec_.reset(spec);
    int bytes;
    require(moxsFFTGetBufSize_R_32f(spec, &bytes), "moxsFFTGetBufSize_R_32f");
    buffer_.resize(bytes);
  }
  void forward(const std::vector<float>& samples, std::vector<Mox32fc>& spectrum) {
    require(moxsFFTFwd_RToCCS_32f(samples.data(), &spectrum[0].re, spec_.get(), buffer_.data()),
            "moxsFFTFwd_RToCCS_32f");
  }

 private:
  struct Free {
    void operator()(MoxsFFTSpec* spec) const { moxsFFTFree_R_32f(spec); }
  };
  std::unique_ptr<MoxsFFTSpec, Free> spec_;
  std::vector<Mox8u> buffer_;
};

std::vector<float> hannWindow(int length) {
  std::vector<float> w(length);
  for (int i = 0; i < length; ++i)
    w[i] = float(0.5 - 0.5 * std::cos(2 * std::numbers::pi * (i + 0.5) / length));
  return w;
}

}  // namespace

Spectrogram spectrogramOf(const std::filesystem::path& path, int maxColumns) {
  SndfileHandle file = openSound(path);
  const int channels = file.channels(), length = int(std::min<sf_count_t>(points, file.frames()));
  const std::vector<float> window = hannWindow(length);
  // The magnitude of a full-scale sine under this window.
  const float fullScale = std::accumulate(window.begin(), window.end(), 0.0f) / 2;

  Spectrogram s;
  s.frames = file.frames();
  s.hop = std::max<long>(points / 4, s.frames / maxColumns + 1);
  s.columns = int((s.frames + s.hop - 1) / s.hop);
  s.bins = points / 2 + 1;
  s.rate = file.samplerate();
  s.power.resize(std::size_t(s.columns) * s.bins);
  s.channelPower.assign(channels, std::vector<double>(s.bins));
  s.spread = 1.5 * points / length;

  RealTransform transform;
  std::vector<float> frames(std::size_t(length) * channels), samples(points);
  std::vector<Mox32fc> spectrum(s.bins);
  for (int column = 0; column < s.columns; ++column) {
    checkInterrupt();
    const long middle = column * s.hop + s.hop / 2;
    file.seek(std::clamp(middle - length / 2, 0L, s.frames - length), SEEK_SET);
    file.readf(frames.data(), length);
    for (int c = 0; c < channels; ++c) {
      for (int i = 0; i < length; ++i)
        samples[i] = window[i] * frames[std::size_t(i) * channels + c] / fullScale;
      transform.forward(samples, spectrum);
      for (int bin = 0; bin < s.bins; ++bin) {
        const Mox32fc x = spectrum[bin];
        const float power = x.re * x.re + x.im * x.im;
        s.power[std::size_t(column) * s.bins + bin] += power / float(channels);
        s.channelPower[c][bin] += power / s.columns;
      }
    }
  }
  return s;
}
