// A recursion waits for its last output before it can go on. So a block is cut into stretches, each
// in a lane of its own, and every stretch is filtered as if nothing had come out before it. What
// its outputs then miss is the response to the outputs before the stretch, by weights that the
// state holds. The last outputs of the stretches are completed first, from stretch to stretch,
// because each stretch follows on those of the one before it; then all others are completed at
// once, in a cascade on their way into the next section.
#include "iir/iir_block.h"

#include "iir/iir_steps.h"
#include "iir/second_order.h"

namespace mox::iir {
namespace {

// Fewer samples in a stretch take longer than single steps.
constexpr int leastLength = 8;

// to[m] += factor * from[m]
template <class E>
void addProducts(const E* from, Scalar<E> factor, E* to, int count) {
  using T = V<Part<E>>;
  int m = 0;
  for (; m <= count - tileRows<E>; m += tileRows<E>) {
    const T w = load<T>(from + m);
    T product;
    if constexpr (Complex<E>)
      product = mox::times(w, factor.re, factor.im);
    else
      product = w * factor;
    store(to + m, load<T>(to + m) + product);
  }
  for (; m < count; ++m) store(to + m, numberAt(to + m) + times(numberAt(from + m), factor));
}

// Writes the last `order` numbers of a signal before each stretch, the newest first. Before the
// first stretch they are in `past`, the oldest first, which then gets the last of the block. If the
// rows lack the response to past outputs, it is added.
template <class E>
void findBefore(const Row<E>* rows, long length, int order, const E* response, E* past,
                Row<E>* before) {
  E room[2][mostOrder], *previous = room[0], *next = room[1];
  std::copy_n(past, order, previous);
  const Row<E>* const last = rows + length - order;
  for (int stretch = 0; stretch < stretchesOf<E>; ++stretch) {
    for (int m = 0; m < order; ++m) {
      setNumber(before[order - 1 - m], stretch, numberAt(previous + m));
      store(next + m, numberOf(last[m], stretch));
    }
    for (int k = 0; k < order && response; ++k)
      addProducts(response + k * responseStride + length - order,
                  numberAt(previous + order - 1 - k), next, order);
    std::swap(previous, next);
  }
  std::copy_n(previous, order, past);
}

// The same of order 2, in registers, where a response belongs to an output and a difference.
template <bool lacksResponse, class E>
void findPairBefore(const Row<E>* rows, long length, const E* response, E* past, Row<E>* before) {
  using S = Scalar<E>;
  S weights[2][2] = {};  // by past and by place from the end
  for (int k = 0; k < 2 && lacksResponse; ++k)
    for (int i = 0; i < 2; ++i)
      weights[k][i] = numberAt(response + k * responseStride + length - 1 - i);
  S newest = numberAt(past + 1), older = numberAt(past);
  for (int stretch = 0; stretch < stretchesOf<E>; ++stretch) {
    setNumber(before[0], stretch, newest), setNumber(before[1], stretch, older);
    const S difference = newest - older;
    S last[2];
    for (int i = 0; i < 2; ++i) {
      last[i] = numberOf(rows[length - 1 - i], stretch);
      if (lacksResponse)
        last[i] = last[i] + times(weights[0][i], newest) + times(weights[1][i], difference);
    }
    newest = last[0], older = last[1];
  }
  store(past + 1, newest), store(past, older);
}

// The response of a section's past outputs, by output and register of lanes.
template <class E>
struct Response {
  const E* weights;
  const Row<E>* before;

  [[gnu::always_inline]] Lanes<E> of(int past, long j, int r) const {
    return times(before[past].lanes[r], everyLane(weights + past * responseStride + j));
  }
  // Completes numbers of row j of a section of order 2.
  [[gnu::always_inline]] auto at(long j) const {
    const Lanes<E> ofNewest = everyLane(weights + j),
                   ofDifference = everyLane(weights + responseStride + j);
    return [=, this](Lanes<E> y, int r) {
      return y + times(before[1].lanes[r], ofDifference) + times(before[0].lanes[r], ofNewest);
    };
  }
};

// A section whose lanes are stretches of one signal.
template <class E, class Entering>
void filterSection(const E* taps, const Row<E>* before, Row<E>* rows, long length,
                   Entering entering) {
  Lanes<E> tap[5];
  for (int k = 0; k < 5; ++k) tap[k] = everyLane(taps + k);
  Row<E> past[4] = {before[1], before[0]};
  filterSecondOrder([&](int k, int) { return tap[k]; }, past, rows, length, entering);
}

// Sums for `count` consecutive rows at once, so that none waits for the last addition of another.
template <class E, int count>
struct RowSums {
  Lanes<E> of[count][registersOf<E>];

