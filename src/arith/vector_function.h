// The driver of the elementary functions on floats: vectors throughout, and a routine for one
// element where a lane is out of the vector's reach.
#pragma once

#include <algorithm>
#include <bit>
#include <concepts>

#include "frame/checks.h"
#include "frame/control_word.h"
#include "frame/map.h"

namespace mox::arith {

// A class that computes in the type Element: lanes(x) gives the results of a vector.
template <class Function>
concept VectorFunction = requires(V<typename Function::Element> x) {
  { Function::lanes(x) } -> std::same_as<decltype(x)>;
};

// special(x) masks the lanes that lanes() does not serve; one(element, code) gives the result of
// such an element, and a code to remember if the caller is to be warned of it.
template <class Function>
concept WithSpecialLanes = VectorFunction<Function> &&
    requires(V<typename Function::Element> x, typename Function::Element e, int& code) {
  { Function::special(x) } -> std::same_as<decltype(x)>;
  { Function::one(e, code) } -> std::same_as<decltype(e)>;
};

namespace detail {

constexpr int functionBlock = 16;

template <class Function>
using FunctionLanes = V<typename Function::Element>;

template <class Function>
constexpr int vectorsPerBlock = functionBlock / laneCount<FunctionLanes<Function>>;

// Results of a block, computed anew in its special lanes. The first code noted stays.
template <class Function>
struct Repair {
  using Lanes = FunctionLanes<Function>;
  Lanes x[vectorsPerBlock<Function>], result[vectorsPerBlock<Function>];

  [[gnu::noinline, gnu::cold]] void run(int& code) {
    for (int j = 0; j < vectorsPerBlock<Function>; ++j)
      for (int bits = signBits(Function::special(x[j])); bits; bits &= bits - 1) {
        const int lane = std::countr_zero(unsigned(bits));
        int noted = 0;
        result[j][lane] = Function::one(x[j][lane], noted);
        if (code == 0) code = noted;
      }
  }
};

template <class Function, class S, class D>
[[gnu::always_inline]] inline void runBlock(const S* src, D* dst, int& code) {
  using Lanes = FunctionLanes<Function>;
  constexpr int vectors = vectorsPerBlock<Function>, lanes = laneCount<Lanes>;
  Lanes x[vectors], result[vectors];
  for (int j = 0; j < vectors; ++j) x[j] = loadWidened<Lanes>(src + j * lanes);
  for (int j = 0; j < vectors; ++j) result[j] = Function::lanes(x[j]);
  if constexpr (WithSpecialLanes<Function>) {
    Lanes special = Function::special(x[0]);
    for (int j = 1; j < vectors; ++j) special = either(special, Function::special(x[j]));
    if (signBits(special)) [[unlikely]] {
      Repair<Function> repair;
      for (int j = 0; j < vectors; ++j) repair.x[j] = x[j], repair.result[j] = result[j];
      repair.run(code);
      for (int j = 0; j < vectors; ++j) result[j] = repair.result[j];
    }
  }
  for (int j = 0; j < vectors; ++j) {
    if constexpr (std::is_same_v<D, Lane<Lanes>>)
      store(dst + j * lanes, result[j]);
    else
      store(dst + j * lanes, __builtin_convertvector(result[j], V<D, lanes>));
  }
}

// Fewer elements than a block: the empty lanes compute the function of a harmless value.
template <class Function, class S, class D>
[[gnu::noinline]] void runPart(const S* src, D* dst, long count, int& code) {
  alignas(vectorBytes) S in[functionBlock];
  alignas(vectorBytes) D out[functionBlock];
  for (S& e : in) e = S(0.75);
  for (long i = 0; i < count; ++i) in[i] = load<S>(src + i);
  runBlock<Function>(in, out, code);
  for (long i = 0; i < count; ++i) store(dst + i, out[i]);
}

}  // namespace detail

// dst[i] = function of src[i]: a part up to the first vector boundary of `src`, blocks of 16, and a
// part for the rest. Returns the first code that an element noted, else 0.
template <VectorFunction Function, class S, class D>
int runFunction(const S* src, D* dst, int len) {
  if (len < 1 || anyNull(src, dst)) return 0;
  const MaskedExceptions scope;
  int code = 0;
  long i = std::min(peelCount(src), len);
  if (i > 0) detail::runPart<Function>(src, dst, i, code);
  for (; i <= len - detail::functionBlock; i += detail::functionBlock)
    detail::runBlock<Function>(src + i, dst + i, code);
  if (i < len) detail::runPart<Function>(src + i, dst + i, len - i, code);
  return code;
}

// The body of functions that give no warning.
template <VectorFunction Function, class S, class D>
MoxStatus elementary(const S* src, D* dst, int len) {
  if (MoxStatus s = checkArrays(len, src, dst)) return s;
  runFunction<Function>(src, dst, len);
  return moxOk;
}

}  // namespace mox::arith
