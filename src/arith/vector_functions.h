// Elementary functions on vectors, for the library's own use. Each returns at once for a length
// below 1 or a null array; `dst` may be `src`. No exception is raised to the caller's handlers, and
// the control word is as it was. The result is a code of the first element that the family warns
// of, else 0.
#pragma once

#include <moxsp/types.h>

namespace mox::arith {

int ownsExp(const Mox32f* src, Mox32f* dst, int len);
int ownsLn(const Mox32f* src, Mox32f* dst, int len);

// Of angles in radians, within 0.51 ulp for Mox32f, 0.8 ulp for Mox64f.
int ownsSin(const Mox32f* src, Mox32f* dst, int len);
int ownsCos(const Mox32f* src, Mox32f* dst, int len);
int ownsSin(const Mox64f* src, Mox64f* dst, int len);
int ownsCos(const Mox64f* src, Mox64f* dst, int len);

}  // namespace mox::arith
