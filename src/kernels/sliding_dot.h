// The sums of the direct engine: each output is a window of samples times the reversed taps.
#pragma once

namespace mox::kernels {

// dst[i] = sum over k of revTaps[k] * window[i + k], for 0 <= i < count; reads count + tapsLen - 1
// samples. Every output is one chain of additions in order of increasing k; a complex one is two,
// over the products with the real and with the imaginary parts of the taps. So an output doesn't
// depend on the block that it is computed in. For Mox32f, Mox64f, Mox32fc, Mox64fc.
template <class A>
void filterWindow(const A* window, A* dst, long count, const A* revTaps, long tapsLen);

}  // namespace mox::kernels
