#include "support/spectrogram.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "support/program.h"
#include "support/sound_file.h"
#include "support/windowed_transform.h"

namespace {

std::vector<float> hannWindow(int length) {
  std::vector<float> w(length);
  for (int i = 0; i < length; ++i)
    w[i] = float(0.5 - 0.5 * std::cos(2 * std::numbers::pi * (i + 0.5) / length));
  return w;
}

}  // namespace

Spectrogram spectrogramOf(const std::filesystem::path& path, int maxColumns) {
  constexpr int order = 10, points = 1 << order;
  SndfileHandle file = openSound(path);
  const int channels = file.channels(), length = int(std::min<sf_count_t>(points, file.frames()));
  WindowedTransform transform(order, hannWindow(length));

  Spectrogram s;
  s.frames = file.frames();
  s.hop = std::max<long>(points / 4, s.frames / maxColumns + 1);
  s.columns = int((s.frames + s.hop - 1) / s.hop);
  s.bins = transform.bins();
  s.rate = file.samplerate();
  s.power.resize(std::size_t(s.columns) * s.bins);
  s.channelPower.assign(channels, std::vector<double>(s.bins));
  s.spread = 1.5 * points / length;

  std::vector<float> frames(std::size_t(length) * channels);
  for (int column = 0; column < s.columns; ++column) {
    checkInterrupt();
    const long middle = column * s.hop + s.hop / 2;
    file.seek(std::clamp(middle - length / 2, 0L, s.frames - length), SEEK_SET);
    file.readf(frames.data(), length);
    for (int c = 0; c < channels; ++c) {
      const std::vector<Mox32fc>& spectrum = transform(frames, channels, c);
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
