// Bad arguments: each gives its status, and nothing is written.
#include <climits>
#include <cstring>

#include "frame/every/call.h"
#include "frame/every/contract.h"
#include "frame/every/own_checks.h"
#include "frame/every/shapes.h"

namespace every {
namespace {

bool isPointer(const Function& f, int i) { return f.type(i).form != Form::value; }

void requireStatus(MoxStatus got, MoxStatus expected) {
  if (got != expected)
    throw Misbehaved("answers " + std::to_string(got) + " instead of " + std::to_string(expected));
}

}  // namespace

bool hasPointer(const Function& f) {
  for (int i = 0; i < f.count(); ++i)
    if (isPointer(f, i)) return true;
  return false;
}

void checkNullPointers(const Function& f, Position& at) {
  const Setting setting;
  at.length = setting.length;
  for (int i = 0; i < f.count(); ++i) {
    if (!isPointer(f, i)) continue;
    const std::string& name = f.parameters[std::size_t(i)];
    at.detail = "with a null '" + name + "'";
    Call call(f, setting);
    call.setNull(i);
    if (optionalPointer(f.name, name)) {
      if (const MoxStatus status = call.run(); status < moxOk) requireStatus(status, moxOk);
      continue;
    }
    requireStatus(call.run(), moxErrNullPtr);
    if (!deviation(f.name, Deviation::outputsApart)) call.requireUntouched();
    if (f.type(i).form != Form::rows) continue;
    for (int row = 0; row < Call(f, setting).rowCount(i); ++row) {
      at.detail = "with row " + std::to_string(row) + " of '" + name + "' null";
      Call withNullRow(f, setting);
      withNullRow.setRowNull(i, row);
      requireStatus(withNullRow.run(), moxErrNullPtr);
      if (!deviation(f.name, Deviation::outputsApart)) withNullRow.requireUntouched();
    }
  }
}

bool hasLength(const Function& f) {
  for (int i = 0; i < f.count(); ++i)
    if (!isPointer(f, i) && lengthRuleFor(f.name, f.parameters[std::size_t(i)])) return true;
  return false;
}

void checkLengths(const Function& f, Position& at) {
  const Setting setting;
  at.length = setting.length;
  for (int i = 0; i < f.count(); ++i) {
    const std::string& name = f.parameters[std::size_t(i)];
    const LengthRule* rule = isPointer(f, i) ? nullptr : lengthRuleFor(f.name, name);
    if (!rule) continue;
    for (const int value : rule->refused) {
      if (value != 0 && deviation(f.name, Deviation::onlyZeroRefused)) continue;
      at.detail = "with " + name + " = " + std::to_string(value);
      Call call(f, setting);
      call.setNumber(i, value);
      requireStatus(call.run(), rule->status);
      call.requireUntouched();
    }
    if (name != "len" || !hasPointer(f)) continue;
    at.detail = "with len = 0 and all pointers null";
    Call call(f, setting);
    for (int k = 0; k < f.count(); ++k)
      if (isPointer(f, k)) call.setNull(k);
    call.setNumber(i, 0);
    requireStatus(call.run(),
                  deviation(f.name, Deviation::lengthFirst) ? moxErrSize : moxErrNullPtr);
  }
}

bool takesObject(const Function& f) {
  for (int i = 0; i < f.count(); ++i)
    if (f.type(i).form == Form::object && f.name.find("Init") == std::string::npos)
      return !deviation(f.name, Deviation::noIdentifier);
  return false;
}

void checkForeignObject(const Function& f, Position& at) {
  alignas(64) static std::byte zeros[8192];
  const Setting setting;
  at.length = setting.length;
  for (int i = 0; i < f.count(); ++i) {
    if (f.type(i).form != Form::object) continue;
    at.detail = "with cleared memory as '" + f.parameters[std::size_t(i)] + "'";
    Call call(f, setting);
    call.setObject(i, zeros);
    requireStatus(call.run(), moxErrContext);
    call.requireUntouched();
    for (const std::byte b : zeros)
      if (b != std::byte(0)) throw Misbehaved("writes to an object that it refuses");
  }
}

}  // namespace every
