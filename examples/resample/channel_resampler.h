// One channel on its way from one rate to another, in blocks of any size.
#pragma once

#include <moxsp.h>

#include <vector>

// Taps at the lower of both rates, where the filter cuts off relative to half that rate, and the
// parameter of its Kaiser window.
struct Quality {
  int taps;
  float rollf, alpha;
};

class ChannelResampler {
 public:
  ChannelResampler(int inRate, int outRate, const Quality& quality);

  // Output k stands at the time k / outRate of the sound; it comes once the samples around it have.
  void push(const std::vector<float>& samples, std::vector<float>& resampled);
  // What is left, as if silence followed.
  void finish(std::vector<float>& resampled);

  int taps() const { return filterLen_; }
  int filters() const { return filters_; }

 private:
  MoxsResamplePolyphaseFixedState* state() {
    return reinterpret_cast<MoxsResamplePolyphaseFixedState*>(memory_.data());
  }

  std::vector<Mox8u> memory_;
  int filterLen_ = 0, filters_ = 0;
  double ratio_;
  std::vector<float> line_;  // from half a filter before the next output on
  std::size_t next_;         // the sample at or before it
  double time_ = 0;          // how far it is behind that sample
};
