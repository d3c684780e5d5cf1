// Forward filter banks: two filters of one signal, of which every second output is made.
#include "kernels/striped_dot.h"
#include "wavelet/bank.h"

struct MoxWTFwdState {
  Mox32s id;
  Mox32s owned;
};

namespace mox::wavelet {
namespace {

using Rows = kernels::Rows<Mox32f>;

// Taps are reversed. Outputs before `head` need the delay lines; those behind are made from the
// signal alone, dealt out to a row of even and one of odd samples.
struct Forward {
  using Head = MoxWTFwdState;
  struct Record : Head {
    Channel low, high;
    long head;
    Rows rows;
    Mox32f* converted;  // samples of a step, where they are integers
  };

  template <class Data>
  static constexpr Mox32s id = std::is_same_v<Data, Mox32f>   ? 41
                               : std::is_same_v<Data, Mox8u>  ? 42
                               : std::is_same_v<Data, Mox8s>  ? 43
                               : std::is_same_v<Data, Mox16u> ? 44
                                                              : 45;

  static void placeStores(Arena& arena, Record& r) {
    r.head = (std::max(r.low.dlyLen(), r.high.dlyLen()) + 1) / 2;
    for (Channel* c : {&r.low, &r.high}) c->store.place(arena, c->dlyLen(), 2 * r.head);
    const auto elements = kernels::rowsOf<Mox32f>(nullptr, 2, stepLen + r.head).elements();
    r.rows = kernels::rowsOf(arena.place<Mox32f>(std::size_t(elements), partAlignment), 2,
                             stepLen + r.head);
    r.converted = arena.place<Mox32f>(std::size_t(2 * (stepLen + r.head)), partAlignment);
  }
  static void writeTaps(Channel& c, const Mox32f* taps) {
    for (int k = 0; k < c.tapsLen; ++k) c.taps[c.tapsLen - 1 - k] = load<Mox32f>(taps + k);
  }
  static void writeDelayLine(Channel& c, const Mox32f* dlyLine) {
    c.store.setLine<Mox32f>(nullptr);
    if (dlyLine) c.store.takeIn(dlyLine, c.dlyLen());
  }
  static void readDelayLine(const Channel& c, Mox32f* dlyLine) {
    convert::takeIn(c.store.history(), dlyLine, c.dlyLen());
  }
};

// n outputs, of which the first meets sample `start` of the rows and those behind.
void filterRows(const Rows& rows, long start, const Channel& c, Mox32f* dst, long n) {
  kernels::filterStriped(rows, start, dst, n, c.taps, c.tapsLen);
}

// Makes the outputs before `head`, and keeps the last samples of the block.
template <class S>
void filterHead(const Rows& rows, Channel& c, const S* src, Mox32f* dst, long head, long len) {
  const long kept = c.dlyLen();
  c.store.append(src, 2 * head);
  for (long k = 0, n; k < head; k += n) {
    n = std::min(head - k, stepLen);
    kernels::deal(c.store.history() + 2 * k, kept + 2 * n, rows);
    filterRows(rows, kept - c.reach(), c, dst + k, n);
  }
  c.store.takeIn(src, 2 * len);
}

template <class S>
MoxStatus forward(const S* src, Mox32f* dstLow, Mox32f* dstHigh, int dstLen, MoxWTFwdState* state) {
  if (MoxStatus s = checkState<Forward, S>(state)) return s;
  if (MoxStatus s = checkArrays(dstLen, src, dstLow, dstHigh)) return s;
  auto& r = *static_cast<Forward::Record*>(state);
  const long head = std::min(r.head, long(dstLen));
  filterHead(r.rows, r.low, src, dstLow, head, dstLen);
  filterHead(r.rows, r.high, src, dstHigh, head, dstLen);
  for (long k = head, n; k < dstLen; k += n) {
    n = std::min(dstLen - k, stepLen);
    const long samples = 2 * (r.head + n);
    const S* from = src + 2 * (k - r.head);
    if constexpr (std::is_same_v<S, Mox32f>) {
      kernels::deal(from, samples, r.rows);
    } else {
      convert::takeIn(from, r.converted, samples);
      kernels::deal(r.converted, samples, r.rows);
    }
    filterRows(r.rows, 2 * r.head - r.low.reach(), r.low, dstLow + k, n);
    filterRows(r.rows, 2 * r.head - r.high.reach(), r.high, dstHigh + k, n);
  }
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsWTFwdInitAlloc_32f, initAlloc<Forward, Mox32f>);
MOX_EXPORT(moxsWTFwdInitAlloc_8s32f, initAlloc<Forward, Mox8s>);
MOX_EXPORT(moxsWTFwdInitAlloc_8u32f, initAlloc<Forward, Mox8u>);
MOX_EXPORT(moxsWTFwdInitAlloc_16s32f, initAlloc<Forward, Mox16s>);
MOX_EXPORT(moxsWTFwdInitAlloc_16u32f, initAlloc<Forward, Mox16u>);

MOX_EXPORT(moxsWTFwd_32f, forward<Mox32f>);
MOX_EXPORT(moxsWTFwd_8s32f, forward<Mox8s>);
MOX_EXPORT(moxsWTFwd_8u32f, forward<Mox8u>);
MOX_EXPORT(moxsWTFwd_16s32f, forward<Mox16s>);
MOX_EXPORT(moxsWTFwd_16u32f, forward<Mox16u>);

MOX_EXPORT(moxsWTFwdGetDlyLine_32f, getDlyLine<Forward, Mox32f>);
MOX_EXPORT(moxsWTFwdGetDlyLine_8s32f, getDlyLine<Forward, Mox8s>);
MOX_EXPORT(moxsWTFwdGetDlyLine_8u32f, getDlyLine<Forward, Mox8u>);
MOX_EXPORT(moxsWTFwdGetDlyLine_16s32f, getDlyLine<Forward, Mox16s>);
MOX_EXPORT(moxsWTFwdGetDlyLine_16u32f, getDlyLine<Forward, Mox16u>);

MOX_EXPORT(moxsWTFwdSetDlyLine_32f, setDlyLine<Forward, Mox32f>);
MOX_EXPORT(moxsWTFwdSetDlyLine_8s32f, setDlyLine<Forward, Mox8s>);
MOX_EXPORT(moxsWTFwdSetDlyLine_8u32f, setDlyLine<Forward, Mox8u>);
MOX_EXPORT(moxsWTFwdSetDlyLine_16s32f, setDlyLine<Forward, Mox16s>);
MOX_EXPORT(moxsWTFwdSetDlyLine_16u32f, setDlyLine<Forward, Mox16u>);

MOX_EXPORT(moxsWTFwdFree_32f, free<Forward, Mox32f>);
MOX_EXPORT(moxsWTFwdFree_8s32f, free<Forward, Mox8s>);
MOX_EXPORT(moxsWTFwdFree_8u32f, free<Forward, Mox8u>);
MOX_EXPORT(moxsWTFwdFree_16s32f, free<Forward, Mox16s>);
MOX_EXPORT(moxsWTFwdFree_16u32f, free<Forward, Mox16u>);

}  // namespace mox::wavelet
