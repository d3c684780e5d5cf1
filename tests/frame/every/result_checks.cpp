// Results: no byte outside the arrays is touched at any length and alignment, and neither the
// alignment nor the in-place form changes a result.
#include <cstring>

#include "frame/every/call.h"
#include "frame/every/checks.h"
#include "frame/every/contract.h"
#include "frame/every/sweep.h"

namespace every {
namespace {

MoxStatus runWell(Call& call) {
  const MoxStatus status = call.run();
  if (status < moxOk) throw Misbehaved("answers " + std::to_string(status) + " to valid arguments");
  return status;
}

// Calls of one length and with the same numbers wherever the arrays stand, compared with one on
// aligned arrays.
class Sweep {
 public:
  Sweep(const Function& f, int length, bool anyFloats, const Numbers& numbers, Position& at)
      : f_(f), at_(at), aligned_(f, setting(length, anyFloats, numbers)) {
    at.length = length, at.remainder = 0, at.detail = "on aligned arrays";
    status_ = runWell(aligned_);
    aligned_.requireSourcesUntouched();
  }

  void compare(const char* where, Placement destination, Placement source) const {
    at_.detail = where;
    for (const auto& [name, value] : aligned_.setting().numbers)
      at_.detail += ", " + name + " = " + std::to_string(value);
    Setting moved = aligned_.setting();
    moved.destination = destination, moved.source = source;
    Call call(f_, moved);
    if (runWell(call) != status_) throw Misbehaved("gives another status");
    call.requireSourcesUntouched();
    call.requireSameOutputs(aligned_, roundingsOfSums(f_, moved.length));
  }

