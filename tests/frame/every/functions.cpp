#include "frame/every/functions.h"

#include <fnmatch.h>
#include <moxsp.h>

#include <algorithm>
#include <sstream>

// Weak, so that a function that is declared but missing from the library fails a test by its name.
#define MOXSP_FUNCTION(name, parameters) extern "C" [[gnu::weak]] decltype(name) name;
#include "every_function.inc"
#undef MOXSP_FUNCTION

namespace every {
namespace {

struct Row {
  const char* name;
  const char* parameters;
  const Signature* signature;
  AnyFunction* address;
};

#define MOXSP_FUNCTION(name, parameters) \
  {#name, parameters, signatureOf<decltype(&name)>, reinterpret_cast<AnyFunction*>(&name)},
const Row rows[] = {
#include "every_function.inc"
};
#undef MOXSP_FUNCTION

}  // namespace

int Function::indexOf(std::string_view parameter) const {
  const auto at = std::find(parameters.begin(), parameters.end(), parameter);
  return at == parameters.end() ? -1 : int(at - parameters.begin());
}

std::span<const Function> allFunctions() {
  static const std::vector<Function> all = [] {
    std::vector<Function> functions;
    for (const Row& row : rows) {
      std::istringstream words(row.parameters);
      std::vector<std::string> names;
      for (std::string word; words >> word;) names.push_back(word);
      functions.push_back({row.name, names, row.signature, row.address});
    }
    std::sort(functions.begin(), functions.end(),
              [](const Function& a, const Function& b) { return a.name < b.name; });
    return functions;
  }();
  return all;
}

const Function* findFunction(std::string_view name) {
  const auto all = allFunctions();
  const auto at =
      std::lower_bound(all.begin(), all.end(), name,
                       [](const Function& f, std::string_view n) { return f.name < n; });
  return at != all.end() && at->name == name ? &*at : nullptr;
}

bool matches(std::string_view pattern, std::string_view name) {
  return fnmatch(std::string(pattern).c_str(), std::string(name).c_str(), FNM_EXTMATCH) == 0;
}

}  // namespace every
