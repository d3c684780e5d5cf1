// What the harness knows of parameters beyond their types: which value is valid, how long an array
// is, how an object is made. Tables of patterns; the first row that fits a function and a
// parameter holds. A new family adds rows only where the general ones at the end do not fit.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "frame/every/call.h"

namespace every {

// A valid value for a parameter passed by value, or for all elements of a small array; none: arrays
// get random elements.
std::optional<double> numberFor(const Call& call, int parameter);

// How many elements the function may touch.
std::optional<long> countFor(const Call& call, int parameter);

// The Init function that makes the object on which this function works.
std::optional<std::string> makerOf(const std::string& function);

// The status for a length that is out of range, and the values that are.
struct LengthRule {
  const char* functions;
  const char* parameters;
  MoxStatus status;
  std::vector<int> refused;
};
const LengthRule* lengthRuleFor(const std::string& function, const std::string& parameter);

}  // namespace every
