// Where the parts of a state lie, and how much memory they take.
#pragma once

#include <algorithm>
#include <climits>

#include "fir/fir_combination.h"
#include "fir/fir_state.h"
#include "fir/fir_transform.h"
#include "frame/arena.h"

namespace mox {

// The least taps with an FFT path.
template <class A>
constexpr int leastTapsForFft = 64;
template <>
inline constexpr int leastTapsForFft<Mox32fc> = 16;
template <>
inline constexpr int leastTapsForFft<Mox64fc> = 32;

// All combinations that hold the same type share one layout, the largest that any of them needs.
template <class A>
class FirLayout {
 public:
  explicit FirLayout(int tapsLen) {
    record_.tapsLen = record_.dlyLen = tapsLen;
    record_.fftLen = -1;
    if (tapsLen >= leastTapsForFft<A>) {
      while (1L << (order_ - 1) <= tapsLen) ++order_;
      if (order_ <= mostOrder && Transform::sizes(order_, sizes_) == moxOk)
        record_.fftLen = 1 << order_;
    }
    Arena measuring;
    placeParts(measuring, record_);
    partsBytes_ = measuring.used();
  }

  int order() const { return order_; }

  // With the slack for any address of the memory.
  std::size_t bytes() const {
    return recordAlignment - 1 + sizeof(FirState<A>) + partsAlignment - 1 + partsBytes_;
  }
  bool fits() const { return bytes() <= INT_MAX; }

  // The record without identifier, and its parts without contents. Of a layout with an FFT path
  // also the memory of the transform's object, and scratch for setting that up.
  FirState<A>* place(Mox8u* memory, Mox8u*& specMemory, Mox8u*& scratch) const {
    auto* state = reinterpret_cast<FirState<A>*>(alignUp(memory, recordAlignment));
    *state = record_;
    Arena arena(alignUp(reinterpret_cast<Mox8u*>(state + 1), partsAlignment));
    specMemory = placeParts(arena, *state);
    scratch = reinterpret_cast<Mox8u*>(state->fftWork);
    return state;
  }

 private:
  using Transform = FirTransform<A>;
  static constexpr int mostOrder = 27;  // samples and spectrum of larger ones take 2^31 bytes
  static constexpr int recordAlignment = 16, partsAlignment = 64;

  Mox8u* placeParts(Arena& arena, FirState<A>& s) const {
    const auto room = [&](std::size_t count) { return arena.place<A>(count, partsAlignment); };
    const std::size_t taps = s.tapsLen;
    s.revTaps = room(taps);
    s.dlyLine = room(2 * taps + std::max(Fir32f::shortBlock(taps), long(firPiece)));
    s.staging = room(firChunk);
    if (s.fftLen < 1) return nullptr;
    s.fftTaps = room(s.fftLen);
    s.fftWork = room(std::max(std::size_t(s.fftLen), sizes_.init / sizeof(A) + 1));
    s.fftBuffer = arena.place<Mox8u>(sizes_.work, partsAlignment);
    return arena.place<Mox8u>(sizes_.spec, partsAlignment);
  }

  FirState<A> record_{};
  int order_ = 3;
  FirTransformSizes sizes_{};
  std::size_t partsBytes_;
};

}  // namespace mox
