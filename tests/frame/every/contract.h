// Where a function's contract differs from what holds for all, and why.
#pragma once

#include <string>

namespace every {

enum class Deviation {
  noStatus,         // returns no status: no check applies, a test of its own holds it
  lengthFirst,      // looks at the length before the pointers
  onlyZeroRefused,  // of the lengths below 1 refuses 0 alone
  notOntoSource,    // the destination must not be a source, although the lengths agree
  notElementwise,   // an output depends on the length, or on inputs at other places
  otherInPlace,     // the _I form differs from the plain form by definition
  alignedSums,      // the order of a sum follows the alignment: compared within a tolerance
  ownMemory,        // takes memory beside the buffer that it is given
  outputsApart,     // one null output does not keep the call from writing the others
  noIdentifier      // cannot tell a foreign object from its own
};

// The reason, in words; null when the function does as all do.
const char* deviation(const std::string& function, Deviation kind);

// May this pointer be null?
bool optionalPointer(const std::string& function, const std::string& parameter);

// Memory whose content after a call means nothing.
bool scratch(const std::string& function, const std::string& parameter);

}  // namespace every