 private:
  static Setting setting(int length, bool anyFloats, const Numbers& numbers) {
    return {.length = length,
            .destination = {Edge::start, 0},
            .source = {Edge::start, 0},
            .anyFloats = anyFloats,
            .numbers = numbers};
  }
  const Function& f_;
  Position& at_;
  Call aligned_;
  MoxStatus status_;
};

constexpr Placement flush{Edge::end, -1};

void forPlaces(const Function& f, Position& at, auto check) {
  forLengths(f, at, [&](int length) {
    for (const int remainder : {0, 1, 4, 8, 16}) {
      at.remainder = remainder;
      if (!wanted("MOXSP_TEST_OFFSET", remainder)) continue;
      check(Setting{.length = length, .destination = {Edge::end, remainder}});
    }
  });
}

void requireSameStatus(Call& call, Call& expected) {
  const MoxStatus status = runWell(expected);
  if (runWell(call) != status) throw Misbehaved("gives another status");
}

// The parameter of the plain form that a parameter of the in-place form stands for.
std::string plainSource(const Function& plain, const std::string& name) {
  std::string source = name;
  if (name.starts_with("srcDst")) {
    source = "src" + name.substr(6);
    if (plain.indexOf(source) < 0) source = "src2";
  } else if (plain.indexOf(name) < 0 && name == "src") {
    source = "src1";
  }
  if (plain.indexOf(source) < 0)
    throw Unknown(plain.name + " has no counterpart of '" + name + "' of its in-place form");
  return source;
}

const Function* plainForm(const Function& f) {
  const std::string& name = f.name;
  if (name.ends_with("_ISfs")) return findFunction(name.substr(0, name.size() - 5) + "_Sfs");
  if (name.ends_with("_I")) return findFunction(name.substr(0, name.size() - 2));
  return nullptr;
}

// The sources that the destination could be: pairs of parameters of arrays of the same form.
std::vector<std::vector<std::pair<int, int>>> aliasings(const Function& f) {
  std::vector<std::vector<std::pair<int, int>>> sets;
  for (const char* source : {"", "1", "2"}) {
    std::vector<std::pair<int, int>> pairs;
    for (int d = 0; d < f.count(); ++d) {
      const std::string& name = f.parameters[d];
      if (!name.starts_with("dst") || f.type(d).form != Form::array) continue;
      const int s = f.indexOf("src" + name.substr(3) + source);
      if (s >= 0 && f.type(s).form == Form::array && f.type(s).element == f.type(d).element)
        pairs.emplace_back(d, s);
    }
    if (!pairs.empty()) sets.push_back(pairs);
  }
  return sets;
}

}  // namespace

void checkEveryLengthAndAlignment(const Function& f, Position& at) {
  const bool sums = deviation(f, Deviation::alignedSums);
  const auto check = [&](int length) {
    const Sweep plain(f, length, false, {}, at), any(f, length, !sums, {}, at);
    forRemainders(at, [&](int remainder) {
      if (length > 70 && remainder % 9 != 0) return;
      const Placement atStart{Edge::start, remainder}, atEnd{Edge::end, remainder};
      plain.compare("with sources that end at a wall", atEnd, flush);
      plain.compare("with a destination that ends at a wall", flush, atEnd);
      any.compare("with arrays that start at a wall", atStart, atStart);
    });
  };
  forLengths(f, at, check);
  // Long enough for steps of pages, and for moves by string instructions.
  if (hasLength(f) && !takesObject(f) && wanted("MOXSP_TEST_LEN", 5000)) check(5000);
}

bool hasOtherNumbers(const Function& f) { return !otherNumbers(f).empty(); }

// The other ways of a function, on fewer lengths; the last one is for engines of long blocks.
void checkOtherNumbers(const Function& f, Position& at) {
  for (const Numbers& numbers : otherNumbers(f))
    for (const int length : {1, 2, 7, 16, 33, 64, 70, 600}) {
      if (!wanted("MOXSP_TEST_LEN", length)) continue;
      const Sweep sweep(f, length, false, numbers, at);
      forRemainders(at, [&](int remainder) {
        if (remainder % 9 != 0 && remainder != 4) return;
        const Placement atEnd{Edge::end, remainder};
        sweep.compare("with sources that end at a wall", atEnd, flush);
        sweep.compare("with a destination that ends at a wall", flush, atEnd);
      });
    }
}

bool isElementwise(const Function& f) {
  if (!hasLength(f) || takesObject(f) || deviation(f, Deviation::notElementwise)) return false;
  const Call one(f, {.length = 1}), two(f, {.length = 2});
  bool any = false;
  for (std::size_t i = 0; i < one.arrays().size(); ++i) {
    const Array &a = *one.arrays()[i], &b = *two.arrays()[i];
    if (a.isConst || scratch(f, f.parameters[a.parameter])) continue;
    if (2 * a.bytes != b.bytes) return false;
    any = true;
  }
  return any;
}

// Whatever part of a kernel an element falls to, a long call's or a short one's, its result is the
// same.
void checkShorterCalls(const Function& f, Position& at) {
  std::vector<std::map<std::string, long>> settings = {{}};
  if (hasScaleFactor(f))
    for (const long factor : {0, -1, 3, -3, 17}) settings.push_back({{"scaleFactor", factor}});
  for (const auto& numbers : settings) {
    const auto setting = [&](int length, int remainder) {
      return Setting{.length = length,
                     .destination = {Edge::start, remainder},
                     .anyFloats = true,
                     .numbers = numbers};
    };
    Call longest(f, setting(70, 0));
    runWell(longest);
    forLengths(f, at, [&](int length) {
      for (const int remainder : {0, 4}) {
        at.remainder = remainder;
        at.detail = "compared with the first elements of 70";
        Call call(f, setting(length, remainder));
        runWell(call);
        call.requireSameOutputs(longest);
      }
    });
  }
}

bool hasPlainForm(const Function& f) { return plainForm(f); }

void checkInPlaceForm(const Function& f, Position& at) {
  const Function& plain = *plainForm(f);
  forPlaces(f, at, [&](const Setting& setting) {
    Call expected(plain, setting), call(f, setting);
    for (const auto& a : call.arrays())
      if (Array* source =
              expected.array(plain.indexOf(plainSource(plain, f.parameters[a->parameter]))))
        call.fill(a->parameter, source->initial);
    at.detail = "compared with " + plain.name;
    requireSameStatus(call, expected);
    for (const auto& a : call.arrays()) {
      const std::string& name = f.parameters[a->parameter];
      if (!name.starts_with("srcDst")) continue;
      const Array* to = expected.array(plain.indexOf("dst" + name.substr(6)));
      if (!to) throw Unknown(plain.name + " has no counterpart of '" + name + "'");
      call.requireSameContent(*a, *to);
    }
  });
}

bool mayRunOntoSource(const Function& f) {
  return !aliasings(f).empty() && !deviation(f, Deviation::notOntoSource);
}

void checkOntoSource(const Function& f, Position& at) {
  for (const auto& pairs : aliasings(f))
    forPlaces(f, at, [&](const Setting& setting) {
      Call expected(f, setting), call(f, setting);
      for (const auto& [d, s] : pairs) {
        if (call.array(d)->bytes != call.array(s)->bytes) return;
        at.detail = "with '" + f.parameters[d] + "' the same array as '" + f.parameters[s] + "'";
        call.fill(d, call.array(s)->initial);
        call.alias(s, d);
      }
      requireSameStatus(call, expected);
      call.requireSameOutputs(expected);
    });
}

}  // namespace every
