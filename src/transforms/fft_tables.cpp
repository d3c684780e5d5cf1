// Tables are the same in every rounding mode of the caller.
#include "transforms/fft_tables.h"

#include "arith/vector_functions.h"
#include "frame/rounding_control.h"
#include "frame/vec/vec.h"
#include "transforms/fft_layout.h"
#include "transforms/turn.h"

namespace mox::transforms {
namespace {

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
void writeOuterTwiddles(int order, QuarterSine<F> sine, F* table) {
  const FftRows<F> rows(order);
  for (long column = 0; column < rows.length; column += rows.columns)
    for (long groups = 1, length = rows.order + 2; groups < rows.count; groups *= 4, length += 2) {
      const Wave<F> wave(sine, int(length));
      const bool last = 4 * groups == rows.count;
      for (long g = 0; g < (last ? groups / 2 : groups); ++g)
        for (long c = 0; c < rows.columns; c += lanesOf<F>)
          table = writeRecord(table, wave, g * rows.length + column + c, lanesOf<F>, last ? 2 : 3);
    }
}

// Butterflies of one record.
template <class F>
constexpr int groupOf(int stage) {
  return stage == 4 ? 4 : lanesOf<F>;
}

// Twiddles of the radix-4 stages of lengths 16 or 32, then four times as long each, up to 2^order:
// W^a for a = j, 2j, 3j, as a vector of real parts and one of imaginary parts for each, by vectors
// of butterflies j.
template <class F>
void writeStageTwiddles(int order, QuarterSine<F> sine, F* table) {
  for (int stage = order % 2 ? 5 : 4; stage <= order; stage += 2) {
    const Wave<F> wave(sine, stage);
    const int group = groupOf<F>(stage);
    for (long j = 0; j < wave.quarter(); j += group) table = writeRecord(table, wave, j, group, 3);
  }
}

// Rows that are large themselves are cut up once more.
template <int depth = 0, class F>
void fillLevels(const FftSpec<F>& spec, int order, QuarterSine<F> sine) {
  const FftRows<F> rows(order);
  if (rows.order < FftLimits<F>::largeOrder)
    writeStageTwiddles(rows.order, sine, spec.twiddle);
  else if constexpr (depth + 1 < fftMaxDepth)
    fillLevels<depth + 1>(spec, rows.order, sine);
  writeOuterTwiddles(order, sine, spec.levelTwiddle[depth]);
}

// Entry i, for 0 < i < 2^(order - 2), is twice the reversal of i in order - 2 bits.
void writeBitReversal(int order, int* table) {
  const int count = 1 << (order - 2);
  for (int i = 0, reversed = 0; i < count; ++i, reversed = nextReversed(reversed, count))
    table[i] = 2 * reversed;
  table[count] = 0;
}

// entry(i) for i = 2, 1, 4, 3 ... count.
template <class F, class Entry>
F* writeSwapped(F* table, long count, Entry entry) {
  for (long i = 1; i <= count; i += 2)
    for (const Twiddle<F> e : {entry(i + 1), entry(i)}) *table++ = e.re, *table++ = e.im;
  return table;
}

// Twiddles of a real transform, whole or in two levels.
template <class F>
void writeRealTwiddles(int order, const Wave<F>& wave, F* table) {
  const auto twiddle = [&](long i) { return wave.at(i); };
  if (order < fftTwoLevelOrder) {
    writeSwapped(table, wave.quarter(), twiddle);
    return;
  }
  table = writeSwapped(table, fineTwiddles<F>, twiddle);
  for (long i = 0; i < wave.quarter(); i += fineTwiddles<F>, table += 2) {
    const Twiddle<F> coarse = wave.at(i);
    table[0] = coarse.re, table[1] = coarse.im;
  }
}

}  // namespace

template <class F>
QuarterSine<F> quarterSine(int order, Mox8u* initBuf) {
  if (order <= fftConstantSineOrder) return {constantWave<F>.values, fftConstantSineOrder};
  F* const table = reinterpret_cast<F*>(alignUp(initBuf, fftAlignment));
  const RoundingScope toNearest(Rounding::nearEven);
  const long n = 1L << order, quarter = n / 4, eighth = n / 8;
  const Mox64f h = 6.283185307179586 / Mox64f(n);
  for (long i = 0; i <= quarter; ++i) table[i] = F(h * Mox64f(i <= eighth ? i : quarter - i));
  arith::ownsSin(table, table, int(eighth + 1));
  arith::ownsCos(table + eighth + 1, table + eighth + 1, int(quarter - eighth));
  return {table, order};
}

template <class F>
void fillComplexTables(const FftSpec<F>& spec, int order, QuarterSine<F> sine) {
  if (order >= FftLimits<F>::largeOrder) {
    const int tiles = 1 << (order - 2 * FftLimits<F>::tileBits);
    for (int i = 0, reversed = 0; i < tiles; ++i, reversed = nextReversed(reversed, tiles))
      spec.bitRev[i] = reversed;
    fillLevels(spec, order, sine);
  } else {
    writeBitReversal(order, spec.bitRev);
    writeStageTwiddles(order, sine, spec.twiddle);
  }
}

template <class F>
void fillRealTables(const FftSpec<F>& spec, int order, QuarterSine<F> sine) {
  const Wave<F> wave(sine, order);
  writeRealTwiddles(order, wave, spec.realInvTwiddle);
  if (order >= fftTwoLevelOrder) return writeRealTwiddles(order, wave, spec.realFwdTwiddle);
  const RoundingScope toNearest(Rounding::nearEven);
  writeSwapped(spec.realFwdTwiddle, wave.quarter(), [&](long i) {
    const Twiddle<F> w = wave.at(i);
    return Twiddle<F>{F(0.5) * w.re, F(0.5 + 0.5 * Mox64f(w.im))};
  });
}

#define MOX_INSTANTIATE(F)                                                 \
  template QuarterSine<F> quarterSine(int, Mox8u*);                        \
  template void fillComplexTables(const FftSpec<F>&, int, QuarterSine<F>); \
  template void fillRealTables(const FftSpec<F>&, int, QuarterSine<F>)
MOX_INSTANTIATE(Mox32f);
MOX_INSTANTIATE(Mox64f);

}  // namespace mox::transforms
