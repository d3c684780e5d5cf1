// Cosines and sines of evenly spaced angles.
#pragma once

#include "arith/sine.h"
#include "frame/map.h"
#include "gen/angle.h"
#include "gen/block.h"

namespace mox::gen {

// magnitude * cos(phase + n step) and the sine for n from 0 on, in blocks: those of the first
// angles n step are a table, which the phasor of a block turns to its place. From block to block
// the phasor itself turns by a product; every 64 blocks it is made anew, so that its error stays
// below 64 roundings. The table and its products are in the format F, the phasor in double.
template <class F>
class Oscillator {
 public:
  Oscillator(Mox64f magnitude, Mox64f step, Mox64f phase)
      : magnitude_(magnitude), step_(step), phase_(phase), turn_(phasorAt(blockLen * step)) {
    Block<Mox64f> re, im;
    for (int j = 0; j < Block<Mox64f>::vectors; ++j) {
      const auto angles = lanesFrom<V<Mox64f>>(Ramp<Mox64f>{0, step}, j * lanesOf<Mox64f>);
      const auto z = arith::phasor(arith::reduced(angles));
      re.v[j] = z.re, im.v[j] = z.im;
    }
    table_ = {inFormat<F>(re), inFormat<F>(im)};
    start();
  }

  [[gnu::always_inline]] Block<F> cosines() const {
    const V<F> re = inLanes(phasor_.re), im = inLanes(phasor_.im);
    return blockOf<F>([&](int j) { return re * table_.re.v[j] - im * table_.im.v[j]; });
  }
  [[gnu::always_inline]] Block<F> sines() const {
    const V<F> re = inLanes(phasor_.re), im = inLanes(phasor_.im);
    return blockOf<F>([&](int j) { return re * table_.im.v[j] + im * table_.re.v[j]; });
  }

  [[gnu::always_inline]] void advance() {
    phasor_ = product(phasor_, turn_);
    if (++block_ % 64 == 0) [[unlikely]]
      start();
  }

 private:
  using Wide = V<Mox64f>;

  static Pair<Wide> phasorAt(Mox64f angle) {
    return arith::phasor(arith::reduced(broadcast<Wide>(angle)));
  }
  static V<F> inLanes(Wide v) {
    return inFormat<F>(blockOf<Mox64f>([&](int) { return v; })).v[0];
  }

  [[gnu::noinline]] void start() {
    phasor_ = phasorAt(angleAt(block_ * blockLen, step_, phase_)) * magnitude_;
  }

  Mox64f magnitude_, step_, phase_;
  long block_ = 0;
  Pair<Wide> turn_, phasor_;
  Pair<Block<F>> table_;
};

}  // namespace mox::gen
