// Normally distributed random numbers, by the polar method (Marsaglia and Bray, A convenient method
// for generating normal variables, 1964): a point drawn in the square that lies in the circle gives
// two.
#include <moxsp/generators.h>

#include <cstring>

#include "arith/ln.h"
#include "frame/export.h"
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

namespace mox::gen {
namespace {

template <class T>
constexpr Mox32s gaussId = sizeof(T) == 1   ? 38
                           : sizeof(T) == 2 ? 39
                                            : 40;

using Wide = V<Mox64f>;

// Points drawn, of which the first coordinate makes the second number of a pair.
struct Points {
  Wide p, q;

  static Points from(I<Mox32s> first, I<Mox32s> second) {
    return {__builtin_convertvector(first, Wide) * 0x1p-31,
            __builtin_convertvector(second, Wide) * 0x1p-31};
  }
  Wide squaredRadius() const { return p * p + q * q; }
};

// sqrt(-2 ln(s) / s), with some value for points that don't count.
Wide stretch(Wide s) {
  const Wide safe = greater(lesser(s, broadcast<Wide>(1.0)), broadcast<Wide>(0x1p-70));
  return squareRoot(-2 * arith::Ln64f::lanes(safe) / safe);
}

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
  static constexpr int poolLen = 32 * blockLen;

  struct Draws {
    I<Mox32s> u[4];
  };

  [[gnu::noinline]] void refill() {
    std::memmove(pool_, pool_ + begin_, sizeof(Mox64f) * blockLen);
    end_ -= begin_, begin_ = 0;
    RandomSequence sequence = source_.sequence;
    const auto wantsBlock = [this] { return end_ < poolLen && toDraw_ >= blockLen; };
    if (wantsBlock()) {
      // A block is drawn while the one before becomes numbers: the first waits for its own results,
      // the second for its arithmetic.
      RandomSequence ahead = sequence;
      Draws draws = drawn(ahead);
      do {
        sequence = ahead;
        const Draws next = drawn(ahead);
        keepPoints(draws);
        draws = next;
      } while (wantsBlock());
    }
    while (end_ < blockLen && toDraw_ > 0) drawPoint(sequence);
    source_.sequence = sequence;
  }

  [[gnu::always_inline]] static Draws drawn(RandomSequence& sequence) {
    Draws d;
    sequence.nextBlock(d.u);
    return d;
  }

  [[gnu::always_inline]] void keepPoints(const Draws& draws) {
    const int before = end_;
    for (int j = 0; j < 4; j += 2) {
      const auto [first, second] = deinterleaved(draws.u[j], draws.u[j + 1]);
      const Points z = Points::from(first, second);
      const Wide s = z.squaredRadius(), factor = stretch(s);
      const Pair<Wide> pair = {source_.stdDev * z.q * factor, source_.stdDev * z.p * factor};
      const int inCircle = signBits((s < 1) & (s > 0));
      const auto even = halves(interleavedLow(pair)), odd = halves(interleavedHigh(pair));
      const auto keep = [&](int point, auto numbers) {
        store(pool_ + end_, numbers);
        end_ += inCircle >> point << 1 & 2;
      };
      keep(0, even.low), keep(1, odd.low), keep(2, even.high), keep(3, odd.high);
    }
    toDraw_ -= end_ - before;
  }

  // Of the last pair the second number may have to wait.
  void drawPoint(RandomSequence& sequence) {
    const auto lanes = [](Mox32s e) { return broadcast<I<Mox32s>>(e); };
    const Mox32s first = sequence.next(), second = sequence.next();
    const Points z = Points::from(lanes(first), lanes(second));
    const Wide s = z.squaredRadius(), factor = stretch(s);
    if (!(s[0] < 1 && s[0] > 0)) return;
    pool_[end_++] = (source_.stdDev * z.q * factor)[0];
    source_.waiting = (source_.stdDev * z.p * factor)[0];
    source_.isWaiting = toDraw_ == 1;
    if (!source_.isWaiting) pool_[end_++] = source_.waiting;
    toDraw_ -= 2 - source_.isWaiting;
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
