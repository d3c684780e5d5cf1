// Where a function's contract differs from what holds for all.
#pragma once

#include <string>

#include "frame/every/functions.h"

namespace every {

enum class Deviation {
  noStatus,        // returns no status: no check applies, a test of its own holds it
  notOntoSource,   // the destination must not be a source, although the lengths agree
  notElementwise,  // an output depends on the length, or on inputs at other places
  alignedSums,     // the order of a sum follows the alignment: compared within roundings
  outputsApart,    // one null output does not keep the call from writing the others
  clearsObject,    // stores null where it has no memory for an object
  ownMemory,       // takes memory beside the buffer that it is given
  unidentified     // its objects have no identifier: it does not look at what it is given
};

bool deviation(const Function& function, Deviation kind);

// May this pointer be null?
bool optionalPointer(const Function& function, const std::string& parameter);

// Memory whose content after a call means nothing.
bool scratch(const Function& function, const std::string& parameter);

}  // namespace every
