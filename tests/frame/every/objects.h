// Which functions take the objects of which Init function.
#pragma once

#include <memory>
#include <vector>

#include "frame/every/call.h"

namespace every {

// The objects that one Init function makes.
struct Kind {
  const Function* init;
  const Function* initAlloc;  // null when there is none
  const Function* free;
  std::vector<const Function*> users;

  bool isTakenBy(const Function& function) const;
};

const std::vector<Kind>& allKinds();

// The kind of which a function is a user, an Init function, or an InitAlloc function; the first of
// several.
const Kind* kindOf(const Function& function);

// A call that has made an object of this kind, once for all.
Call& objectOf(const Kind& kind);

// Which of its parameters is the object.
int objectParameter(const Function& function);

// Which of its parameters is an array of pointers to objects.
int objectRows(const Function& function);

}  // namespace every
