// The road of an element-wise kernel: a peel until the destination is aligned, blocks of vectors,
// and a tail; all three apply the same operation.
#pragma once

#include "frame/vec.h"

namespace mox {

// Elements before `dst` reaches a vector boundary, or -1 when it never does.
template <class D>
int peelCount(const D* dst) {
  const int past = int(addressOf(dst) & (vectorBytes - 1));
  if (past == 0) return 0;
  return past % int(sizeof(D)) ? -1 : (vectorBytes - past) / int(sizeof(D));
}

// dst[i] = op(src[i]...). `op` takes scalars or vectors; all loads of a block come before its
// stores, so that `dst` may be one of the sources.
template <class D, class Op, class... S>
void mapElements(Op op, D* dst, long len, const S*... src) {
  constexpr long lanes = lanesOf<D>, block = lanes < 16 ? 16 : lanes, vecs = block / lanes;
  long i = 0;
  if (const int peel = peelCount(dst); peel >= 0 && peel + block <= len) {
    for (; i < peel; ++i) store(dst + i, D(op(load<S>(src + i)...)));
    for (; i <= len - block; i += block) {
      V<D> r[vecs];
      for (int j = 0; j < vecs; ++j) r[j] = op(load<V<S, lanes>>(src + i + j * lanes)...);
      for (int j = 0; j < vecs; ++j) storeAligned(dst + i + j * lanes, r[j]);
    }
  }
  for (; i < len; ++i) store(dst + i, D(op(load<S>(src + i)...)));
}

}  // namespace mox
