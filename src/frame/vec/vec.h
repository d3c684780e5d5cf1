// Registers. Arithmetic, comparisons, shifts, __builtin_convertvector and __builtin_shufflevector
// are the compiler's own, so that one generic lambda serves vectors and scalars. What the language
// has no word for is wrapped in these files, once, under a name that says what it does. No kernel
// names a register width except through V.
#pragma once

#include "frame/vec/complex.h"
#include "frame/vec/core.h"
#include "frame/vec/float.h"
#include "frame/vec/integer.h"
#include "frame/vec/mask.h"
#include "frame/vec/partial.h"
#include "frame/vec/shuffle.h"
