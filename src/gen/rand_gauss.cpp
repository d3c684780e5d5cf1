// Normally distributed random numbers, by the polar method (Marsaglia and Bray, A convenient method
// for generating normal variables, 1964): a point drawn in the square that lies in the circle gives
// two.
#include <moxsp/generators.h>

#include <bit>
#include <cstring>

#include "arith/ln.h"
#include "frame/export.h"
#include "frame/pair.h"
#include "frame/rounding_control.h"
#include "gen/fill.h"
#include "gen/random.h"
#include "gen/record.h"

namespace mox::gen {

// The normal numbers of a sequence, times stdDev.
struct GaussSource {
  Mox64f mean, stdDev;
  Mox64f waiting = 0;  // the second of a pair, if `isWaiting`
  RandomSequence sequence;
  Mox32s isWaiting = 0;
};

}  // namespace mox::gen

struct MoxRandGaussState : mox::gen::RecordHead {
  mox::gen::GaussSource source;
};
static_assert(sizeof(MoxRandGaussState) == 56, "the size has been published");

namespace mox::gen {
namespace {

template <class T>
constexpr Mox32s gaussId = 38 + std::countr_zero(sizeof(T));

using Wide = V<Mox64f>;

// u 2^-31
[[gnu::always_inline]] inline Wide coordinates(RandomSequence::Vector u) {
  return __builtin_convertvector(u, Wide) * 0x1p-31;
}

// sqrt(-2 ln(s) / s) for 0 < s < 1.
[[gnu::always_inline]] inline Wide stretch(Wide s) {
  return squareRoot(-2 * arith::lnOf(arith::LnArgument(s)) / s);
}

// Points of the circle are drawn into a pool, the coordinate that is drawn second first, and then
// stretched all together.
class GaussNumbers {
 public:
  // `len` numbers are wanted.
  GaussNumbers(const GaussSource& source, long len) : source_(source), toDraw_(len) {
    if (!source_.isWaiting) return;
    source_.isWaiting = 0;
    pool_[end_++] = source_.waiting;
    --toDraw_;
  }

  // The next block, or the last `count`.
  Block<Mox64f> next(int count) {
    if (end_ - begin_ < count) refill();
    const Mox64f* from = pool_ + begin_;
    begin_ += count;
    return blockOf<Mox64f>([&](int j) { return load<Wide>(from + j * lanesOf<Mox64f>); });
  }

  const GaussSource& source() const { return source_; }

 private:
  static constexpr int poolLen = 64 * blockLen;

  [[gnu::noinline]] void refill() {
    std::memmove(pool_, pool_ + begin_, sizeof(Mox64f) * blockLen);
    end_ -= begin_, begin_ = 0;
    const int held = end_;
    RandomSequence sequence = source_.sequence;
    while (end_ < poolLen && toDraw_ >= blockLen) keepPoints(sequence);
    source_.sequence = sequence;
    while (end_ < blockLen && toDraw_ > 0) drawPoint();
    stretchFrom(held);
    if (toDraw_ >= 0) return;
    source_.isWaiting = 1;
    source_.waiting = pool_[--end_];
    toDraw_ = 0;
  }

  [[gnu::always_inline]] void keepPoints(RandomSequence& sequence) {
    RandomSequence::Vector u[RandomSequence::vectors];
    sequence.nextBlock(u);
    int end = end_;  // in a register: a store to the pool might change a member
    for (int j = 0; j < RandomSequence::vectors; j += 2) {
      const auto first = shuffle<[](int i) { return 2 * i; }>(u[j], u[j + 1]),
                 second = shuffle<[](int i) { return 2 * i + 1; }>(u[j], u[j + 1]);
      const Pair<Wide> z = {coordinates(second), coordinates(first)};
      const Wide s = squaredMagnitude(z);
      const int inCircle = int(signBits((s < 1) & (s > 0)));
      // Each a point: those with even numbers, and those with odd ones.
      using Points = Registers<V<Mox64f, 2>, lanesOf<Mox64f> / 2>;
      const auto even = std::bit_cast<Points>(interleavedLow(z)),
                 odd = std::bit_cast<Points>(interleavedHigh(z));
      for (int point = 0; point < lanesOf<Mox64f>; ++point) {
        store(pool_ + end, (point % 2 ? odd : even).of[point / 2]);
        end += inCircle >> point << 1 & 2;
      }
    }
    toDraw_ -= end - end_;
    end_ = end;
  }

  void drawPoint() {
    const Mox64f p = source_.sequence.next() * 0x1p-31, q = source_.sequence.next() * 0x1p-31;
    const Mox64f s = squaredMagnitude(Pair<Mox64f>{q, p});
    if (!(s < 1 && s > 0)) return;
    pool_[end_] = q, pool_[end_ + 1] = p;
    end_ += 2, toDraw_ -= 2;
  }

