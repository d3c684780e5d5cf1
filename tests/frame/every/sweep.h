// The lengths and alignments that checks run over.
#pragma once

#include <cstdlib>

#include "frame/every/checks.h"
#include "frame/every/contract.h"
#include "frame/every/objects.h"
#include "frame/every/shapes.h"

namespace every {

inline bool wanted(const char* variable, int value) {
  const char* text = std::getenv(variable);
  return !text || std::atoi(text) == value;
}

// f(length) for 1 to 70 where the function has a length; for powers of two to 1024 where an object
// decides the length, for one where nothing depends on it.
template <class F>
void forLengths(const Function& function, Position& position, F f) {
  const bool hasLength = every::hasLength(function), hasObject = objectParameter(function) >= 0;
  const int last = hasLength || !hasObject ? 70 : 1024;
  for (int length = 1; length <= last; ++length) {
    const bool powerOfTwo = (length & (length - 1)) == 0;
    if (hasLength || (hasObject && powerOfTwo) || length == 17) {
      position.length = length;
      if (wanted("MOXSP_TEST_LEN", length)) f(length);
    }
  }
}

// By how many roundings the results of other alignments may differ.
inline double roundingsOfSums(const Function& function, int length) {
  return deviation(function, Deviation::alignedSums) ? length + 1 : 0;
}

// All of them in one build, every ninth in the others (CMakeLists.txt).
template <class F>
void forRemainders(Position& position, F f) {
  for (int remainder = 0; remainder < 32; remainder += REMAINDER_STEP) {
    position.remainder = remainder;
    if (wanted("MOXSP_TEST_OFFSET", remainder)) f(remainder);
  }
}

}  // namespace every
