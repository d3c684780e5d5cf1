// Tables are the same in every rounding mode of the caller.
#include "frame/rounding_control.h"
#include "transforms/fft_tables.h"

namespace mox::transforms {
namespace {

// sin and cos of 2 pi i / N for 0 <= i <= N/4, from a quarter wave of at least as many points.
template <class F>
class QuarterWave {
 public:
  QuarterWave(int order, QuarterSine<F> sine)
      : sine_(sine.at), step_(1L << (sine.log - order)), quarter_((1L << order) / 4) {}

  F sin(long i) const { return sine_[i * step_]; }
  F cos(long i) const { return sine_[(quarter_ - i) * step_]; }
  long quarter() const { return quarter_; }

 private:
  const F* sine_;
  long step_, quarter_;
};

// entry(i) for i = 2, 1, 4, 3 ... count.
template <class F, class Entry>
F* writeSwapped(F* table, long count, Entry entry) {
  for (long i = 1; i <= count; i += 2) {
    entry(table, i + 1);
    entry(table + 2, i);
    table += 4;
  }
  return table;
}

// W = (cos, -sin), whole or in two levels.
template <class F>
void writeTwiddles(int order, const QuarterWave<F>& wave, F* table) {
  const auto twiddle = [&](F* p, long i) {
    p[0] = wave.cos(i);
    p[1] = -wave.sin(i);
  };
  if (order < fftTwoLevelOrder) {
    writeSwapped(table, wave.quarter(), twiddle);
    return;
  }
  table = writeSwapped(table, fineTwiddles<F>, twiddle);
  for (long i = 0; i < wave.quarter(); i += fineTwiddles<F>, table += 2) twiddle(table, i);
}

}  // namespace

template <class F>
void ownFftRealTwiddleFwd(int order, QuarterSine<F> sine, F* table) {
  const QuarterWave<F> wave(order, sine);
  if (order >= fftTwoLevelOrder) return writeTwiddles(order, wave, table);
  const RoundingScope toNearest(Rounding::nearEven);
  writeSwapped(table, wave.quarter(), [&](F* p, long i) {
    p[0] = F(0.5) * wave.cos(i);
    p[1] = F(0.5 - 0.5 * Mox64f(wave.sin(i)));
  });
}

template <class F>
void ownFftRealTwiddleInv(int order, QuarterSine<F> sine, F* table) {
  writeTwiddles(order, QuarterWave<F>(order, sine), table);
}

template void ownFftRealTwiddleFwd(int, QuarterSine<Mox32f>, Mox32f*);
template void ownFftRealTwiddleFwd(int, QuarterSine<Mox64f>, Mox64f*);
template void ownFftRealTwiddleInv(int, QuarterSine<Mox32f>, Mox32f*);
template void ownFftRealTwiddleInv(int, QuarterSine<Mox64f>, Mox64f*);

}  // namespace mox::transforms
