// Reversal of the low bits of an index.
#pragma once

namespace mox {

constexpr int reversed(int i, int bits) {
  int r = 0;
  for (int b = 0; b < bits; ++b, i >>= 1) r = 2 * r + (i & 1);
  return r;
}

}  // namespace mox
