#include "frame/every/digests.h"

#include <cmath>
#include <cstring>
#include <fstream>

#include "frame/every/call.h"
#include "frame/every/checks.h"
#include "frame/every/contract.h"
#include "frame/every/shapes.h"

namespace every {
namespace {

// The hash of Fowler, Noll and Vo.
class Digest {
 public:
  void add(std::uint64_t bits) { value_ = (value_ ^ bits) * 0x100000001B3; }
  std::uint64_t value() const { return value_; }

 private:
  std::uint64_t value_ = 0xCBF29CE484222325;
};

template <class T>
T read(const std::byte* at) {
  T value;
  std::memcpy(&value, at, sizeof value);
  return value;
}

// The sign and the payload of a NaN are open.
std::uint64_t bitsOfPart(const ElementType& element, const std::byte* at) {
  constexpr std::uint64_t anyNaN = 0x7FF8;
  switch (element.partBytes) {
    case 1:
      return read<std::uint8_t>(at);
    case 2:
      return read<std::uint16_t>(at);
    case 4:
      return element.isFloat && std::isnan(read<float>(at)) ? anyNaN : read<std::uint32_t>(at);
    default:
      return element.isFloat && std::isnan(read<double>(at)) ? anyNaN : read<std::uint64_t>(at);
  }
}

void addCall(Digest& digest, const Function& f, const Setting& setting) {
  Call call(f, setting);
  digest.add(std::uint64_t(call.run()));
  for (const auto& a : call.arrays()) {
    if (a->isConst || scratch(f, f.parameters[std::size_t(a->parameter)])) continue;
    if (f.type(a->parameter).form == Form::object) continue;
    for (std::size_t i = 0; i < a->bytes; i += std::size_t(a->element->partBytes))
      digest.add(bitsOfPart(*a->element, a->data + i));
  }
}

std::uint64_t digestOf(const Function& f) {
  std::vector<Numbers> settings = otherNumbers(f);
  settings.push_back({});
  if (hasScaleFactor(f))
    for (const long factor : {-40, -17, -3, -1, 1, 2, 8, 9, 15, 16, 31, 40, 70})
      settings.push_back({{"scaleFactor", factor}});
  Digest digest;
  for (const Numbers& numbers : settings)
    for (const int length : {1, 2, 3, 4, 7, 8, 15, 16, 17, 31, 32, 33, 47, 64, 70, 128, 256})
      for (const int remainder : {0, 1, 4, 8, 16, 28})
        for (const bool anyFloats : {false, true})
          addCall(digest, f,
                  {.length = length,
                   .destination = {Edge::start, remainder},
                   .source = {Edge::start, remainder},
                   .anyFloats = anyFloats,
                   .numbers = numbers});
  return digest.value();
}

}  // namespace

void writeDigests(const std::string& file) {
  std::ofstream lines(file);
  for (const Function& f : allFunctions())
    if (f.signature->returnsStatus) lines << f.name << ' ' << digestOf(f) << '\n';
}

}  // namespace every
