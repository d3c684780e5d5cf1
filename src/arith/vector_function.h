// The driver of the elementary functions on floats: a quick kernel for the usual elements, and
// another one for vectors with lanes that it does not serve.
#pragma once

#include <algorithm>
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

// special(x) masks the lanes that lanes() does not serve; rare(x, code) gives their results, and
// sets a code that is still 0 if the caller is to be warned of one of them.
template <class Function>
concept WithSpecialLanes = VectorFunction<Function> &&
    requires(V<typename Function::Element> x, int& code) {
  { Function::special(x) } -> std::same_as<decltype(x)>;
  { Function::rare(x, code) } -> std::same_as<decltype(x)>;
};

// A function of floats by way of doubles, whose results are rounded once more.
template <class Op>
[[gnu::always_inline]] inline V<Mox32f> inDoubles(V<Mox32f> x, Op op) {
  const auto half = [&](auto v) {
    return __builtin_convertvector(op(__builtin_convertvector(v, V<Mox64f>)),
                                   Beside<Mox32f, V<Mox64f>>);
  };
  const auto [low, high] = halves(x);
  return join<V<Mox32f>>(half(low), half(high));
}

namespace detail {

constexpr int functionBlock = 16;

template <class Function>
using FunctionLanes = V<typename Function::Element>;

template <class Function>
constexpr int vectorsPerBlock = functionBlock / laneCount<FunctionLanes<Function>>;

template <class Lanes, class D>
[[gnu::always_inline]] inline void storeResult(D* dst, Lanes result) {
  if constexpr (std::is_same_v<D, Lane<Lanes>>)
    store(dst, result);
  else
    store(dst, __builtin_convertvector(result, V<D, laneCount<Lanes>>));
}

// A block with special lanes. Where one lane is special, most often all are.
template <class Function, class S, class D>
[[gnu::noinline]] void runRareBlock(const S* src, D* dst, int& code) {
  using Lanes = FunctionLanes<Function>;
  constexpr unsigned lanes = laneCount<Lanes>, all = (1u << lanes) - 1;
  for (unsigned i = 0; i < functionBlock; i += lanes) {
    const auto x = loadWidened<Lanes>(src + i), special = Function::special(x);
    auto result = Function::rare(x, code);
    if (unsigned(signBits(special)) != all) result = select(special, result, Function::lanes(x));
    storeResult(dst + i, result);
  }
}

template <class Function, class S, class D>
[[gnu::always_inline]] inline void runBlock(const S* src, D* dst, int& code) {
  using Lanes = FunctionLanes<Function>;
  constexpr int vectors = vectorsPerBlock<Function>, lanes = laneCount<Lanes>;
  Lanes x[vectors], result[vectors];
  for (int j = 0; j < vectors; ++j) x[j] = loadWidened<Lanes>(src + j * lanes);
  if constexpr (WithSpecialLanes<Function>) {
    Lanes special = Function::special(x[0]);
    for (int j = 1; j < vectors; ++j) special = either(special, Function::special(x[j]));
    if (signBits(special)) [[unlikely]]
      return runRareBlock<Function>(src, dst, code);
  }
  for (int j = 0; j < vectors; ++j) result[j] = Function::lanes(x[j]);
  for (int j = 0; j < vectors; ++j) storeResult(dst + j * lanes, result[j]);
}

// Fewer elements than a block: the empty lanes compute the function of a harmless value.
template <class Function, class S, class D>
[[gnu::noinline]] void runPart(const S* src, D* dst, long count, int& code) {
  alignas(vectorBytes) S in[functionBlock];
  alignas(vectorBytes) D out[functionBlock];
  for (long i = 0; i < functionBlock; i += lanesOf<S>)
    storeAligned(in + i, loadFirst<V<S>>(src + i, count - i, S(0.75)));
  runBlock<Function>(in, out, code);
  for (long i = 0; i < count; ++i) store(dst + i, out[i]);
}

}  // namespace detail

// dst[i] = function of src[i]: a part up to the first vector boundary of `src` if a block follows,
// blocks of 16, and a part for the rest. Returns the first code that an element noted, else 0.
template <VectorFunction Function, class S, class D>
int runFunction(const S* src, D* dst, int len) {
  if (len < 1 || anyNull(src, dst)) return 0;
  const MaskedExceptions scope;
  int code = 0;
  long i = peelCount(src);
  if (i + detail::functionBlock > len) i = 0;
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
