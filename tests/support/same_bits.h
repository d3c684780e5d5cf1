// Equality to the last bit, which tells zeros and NaN apart.
#pragma once

#include <cstring>
#include <vector>

namespace test {

template <class E>
bool sameBits(const E& a, const E& b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}
template <class E>
bool sameBits(const std::vector<E>& a, const std::vector<E>& b) {
  return a.size() == b.size() &&
         (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(E)) == 0);
}

}  // namespace test
