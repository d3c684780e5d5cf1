#include "transforms/fft_tables.h"

#include "arith/sin_cos.h"
#include "frame/arena.h"
#include "transforms/fft_reversal.h"
#include "transforms/fft_roots.h"
#include "transforms/pairs.h"

namespace mox {
namespace {

template <class T>
T* placeTable(Mox8u* next) {
  return reinterpret_cast<T*>(alignUp(next, fftAlignment));
}
Mox8u* placeBehind(void* end) { return alignUp(static_cast<Mox8u*>(end), fftAlignment); }

template <class F>
struct ConstantSine {
  static constexpr int length = 1 << fftConstantSineOrder;
  alignas(fftAlignment) F at[length / 4 + 1];

  constexpr ConstantSine() : at() {
    for (int i = 0; i <= length / 4; ++i) at[i] = F(sineOfTurn(i, length));
  }
};

template <class F>
constexpr ConstantSine<F> constantSine;

// exp(-2 pi i a / length) for a up to three quarters of the length, out of the quarter wave.
template <class F>
class RootsOfUnity {
 public:
  RootsOfUnity(QuarterSine<F> sine, int lengthOrder)
      : sine_(sine.at), quarter_(1L << (lengthOrder - 2)), step_(1L << (sine.log - lengthOrder)) {}

  long quarter() const { return quarter_; }

  Pair<F> operator()(long a) const {
    if (a <= quarter_) return {sineAt(quarter_ - a), -sineAt(a)};
    if (a <= 2 * quarter_) return {-sineAt(a - quarter_), -sineAt(2 * quarter_ - a)};
    return {-sineAt(3 * quarter_ - a), sineAt(a - 2 * quarter_)};
  }

  // The factors for a, 2a .. multiples * a, of `group` consecutive angles a, in runs of parts.
  F* writeRuns(F* table, long a, int group, int multiples) const {
    for (int m = 1; m <= multiples; ++m, table += 2 * group)
      for (int j = 0; j < group; ++j) {
        const Pair<F> w = (*this)(m * (a + j));
        table[j] = w.re;
        table[j + group] = w.im;
      }
    return table;
  }

 private:
  F sineAt(long i) const { return sine_[i * step_]; }

