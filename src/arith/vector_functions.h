// Sine and cosine of vectors of angles in radians, for the library's own use: within 0.51 ulp for
// Mox32f, 0.8 ulp for Mox64f. Each returns at once for a length below 1 or a null array; `dst` may
// be `src`. No exception is raised to the caller's handlers, and the control word is as it was.
#pragma once

#include <moxsp/types.h>

namespace mox::arith {

void ownsSin(const Mox32f* src, Mox32f* dst, int len);
void ownsCos(const Mox32f* src, Mox32f* dst, int len);
void ownsSin(const Mox64f* src, Mox64f* dst, int len);
void ownsCos(const Mox64f* src, Mox64f* dst, int len);

}  // namespace mox::arith
