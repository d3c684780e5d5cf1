// Elementary functions on vectors, for the library's own use. Each returns at once for a length
// below 1 or a null array; `dst` may be `src`. No exception is raised to the caller's handlers, and
// the control word is as it was.
#pragma once

#include <moxsp/types.h>

namespace mox::arith {

// A row has room for three kernels, and a figure for each. Calls go through the first slot; the
// others stand for variants and hold the same kernel. A kernel returns a code of the first element
// that its family warns of, else 0.
template <class F>
struct VectorFunction {
  using Kernel = int (*)(const F* src, F* dst, int len);

  Kernel kernels[3];
  Mox32f figures[3];

  constexpr VectorFunction(Kernel kernel, Mox32f first, Mox32f second, Mox32f third)
      : kernels{kernel, kernel, kernel}, figures{first, second, third} {}

  int operator()(const F* src, F* dst, int len) const { return kernels[0](src, dst, len); }
};

// Sine and cosine take angles in radians, and are within 0.51 ulp for Mox32f, 0.8 ulp for Mox64f.
extern const VectorFunction<Mox32f> ownsExp_32f, ownsLn_32f, ownsSin_32f, ownsCos_32f;
extern const VectorFunction<Mox64f> ownsSin_64f, ownsCos_64f;

inline void ownsSin(const Mox32f* src, Mox32f* dst, int len) { ownsSin_32f(src, dst, len); }
inline void ownsCos(const Mox32f* src, Mox32f* dst, int len) { ownsCos_32f(src, dst, len); }
inline void ownsSin(const Mox64f* src, Mox64f* dst, int len) { ownsSin_64f(src, dst, len); }
inline void ownsCos(const Mox64f* src, Mox64f* dst, int len) { ownsCos_64f(src, dst, len); }

}  // namespace mox::arith
