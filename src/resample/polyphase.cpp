// Resampling by any factor: the response is a table, interpolated between its points.
#include <algorithm>

#include "frame/export.h"
#include "frame/widen.h"
#include "resample/kaiser_sinc.h"
#include "resample/resampler.h"

struct MoxsResamplePolyphaseState {
  long len, step;  // points of a wing, and to a sample
  Mox32f* points;  // one after the last is the last again
  Mox32f* rows;    // row p has every step-th point, from p on
  long rowCount, rowLen;
};

namespace mox::resample {
namespace {

using State = MoxsResamplePolyphaseState;

struct Kind {
  using Record = State;
  static constexpr int alignment = partAlignment;

  struct Shape {
    long len, step;
    // A row is interpolated with the next.
    constexpr void layout(Arena& arena, State& s) const {
      s.len = len;
      s.step = step;
      s.rowCount = std::min(step, len) + 2;
      s.rowLen = len / step + 1;
      s.points = arena.place<Mox32f>(std::size_t(len + 1), partAlignment);
      s.rows = arena.place<Mox32f>(std::size_t(s.rowCount * s.rowLen), partAlignment);
    }
  };
};

// Points of a wing that is `window` / 2 samples long; 0 where that is no filter.
long wingLen(Mox32f window, int step) {
  constexpr Mox32f most = 0x1p28f;
  const Mox32f last = window * 0.5f * Mox32f(step);
  return window >= 2.0f / Mox32f(step) && last < most ? long(last) + 1 : 0;
}

MoxStatus checkShape(Mox32f window, int step) {
  if (step < 1) return moxErrSize;
  const long len = wingLen(window, step);
  return len > 0 && fitsInInt<Kind>({len, step}) ? moxOk : MoxStatus(moxErrBadArg);
}

MoxStatus getSize(Mox32f window, int nStep, int* size, int) {
  if (anyNull(size)) return moxErrNullPtr;
  if (MoxStatus s = checkShape(window, nStep)) return s;
  store(size, int(objectBytes<Kind>({wingLen(window, nStep), nStep})));
  return moxOk;
}

MoxStatus init(Mox32f window, int nStep, Mox32f rollf, Mox32f alpha, State* state, int) {
  if (anyNull(state)) return moxErrNullPtr;
  if (MoxStatus s = checkShape(window, nStep)) return s;
  if (!areFilterParameters(rollf, alpha)) return moxErrBadArg;
  State& s = placeObject<Kind>(state, {wingLen(window, nStep), nStep});
  const KaiserSinc response(s.len, s.step, rollf, alpha);
  for (long i = 0; i < s.len; ++i) s.points[i] = Mox32f(response(i));
  s.points[s.len] = s.points[s.len - 1];
  for (long p = 0; p < s.rowCount; ++p)
    for (long j = 0; j < s.rowLen; ++j)
      s.rows[p * s.rowLen + j] = s.points[std::min(p + j * s.step, s.len)];
  return moxOk;
}

// The taps of a wing: the table, interpolated at `point` and every step behind it. For growing
// rates a step is one sample, so that taps are those of two rows.
class RowTaps {
 public:
  RowTaps(const State& s, Mox64f point) : RowTaps(s, point, long(point + 1e-5)) {}

  long count() const { return count_; }
  template <class T>
  T from(long j) const {
    const T low = load<T>(row_ + j), high = load<T>(row_ + rowLen_ + j);
    return low + (high - low) * fraction_;
  }

 private:
  RowTaps(const State& s, Mox64f point, long p)
      : row_(s.rows + p * s.rowLen),
        rowLen_(s.rowLen),
        count_(p < s.len ? (s.len - p + s.step - 1) / s.step : 0),
        fraction_(Mox32f(point - Mox64f(p))) {}

  const Mox32f* row_;
  long rowLen_, count_;
  Mox32f fraction_;
};

// The response is stretched, to cut off at half of a falling rate: each tap has its own fraction.
class StretchedTaps {
 public:
  StretchedTaps(const State& s, Mox64f point, Mox64f step)
      : points_(s.points), point_(point), step_(step), count_(0) {
    const Mox64f left = Mox64f(s.len) - point;
    if (left > 0) count_ = long(left / step) + 1;
    while (count_ > 0 && place(count_ - 1) >= Mox64f(s.len)) --count_;
  }

