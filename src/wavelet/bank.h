// The life of two-channel filter banks, forward and inverse.
#pragma once

#include <moxsp/wavelet.h>

#include <algorithm>

#include "convert/samples.h"
#include "frame/export.h"
#include "frame/lifecycle.h"
#include "kernels/delay_store.h"

namespace mox::wavelet {

// Samples of each band that one step makes or takes.
constexpr long stepLen = 512;

// One of the two filters.
struct Channel {
  int tapsLen, offset;
  Mox32f* taps;  // in the order that the direction sums in
  kernels::DelayStore<Mox32f> store;

  // How far the first output of a block reaches back. It is -1 for a single tap that meets the
  // second sample of a pair.
  long reach() const { return long(tapsLen) - 1 + offset; }
  // The samples of the delay line that callers see, which is at the rate of the signal.
  long dlyLen() const { return std::max(reach(), 0L); }
};

// A direction, forward or inverse: its Head, the types of data and their identifiers, and what
// channels hold. Its record has the channels `low` and `high`.
template <class D>
struct BankKind {
  using Head = typename D::Head;
  using Record = typename D::Record;
  struct Shape {
    int lenLow, offsLow, lenHigh, offsHigh;

    void layout(Arena& arena, Record& r) const {
      r.low = {lenLow, offsLow, arena.place<Mox32f>(std::size_t(lenLow), partAlignment), {}};
      r.high = {lenHigh, offsHigh, arena.place<Mox32f>(std::size_t(lenHigh), partAlignment), {}};
      D::placeStores(arena, r);
    }
  };
  static constexpr int alignment = 16;
  static constexpr bool releaseClearsId = false;
};

template <class D, class Data>
MoxStatus initAlloc(typename D::Head** stateOut, const Mox32f* tapsLow, int lenLow, int offsLow,
                    const Mox32f* tapsHigh, int lenHigh, int offsHigh) {
  if (anyNull(stateOut, tapsLow)) return moxErrNullPtr;
  if (MoxStatus s = checkLength(lenLow)) return s;
  if (MoxStatus s = checkArrays(lenHigh, tapsHigh)) return s;
  if (std::min(offsLow, offsHigh) < -1) return moxErrWtOffset;
  const MoxStatus s = mox::initAlloc<BankKind<D>>(
      stateOut, D::template id<Data>, {lenLow, offsLow, lenHigh, offsHigh}, [=](auto& r) {
        for (const auto& [channel, taps] : {std::pair(&r.low, tapsLow), {&r.high, tapsHigh}}) {
          D::writeTaps(*channel, taps);
          D::writeDelayLine(*channel, nullptr);
        }
        return MoxStatus(moxOk);
      });
  if (s) *stateOut = nullptr;
  return s;
}

// The bank behind a state of the right type, looked at before all other arguments.
template <class D, class Data>
MoxStatus checkState(const typename D::Head* state) {
  return anyNull(state) ? MoxStatus(moxErrNullPtr) : requireId(state, D::template id<Data>);
}

template <class D, class Data>
MoxStatus getDlyLine(typename D::Head* state, Mox32f* dlyLow, Mox32f* dlyHigh) {
  if (MoxStatus s = checkState<D, Data>(state)) return s;
  if (anyNull(dlyLow, dlyHigh)) return moxErrNullPtr;
  const auto& r = *static_cast<typename D::Record*>(state);
  D::readDelayLine(r.low, dlyLow);
  D::readDelayLine(r.high, dlyHigh);
  return moxOk;
}

template <class D, class Data>
MoxStatus setDlyLine(typename D::Head* state, const Mox32f* dlyLow, const Mox32f* dlyHigh) {
  if (MoxStatus s = checkState<D, Data>(state)) return s;
  if (anyNull(dlyLow, dlyHigh)) return moxErrNullPtr;
  auto& r = *static_cast<typename D::Record*>(state);
  D::writeDelayLine(r.low, dlyLow);
  D::writeDelayLine(r.high, dlyHigh);
  return moxOk;
}

template <class D, class Data>
MoxStatus free(typename D::Head* state) {
  return release<BankKind<D>>(state, D::template id<Data>);
}

}  // namespace mox::wavelet
