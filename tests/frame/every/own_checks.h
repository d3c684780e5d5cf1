// The checks by file: argument_checks.cpp, result_checks.cpp, environment_checks.cpp.
#pragma once

#include "frame/every/checks.h"

namespace every {

bool hasPointer(const Function&);
bool hasLength(const Function&);
bool takesObject(const Function&);
void checkNullPointers(const Function&, Position&);
void checkLengths(const Function&, Position&);
void checkForeignObject(const Function&, Position&);

bool isElementwise(const Function&);
bool hasPlainForm(const Function&);
bool mayRunOntoSource(const Function&);
void checkEveryLengthAndAlignment(const Function&, Position&);
void checkShorterCalls(const Function&, Position&);
void checkInPlaceForm(const Function&, Position&);
void checkOntoSource(const Function&, Position&);

bool hasScaleFactor(const Function&);
void checkScaleFactors(const Function&, Position&);
void checkControlWords(const Function&, Position&);
void checkAllocations(const Function&, Position&);

}  // namespace every
