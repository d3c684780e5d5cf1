// Inverse filter banks: each band, a zero before each of its samples, goes through its filter, and
// the results are added. Even and odd outputs take half of the taps each.
#include "kernels/sliding_dot.h"
#include "wavelet/bank.h"
#include "wavelet/pairs.h"

struct MoxWTInvState {
  Mox32s id;
  Mox32s owned;
};

namespace mox::wavelet {
namespace {

// The even or the odd taps of a channel, reversed, as a filter of the band itself.
struct Phase {
  Phase(const Channel& c, int parity)
      : len((c.tapsLen + 1 - parity) / 2), taps(c.taps + (parity ? (c.tapsLen + 1) / 2 : 0)) {}
  long len;
  Mox32f* taps;
};

struct Inverse {
  using Head = MoxWTInvState;
  struct Record : Head {
    Channel low, high;
  };

  template <class Data>
  static constexpr Mox32s id = std::is_same_v<Data, Mox32f>   ? 50
                               : std::is_same_v<Data, Mox8u>  ? 51
                               : std::is_same_v<Data, Mox8s>  ? 52
                               : std::is_same_v<Data, Mox16u> ? 53
                                                              : 54;

  // Samples of the band before the next block.
  static long kept(const Channel& c) { return (c.dlyLen() + 1) / 2; }

  static void placeStores(Arena& arena, Record& r) {
    for (Channel* c : {&r.low, &r.high}) c->store.place(arena, kept(*c), stepLen);
  }
  static void writeTaps(Channel& c, const Mox32f* taps) {
    for (int k = 0; k < c.tapsLen; ++k) {
      const Phase phase(c, k % 2);
      phase.taps[phase.len - 1 - k / 2] = load<Mox32f>(taps + k);
    }
  }

  // Callers see every second place of a delay line taken by a zero.
  static void writeDelayLine(Channel& c, const Mox32f* dlyLine) {
    for (long k = 1; k <= kept(c); ++k)
      c.store.appended()[-k] = dlyLine ? load<Mox32f>(dlyLine + c.dlyLen() - 2 * k + 1) : 0;
  }
  static void readDelayLine(const Channel& c, Mox32f* dlyLine) {
    std::memset(static_cast<void*>(dlyLine), 0, std::size_t(c.dlyLen()) * sizeof(Mox32f));
    for (long k = 1; k <= kept(c); ++k)
      store(dlyLine + c.dlyLen() - 2 * k + 1, c.store.appended()[-k]);
  }
};

// The even outputs of a step, and the odd ones.
using Outputs = Mox32f[2][stepLen];

void filterStep(const Channel& c, const Mox32f* src, long len, Outputs& outputs) {
  c.store.append(src, len);
  for (const int parity : {0, 1}) {
    const int tapParity = (parity + c.offset + 1) % 2;
    const Phase phase(c, tapParity);
    const long delay = (c.offset + 1L + tapParity - parity) / 2;
    if (phase.len > 0)
      kernels::filterWindow(c.store.appended() - delay - phase.len + 1, outputs[parity], len,
                            phase.taps, phase.len);
    else
      std::fill_n(outputs[parity], len, 0.0f);
  }
  c.store.advance(len);
}

// Adds both channels and interleaves the even and the odd outputs.
void join(const Outputs& low, const Outputs& high, Mox32f* dst, long len) {
  joinPairs<lanesOf<Mox32f>>(
      dst, len,
      [&](long i) {
        const auto sum = [&](int p) {
          return load<V<Mox32f>>(low[p] + i) + load<V<Mox32f>>(high[p] + i);
        };
        return Pair{sum(0), sum(1)};
      },
      [&](long i) {
        store(dst + 2 * i, low[0][i] + high[0][i]);
        store(dst + 2 * i + 1, low[1][i] + high[1][i]);
      });
}

template <class D>
MoxStatus inverse(const Mox32f* srcLow, const Mox32f* srcHigh, int srcLen, D* dst,
                  MoxWTInvState* state) {
  if (MoxStatus s = checkState<Inverse, D>(state)) return s;
  if (MoxStatus s = checkArrays(srcLen, srcLow, srcHigh)) return s;
  if (anyNull(dst)) return moxErrNullPtr;
  const auto& r = *static_cast<Inverse::Record*>(state);
  alignas(vectorBytes) Outputs low, high;
  for (long k = 0, n; k < srcLen; k += n) {
    n = std::min(srcLen - k, stepLen);
    filterStep(r.low, srcLow + k, n, low);
    filterStep(r.high, srcHigh + k, n, high);
    if constexpr (std::is_same_v<D, Mox32f>) {
      join(low, high, dst + 2 * k, n);
    } else {
      Mox32f joined[2 * stepLen];
      join(low, high, joined, n);
      convert::giveOut(joined, dst + 2 * k, 2 * n, 0);
    }
  }
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsWTInvInitAlloc_32f, initAlloc<Inverse, Mox32f>);
MOX_EXPORT(moxsWTInvInitAlloc_32f8s, initAlloc<Inverse, Mox8s>);
MOX_EXPORT(moxsWTInvInitAlloc_32f8u, initAlloc<Inverse, Mox8u>);
MOX_EXPORT(moxsWTInvInitAlloc_32f16s, initAlloc<Inverse, Mox16s>);
MOX_EXPORT(moxsWTInvInitAlloc_32f16u, initAlloc<Inverse, Mox16u>);

MOX_EXPORT(moxsWTInv_32f, inverse<Mox32f>);
MOX_EXPORT(moxsWTInv_32f8s, inverse<Mox8s>);
MOX_EXPORT(moxsWTInv_32f8u, inverse<Mox8u>);
MOX_EXPORT(moxsWTInv_32f16s, inverse<Mox16s>);
MOX_EXPORT(moxsWTInv_32f16u, inverse<Mox16u>);

MOX_EXPORT(moxsWTInvGetDlyLine_32f, getDlyLine<Inverse, Mox32f>);
MOX_EXPORT(moxsWTInvGetDlyLine_32f8s, getDlyLine<Inverse, Mox8s>);
MOX_EXPORT(moxsWTInvGetDlyLine_32f8u, getDlyLine<Inverse, Mox8u>);
MOX_EXPORT(moxsWTInvGetDlyLine_32f16s, getDlyLine<Inverse, Mox16s>);
MOX_EXPORT(moxsWTInvGetDlyLine_32f16u, getDlyLine<Inverse, Mox16u>);

MOX_EXPORT(moxsWTInvSetDlyLine_32f, setDlyLine<Inverse, Mox32f>);
MOX_EXPORT(moxsWTInvSetDlyLine_32f8s, setDlyLine<Inverse, Mox8s>);
MOX_EXPORT(moxsWTInvSetDlyLine_32f8u, setDlyLine<Inverse, Mox8u>);
MOX_EXPORT(moxsWTInvSetDlyLine_32f16s, setDlyLine<Inverse, Mox16s>);
MOX_EXPORT(moxsWTInvSetDlyLine_32f16u, setDlyLine<Inverse, Mox16u>);

MOX_EXPORT(moxsWTInvFree_32f, free<Inverse, Mox32f>);
MOX_EXPORT(moxsWTInvFree_32f8s, free<Inverse, Mox8s>);
MOX_EXPORT(moxsWTInvFree_32f8u, free<Inverse, Mox8u>);
MOX_EXPORT(moxsWTInvFree_32f16s, free<Inverse, Mox16s>);
MOX_EXPORT(moxsWTInvFree_32f16u, free<Inverse, Mox16u>);

}  // namespace mox::wavelet
