// One channel's bands in memory of our own. Taps and sums are doubles, whatever the samples are:
// with single-precision taps a band at 20 Hz would lie a percent off.
#pragma once

#include <moxsp.h>

#include <vector>

#include "band.h"

template <class Sample>  // Mox16s or Mox32f
class ChannelFilter {
 public:
  explicit ChannelFilter(const std::vector<Taps>& bands);
  ChannelFilter(ChannelFilter&&) = default;  // the states stay where they are

  // Filters one block in place; the delay lines carry over to the next.
  void run(std::vector<Sample>& block);

 private:
  std::vector<std::vector<Mox8u>> memory_;
  std::vector<MoxsIIRState*> states_;
  std::vector<Mox64f> wide_;
};
