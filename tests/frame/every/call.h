// One call of one function, prepared: every argument has a valid value, every array stands in
// guarded memory of exactly the size that the function may touch.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "frame/every/functions.h"
#include "frame/every/region.h"
#include "frame/every/trap.h"

namespace every {

// The harness does not know how to drive a function; says what to register and where.
struct Unknown : std::runtime_error {
  using std::runtime_error::runtime_error;
};
// The function did what it must not do.
struct Misbehaved : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The call raised a floating-point exception that the caller had unmasked.
struct FloatingPointTrap : Misbehaved {
  using Misbehaved::Misbehaved;
};

struct Setting {
  int length = 17;
  Placement destination = {}, source = {};
  bool anyFloats = false;     // infinities, NaN, zeros and subnormals among the floats
  bool nullOptional = false;  // pass null for what may be left out
  std::map<std::string, long> numbers = {};  // arguments that are to have another value than usual
};

struct Array {
  int parameter;
  BorrowedRegion region = borrowRegion();
  std::byte* data;
  std::size_t bytes;
  const ElementType* element;
  bool isConst;
  std::vector<std::byte> initial;
};

class Call {
 public:
  Call(const Function& function, const Setting& setting);
  ~Call();
  Call(const Call&) = delete;
  Call& operator=(const Call&) = delete;

  const Function& function() const { return function_; }
  const Setting& setting() const { return setting_; }
  int length() const { return setting_.length; }

  // The value of an argument, of this call or of the ones that made its objects.
  long operator()(const std::string& parameter) const;

  void setNumber(int parameter, double value);
  void setPointer(int parameter, void* pointer) { slots_[parameter].set(pointer); }
  void setRowNull(int parameter, int row) { rows_.at(parameter).at(std::size_t(row)) = nullptr; }
  int rowCount(int parameter) const { return int(rows_.at(parameter).size()); }
  void alias(int parameter, int of);  // one array passed for two parameters
  void fill(int parameter, const std::vector<std::byte>& content);

  MoxStatus run();
  void takeAsInitial();  // what the arrays hold now is what they must keep

  Array* array(int parameter) const;  // the only one of this parameter; null when there is none
  const std::vector<std::unique_ptr<Array>>& arrays() const { return arrays_; }
  void* object() const;  // what an Init call has set up

  void requireUntouched() const;  // no byte of arrays and objects has changed
  void requireSourcesUntouched() const;
  // Equal to the bit; or floats within so many roundings of the narrowest type among the arrays.
  void requireSameContent(const Array& a, const Array& expected, double roundings = 0) const;
  void requireSameOutputs(const Call& reference, double roundings = 0) const;

 private:
  void prepareNumber(int parameter);
  void prepareObject(int parameter);
  void* makeObject();
  void prepareArray(int parameter);
  Array& addArray(int parameter, long count);
  void forArrays(auto f) const;
  [[noreturn]] void report(const Fault& fault) const;
  void compare(const Array& a, const char* what) const;

  const Function& function_;
  const Setting setting_;
  std::vector<Slot> slots_;
  std::vector<std::unique_ptr<Array>> arrays_;
  std::map<int, std::vector<void*>> rows_;
  std::vector<std::unique_ptr<Call>> makers_;  // the Init calls of this call's objects
  void *objectOut_ = nullptr, *initialObject_ = nullptr;
  const Function* free_ = nullptr;  // releases what InitAlloc has made
};

// The value that `function` stores at `output`, for the lengths and numbers of `setting`.
long query(const std::string& function, const Setting& setting, const std::string& output);

}  // namespace every
