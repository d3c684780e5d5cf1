// One channel's FIR filter in memory of our own: the way that real-time code uses the library,
// which then allocates nothing.
#pragma once

#include <moxsp.h>

#include <vector>

template <class Sample>  // Mox16s or Mox32f
class ChannelFilter {
 public:
  explicit ChannelFilter(const std::vector<float>& taps);
  ChannelFilter(ChannelFilter&&) = default;  // the state stays where it is

  // Filters one block in place; the delay line carries over to the next.
  void run(std::vector<Sample>& block);

 private:
  std::vector<Mox8u> memory_;
  MoxsFIRState* state_ = nullptr;
};
