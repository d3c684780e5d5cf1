// The response that resampling filters are cut from.
#pragma once

#include <moxsp/types.h>

namespace mox::resample {

// A sinc that cuts off at `rollf` half the sample rate, under a Kaiser window: J. O. Smith and P.
// Gossett, "A flexible sampling-rate conversion method", 1984. A wing of `len` points, `step` of
// them to a sample; samples sum up to 1.
class KaiserSinc {
 public:
  KaiserSinc(long len, long step, Mox32f rollf, Mox32f alpha);

  // At point i from the middle, 0 <= i < len.
  Mox64f operator()(long i) const { return gain_ * at(i); }

 private:
  Mox64f at(long i) const;

  long len_, step_;
  Mox64f rollf_, alpha_, peak_, gain_ = 1;
};

// Whether the two are ones for a filter.
bool areFilterParameters(Mox32f rollf, Mox32f alpha);

}  // namespace mox::resample