  const F* sine_;
  long quarter_, step_;
};

// The outer twiddles of one level, in the order in which the column passes use them. The last
// stage has those of the first half of its butterflies, and no third factors.
template <class F>
F* writeOuterTwiddles(int rowOrder, int splitOrder, QuarterSine<F> sine, F* table) {
  constexpr int columns = 1 << FftLimits<F>::tileBits, lanes = lanesOf<F>;
  const int stages = splitOrder / 2;
  for (long first = 0; first < 1L << rowOrder; first += columns)
    for (int stage = 0; stage < stages; ++stage) {
      const bool last = stage == stages - 1;
      const RootsOfUnity<F> roots(sine, rowOrder + 2 + 2 * stage);
      const int groups = (1 << 2 * stage) >> last;
      for (long group = 0; group < groups; ++group)
        for (int c = 0; c < columns; c += lanes)
          table = roots.writeRuns(table, (group << rowOrder) + first + c, lanes, last ? 2 : 3);
    }
  return table;
}

// The rows' tables, then the outer ones; the largest transforms have rows with levels of their own.
template <int depth, class F>
Mox8u* buildLevel(FftSpec<F>& spec, int order, QuarterSine<F> sine, Mox8u* next) {
  const int splitOrder = fftSplitOrder<F>(order), rowOrder = order - splitOrder;
  if (rowOrder < FftLimits<F>::largeOrder) {
    spec.twiddle = placeTable<F>(next);
    next = ownFftTwiddle(rowOrder, sine, spec.twiddle);
  } else if constexpr (depth + 1 < fftMaxLevels) {
    next = buildLevel<depth + 1>(spec, rowOrder, sine, next);
  }
  spec.levelTwiddle[depth] = placeTable<F>(next);
  return placeBehind(writeOuterTwiddles(rowOrder, splitOrder, sine, spec.levelTwiddle[depth]));
}

}  // namespace

template <class F>
QuarterSine<F> ownFftConstantSine() {
  return {constantSine<F>.at, fftConstantSineOrder};
}

template <class F>
QuarterSine<F> ownFftSinTable(int order, Mox8u* initBuf) {
  F* const table = placeTable<F>(initBuf);
  const int quarter = 1 << (order - 2), eighth = quarter / 2;
  const double step = 6.283185307179586 / double(1L << order);
  for (int i = 0; i <= eighth; ++i) table[i] = F(step * i);
  for (int i = eighth + 1; i <= quarter; ++i) table[i] = F(step * (quarter - i));
  ownsSin(table, table, eighth + 1);
  ownsCos(table + eighth + 1, table + eighth + 1, quarter - eighth);
  return {table, order};
}

Mox8u* ownFftBitRevTable(int order, int* table) {
  if (order < 2) return placeBehind(table);
  const int count = 1 << (order - 2);
  table[0] = table[count] = 0;
  for (int i = 1; i < count; ++i) table[i] = 2 * reversed(i, order - 2);
  return placeBehind(table + count + 1);
}

template <class F>
Mox8u* ownFftTwiddle(int order, QuarterSine<F> sine, F* table) {
  for (int stage = 4 + order % 2; stage <= order; stage += 2) {
    const RootsOfUnity<F> roots(sine, stage);
    const int group = roots.quarter() < lanesOf<F> ? int(roots.quarter()) : lanesOf<F>;
    for (long j = 0; j < roots.quarter(); j += group) table = roots.writeRuns(table, j, group, 3);
  }
  return placeBehind(table);
}

template <class F>
Mox8u* ownFftLargeInit(FftSpec<F>& spec, int order, QuarterSine<F> sine, Mox8u* next) {
  constexpr int tileBits = FftLimits<F>::tileBits;
  const int tileOrder = order - 2 * tileBits, tiles = 1 << tileOrder;
  spec.bitRev = placeTable<int>(next);
  for (int i = 0; i < tiles; ++i) spec.bitRev[i] = reversed(i, tileOrder) << tileBits;
  spec.bufSize = int(ownFftLargeSizes<F>(order).work);
  return buildLevel<0>(spec, order, sine, placeBehind(spec.bitRev + tiles));
}

template <class F>
Mox8u* fftBuildComplexTables(FftSpec<F>& spec, int order, QuarterSine<F> sine, Mox8u* next) {
  if (order >= FftLimits<F>::largeOrder) return ownFftLargeInit(spec, order, sine, next);
  spec.bitRev = placeTable<int>(next);
  spec.twiddle = placeTable<F>(ownFftBitRevTable(order, spec.bitRev));
  spec.bufSize = int(fftRoundUp(2 * long(sizeof(F)) << order));
  return ownFftTwiddle(order, sine, spec.twiddle);
}

template QuarterSine<Mox32f> ownFftConstantSine();
template QuarterSine<Mox64f> ownFftConstantSine();
template QuarterSine<Mox32f> ownFftSinTable(int, Mox8u*);
template QuarterSine<Mox64f> ownFftSinTable(int, Mox8u*);
template Mox8u* ownFftTwiddle(int, QuarterSine<Mox32f>, Mox32f*);
template Mox8u* ownFftTwiddle(int, QuarterSine<Mox64f>, Mox64f*);
template Mox8u* ownFftLargeInit(FftSpec<Mox32f>&, int, QuarterSine<Mox32f>, Mox8u*);
template Mox8u* ownFftLargeInit(FftSpec<Mox64f>&, int, QuarterSine<Mox64f>, Mox8u*);
template Mox8u* fftBuildComplexTables(FftSpec<Mox32f>&, int, QuarterSine<Mox32f>, Mox8u*);
template Mox8u* fftBuildComplexTables(FftSpec<Mox64f>&, int, QuarterSine<Mox64f>, Mox8u*);

}  // namespace mox
