#include "delay.h"

#include <algorithm>
#include <cmath>

#include "support/require.h"

namespace {

// All channels together, the low frequencies taken down: they say little about time.
Channel whitened(const WholeSound& sound) {
  Channel mix = sound.channels[0];
  const int frames = int(mix.size());
  for (std::size_t c = 1; c < sound.channels.size(); ++c)
    require(moxsAdd_32f_I(sound.channels[c].data(), mix.data(), frames), "moxsAdd_32f_I");
  constexpr float pole = 0.97f;
  require(moxsPreemphasize_32f(mix.data(), frames, pole), "moxsPreemphasize_32f");
  return mix;
}

double energyOf(const Channel& x) {
  double energy = 0;
  for (const float e : x) energy += double(e) * e;
  return energy;
}

}  // namespace

Delay findDelay(const WholeSound& first, const WholeSound& second, long most) {
  const Channel a = whitened(first), b = whitened(second);
  const int len1 = int(a.size()), len2 = int(b.size());
  const int lowest = -int(std::min<long>(most, len1 - 1));
  const int count = int(std::min<long>(most, len2 - 1)) - lowest + 1;
  constexpr int algorithm = moxAlgFft | 0;
  int bytes;
  require(moxsCrossCorrNormGetBufferSize(len1, len2, count, lowest, moxType32f, algorithm, &bytes),
          "moxsCrossCorrNormGetBufferSize");
  std::vector<Mox8u> buffer(bytes);
  Channel correlation(count);
  require(moxsCrossCorrNorm_32f(a.data(), len1, b.data(), len2, correlation.data(), count, lowest,
                                algorithm, buffer.data()),
          "moxsCrossCorrNorm_32f");

  const auto size = [&](long i) { return std::abs(correlation[i]); };
  long best = 0;
  for (long i = 1; i < count; ++i)
    if (size(i) > size(best)) best = i;
  // Delays that differ by less than this count as one.
  const long near = first.rate / 200;
  float next = 0;
  for (long i = 0; i < count; ++i)
    if (std::abs(i - best) > near) next = std::max(next, size(i));
  const double all = std::sqrt(energyOf(a) * energyOf(b));
  return {lowest + best, correlation[best]<0, all> 0 ? size(best) / all : 0,
          size(best) > 0 ? 1 - next / size(best) : 0};
}

void resample(WholeSound& sound, int rate) {
  if (sound.rate == rate) return;
  const int taps = int(64 * std::max(1.0, double(sound.rate) / rate));
  int size, filterLen, filters;
  require(moxsResamplePolyphaseFixedGetSize_32f(sound.rate, rate, taps, &size, &filterLen, &filters,
                                                moxHintNone),
          "moxsResamplePolyphaseFixedGetSize_32f");
  std::vector<Mox8u> memory(size);
  auto* state = reinterpret_cast<MoxsResamplePolyphaseFixedState*>(memory.data());
  require(moxsResamplePolyphaseFixedInit_32f(sound.rate, rate, taps, 0.95f, 9, state, moxHintNone),
          "moxsResamplePolyphaseFixedInit_32f");
  for (Channel& channel : sound.channels) {
    const int frames = int(channel.size()), history = filterLen / 2 + 1;
    Channel padded(frames + 2 * history), result(long(double(frames) * rate / sound.rate) + 2);
    std::copy(channel.begin(), channel.end(), padded.begin() + history);
    Mox64f time = 0;
    int count;
    require(moxsResamplePolyphaseFixed_32f(padded.data() + history, frames, result.data(), 1, &time,
                                           &count, state),
            "moxsResamplePolyphaseFixed_32f");
    result.resize(count);
    channel = result;
  }
  sound.rate = rate;
}
