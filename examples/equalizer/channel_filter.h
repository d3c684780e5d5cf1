// One channel's cascade in memory of our own. The taps are doubles, whatever the samples are: with
// single-precision taps a band at 20 Hz would lie a percent off.
#pragma once

#include <moxsp.h>

#include <vector>

#include "band.h"

template <class Sample>  // Mox16s or Mox32f
class ChannelFilter {
 public:
  explicit ChannelFilter(const std::vector<Section>& cascade);
  ChannelFilter(ChannelFilter&&) = default;  // the state stays where it is

  // Filters one block in place; the delay line carries over to the next.
  void run(std::vector<Sample>& block);

 private:
  std::vector<Mox8u> memory_;
  MoxsIIRState* state_ = nullptr;
};