  void stretchFrom(int held) {
    constexpr int lanes = lanesOf<Mox64f>;
    for (int i = 0; i < 2 * lanes; ++i) pool_[end_ + i] = 0.5;  // some point to fill the last step
    const Mox64f stdDev = source_.stdDev;
    for (int i = held, end = end_; i < end; i += 2 * lanes) {
      const Pair<Wide> z = deinterleaved(load<Wide>(pool_ + i), load<Wide>(pool_ + i + lanes));
      const Wide factor = stretch(squaredMagnitude(z));
      const Pair<Wide> r = {stdDev * z.re * factor, stdDev * z.im * factor};
      store(pool_ + i, interleavedLow(r));
      store(pool_ + i + lanes, interleavedHigh(r));
    }
  }

  GaussSource source_;
  long toDraw_;
  int begin_ = 0, end_ = 0;
  Mox64f pool_[poolLen + 2 * blockLen];
};

// Singles have the mean added in single precision.
template <class T>
void fillGauss(T* dst, long len, GaussSource& source) {
  const ResultScope<T> scope;
  using F = std::conditional_t<std::is_integral_v<T>, Mox64f, T>;
  GaussNumbers numbers(source, len);
  const F mean = F(source.mean);
  fillBlocks(dst, len, [&](int count) {
    const auto b = inFormat<F>(numbers.next(count));
    return blockOf<F>([&](int j) { return b.v[j] + mean; });
  });
  source = numbers.source();
}

template <class T>
MoxRandGaussState gaussState(T mean, T stdDev, Mox32u seed) {
  return {{gaussId<T>}, {Mox64f(mean), Mox64f(stdDev), 0, RandomSequence(seed), 0}};
}

template <class T>
MoxStatus gaussInit(MoxRandGaussState* state, T mean, T stdDev, Mox32u seed) {
  if (anyNull(state)) return moxErrNullPtr;
  store(state, gaussState(mean, stdDev, seed));
  return moxOk;
}

template <class T>
MoxStatus gaussInitAlloc(MoxRandGaussState** out, T mean, T stdDev, Mox32u seed) {
  if (anyNull(out)) return moxErrNullPtr;
  return allocRecord(out, gaussState(mean, stdDev, seed));
}

template <class T>
MoxStatus gaussFree(MoxRandGaussState* state) {
  return freeRecord(state, gaussId<T>);
}

template <class T>
MoxStatus gauss(T* dst, int len, MoxRandGaussState* state) {
  return runRecord(dst, len, state, gaussId<T>, [&](auto& s) { fillGauss(dst, len, s.source); });
}

template <class T>
MoxStatus gaussDirect(T* dst, int len, T mean, T stdDev, Mox32u* seed) {
  if (MoxStatus s = checkArrays(len, dst, seed)) return s;
  GaussSource source = {Mox64f(mean), Mox64f(stdDev), 0, RandomSequence(load<Mox32u>(seed)), 0};
  fillGauss(dst, len, source);
  store(seed, source.sequence.newest());
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsRandGaussGetSize_8u, recordSize<MoxRandGaussState>);
MOX_EXPORT(moxsRandGaussGetSize_16s, recordSize<MoxRandGaussState>);
MOX_EXPORT(moxsRandGaussGetSize_32f, recordSize<MoxRandGaussState>);
MOX_EXPORT(moxsRandGaussInit_8u, gaussInit);
MOX_EXPORT(moxsRandGaussInit_16s, gaussInit);
MOX_EXPORT(moxsRandGaussInit_32f, gaussInit);
MOX_EXPORT(moxsRandGaussInitAlloc_8u, gaussInitAlloc);
MOX_EXPORT(moxsRandGaussInitAlloc_16s, gaussInitAlloc);
MOX_EXPORT(moxsRandGaussInitAlloc_32f, gaussInitAlloc);
MOX_EXPORT(moxsRandGaussFree_8u, gaussFree<Mox8u>);
MOX_EXPORT(moxsRandGaussFree_16s, gaussFree<Mox16s>);
MOX_EXPORT(moxsRandGaussFree_32f, gaussFree<Mox32f>);
MOX_EXPORT(moxsRandGauss_8u, gauss);
MOX_EXPORT(moxsRandGauss_16s, gauss);
MOX_EXPORT(moxsRandGauss_32f, gauss);
MOX_EXPORT(moxsRandGauss_Direct_16s, gaussDirect);
MOX_EXPORT(moxsRandGauss_Direct_32f, gaussDirect);
MOX_EXPORT(moxsRandGauss_Direct_64f, gaussDirect);

}  // namespace mox::gen
