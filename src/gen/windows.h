// The windows as other folders call them.
#pragma once

#include <moxsp/types.h>

#include "frame/elements.h"

namespace mox::gen {

// The parameter of a window, and what its weights are computed and applied in.
template <class E>
using WeightOf = std::conditional_t<std::is_same_v<Part<E>, Mox64f>, Mox64f, Mox32f>;

template <class E>
MoxStatus winBartlett(const E* src, E* dst, int len);
template <class E>
MoxStatus winHann(const E* src, E* dst, int len);
template <class E>
MoxStatus winHamming(const E* src, E* dst, int len);
template <class E>
MoxStatus winBlackman(const E* src, E* dst, int len, WeightOf<E> alpha);
template <class E>
MoxStatus winBlackmanOpt(const E* src, E* dst, int len);
template <class E>
MoxStatus winKaiser(const E* src, E* dst, int len, WeightOf<E> alpha);

}  // namespace mox::gen
