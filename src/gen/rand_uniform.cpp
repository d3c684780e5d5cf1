// Evenly distributed random numbers.
#include <moxsp/generators.h>

#include <bit>

#include "frame/export.h"
#include "frame/rounding_control.h"
#include "gen/fill.h"
#include "gen/random.h"
#include "gen/record.h"

namespace mox::gen {

// The interval in the arithmetic of its type, integers in double.
struct Interval {
  Mox64f mid, range;

  template <class T>
  static Interval from(T low, T high) {
    using F = std::conditional_t<std::is_integral_v<T>, Mox64f, T>;
    return {Mox64f(F(low) + F(high)) * 0.5, Mox64f(F(high) - F(low)) * 0x1p-32};
  }
};

}  // namespace mox::gen

struct MoxRandUniformState : mox::gen::RecordHead {
  mox::gen::Interval interval;
  mox::gen::RandomSequence sequence;
  Mox32u unused[3];
};
static_assert(sizeof(MoxRandUniformState) == 56, "the size has been published");

namespace mox::gen {
namespace {

template <class T>
constexpr Mox32s uniformId = 35 + std::countr_zero(sizeof(T));

// `sequence` is copied, so that it stays in registers.
template <class T>
void fillUniform(T* dst, long len, const Interval& interval, RandomSequence& sequence) {
  const ResultScope<T> scope;
  RandomSequence s = sequence;
  fillBlocks(dst, len, [&](int count) {
    RandomSequence::Vector u[RandomSequence::vectors] = {};
    constexpr int lanes = laneCount<RandomSequence::Vector>;
    if (count == blockLen)
      s.nextBlock(u);
    else
      for (int i = 0; i < count; ++i) u[i / lanes][i % lanes] = s.next();
    return blockOf<Mox64f>([&](int j) {
      return __builtin_convertvector(u[j], V<Mox64f>) * interval.range + interval.mid;
    });
  });
  sequence = s;
}

template <class T>
MoxRandUniformState uniformState(T low, T high, Mox32u seed) {
  const ResultScope<T> scope;
  return {{uniformId<T>}, Interval::from(low, high), RandomSequence(seed), {}};
}

template <class T>
MoxStatus uniformInit(MoxRandUniformState* state, T low, T high, Mox32u seed) {
  if (anyNull(state)) return moxErrNullPtr;
  store(state, uniformState(low, high, seed));
  return moxOk;
}

template <class T>
MoxStatus uniformInitAlloc(MoxRandUniformState** out, T low, T high, Mox32u seed) {
  if (anyNull(out)) return moxErrNullPtr;
  return allocRecord(out, uniformState(low, high, seed));
}

template <class T>
MoxStatus uniformFree(MoxRandUniformState* state) {
  return freeRecord(state, uniformId<T>);
}

template <class T>
MoxStatus uniform(T* dst, int len, MoxRandUniformState* state) {
  return runRecord(dst, len, state, uniformId<T>,
                   [&](auto& s) { fillUniform(dst, len, s.interval, s.sequence); });
}

template <class T>
MoxStatus uniformDirect(T* dst, int len, T low, T high, Mox32u* seed) {
  if (MoxStatus s = checkArrays(len, dst, seed)) return s;
  const ResultScope<T> scope;
  RandomSequence sequence(load<Mox32u>(seed));
  fillUniform(dst, len, Interval::from(low, high), sequence);
  store(seed, sequence.newest());
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsRandUniformGetSize_8u, recordSize<MoxRandUniformState>);
MOX_EXPORT(moxsRandUniformGetSize_16s, recordSize<MoxRandUniformState>);
MOX_EXPORT(moxsRandUniformGetSize_32f, recordSize<MoxRandUniformState>);
MOX_EXPORT(moxsRandUniformInit_8u, uniformInit);
MOX_EXPORT(moxsRandUniformInit_16s, uniformInit);
MOX_EXPORT(moxsRandUniformInit_32f, uniformInit);
MOX_EXPORT(moxsRandUniformInitAlloc_8u, uniformInitAlloc);
MOX_EXPORT(moxsRandUniformInitAlloc_16s, uniformInitAlloc);
MOX_EXPORT(moxsRandUniformInitAlloc_32f, uniformInitAlloc);
MOX_EXPORT(moxsRandUniformFree_8u, uniformFree<Mox8u>);
MOX_EXPORT(moxsRandUniformFree_16s, uniformFree<Mox16s>);
MOX_EXPORT(moxsRandUniformFree_32f, uniformFree<Mox32f>);
MOX_EXPORT(moxsRandUniform_8u, uniform);
MOX_EXPORT(moxsRandUniform_16s, uniform);
MOX_EXPORT(moxsRandUniform_32f, uniform);
MOX_EXPORT(moxsRandUniform_Direct_16s, uniformDirect);
MOX_EXPORT(moxsRandUniform_Direct_32f, uniformDirect);
MOX_EXPORT(moxsRandUniform_Direct_64f, uniformDirect);

}  // namespace mox::gen
