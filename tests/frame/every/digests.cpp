#include "frame/every/digests.h"

#include <fstream>

#include "frame/every/call.h"
#include "frame/every/checks.h"
#include "frame/every/contract.h"
#include "frame/every/shapes.h"

namespace every {
namespace {

// The hash of Fowler, Noll and Vo. The sign and the payload of a NaN are open.
void add(std::uint64_t& digest, std::uint64_t bits) { digest = (digest ^ bits) * 0x100000001B3; }

void addCall(std::uint64_t& digest, const Function& f, const Setting& setting) {
  Call call(f, setting);
  add(digest, std::uint64_t(call.run()));
  for (const auto& a : call.arrays()) {
    if (a->isConst || scratch(f, f.parameters[a->parameter])) continue;
    if (f.type(a->parameter).form == Form::object) continue;
    for (std::size_t i = 0; i < a->bytes; i += std::size_t(a->element->partBytes))
      add(digest, a->element->bits(a->data + i));
  }
}

std::uint64_t digestOf(const Function& f) {
  std::vector<Numbers> settings = otherNumbers(f);
  settings.push_back({});
  if (hasScaleFactor(f))
    for (const long factor : {-40, -17, -3, -1, 1, 2, 8, 9, 15, 16, 31, 40, 70})
      settings.push_back({{"scaleFactor", factor}});
  std::uint64_t digest = 0xCBF29CE484222325;
  for (const Numbers& numbers : settings)
    for (const int length : {1, 2, 3, 4, 7, 8, 15, 16, 17, 31, 32, 33, 47, 64, 70, 128, 256})
      for (const int remainder : {0, 1, 4, 8, 16, 28})
        for (const bool anyFloats : {false, true}) {
          const Placement place{Edge::start, remainder};
          addCall(digest, f, {length, place, place, anyFloats, false, numbers});
        }
  return digest;
}

}  // namespace

void writeDigests(const std::string& file) {
  std::ofstream lines(file);
  for (const Function& f : allFunctions())
    if (f.signature->returnsStatus) lines << f.name << ' ' << digestOf(f) << '\n';
}

}  // namespace every
