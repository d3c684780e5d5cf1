// All exported functions, as the public headers declare them.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "frame/every/signature.h"

namespace every {

struct Function {
  std::string name;
  std::vector<std::string> parameters;
  const Signature* signature;
  AnyFunction* address;

  int count() const { return signature->count; }
  const ArgumentType& type(int i) const { return signature->arguments[i]; }
  int indexOf(std::string_view parameter) const;  // -1 when there is none of that name
};

std::span<const Function> allFunctions();
const Function* findFunction(std::string_view name);  // null when there is none

// Shell patterns with alternatives: "moxsAdd_@(32f|64f)*".
bool matches(std::string_view pattern, std::string_view name);

}  // namespace every
