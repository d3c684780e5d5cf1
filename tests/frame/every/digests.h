// What all functions give, in one line each: builds of the library for other registers must give
// the same.
#pragma once

#include <string>

namespace every {

void writeDigests(const std::string& file);

}  // namespace every
