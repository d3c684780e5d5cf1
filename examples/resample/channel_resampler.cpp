#include "channel_resampler.h"

#include <algorithm>
#include <cmath>

#include "support/require.h"

ChannelResampler::ChannelResampler(int inRate, int outRate, const Quality& quality)
    : ratio_(double(outRate) / inRate) {
  const int taps = int(std::ceil(quality.taps / std::min(ratio_, 1.0)));
  int bytes;
  require(moxsResamplePolyphaseFixedGetSize_32f(inRate, outRate, taps, &bytes, &filterLen_,
                                                &filters_, moxHintNone),
          "moxsResamplePolyphaseFixedGetSize_32f");
  memory_.resize(bytes);
  require(moxsResamplePolyphaseFixedInit_32f(inRate, outRate, taps, quality.rollf, quality.alpha,
                                             state(), moxHintNone),
          "moxsResamplePolyphaseFixedInit_32f");
  line_.resize(filterLen_ / 2);
  next_ = line_.size();
}

void ChannelResampler::push(const std::vector<float>& samples, std::vector<float>& resampled) {
  line_.insert(line_.end(), samples.begin(), samples.end());
  const std::size_t half = filterLen_ / 2;
  resampled.clear();
  if (line_.size() <= next_ + half) return;
  const int len = int(line_.size() - half - next_);
  resampled.resize(std::size_t(len * ratio_) + 2);
  int count;
  require(moxsResamplePolyphaseFixed_32f(&line_[next_], len, resampled.data(), 1, &time_, &count,
                                         state()),
          "moxsResamplePolyphaseFixed_32f");
  resampled.resize(count);
  next_ += std::size_t(time_);
  time_ -= std::floor(time_);
  const std::size_t done = std::min(next_ - half, line_.size());
  line_.erase(line_.begin(), line_.begin() + long(done));
  next_ -= done;
}

void ChannelResampler::finish(std::vector<float>& resampled) {
  push(std::vector<float>(filterLen_ / 2), resampled);
}
