#include "transforms/fft_tables.h"

#include "arith/vector_functions.h"
#include "frame/arena.h"
#include "frame/vec.h"
#include "transforms/turn.h"

namespace mox {
namespace {

constexpr int tableAlignment = 64;

template <class F>
struct ConstantWave {
  static constexpr long points = 1 << fftConstantSineLog;
  alignas(tableAlignment) F values[points / 4 + 1];

  constexpr ConstantWave() : values{} {
    for (long i = 0; i <= points / 4; ++i) values[i] = sineOfTurn<F>(i, points);
  }
};
template <class F>
constexpr ConstantWave<F> constantWave;

// W^a = exp(-2 pi i a / 4q) for angle indices a from 0 to 3q, by quadrants of the wave.
template <class F>
class StageWave {
 public:
  StageWave(QuarterSine<F> sine, int stage)
      : s_(sine.values), step_(1L << (sine.sinLog - stage)), q_((1L << stage) / 4) {}

  F cosine(long a) const {
    if (a <= q_) return at(q_ - a);
    if (a <= 2 * q_) return -at(a - q_);
    return -at(3 * q_ - a);
  }
  F negatedSine(long a) const {
    if (a <= q_) return -at(a);
    if (a <= 2 * q_) return -at(2 * q_ - a);
    return at(a - 2 * q_);
  }
  long butterflies() const { return q_; }

 private:
  F at(long i) const { return s_[i * step_]; }

  const F* s_;
  long step_, q_;
};

// Butterflies of one record.
template <class F>
constexpr int groupOf(int stage) {
  return stage == 4 ? 4 : lanesOf<F>;
}

}  // namespace

template <class F>
QuarterSine<F> constantSine() {
  return {constantWave<F>.values, fftConstantSineLog};
}

template <class F>
F* ownFftSinTable(int order, F* table) {
  const long n = 1L << order, quarter = n / 4, eighth = n / 8;
  const Mox64f h = 6.283185307179586 / Mox64f(n);
  for (long i = 0; i <= quarter; ++i) table[i] = F(h * Mox64f(i <= eighth ? i : quarter - i));
  ownsSin(table, table, int(eighth + 1));
  ownsCos(table + eighth + 1, table + eighth + 1, int(quarter - eighth));
  return alignUp(table + quarter + 1, tableAlignment);
}

Mox8u* ownFftBitRevTable(int order, int* table) {
  if (order < 2) return reinterpret_cast<Mox8u*>(table);
  const int count = 1 << (order - 2);
  table[0] = 0;
  for (int i = 1, reversed = 0; i < count; ++i) {
    int bit = count / 2;
    for (; bit <= reversed; bit /= 2) reversed -= bit;
    reversed += bit;
    table[i] = 2 * reversed;
  }
  table[count] = 0;
  return reinterpret_cast<Mox8u*>(alignUp(table + count + 1, tableAlignment));
}

template <class F>
F* ownFftTwiddle(int order, QuarterSine<F> sine, F* table) {
  for (int stage = order % 2 ? 5 : 4; stage <= order; stage += 2) {
    const StageWave<F> wave(sine, stage);
    const int group = groupOf<F>(stage);
    for (long first = 0; first < wave.butterflies(); first += group)
      for (int multiple : {1, 2, 3}) {
        for (int j = 0; j < group; ++j) *table++ = wave.cosine(multiple * (first + j));
        for (int j = 0; j < group; ++j) *table++ = wave.negatedSine(multiple * (first + j));
      }
  }
  return alignUp(table, tableAlignment);
}

template QuarterSine<Mox32f> constantSine();
template QuarterSine<Mox64f> constantSine();
template Mox32f* ownFftSinTable(int, Mox32f*);
template Mox64f* ownFftSinTable(int, Mox64f*);
template Mox32f* ownFftTwiddle(int, QuarterSine<Mox32f>, Mox32f*);
template Mox64f* ownFftTwiddle(int, QuarterSine<Mox64f>, Mox64f*);

}  // namespace mox