  long count() const { return count_; }
  template <class T>
  T from(long j) const {
    if constexpr (std::is_same_v<T, Mox32f>) {
      const Mox64f q = place(j);
      const long p = long(q);
      return points_[p] + (points_[p + 1] - points_[p]) * Mox32f(q - Mox64f(p));
    } else {
      T taps;
      for (int i = 0; i < laneCount<T>; ++i) taps[i] = from<Mox32f>(j + i);
      return taps;
    }
  }

 private:
  Mox64f place(long j) const { return point_ + Mox64f(j) * step_; }

  const Mox32f* points_;
  Mox64f point_, step_;
  long count_;
};

enum class Side { past, future };

// The sum of taps times samples, from x on to one side.
template <Side side, class Taps, class Data>
Mox64f wing(const Taps& taps, const Data* x) {
  const auto products = [&]<class T>(std::type_identity<T>, long j) {
    const T tap = taps.template from<T>(j);
    if constexpr (side == Side::future) return tap * loadWidened<T>(x + j);
    constexpr int lanes = laneCount<T>;
    return tap * shuffle<[](int i) { return lanes - 1 - i; }>(loadWidened<T>(x - j - lanes + 1));
  };
  const auto half = []<int first>(std::integral_constant<int, first>, V<Mox32f> v) {
    return __builtin_convertvector(shuffle<[](int i) { return first + i; }, 4>(v, v), V<Mox64f>);
  };
  using Four = V<Mox32f, 4>;
  V<Mox64f> sums[2] = {};
  const long count = taps.count();
  long j = 0;
  for (; j <= count - 8; j += 8) {
    const V<Mox32f> p = products(std::type_identity<V<Mox32f>>(), j);
    sums[0] += half(std::integral_constant<int, 0>(), p);
    sums[1] += half(std::integral_constant<int, 4>(), p);
  }
  if (j <= count - 4) {
    sums[0] += __builtin_convertvector(products(std::type_identity<Four>(), j), V<Mox64f>);
    j += 4;
  }
  const V<Mox64f> all = sums[0] + sums[1];
  Mox64f sum = (all[0] + all[1]) + (all[2] + all[3]);
  for (; j < count; ++j)
    sum += taps.template from<Mox32f>(j) * Mox32f(load<Data>(side == Side::future ? x + j : x - j));
  return sum;
}

template <class Data>
MoxStatus resample(const Data* src, int len, Data* dst, Mox64f factor, Mox32f norm, Mox64f* time,
                   int* outLen, const State* state) {
  if (anyNull(state, time, src, dst, outLen)) return moxErrNullPtr;
  if (!(factor * INT_MAX >= 1) || len < 1 || len * factor > INT_MAX) return moxErrSize;
  const Mox64f start = load<Mox64f>(time), end = len + std::trunc(start), step = 1 / factor;
  if (!isPosition(start)) return moxErrBadArg;
  const State& s = recordIn<Kind>(state);
  const Mox64f stretch = std::min(factor, 1.0), gain = stretch * norm,
               points = stretch * Mox64f(s.step);
  const auto position = [=](long k) { return start + Mox64f(k) * step; };

  long count = std::max(0L, long((end - start) * factor) - 1);
  while (position(count) < end) ++count;
  makeOutputs(dst, count, [&](long k) {
    const Mox64f t = position(k), whole = std::floor(t), f = t - whole;
    const Data* const x = src + long(whole);
    const auto both = [&](auto left, auto right) {
      return (wing<Side::past>(left, x) + wing<Side::future>(right, x + 1)) * gain;
    };
    return factor < 1 ? both(StretchedTaps(s, f * points, points),
                             StretchedTaps(s, (1 - f) * points, points))
                      : both(RowTaps(s, f * points), RowTaps(s, (1 - f) * points));
  });
  store(time, position(count));
  store(outLen, int(count));
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsResamplePolyphaseGetSize_32f, getSize);
MOX_EXPORT(moxsResamplePolyphaseGetSize_16s, getSize);
MOX_EXPORT(moxsResamplePolyphaseInit_32f, init);
MOX_EXPORT(moxsResamplePolyphaseInit_16s, init);
MOX_EXPORT(moxsResamplePolyphase_32f, resample);
MOX_EXPORT(moxsResamplePolyphase_16s, resample);

}  // namespace mox::resample
