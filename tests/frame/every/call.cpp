#include "frame/every/call.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <regex>

#include "frame/every/contract.h"
#include "frame/every/shapes.h"
#include "support/random.h"

namespace every {
namespace {

char sentinel;  // what an object pointer points to before the call

[[noreturn]] void unknown(const Function& f, const std::string& parameter, const char* what) {
  throw Unknown("the harness does not know " + std::string(what) + " of '" + parameter + "' of " +
                f.name + ": add a row in tests/frame/every/shapes.cpp");
}

template <class Part>
void storeParts(std::byte* at, const ElementType& element, double value) {
  for (int i = 0; i < element.bytes; i += int(sizeof(Part))) {
    const Part part = std::is_floating_point_v<Part> ? Part(value) : Part(std::int64_t(value));
    std::memcpy(at + i, &part, sizeof part);
  }
}

// Every part of the element becomes `value`.
void storeElement(std::byte* at, const ElementType& element, double value) {
  if (element.isFloat)
    element.partBytes == 4 ? storeParts<float>(at, element, value)
                           : storeParts<double>(at, element, value);
  else if (element.partBytes == 1)
    storeParts<std::int8_t>(at, element, value);
  else if (element.partBytes == 2)
    storeParts<std::int16_t>(at, element, value);
  else if (element.partBytes == 4)
    storeParts<std::int32_t>(at, element, value);
  else
    storeParts<std::int64_t>(at, element, value);
}

template <class F>
std::vector<std::byte> floatPool(std::size_t count, bool anyFloats) {
  constexpr F specials[] = {F(0.0),
                            -F(0.0),
                            std::numeric_limits<F>::infinity(),
                            -std::numeric_limits<F>::infinity(),
                            std::numeric_limits<F>::quiet_NaN(),
                            std::numeric_limits<F>::denorm_min(),
                            std::numeric_limits<F>::min(),
                            std::numeric_limits<F>::max(),
                            std::numeric_limits<F>::lowest()};
  test::Random random(sizeof(F));
  std::vector<std::byte> pool(count * sizeof(F));
  for (std::size_t i = 0; i < count; ++i) {
    F value = random.value<F>();
    if (anyFloats && random.below(5) == 0) value = specials[random.below(std::size(specials))];
    std::memcpy(&pool[i * sizeof(F)], &value, sizeof value);
  }
  return pool;
}

// Random elements; a slice of one long run, since a sweep fills millions of arrays.
std::vector<std::byte> randomContent(const ElementType& element, std::size_t bytes, int stream,
                                     bool anyFloats) {
  constexpr std::size_t count = 1 << 17, starts = 1 << 14;
  static const std::vector<std::byte> pools[] = {
      floatPool<float>(count, false), floatPool<float>(count, true),
      floatPool<double>(count, false), floatPool<double>(count, true), [] {
        std::vector<std::byte> pool(count);
        test::Random random(1);
        for (std::byte& b : pool) b = std::byte(random.bits());
        return pool;
      }()};
  const auto& pool = pools[element.isFloat ? 2 * (element.partBytes == 8) + anyFloats : 4];
  const std::size_t start = std::size_t(stream) * 4099 * 16 % starts;
  if (start + bytes > pool.size()) throw Unknown("an array is longer than the pool of test data");
  return {pool.begin() + long(start), pool.begin() + long(start + bytes)};
}

template <class F>
bool closeFloats(const std::byte* a, const std::byte* b, double tolerance) {
  F x, y;
  std::memcpy(&x, a, sizeof x);
  std::memcpy(&y, b, sizeof y);
  if (std::isnan(x) || std::isnan(y)) return std::isnan(x) && std::isnan(y);
  return tolerance > 0 && std::fabs(double(x) - double(y)) <= tolerance;
}

// One part equal to the bit; NaN equals NaN; within `tolerance` where that is not 0.
bool samePart(const ElementType& element, const std::byte* a, const std::byte* b,
              double tolerance) {
  if (std::memcmp(a, b, std::size_t(element.partBytes)) == 0) return true;
  if (!element.isFloat) return false;
  return element.partBytes == 4 ? closeFloats<float>(a, b, tolerance)
                                : closeFloats<double>(a, b, tolerance);
}

// The Free function of an InitAlloc function: of the same name, or one that several kinds share.
const Function& freeFunctionOf(const std::string& name) {
  std::string free = std::regex_replace(name, std::regex("InitAlloc"), "Free");
  for (const auto& [kind, by] : {std::pair("$", ""),
                                 {"_BiQuad|_DF1", ""},
                                 {"FIRMR", "FIR"},
                                 {"Stream", ""},
                                 {"_16s32f", "_16s"},
                                 {"_16sc32fc", "_16sc"},
                                 {"Q15_16s", ""}}) {
    free = std::regex_replace(free, std::regex(kind), by);
    if (const Function* f = findFunction(free)) return *f;
  }
  throw Unknown(name + ": its Free function was not found; extend freeFunctionOf in call.cpp");
}

}  // namespace

Call::Call(const Function& function, const Setting& setting)
    : function_(function),
      setting_(setting),
      slots_(std::size_t(function.count())),
      objectOut_(&sentinel) {
  const auto each = [&](auto prepare, auto... forms) {
    for (int i = 0; i < function_.count(); ++i)
      if (((function_.type(i).form == forms) || ...)) (this->*prepare)(i);
  };
  each(&Call::prepareNumber, Form::value);
  each(&Call::prepareObject, Form::object);
  each(&Call::prepareArray, Form::array, Form::rows);
  for (int i = 0; i < function_.count(); ++i)
    if (function_.type(i).form == Form::objectOut) slots_[i].set<void*>(&objectOut_);
}

Call::~Call() {
  if (!free_) return;
  Slot slot;
  slot.set(objectOut_);
  free_->signature->call(free_->address, &slot);
}

long Call::operator()(const std::string& parameter) const {
  if (const int i = function_.indexOf(parameter);
      i >= 0 && function_.type(i).form == Form::value && !function_.type(i).element->isFloat)
    return slots_[i].as<int>();
  for (const auto& maker : makers_)
    if (maker->function_.indexOf(parameter) >= 0) return (*maker)(parameter);
  unknown(function_, parameter, "the value");
}

void Call::prepareNumber(int i) {
  const std::string& name = function_.parameters[i];
  const ElementType& element = *function_.type(i).element;
  if (const auto wanted = setting_.numbers.find(name); wanted != setting_.numbers.end())
    return storeElement(slots_[i].bytes, element, double(wanted->second));
  const std::optional<double> value = numberFor(*this, i);
  if (!value) unknown(function_, name, "a valid value");
  storeElement(slots_[i].bytes, element, *value);
}

void Call::prepareObject(int i) {
  if (countFor(*this, i)) return prepareArray(i);
  slots_[i].set(makeObject(i));
}

void* Call::makeObject(int i) {
  const std::string& name = function_.parameters[i];
  const std::optional<std::string> maker = makerOf(function_.name);
  if (!maker) unknown(function_, name, "which Init function makes the object");
  const Function* init = findFunction(*maker);
  if (!init) init = findFunction(std::regex_replace(*maker, std::regex("Init"), "InitAlloc"));
  if (!init) throw Unknown(function_.name + ": no function " + *maker + " to make its object");
  Setting setting;
  setting.length = setting_.length;
  setting.numbers = setting_.numbers;
  setting.destination = setting.source = {Edge::end, -1};
  auto& call = *makers_.emplace_back(std::make_unique<Call>(*init, setting));
  if (const MoxStatus status = call.run(); status != moxOk)
    throw Misbehaved("(" + init->name + " answers " + std::to_string(status) +
                     " to valid arguments)");
  for (auto& array : call.arrays_) array->initial.assign(array->data, array->data + array->bytes);
  return call.object();
}

void Call::prepareArray(int i) {
  const std::string& name = function_.parameters[i];
  const ArgumentType& type = function_.type(i);
  const std::optional<long> count =
      type.element || type.form != Form::rows ? countFor(*this, i) : 1;
  if (!count) unknown(function_, name, "the length");
  if (setting_.nullOptional && optionalPointer(function_.name, name)) return;
  if (type.form != Form::rows) {
    slots_[i].set<void*>(addArray(i, *count).data);
    return;
  }
  auto& rows = rows_[i];
  const long channels =
      function_.indexOf("channels") >= 0 ? (*this)("channels") : (*this)("numChannels");
  for (long r = 0; r < channels; ++r)
    rows.push_back(type.element ? addArray(i, *count).data : makeObject(i));
  slots_[i].set<void*>(rows.data());
}

Array& Call::addArray(int i, long count) {
  static constexpr ElementType byte = {1, 1, false};
  const ArgumentType& type = function_.type(i);
  const ElementType* element = type.element ? type.element : &byte;
  Array& a = *arrays_.emplace_back(std::make_unique<Array>());
  const bool isConst = type.form == Form::rows ? function_.parameters[i].starts_with("src") &&
                                                     !function_.parameters[i].starts_with("srcDst")
                                               : type.isConst;
  a.parameter = i, a.element = element, a.isConst = isConst;
  a.bytes = std::size_t(count) * std::size_t(element->bytes);
  Placement placement = isConst ? setting_.source : setting_.destination;
  // Several arrays meet in every combination of alignments that the remainders walk through, and
  // are all aligned at remainder 0.
  if (placement.remainder > 0)
    placement.remainder = placement.remainder * (2 * int(arrays_.size()) - 1) & 31;
  a.data = a.region->place(a.bytes, placement);
  if (const auto value = numberFor(*this, i)) {
    a.initial.resize(a.bytes);
    for (long k = 0; k < count; ++k)
      storeElement(&a.initial[std::size_t(k * element->bytes)], *element, *value);
  } else {
    a.initial = randomContent(*element, a.bytes, int(arrays_.size()), setting_.anyFloats);
  }
  if (a.bytes) std::memcpy(a.data, a.initial.data(), a.bytes);
  return a;
}

void Call::alias(int parameter, int of) { slots_[parameter] = slots_[of]; }

void Call::fill(int parameter, const std::vector<std::byte>& content) {
  Array* a = array(parameter);
  std::copy_n(content.begin(), std::min(content.size(), a->bytes), a->data);
  a->initial.assign(a->data, a->data + a->bytes);
}

Array* Call::array(int parameter) {
  for (auto& a : arrays_)
    if (a->parameter == parameter) return a.get();
  return nullptr;
}

std::vector<std::byte> Call::content(int parameter) const {
  for (const auto& a : arrays_)
    if (a->parameter == parameter) return {a->data, a->data + a->bytes};
  return {};
}

void* Call::object() const {
  for (int i = 0; i < function_.count(); ++i)
    if (function_.type(i).form == Form::objectOut) return objectOut_;
  for (const char* memory : {"state", "spec", "specMem"})
    if (const int i = function_.indexOf(memory); i >= 0) return slots_[i].as<void*>();
  throw Unknown(function_.name + " makes no object that the harness can see");
}

MoxStatus Call::run() {
  MoxStatus status = moxOk;
  const auto fault =
      trap([&] { status = function_.signature->call(function_.address, slots_.data()); });
  if (fault) report(*fault);
  if (status >= moxOk && function_.name.find("InitAlloc") != std::string::npos)
    free_ = &freeFunctionOf(function_.name);
  if (status >= moxOk && function_.name.find("Free") != std::string::npos)
    for (auto& maker : makers_) maker->free_ = nullptr;
  const auto check = [&](const Call& call) {
    for (const auto& a : call.arrays_)
      if (const auto at = a->region->strayWrite())
        throw Misbehaved("writes outside '" + call.function_.parameters[a->parameter] +
                         "', at byte " + std::to_string(*at) + " of " + std::to_string(a->bytes));
  };
  check(*this);
  for (const auto& maker : makers_) check(*maker);
  return status;
}

void Call::report(const Fault& fault) const {
  if (fault.signal == SIGFPE) throw FloatingPointTrap("raises a floating-point exception");
  const std::string what =
      fault.signal == SIGILL ? "runs an illegal instruction" : "touches forbidden memory";
  const auto find = [&](const Call& call) {
    for (const auto& a : call.arrays_)
      if (const auto at = a->region->distanceTo(fault.address))
        throw Misbehaved(what + " near '" + call.function_.parameters[a->parameter] + "': byte " +
                         std::to_string(*at) + " of " + std::to_string(a->bytes));
  };
  find(*this);
  for (const auto& maker : makers_) find(*maker);
  throw Misbehaved(what + " away from its arrays");
}

void Call::compare(const Array& a, const char* what) const {
  for (std::size_t i = 0; i < a.bytes; ++i)
    if (a.data[i] != a.initial[i])
      throw Misbehaved("changes byte " + std::to_string(i) + " of '" +
                       function_.parameters[a.parameter] + "' " + what);
}

void Call::requireUntouched() const {
  for (const auto& a : arrays_) compare(*a, "in a call that failed");
  if (objectOut_ != &sentinel && !free_)
    throw Misbehaved("stores an object pointer in a call that failed");
  for (const auto& maker : makers_)
    for (const auto& a : maker->arrays_) maker->compare(*a, "of the object in a call that failed");
}

void Call::requireSourcesUntouched() const {
  for (const auto& a : arrays_)
    if (a->isConst) compare(*a, "which is a source");
}

// Where `expected` is shorter, the rest of `a` is free.
void Call::requireSameContent(const Array& a, const Array& expected, double tolerance) const {
  const std::size_t bytes = std::min(a.bytes, expected.bytes);
  if (bytes == 0 || std::memcmp(a.data, expected.data, bytes) == 0) return;
  for (std::size_t i = 0; i < bytes; i += std::size_t(a.element->partBytes))
    if (!samePart(*a.element, a.data + i, expected.data + i, tolerance))
      throw Misbehaved("gives another result at element " +
                       std::to_string(i / std::size_t(a.element->bytes)) + " of '" +
                       function_.parameters[a.parameter] + "'");
}

void Call::requireSameOutputs(const Call& reference, double tolerance) const {
  for (std::size_t k = 0; k < arrays_.size(); ++k)
    if (const Array& a = *arrays_[k];
        !a.isConst && !scratch(function_.name, function_.parameters[a.parameter]))
      requireSameContent(a, *reference.arrays_[k], tolerance);
}

long query(const std::string& function, const Setting& setting, const std::string& output) {
  const Function* f = findFunction(function);
  if (!f) throw Unknown("there is no function " + function + " to ask for a size");
  Setting plain;
  plain.length = setting.length;
  plain.numbers = setting.numbers;
  Call call(*f, plain);
  if (const MoxStatus status = call.run(); status != moxOk)
    throw Misbehaved(function + " answers " + std::to_string(status) + " to valid arguments");
  int value;
  std::memcpy(&value, call.content(f->indexOf(output)).data(), sizeof value);
  return value;
}

}  // namespace every
