// The checks that every exported function has to pass. Each throws Misbehaved on the first fault
// and Unknown when it cannot drive the function.
#pragma once

#include <string>

#include "frame/every/functions.h"

namespace every {

// Where a check stands in its sweep; narrowed by MOXSP_TEST_LEN and MOXSP_TEST_OFFSET.
struct Position {
  int length = 0, remainder = 0;
  std::string detail;  // which argument or setting is being tried
};

struct Check {
  const char* name;
  bool (*applies)(const Function&);
  void (*run)(const Function&, Position&);
};

}  // namespace every
