// Resampling by a ratio of whole numbers: a filter for each phase of an output.
#include <numeric>

#include "frame/export.h"
#include "frame/rounding.h"
#include "frame/widen.h"
#include "resample/kaiser_sinc.h"
#include "resample/resampler.h"

struct MoxsResamplePolyphaseFixedState {
  long inRate, outRate;  // without common factor
  long halfWidth;        // samples on either side
  bool sumsAreDouble;
  Mox32f* rows;
};

namespace mox::resample {
namespace {

using State = MoxsResamplePolyphaseFixedState;

// A row of 16-bit integers holds multiples of this.
constexpr Mox32f unitOf16 = 0x1p-15f;

// Row p is the filter of an output p / outRate behind a sample: 2 halfWidth taps, or one more in
// row 0, which has a tap in the middle. The rest is padding.
constexpr long rowLen(const State& s) { return 2 * s.halfWidth + 4; }

struct Kind {
  using Record = State;
  static constexpr int alignment = partAlignment;

  struct Shape {
    long inRate, outRate, halfWidth;

    Shape(int in, int out, int len) : halfWidth(((long(len) + 3) & ~3L) / 2) {
      const int common = std::gcd(in, out);
      inRate = in / common;
      outRate = out / common;
    }
    long filterLen() const { return 2 * halfWidth; }
    bool fits() const { return filterLen() <= INT_MAX && fitsInInt<Kind>(*this); }

    void layout(Arena& arena, State& s) const {
      s.inRate = inRate;
      s.outRate = outRate;
      s.halfWidth = halfWidth;
      s.rows = arena.place<Mox32f>(std::size_t(outRate * rowLen(s)), partAlignment);
    }
  };
};

MoxStatus checkRates(int inRate, int outRate, int len) {
  return inRate < 1 || outRate < 1 || len < 1 ? MoxStatus(moxErrSize) : moxOk;
}

MoxStatus getSize(int inRate, int outRate, int len, int* size, int* filterLen, int* numFilters,
                  int) {
  if (anyNull(size, filterLen, numFilters)) return moxErrNullPtr;
  if (MoxStatus s = checkRates(inRate, outRate, len)) return s;
  const Kind::Shape shape(inRate, outRate, len);
  if (!shape.fits()) return moxErrBadArg;
  store(size, int(objectBytes<Kind>(shape)));
  store(filterLen, int(shape.filterLen()));
  store(numFilters, int(shape.outRate));
  return moxOk;
}

// A tap as the rows hold it.
template <class Tap>
Mox32f heldTap(Mox64f tap) {
  if constexpr (std::is_same_v<Tap, Mox32f>)
    return Mox32f(tap);
  else
    return Mox32f(std::min(std::nearbyint(tap / unitOf16), 32767.0)) * unitOf16;
}

// A falling rate cuts off at half of the output's rate: there the response has its points to an
// output, and as long a filter has fewer of its lobes.
template <class Tap>
void fillRows(State& s, Mox32f rollf, Mox32f alpha) {
  const Mox64f ratio = Mox64f(s.outRate) / Mox64f(s.inRate);
  const long step = std::max(s.inRate, s.outRate), width = 2 * s.halfWidth;
  const long len =
      long((1e-5f + Mox32f(width) * Mox32f(std::min(ratio, 1.0))) * 0.5f * Mox32f(step)) + 1;
  const KaiserSinc response(len, step, rollf, alpha);
  for (long p = 0; p < s.outRate; ++p) {
    Mox32f* const row = s.rows + p * rowLen(s);
    for (long k = 0; k < rowLen(s); ++k) {
      const long sample = k - s.halfWidth + (p > 0), point = std::abs(sample * s.outRate - p);
      row[k] = k < width + (p == 0) && point < len ? heldTap<Tap>(response(point)) : 0;
    }
  }
}

template <class Tap>
MoxStatus init(int inRate, int outRate, int len, Mox32f rollf, Mox32f alpha, State* state,
               int hint) {
  if (anyNull(state)) return moxErrNullPtr;
  if (MoxStatus s = checkRates(inRate, outRate, len)) return s;
  const Kind::Shape shape(inRate, outRate, len);
  if (!areFilterParameters(rollf, alpha) || !shape.fits()) return moxErrBadArg;
  State& s = placeObject<Kind>(state, shape);
  s.sumsAreDouble = hint == moxHintAccurate;
  fillRows<Tap>(s, rollf, alpha);
  return moxOk;
}

// The sums of `windows` windows, at most four, times one row of taps.
template <class Sum, int windows, class Data>
V<Mox64f> sumWindows(const Data* x, long stride, const Mox32f* taps, long count) {
  constexpr int lanes = lanesOf<Sum>;
  using T = V<Mox32f, lanes>;
  V<Sum> sums[windows][2] = {};
  const auto add = [&](int i, long k) {
    const T tap = load<T>(taps + k);
    for (int w = 0; w < windows; ++w)
      sums[w][i] += __builtin_convertvector(loadWidened<T>(x + w * stride + k) * tap, V<Sum>);
  };
  long k = 0;
  for (; k <= count - 2 * lanes; k += 2 * lanes) add(0, k), add(1, k + lanes);
  if (k <= count - lanes) add(0, k), k += lanes;

  V<Sum, 4> columns[4] = {};
  for (int w = 0; w < windows; ++w) {
    const V<Sum> v = sums[w][0] + sums[w][1];
    columns[w] = shuffle<[](int i) { return i; }, 4>(v, v);
    if constexpr (lanes == 8) columns[w] += shuffle<[](int i) { return i + 4; }, 4>(v, v);
  }
  transpose(columns);
  V<Sum, 4> rest = {};
  for (; k < count; ++k)
    for (int w = 0; w < windows; ++w) rest[w] += load<Data>(x + w * stride + k) * taps[k];
  return __builtin_convertvector((columns[0] + columns[1]) + (columns[2] + columns[3]) + rest,
                                 V<Mox64f>);
}

// Where the next output stands: in `phase` behind *sample.
template <class Data>
struct Walk {
  const State& s;
  const Data* sample;
  long phase;

