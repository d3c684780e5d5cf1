// The windows as other folders call them.
#pragma once

#include <moxsp/types.h>

#include "gen/block.h"

namespace mox::gen {

template <class E>
MoxStatus winBartlett(const E* src, E* dst, int len);
template <class E>
MoxStatus winHann(const E* src, E* dst, int len);
template <class E>
MoxStatus winHamming(const E* src, E* dst, int len);
template <class E>
MoxStatus winBlackman(const E* src, E* dst, int len, FloatOf<E> alpha);
template <class E>
MoxStatus winBlackmanOpt(const E* src, E* dst, int len);
template <class E>
MoxStatus winKaiser(const E* src, E* dst, int len, FloatOf<E> alpha);

}  // namespace mox::gen
