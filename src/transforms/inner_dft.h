// A DFT inside the library, on memory of our own: nothing can fail. The inverse multiplies by 1/N.
#pragma once

#include "transforms/dft_run.h"
#include "transforms/dft_tables.h"
#include "transforms/packed_layouts.h"

namespace mox::transforms {

// Of elements E, real or complex floats. An InnerDft is a member of the record of the object that
// uses it, and its parts are among the parts of that object.
template <class E>
class InnerDft {
  using F = Part<E>;
  static constexpr bool isReal = !Complex<E>;

 public:
  // moxErrSize or moxErrFftOrder for a length that no plan has.
  static MoxStatus check(int len) { return DftShape<F>{len, isReal}.status(); }
  // Bytes of scratch for fill() at any address, and of work memory for a run at a multiple of 64.
  static long scratchBytes(int len) { return DftShape<F>{len, isReal}.sizes().init; }
  static long workBytes(int len) { return DftShape<F>{len, isReal}.sizes().work; }

  void place(Arena& arena, int len) {
    plan_ = placeRecord<DftSpec<F>>(arena, DftShape<F>{len, isReal});
  }
  void fill(Mox8u* scratch) {
    constexpr int inverseByN = 2;
    fillDft(*plan_, isReal, inverseByN, 0, scratch);
  }

  // `dst` may be `src`; a spectrum of real samples is in CCS layout.
  void forward(const E* src, E* dst, Mox8u* work) const {
    if constexpr (isReal)
      ownDftRealForward<CcsLayout>(*plan_, src, dst, reinterpret_cast<F*>(work));
    else
      ownDftRun<Direction::forward, Array<E>>(*plan_, {src}, {dst}, reinterpret_cast<F*>(work));
  }
  void inverse(const E* src, E* dst, Mox8u* work) const {
    if constexpr (isReal)
      ownDftRealInverse<CcsLayout>(*plan_, src, dst, reinterpret_cast<F*>(work));
    else
      ownDftRun<Direction::inverse, Array<E>>(*plan_, {src}, {dst}, reinterpret_cast<F*>(work));
  }

 private:
  DftSpec<F>* plan_;
};

}  // namespace mox::transforms
