// Registers. Arithmetic, comparisons, shifts, __builtin_convertvector and __builtin_shufflevector
// are the compiler's own, so that one generic lambda serves vectors and scalars. What the language
// has no word for is wrapped in these files, once, under a name that says what it does. No kernel
// names a register width except through V.
#pragma once

#include "frame/vec_complex.h"
#include "frame/vec_core.h"
#include "frame/vec_float.h"
#include "frame/vec_integer.h"
#include "frame/vec_mask.h"
#include "frame/vec_shuffle.h"
