// A block of samples of any type through a state.
#pragma once

#include "convert/samples.h"
#include "iir/iir_block.h"

namespace mox::iir {

template <class C>
void filter(StateOf<C>& s, const typename C::Data* src, typename C::Data* dst, long len,
            int scaleFactor) {
  using Held = typename C::Held;
  if constexpr (std::is_same_v<typename C::Data, Held>) {
    filterBlock(s, src, dst, len);
  } else {
    for (long i = 0; i < len; i += pieceLen(s)) {
      const long piece = std::min(pieceLen(s), len - i);
      convert::takeIn(src + i, s.staging, piece);
      filterBlock(s, s.staging, s.staging, piece);
      convert::giveOut(s.staging, dst + i, piece, scaleFactor);
    }
  }
}

}  // namespace mox::iir
