// Sine and cosine of a vector of angles, to less than one unit in the last place.
#pragma once

namespace mox {

// dst may be src. Nothing happens for a null array or a length below 1.
template <class F>
void ownsSin(const F* src, F* dst, int len);
template <class F>
void ownsCos(const F* src, F* dst, int len);

}  // namespace mox
