// The driver of the elementary functions on floats: a quick kernel for the usual elements, and
// another one for vectors with lanes that it does not serve.
#pragma once

#include <concepts>

#include "frame/checks.h"
#include "frame/control_word.h"
#include "frame/map.h"

namespace mox::arith {

// A class that computes in vectors of type Lanes: lanes(x) gives the results of one.
template <class Function>
concept VectorFunction = requires(typename Function::Lanes x) {
  { Function::lanes(x) } -> std::same_as<decltype(x)>;
};

// special(x) masks the lanes that lanes() does not serve; rare(x, code) gives their results, and
// sets a code that is still 0 if the caller is to be warned of one of them.
template <class Function>
concept WithSpecialLanes = VectorFunction<Function> &&
    requires(typename Function::Lanes x, int& code) {
  { Function::special(x) } -> std::same_as<Mask<decltype(x)>>;
  { Function::rare(x, code) } -> std::same_as<decltype(x)>;
};

// A function of floats by way of doubles, whose results are rounded once more.
template <Of<Mox32f> T, class Op>
[[gnu::always_inline]] inline T inDoubles(T x, Op op) {
  using Doubles = V<Mox64f, laneCount<T> / 2>;
  const auto half = [&](auto v) {
    return __builtin_convertvector(op(__builtin_convertvector(v, Doubles)), decltype(v));
  };
  const auto [low, high] = halves(x);
  return join<T>(half(low), half(high));
}

namespace detail {

template <class Lanes, class D>
[[gnu::always_inline]] inline void storeResult(D* dst, Lanes result) {
  if constexpr (std::is_same_v<D, Lane<Lanes>>)
    store(dst, result);
  else
    store(dst, __builtin_convertvector(result, V<D, laneCount<Lanes>>));
}

// Vectors with special lanes. Where one lane is special, most often all are.
template <class Function, int vectors, class S, class D>
[[gnu::noinline]] void runRare(const S* src, D* dst, int& code) {
  using Lanes = typename Function::Lanes;
  constexpr unsigned lanes = laneCount<Lanes>, all = (1u << lanes) - 1;
  for (unsigned i = 0; i < vectors * lanes; i += lanes) {
    const Lanes x = loadWidened<Lanes>(src + i);
    const auto special = Function::special(x);
    auto result = Function::rare(x, code);
    if (unsigned(signBits(special)) != all) result = select(special, result, Function::lanes(x));
    storeResult(dst + i, result);
  }
}

template <class Function, int vectors, class S, class D>
[[gnu::always_inline]] inline void runVectors(const S* src, D* dst, int& code) {
  using Lanes = typename Function::Lanes;
  constexpr int lanes = laneCount<Lanes>;
  Lanes x[vectors], result[vectors];
  for (int j = 0; j < vectors; ++j) x[j] = loadWidened<Lanes>(src + j * lanes);
  if constexpr (WithSpecialLanes<Function>) {
    auto special = Function::special(x[0]);
    for (int j = 1; j < vectors; ++j) special = either(special, Function::special(x[j]));
    if (signBits(special)) [[unlikely]]
      return runRare<Function, vectors>(src, dst, code);
  }
  for (int j = 0; j < vectors; ++j) result[j] = Function::lanes(x[j]);
  for (int j = 0; j < vectors; ++j) storeResult(dst + j * lanes, result[j]);
}

// Fewer elements than a vector: the empty lanes compute the function of a harmless value.
template <class Function, class S, class D>
[[gnu::noinline]] void runPart(const S* src, D* dst, long count, int& code) {
  constexpr int lanes = laneCount<typename Function::Lanes>;
  using In = V<S, lanes>;
  alignas(In) S in[lanes];
  D out[lanes];
  storeAligned(in, loadFirst<In>(src, count, S(0.75)));
  runVectors<Function, 1>(in, out, code);
  for (long i = 0; i < count; ++i) store(dst + i, out[i]);
}

}  // namespace detail

// dst[i] = function of src[i]. Returns the first code that an element noted, else 0. Several
// vectors at a time keep the processor busy while each waits for the last result of its own.
template <VectorFunction Function, class S, class D>
int runFunction(const S* src, D* dst, int len) {
  if (len < 1 || anyNull(src, dst)) return 0;
  const MaskedExceptions scope;
  constexpr long lanes = laneCount<typename Function::Lanes>, vectors = 4;
  int code = 0;
  long i = 0;
  for (; i <= len - vectors * lanes; i += vectors * lanes)
    detail::runVectors<Function, vectors>(src + i, dst + i, code);
  for (; i <= len - lanes; i += lanes) detail::runVectors<Function, 1>(src + i, dst + i, code);
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
