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
  bool (*applies)(const Function&);  // null: also to what is not built or has no status
  void (*run)(const Function&, Position&);
};

// refusals.cpp
bool canBeRefused(const Function&);
void checkRefusals(const Function&, Position&);
bool takesObject(const Function&);
void checkForeignObjects(const Function&, Position&);

// result_checks.cpp
bool isElementwise(const Function&);
bool hasPlainForm(const Function&);
bool mayRunOntoSource(const Function&);
bool hasOtherNumbers(const Function&);
void checkEveryLengthAndAlignment(const Function&, Position&);
void checkOtherNumbers(const Function&, Position&);
void checkShorterCalls(const Function&, Position&);
void checkInPlaceForm(const Function&, Position&);
void checkOntoSource(const Function&, Position&);

// environment_checks.cpp
bool hasScaleFactor(const Function&);
void checkScaleFactors(const Function&, Position&);
void checkControlWords(const Function&, Position&);
void checkAllocations(const Function&, Position&);

}  // namespace every
