#include "frame/every/call.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <span>

#include "frame/every/contract.h"
#include "frame/every/objects.h"
#include "frame/every/shapes.h"
#include "support/random.h"

namespace every {
namespace {

char sentinel;  // what an object pointer points to before the call

[[noreturn]] void unknown(const Function& f, const std::string& parameter, const char* what) {
  throw Unknown("the harness does not know " + std::string(what) + " of '" + parameter + "' of " +
                f.name + ": add a row in tests/frame/every/shapes.cpp");
}

std::vector<std::byte> poolOf(auto draw) {
  test::Random random(1);
  std::vector<decltype(draw(random))> values(1 << 18);
  for (auto& value : values) value = draw(random);
  const auto bytes = std::as_bytes(std::span(values));
  return {bytes.begin(), bytes.end()};
}

// Random elements; a slice of one long run, since a sweep fills millions of arrays.
std::vector<std::byte> randomContent(const ElementType& element, std::size_t bytes, int stream,
                                     bool anyFloats) {
  static const std::vector<std::byte> pools[] = {
      poolOf([](test::Random& r) { return r.value<float>(); }),
      poolOf([](test::Random& r) { return r.special<float>(); }),
      poolOf([](test::Random& r) { return r.value<double>(); }),
      poolOf([](test::Random& r) { return r.special<double>(); }),
      poolOf([](test::Random& r) { return r.bits(); })};
  const auto& pool = pools[element.isFloat ? 2 * (element.partBytes == 8) + anyFloats : 4];
  const std::size_t start = std::size_t(stream) * 4099 * 16 % (1 << 14);
  if (start + bytes > pool.size()) throw Unknown("an array is longer than the pool of test data");
  return {pool.begin() + long(start), pool.begin() + long(start + bytes)};
}

}  // namespace

Call::Call(const Function& function, const Setting& setting)
    : function_(function),
      setting_(setting),
      slots_(std::size_t(function.count())),
      objectOut_(&sentinel),
      initialObject_(&sentinel) {
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
  if (const auto wanted = setting_.numbers.find(name); wanted != setting_.numbers.end())
    return setNumber(i, double(wanted->second));
  const std::optional<double> value = numberFor(*this, i);
  if (!value) unknown(function_, name, "a valid value");
  setNumber(i, *value);
}

void Call::prepareObject(int i) {
  if (countFor(*this, i)) return prepareArray(i);
  slots_[i].set(makeObject());
}

void* Call::makeObject() {
  const Kind* kind = kindOf(function_);
  if (!kind) throw Unknown(function_.name + ": no row in objects.cpp says what makes its object");
  const bool frees = kind->free == &function_;
  Setting setting;
  setting.length = setting_.length;
  setting.numbers = setting_.numbers;
  // What the object lies in walks through the same places as the arrays.
  setting.destination = setting_.destination;
  // The emulator reads more than some instructions do: there no wall stands behind a source.
  if (!std::getenv("MOXSP_TEST_EMULATED")) setting.source = {Edge::end, -1};
  auto& call = *makers_.emplace_back(
      std::make_unique<Call>(frees && kind->initAlloc ? *kind->initAlloc : *kind->init, setting));
  if (const MoxStatus status = call.run(); status != moxOk)
    throw Misbehaved("(" + call.function_.name + " answers " + std::to_string(status) +
                     " to valid arguments)");
  call.takeAsInitial();
  return call.object();
}

void Call::takeAsInitial() {
  for (auto& array : arrays_) array->initial.assign(array->data, array->data + array->bytes);
  initialObject_ = objectOut_;
}

void Call::setNumber(int i, double value) {
  function_.type(i).element->store(slots_[i].bytes, value);
}

void Call::prepareArray(int i) {
  const std::string& name = function_.parameters[i];
  const ArgumentType& type = function_.type(i);
  const bool ofObjects = objectRows(function_) == i;
  const std::optional<long> count = ofObjects ? 1 : countFor(*this, i);
  if (!count) unknown(function_, name, "the length");
  if (setting_.nullOptional && optionalPointer(function_, name)) return;
  if (type.form != Form::rows) {
    slots_[i].set<void*>(addArray(i, *count).data);
    return;
  }
  auto& rows = rows_[i];
  const long channels =
      function_.indexOf("channels") >= 0 ? (*this)("channels") : (*this)("numChannels");
  for (long r = 0; r < channels; ++r)
    rows.push_back(ofObjects ? makeObject() : addArray(i, *count).data);
  slots_[i].set<void*>(rows.data());
}

Array& Call::addArray(int i, long count) {
  const ArgumentType& type = function_.type(i);
  const ElementType* element = type.element ? type.element : &elementType<std::uint8_t>;
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
      element->store(&a.initial[std::size_t(k * element->bytes)], *value);
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

Array* Call::array(int parameter) const {
  const auto at = std::ranges::find(arrays_, parameter, [](auto& a) { return a->parameter; });
  return at == arrays_.end() ? nullptr : at->get();
}

void* Call::object() const {
  for (int i = 0; i < function_.count(); ++i)
    if (function_.type(i).form == Form::objectOut) return objectOut_;
  for (const char* memory : {"state", "spec", "specMem"})
    if (const int i = function_.indexOf(memory); i >= 0) return slots_[i].as<void*>();
  throw Unknown(function_.name + " makes no object that the harness can see");
}

// Of the call, and of those that made its objects.
void Call::forArrays(auto f) const {
  for (const auto& a : arrays_) f(*this, *a);
  for (const auto& maker : makers_) maker->forArrays(f);
}

MoxStatus Call::run() {
  MoxStatus status = moxOk;
  const auto fault =
      trap([&] { status = function_.signature->call(function_.address, slots_.data()); });
  if (fault) report(*fault);
  if (const Kind* kind = status >= moxOk ? kindOf(function_) : nullptr) {
    if (kind->initAlloc == &function_) free_ = kind->free;
    if (kind->free == &function_)
      for (auto& maker : makers_) maker->free_ = nullptr;
  }
  forArrays([](const Call& call, const Array& a) {
    if (const auto at = a.region->strayWrite())
      throw Misbehaved("writes outside '" + call.function_.parameters[a.parameter] + "', at byte " +
                       std::to_string(*at) + " of " + std::to_string(a.bytes));
  });
  return status;
}

void Call::report(const Fault& fault) const {
  if (fault.signal == SIGFPE) throw FloatingPointTrap("raises a floating-point exception");
  const std::string what =
      fault.signal == SIGILL ? "runs an illegal instruction" : "touches forbidden memory";
  forArrays([&](const Call& call, const Array& a) {
    if (const auto at = a.region->distanceTo(fault.address))
      throw Misbehaved(what + " near '" + call.function_.parameters[a.parameter] + "': byte " +
                       std::to_string(*at) + " of " + std::to_string(a.bytes));
  });
  throw Misbehaved(what + " away from its arrays");
}

void Call::compare(const Array& a, const char* what) const {
  for (std::size_t i = 0; i < a.bytes; ++i)
    if (a.data[i] != a.initial[i])
      throw Misbehaved("changes byte " + std::to_string(i) + " of '" +
                       function_.parameters[a.parameter] + "' " + what);
}

void Call::requireUntouched() const {
  for (const auto& a : arrays_)
    if (!scratch(function_, function_.parameters[a->parameter]))
      compare(*a, "in a call that failed");
  const bool isCleared = !objectOut_ && deviation(function_, Deviation::clearsObject);
  if (objectOut_ != initialObject_ && !isCleared)
    throw Misbehaved("stores an object pointer in a call that failed");
  for (const auto& maker : makers_)
    for (const auto& a : maker->arrays_) maker->compare(*a, "of the object in a call that failed");
}

void Call::requireSourcesUntouched() const {
  for (const auto& a : arrays_)
    if (a->isConst) compare(*a, "which is a source");
}

// Where `expected` is shorter, the rest of `a` is free.
void Call::requireSameContent(const Array& a, const Array& expected, double roundings) const {
  const std::size_t bytes = std::min(a.bytes, expected.bytes);
  if (bytes == 0 || std::memcmp(a.data, expected.data, bytes) == 0) return;
  bool isSingle = false;
  for (const auto& array : arrays_)
    isSingle |= array->element->isFloat && array->element->partBytes == 4;
  const double tolerance = roundings * (isSingle ? 0x1p-24 : 0x1p-53);
  for (std::size_t i = 0; i < bytes; i += std::size_t(a.element->partBytes))
    if (!a.element->areClose(a.data + i, expected.data + i, tolerance))
      throw Misbehaved("gives another result at element " +
                       std::to_string(i / std::size_t(a.element->bytes)) + " of '" +
                       function_.parameters[a.parameter] + "'");
}

void Call::requireSameOutputs(const Call& reference, double roundings) const {
  for (std::size_t k = 0; k < arrays_.size(); ++k)
    if (const Array& a = *arrays_[k];
        !a.isConst && !scratch(function_, function_.parameters[a.parameter]))
      requireSameContent(a, *reference.arrays_[k], roundings);
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
  return read<int>(call.array(f->indexOf(output))->data);
}

}  // namespace every
