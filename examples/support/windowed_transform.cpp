#include "support/windowed_transform.h"

#include <numeric>

#include "support/require.h"

WindowedTransform::WindowedTransform(int order, std::vector<float> window)
    : window_(std::move(window)), samples_(1 << order), spectrum_((1 << order) / 2 + 1) {
  MoxsFFTSpec* spec;
  require(moxsFFTInitAlloc_R_32f(&spec, order, moxNormNone, moxHintNone), "moxsFFTInitAlloc_R_32f");
  spec_.reset(spec);
  int bytes;
  require(moxsFFTGetBufSize_R_32f(spec, &bytes), "moxsFFTGetBufSize_R_32f");
  buffer_.resize(bytes);
  const float fullScale = std::accumulate(window_.begin(), window_.end(), 0.0f) / 2;
  for (float& w : window_) w /= fullScale;
}

const std::vector<Mox32fc>& WindowedTransform::operator()(const std::vector<float>& frames,
                                                          int channels, int channel) {
  for (int i = 0; i < length(); ++i)
    samples_[i] = window_[i] * frames[std::size_t(i) * channels + channel];
  require(moxsFFTFwd_RToCCS_32f(samples_.data(), &spectrum_[0].re, spec_.get(), buffer_.data()),
          "moxsFFTFwd_RToCCS_32f");
  return spectrum_;
}