  void next() {
    sample += s.inRate / s.outRate;
    phase += s.inRate % s.outRate;
    if (phase >= s.outRate) phase -= s.outRate, ++sample;
  }
  template <class Sum, int windows>
  V<Mox64f> sums() const {
    const long isWhole = phase == 0;
    return sumWindows<Sum, windows>(sample + 1 - isWhole - s.halfWidth, s.inRate,
                                    s.rows + phase * rowLen(s), 2 * s.halfWidth + isWhole);
  }
};

template <class Data>
void storeOutput(Data* dst, V<Mox64f> values, int i) {
  if constexpr (std::is_integral_v<Data>)
    store(dst, Data(saturate<Data>(nearestInteger(values))[i]));
  else
    store(dst, Data(values[i]));
}

// Every outRate-th output has the same filter: four of them share the loads of its taps.
template <class Sum, class Data>
void runFilters(Walk<Data> walk, long count, Mox64f gain, Data* dst) {
  const long cycle = walk.s.outRate;
  for (; count >= 4 * cycle; count -= 4 * cycle, dst += 4 * cycle) {
    for (long i = 0; i < cycle; ++i, walk.next()) {
      const auto values = walk.template sums<Sum, 4>() * gain;
      for (int w = 0; w < 4; ++w) storeOutput(dst + i + w * cycle, values, w);
    }
    walk.sample += 3 * walk.s.inRate;
  }
  for (long i = 0; i < count; ++i, walk.next())
    storeOutput(dst + i, walk.template sums<Sum, 1>() * gain, 0);
}

template <class Data>
MoxStatus resample(const Data* src, int len, Data* dst, Mox32f norm, Mox64f* time, int* outLen,
                   const State* state) {
  if (anyNull(state, src, dst, outLen, time)) return moxErrNullPtr;
  if (MoxStatus s = checkLength(len)) return s;
  const Mox64f start = load<Mox64f>(time);
  if (!isPosition(start)) return moxErrBadArg;
  const State& s = recordIn<Kind>(state);
  const Mox64f whole = std::floor(start), rate(s.outRate);
  // Positions in units of 1 / outRate behind the whole sample.
  const long first = long(rate * (start - whole) + 0.5), left = len * s.outRate - first;
  const long count = left > 0 ? (left + s.inRate - 1) / s.inRate : 0;
  if (count > INT_MAX) return moxErrSize;

  const Mox64f gain = std::min(rate / Mox64f(s.inRate), 1.0) * norm;
  const Walk<Data> walk{s, src + long(whole) + first / s.outRate, first % s.outRate};
  if (s.sumsAreDouble)
    runFilters<Mox64f>(walk, count, gain, dst);
  else
    runFilters<Mox32f>(walk, count, gain, dst);
  store(time, start - whole + Mox64f(count * s.inRate) / rate);
  store(outLen, int(count));
  return moxOk;
}

// Runs copy(row of the caller's, row of ours, elements) over `height` rows.
template <class Tap, class Copy>
MoxStatus forRows(Tap* rows, int step, int height, const State* state, Copy copy) {
  if (anyNull(rows, state)) return moxErrNullPtr;
  const State& s = recordIn<Kind>(state);
  if (step < 1 || height < 1 || height > s.outRate) return moxErrSize;
  for (long p = 0; p < height; ++p)
    copy(rows + p * step, s.rows + p * rowLen(s), std::min<long>(rowLen(s), step));
  return moxOk;
}

template <class Tap>
MoxStatus getFilter(Tap* dst, int step, int height, const State* state) {
  constexpr int factor = std::is_integral_v<Tap> ? -15 : 0;
  return forRows(dst, step, height, state, [](Tap* row, const Mox32f* own, long count) {
    convert::giveOut(own, row, count, factor);
  });
}
template <class Tap>
MoxStatus setFilter(const Tap* src, int step, int height, State* state) {
  constexpr Mox32f unit = std::is_integral_v<Tap> ? unitOf16 : 1;
  return forRows(src, step, height, state, [](const Tap* row, Mox32f* own, long count) {
    for (long k = 0; k < count; ++k) own[k] = Mox32f(load<Tap>(row + k)) * unit;
  });
}

}  // namespace

MOX_EXPORT(moxsResamplePolyphaseFixedGetSize_32f, getSize);
MOX_EXPORT(moxsResamplePolyphaseFixedGetSize_16s, getSize);
MOX_EXPORT(moxsResamplePolyphaseFixedInit_32f, init<Mox32f>);
MOX_EXPORT(moxsResamplePolyphaseFixedInit_16s, init<Mox16s>);
MOX_EXPORT(moxsResamplePolyphaseFixed_32f, resample);
MOX_EXPORT(moxsResamplePolyphaseFixed_16s, resample);
MOX_EXPORT(moxsResamplePolyphaseGetFixedFilter_32f, getFilter);
MOX_EXPORT(moxsResamplePolyphaseGetFixedFilter_16s, getFilter);
MOX_EXPORT(moxsResamplePolyphaseSetFixedFilter_32f, setFilter);
MOX_EXPORT(moxsResamplePolyphaseSetFixedFilter_16s, setFilter);

}  // namespace mox::resample
