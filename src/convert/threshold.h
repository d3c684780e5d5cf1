// The relations of the thresholds, each with what it demands of its levels. They take scalars and
// vectors; an operator stands for one comparison, as written.
#pragma once

#include <moxsp/threshold.h>

#include <concepts>

#include "frame/checks.h"
#include "frame/elements.h"
#include "frame/vec/vec.h"

namespace mox::convert {

// `yes` where a comparison holds, `no` elsewhere.
template <class Comparison, class T>
[[gnu::always_inline]] inline T where(Comparison holds, T yes, T no) {
  if constexpr (std::same_as<T, V<Mox32f>> || std::same_as<T, V<Mox64f>>)
    return select(T(holds), yes, no);
  else
    return holds ? yes : no;
}

struct AnyLevel {
  static MoxStatus check(auto...) { return moxOk; }
};
struct NoNegativeLevel {
  static MoxStatus check(auto level, auto...) {
    return level < 0 ? MoxStatus(moxErrThreshLevel) : moxOk;
  }
};
struct OrderedLevels {
  static MoxStatus check(auto levelLT, auto, auto levelGT, auto) {
    return levelLT > levelGT ? MoxStatus(moxErrThreshOrder) : moxOk;
  }
};

// What a threshold makes of an element, and what it demands of its levels.
template <class R, class E, class... Values>
concept Relation = requires(E element, Values... values) {
  { R::check(values...) } -> std::same_as<MoxStatus>;
  { R()(element, values...) } -> std::same_as<E>;
};

struct LT : AnyLevel {
  template <class T>
  T operator()(T x, T level) const {
    return greater(x, level);
  }
  // On the square of a magnitude.
  static constexpr auto changes(auto m, auto square) { return m < square; }
};

struct GT : AnyLevel {
  template <class T>
  T operator()(T x, T level) const {
    return lesser(x, level);
  }
  static constexpr auto changes(auto m, auto square) { return m > square; }
};

struct LTVal : AnyLevel {
  static constexpr auto keeps(auto x, auto level) { return level <= x; }
  template <class T>
  T operator()(T x, T level, T value) const {
    x = inRegister(x);
    return where(keeps(x, level), x, value);
  }
};

struct GTVal : AnyLevel {
  static constexpr auto keeps(auto x, auto level) { return level >= x; }
  template <class T>
  T operator()(T x, T level, T value) const {
    x = inRegister(x);
    return where(keeps(x, level), x, value);
  }
};

struct LTValGTVal : OrderedLevels {
  template <class T>
  T operator()(T x, T levelLT, T valueLT, T levelGT, T valueGT) const {
    x = inRegister(x);
    return where(x < levelLT, valueLT, where(x > levelGT, valueGT, x));
  }
};

// |x| < level, without the magnitude of the one integer that has none.
struct LTAbs : NoNegativeLevel {
  template <class T>
  T operator()(T x, T level) const {
    const T opposite = T(-level);
    return where((x < level) & (x > opposite), where(x >= T{}, level, opposite), x);
  }
};

struct GTAbs : NoNegativeLevel {
  template <class T>
  T operator()(T x, T level) const {
    return greater(T(-level), lesser(x, level));
  }
};

// LT or GT by an operator, which is looked at after all else. `Levels` checks the level.
template <class Levels, auto less, auto greater, class E>
MoxStatus byOperator(const E* src, E* dst, int len, Part<E> level, int relOp) {
  if (relOp == moxThresholdLess) return less(src, dst, len, level);
  if (relOp == moxThresholdGreater) return greater(src, dst, len, level);
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  if (MoxStatus s = Levels::check(level)) return s;
  return moxErrBadArg;
}

}  // namespace mox::convert