  [[gnu::always_inline]] void each(auto f) {
    for (int t = 0; t < count; ++t)
      for (int r = 0; r < registersOf<E>; ++r) of[t][r] = f(of[t][r], t, r);
  }
};

// Calls f(j, count) with a constant of four rows as long as there are as many, then of one.
void forRows(long length, auto f) {
  long j = 0;
  for (; j + 4 <= length; j += 4) f(j, std::integral_constant<int, 4>());
  for (; j < length; ++j) f(j, std::integral_constant<int, 1>());
}

// One section of any order. The rows of its past are below both arrays.
template <class E>
void filterAnyOrder(const E* taps, int order, const Row<E>* before, Row<E>* input, Row<E>* rows,
                    long length) {
  using T = Lanes<E>;
  for (int k = 0; k < order; ++k) input[-1 - k] = before[k], rows[-1 - k] = {};
  forRows(length, [=](long j, auto count) {
    RowSums<E, count> sums{};
    for (int k = 0; k <= order; ++k) {
      const T b = everyLane(taps + k);
      sums.each([&](T sum, int t, int r) { return sum + times(b, input[j + t - k].lanes[r]); });
    }
    int k = order;
    for (; k >= count; --k) {
      const T a = everyLane(taps + order + k);
      sums.each([&](T sum, int t, int r) { return sum - times(a, rows[j + t - k].lanes[r]); });
    }
    sums.each([&](T sum, int t, int r) {
      for (int i = k; i >= 1; --i)
        sum = sum - times(everyLane(taps + order + i), rows[j + t - i].lanes[r]);
      return rows[j + t].lanes[r] = sum;
    });
  });
}

template <class E>
void complete(Row<E>* rows, long length, int order, Response<E> response) {
  forRows(length, [=](long j, auto count) {
    RowSums<E, count> sums;
    sums.each([&](auto, int t, int r) { return rows[j + t].lanes[r]; });
    for (int k = order - 1; k >= 0; --k)
      sums.each([&](auto sum, int t, int r) { return sum + response.of(k, j + t, r); });
    sums.each([&](auto sum, int t, int r) { return rows[j + t].lanes[r] = sum; });
  });
}

// What the responses of order 2 belong to: see respond().
template <class E>
void takeDifference(Row<E>* before) {
  for (int r = 0; r < registersOf<E>; ++r)
    before[1].lanes[r] = before[0].lanes[r] - before[1].lanes[r];
}

// Returns the response that the rows still lack.
template <class E>
Response<E> filterCascade(State<E>& s, Row<E>* rows, long length) {
  constexpr int order = 2;
  Row<E> entering[2];
  Response<E> response{};
  findPairBefore<false, E>(rows, length, nullptr, s.past, entering);
  for (int k = 0; k < s.sections; ++k) {
    const E* const taps = s.taps + s.tapsOf(k);
    if (k == 0)
      filterSection(taps, entering, rows, length, asItIs);
    else
      filterSection(taps, entering, rows, length, [=](long j) { return response.at(j); });
    E* const outputs = s.past + s.pastOf(k) + order;
    response = {s.response + s.responseOf(k), s.before[k % 2]};
    findPairBefore<true>(rows, length, response.weights, outputs, s.before[k % 2]);
    if (k + 1 < s.sections) {
      E* const inputs = outputs + order;  // of the next section, whose past is its own
      for (int i = 0; i < order; ++i) {
        entering[i] = s.before[k % 2][i];
        setNumber(entering[i], 0, numberAt(inputs + order - 1 - i));
      }
      std::copy_n(outputs, order, inputs);
    }
    takeDifference(s.before[k % 2]);
  }
  return response;
}

template <class E>
void filterOneSection(State<E>& s, Row<E>* input, Row<E>* rows, long length) {
  const int order = s.order;
  const Response<E> response{s.response, s.before[1]};
  findBefore<E>(input, length, order, nullptr, s.past, s.before[0]);
  filterAnyOrder(s.taps, order, s.before[0], input, rows, length);
  findBefore(rows, length, order, response.weights, s.past + order, s.before[1]);
  complete(rows, length, order, response);
}

template <class E>
void filterStretches(State<E>& s, const E* src, E* dst, long length) {
  Row<E>* const rows = s.rows + s.order;
  const auto startIn = [=](int stretch) { return src + stretch * length; };
  const auto startOut = [=](int stretch) { return dst + stretch * length; };
  if (s.order == 2) {
    loadRows(startIn, length, rows);
    const Response<E> response = filterCascade(s, rows, length);
    storeRows<E>([=](long j, int r) { return response.at(j)(rows[j].lanes[r], r); }, length,
                 startOut);
  } else {
    Row<E>* const input = s.input + s.order;
    loadRows(startIn, length, input);
    filterOneSection(s, input, rows, length);
    storeRows(rows, length, startOut);
  }
}

}  // namespace

template <class E>
void filterBlock(State<E>& s, const E* src, E* dst, long len) {
  const int least = std::max(leastLength, s.order);
  const long first = samplesToSetOff(s), leastSamples = long(stretchesOf<E>) * least;
  long i = 0;
  if (s.filtersStretches && s.length >= least && len >= first + leastSamples) {
    setOff(s, src, dst);
    for (i = first; len - i >= leastSamples;) {
      const long length = std::min<long>(s.length, (len - i) / stretchesOf<E>);
      filterStretches(s, src + i, dst + i, length);
      i += length * stretchesOf<E>;
    }
    refillDelayLine(s);
  }
  filterInSteps(s, src + i, dst + i, len - i);
}

template void filterBlock(State<Mox32f>&, const Mox32f*, Mox32f*, long);
template void filterBlock(State<Mox64f>&, const Mox64f*, Mox64f*, long);
template void filterBlock(State<Mox32fc>&, const Mox32fc*, Mox32fc*, long);
template void filterBlock(State<Mox64fc>&, const Mox64fc*, Mox64fc*, long);

}  // namespace mox::iir
