// What the harness knows of parameters beyond their types: which value is valid, and how long an
// array is.
#pragma once

#include <optional>
#include <vector>

#include "frame/every/call.h"

namespace every {

// A valid value for a parameter passed by value, or for all elements of a small array; none: arrays
// get random elements.
std::optional<double> numberFor(const Call& call, int parameter);

// How many elements the function may touch.
std::optional<long> countFor(const Call& call, int parameter);

// Whether an argument of the function follows the length of the setting.
bool hasLength(const Function& function);

// Settings of numbers that lead a function, or the one that makes its object, by other ways: none,
// then each other value that the table lists, one at a time.
using Numbers = std::map<std::string, long>;
std::vector<Numbers> otherNumbers(const Function& function);

}  // namespace every
