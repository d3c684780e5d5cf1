#include "transforms/fft_tables.h"

#include "arith/vector_functions.h"
#include "frame/arena.h"
#include "frame/vec/vec.h"
#include "transforms/turn.h"

namespace mox {
namespace {

// The place for the next table.
template <class E>
Mox8u* behind(E* end) {
  return reinterpret_cast<Mox8u*>(alignUp(end, fftAlignment));
}

// The reversal of i in some bits from that of i - 1, counted from the top.
int nextReversed(int reversed, int count) {
  int bit = count / 2;
  for (; bit && bit <= reversed; bit /= 2) reversed -= bit;
  return reversed + bit;
}

template <class F>
struct ConstantWave {
  static constexpr long points = 1 << fftConstantSineOrder;
  alignas(fftAlignment) F values[points / 4 + 1];

  constexpr ConstantWave() : values{} {
    for (long i = 0; i <= points / 4; ++i) values[i] = sineOfTurn<F>(i, points);
  }
};
template <class F>
constexpr ConstantWave<F> constantWave;

// W^a = exp(-2 pi i a / 2^order) for angle indices a below three quarters of the length.
template <class F>
class Wave {
 public:
  Wave(QuarterSine<F> sine, int order)
      : sine_(sine.at), step_(1L << (sine.log - order)), quarter_((1L << order) / 4) {}

  Twiddle<F> at(long a) const {
    if (a <= quarter_) return {sine(quarter_ - a), -sine(a)};
    if (a <= 2 * quarter_) return {-sine(a - quarter_), -sine(2 * quarter_ - a)};
    return {-sine(3 * quarter_ - a), sine(a - 2 * quarter_)};
  }
  long quarter() const { return quarter_; }

 private:
  F sine(long i) const { return sine_[i * step_]; }

  const F* sine_;
  long step_, quarter_;
};

// The record of the butterflies a, a + 1 and so on of a group: a run of real and a run of imaginary
// parts for each multiple.
template <class F>
F* writeRecord(F* table, const Wave<F>& wave, long a, int group, int multiples) {
  for (int m = 1; m <= multiples; ++m, table += 2 * group)
    for (int i = 0; i < group; ++i) {
      const Twiddle<F> w = wave.at(m * (a + i));
      table[i] = w.re;
      table[i + group] = w.im;
    }
  return table;
}

// For each block of columns the records of each outer stage in the order of use; in the last stage
// W^a and W^2a alone, for the first half of the groups of rows.
template <class F>
Mox8u* writeOuterTwiddles(int order, QuarterSine<F> sine, F* table) {
  const FftRows<F> rows(order);
  for (long column = 0; column < rows.length; column += rows.columns)
    for (long groups = 1, length = rows.order + 2; groups < rows.count; groups *= 4, length += 2) {
      const Wave<F> wave(sine, int(length));
      const bool last = 4 * groups == rows.count;
      for (long g = 0; g < (last ? groups / 2 : groups); ++g)
        for (long c = 0; c < rows.columns; c += lanesOf<F>)
          table = writeRecord(table, wave, g * rows.length + column + c, lanesOf<F>, last ? 2 : 3);
    }
  return behind(table);
}

// Rows that are large themselves are cut up once more.
template <int depth = 0, class F>
Mox8u* buildLevel(FftSpec<F>& spec, int order, QuarterSine<F> sine, Mox8u* next) {
  const FftRows<F> rows(order);
  if (rows.order < FftLimits<F>::largeOrder) {
    spec.twiddle = reinterpret_cast<F*>(next);
    next = ownFftTwiddle(rows.order, sine, spec.twiddle);
  } else if constexpr (depth + 1 < fftMaxDepth) {
    next = buildLevel<depth + 1>(spec, rows.order, sine, next);
  }
  spec.levelTwiddle[depth] = reinterpret_cast<F*>(next);
  return writeOuterTwiddles(order, sine, spec.levelTwiddle[depth]);
}

// Butterflies of one record.
template <class F>
constexpr int groupOf(int stage) {
  return stage == 4 ? 4 : lanesOf<F>;
}

}  // namespace

template <class F>
QuarterSine<F> ownFftConstantSine() {
  return {constantWave<F>.values, fftConstantSineOrder};
}

template <class F>
QuarterSine<F> ownFftSinTable(int order, Mox8u* initBuf) {
  F* const table = reinterpret_cast<F*>(alignUp(initBuf, fftAlignment));
  const long n = 1L << order, quarter = n / 4, eighth = n / 8;
  const Mox64f h = 6.283185307179586 / Mox64f(n);
  for (long i = 0; i <= quarter; ++i) table[i] = F(h * Mox64f(i <= eighth ? i : quarter - i));
  ownsSin(table, table, int(eighth + 1));
  ownsCos(table + eighth + 1, table + eighth + 1, int(quarter - eighth));
  return {table, order};
}

Mox8u* ownFftBitRevTable(int order, int* table) {
  if (order < 2) return behind(table);
  const int count = 1 << (order - 2);
  for (int i = 0, reversed = 0; i < count; ++i, reversed = nextReversed(reversed, count))
    table[i] = 2 * reversed;
  table[count] = 0;
  return behind(table + count + 1);
}

template <class F>
Mox8u* ownFftTwiddle(int order, QuarterSine<F> sine, F* table) {
  for (int stage = order % 2 ? 5 : 4; stage <= order; stage += 2) {
    const Wave<F> wave(sine, stage);
    const int group = groupOf<F>(stage);
    for (long j = 0; j < wave.quarter(); j += group) table = writeRecord(table, wave, j, group, 3);
  }
  return behind(table);
}

template <class F>
Mox8u* ownFftLargeInit(FftSpec<F>& spec, int order, QuarterSine<F> sine, Mox8u* next) {
  const int tiles = 1 << (order - 2 * FftLimits<F>::tileBits);
  spec.bitRev = reinterpret_cast<int*>(next);
  for (int i = 0, reversed = 0; i < tiles; ++i, reversed = nextReversed(reversed, tiles))
    spec.bitRev[i] = reversed;
  spec.bufSize = Mox32s(ownFftLargeSizes<F>(order).work);
  return buildLevel(spec, order, sine, behind(spec.bitRev + tiles));
}

template <class F>
Mox8u* fftBuildComplexTables(FftSpec<F>& spec, int order, QuarterSine<F> sine, Mox8u* next) {
  if (order >= FftLimits<F>::largeOrder) return ownFftLargeInit(spec, order, sine, next);
  spec.bitRev = reinterpret_cast<int*>(next);
  spec.twiddle = reinterpret_cast<F*>(ownFftBitRevTable(order, spec.bitRev));
  spec.bufSize = Mox32s(2 * sizeof(F) << order);
  return ownFftTwiddle(order, sine, spec.twiddle);
}

template QuarterSine<Mox32f> ownFftConstantSine();
template QuarterSine<Mox64f> ownFftConstantSine();
template QuarterSine<Mox32f> ownFftSinTable(int, Mox8u*);
template QuarterSine<Mox64f> ownFftSinTable(int, Mox8u*);
template Mox8u* ownFftTwiddle(int, QuarterSine<Mox32f>, Mox32f*);
template Mox8u* ownFftTwiddle(int, QuarterSine<Mox64f>, Mox64f*);
template Mox8u* fftBuildComplexTables(FftSpec<Mox32f>&, int, QuarterSine<Mox32f>, Mox8u*);
template Mox8u* fftBuildComplexTables(FftSpec<Mox64f>&, int, QuarterSine<Mox64f>, Mox8u*);

}  // namespace mox
