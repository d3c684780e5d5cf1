// What both resamplers share: positions and outputs.
#pragma once

#include <moxsp/resampling.h>

#include <algorithm>
#include <climits>
#include <cmath>

#include "convert/samples.h"
#include "frame/lifecycle.h"

namespace mox::resample {

// Whether sample indices from here on can be reckoned.
inline bool isPosition(Mox64f time) { return std::abs(time) <= INT_MAX / 2; }

// Runs sum(k) for k = 0, 1 and so on, `count` outputs, and stores them in the type of dst.
template <class Data, class SumOf>
void makeOutputs(Data* dst, long count, SumOf sumOf) {
  constexpr long pieceLen = 256;
  Mox64f sums[pieceLen];
  for (long done = 0; done < count; done += pieceLen) {
    const long piece = std::min(pieceLen, count - done);
    for (long k = 0; k < piece; ++k) sums[k] = sumOf(done + k);
    convert::giveOut(sums, dst + done, piece, 0);
  }
}

}  // namespace mox::resample
