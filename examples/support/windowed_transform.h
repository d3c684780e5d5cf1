// The spectrum of a stretch of sound under a window.
#pragma once

#include <moxsp.h>

#include <memory>
#include <vector>

class WindowedTransform {
 public:
  // A transform of 2^order points; the window is no longer than that.
  WindowedTransform(int order, std::vector<float> window);

  int length() const { return int(window_.size()); }
  int bins() const { return int(spectrum_.size()); }

  // The next call replaces the spectrum, in which a full-scale sine has a magnitude of 1. The
  // samples are those of one channel of interleaved frames.
  const std::vector<Mox32fc>& operator()(const std::vector<float>& frames, int channels,
                                         int channel);

 private:
  struct Free {
    void operator()(MoxsFFTSpec* spec) const { moxsFFTFree_R_32f(spec); }
  };
  std::unique_ptr<MoxsFFTSpec, Free> spec_;
  std::vector<Mox8u> buffer_;
  std::vector<float> window_, samples_;
  std::vector<Mox32fc> spectrum_;
};
