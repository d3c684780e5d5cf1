// Copies for the use of other families; the exported Copy and Move stand on the same two.
#pragma once

#include <moxsp/types.h>

namespace mox::move {

// The arrays must not overlap.
void copyBytes(const void* src, void* dst, long bytes);
// The arrays may overlap in any way.
void moveBytes(const void* src, void* dst, long bytes);

template <class E>
void copyElements(const E* src, E* dst, long len) {
  copyBytes(src, dst, len * long(sizeof(E)));
}

}  // namespace mox::move
