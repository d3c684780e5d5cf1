#pragma once

#include <moxsp.h>

// Throws std::runtime_error for a status other than moxOk; `call` is the function's name.
void require(MoxStatus status, const char* call);
