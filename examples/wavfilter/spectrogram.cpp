#include "spectrogram.h"

#include <moxsp.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <sndfile.hh>
#include <stdexcept>

#include "channel_filter.h"

namespace {

constexpr int order = 10, points = 1 << order;

// A real transform of `points` samples in library memory, with its work buffer.
class RealTransform {
 public:
  RealTransform() {
    MoxsFFTSpec* spec;
    require(moxsFFTInitAlloc_R_32f(&spec, order, 8, 0), "moxsFFTInitAlloc_R_32f");
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

std::vector<float> hannWindow() {
  std::vector<float> w(points);
  for (int i = 0; i < points; ++i)
    w[i] = float(0.5 - 0.5 * std::cos(2 * std::numbers::pi * i / points));
  return w;
}

// `points` samples from frame `start` on, channels averaged, zeros behind the end.
void readMono(SndfileHandle& file, sf_count_t start, std::vector<float>& mono) {
  std::vector<float> frames(std::size_t(points) * file.channels());
  file.seek(start, SEEK_SET);
  file.readf(frames.data(), points);
  for (int i = 0; i < points; ++i) {
    float sum = 0;
    for (int c = 0; c < file.channels(); ++c) sum += frames[std::size_t(i) * file.channels() + c];
    mono[i] = sum / float(file.channels());
  }
}

}  // namespace

Spectrogram spectrogramOf(const std::filesystem::path& path, int maxColumns) {
  SndfileHandle file(path.string());
  if (file.error())
    throw std::runtime_error("cannot read " + path.string() + ": " + file.strError());
  const sf_count_t hop = std::max<sf_count_t>(points / 4, file.frames() / maxColumns + 1);

  Spectrogram s;
  s.columns = int((file.frames() + hop - 1) / hop);
  s.bins = points / 2 + 1;
  s.rate = file.samplerate();
  s.seconds = double(file.frames()) / s.rate;

  const std::vector<float> window = hannWindow();
  const float fullScale = points / 4.0f;  // magnitude of a full-scale sine under this window
  RealTransform transform;
  std::vector<float> samples(points);
  std::vector<Mox32fc> spectrum(s.bins);
  for (int column = 0; column < s.columns; ++column) {
    readMono(file, column * hop, samples);
    for (int i = 0; i < points; ++i) samples[i] *= window[i];
    transform.forward(samples, spectrum);
    for (const Mox32fc& x : spectrum)
      s.power.push_back((x.re * x.re + x.im * x.im) / (fullScale * fullScale));
  }
  return s;
}

BandLevels levelsOf(const Spectrogram& s, const Band& band) {
  // A sine spreads over 1.5 bins' worth of power under this window.
  constexpr double spread = 1.5;
  double stop = 0, pass = 0;
  for (int column = 0; column < s.columns; ++column)
    for (int bin = 0; bin < s.bins; ++bin) {
      if (band.stops(s.hz(bin))) stop += s.at(column, bin);
      if (band.passes(s.hz(bin))) pass += s.at(column, bin);
    }
  const auto dB = [&](double power) {
    return 10 * std::log10(std::max(power / spread / std::max(s.columns, 1), 1e-20));
  };
  return {dB(stop), dB(pass)};
}
