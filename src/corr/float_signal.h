// 16-bit signals by way of floats.
#pragma once

#include "convert/samples.h"
#include "frame/work_buffer.h"

namespace mox::corr {

// In memory of its own.
class FloatSignal {
 public:
  explicit FloatSignal(long len) : len_(len), work_(nullptr, len * long(sizeof(Mox32f))) {}
  FloatSignal(const Mox16s* src, long len) : FloatSignal(len) {
    if (!failed()) convert::takeIn(src, samples(), len);
  }

  bool failed() const { return work_.failed(); }
  Mox32f* samples() const { return work_.as<Mox32f>(); }
  void giveOut(Mox16s* dst, int scaleFactor) const {
    convert::giveOut(samples(), dst, len_, scaleFactor);
  }

 private:
  long len_;
  WorkBuffer work_;
};

}  // namespace mox::corr
