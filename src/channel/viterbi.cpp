// Steps of a Viterbi decoder over a trellis of four-dimensional symbols, which are pairs of points
// of a grid.
#include <moxsp/channel.h>

#include <algorithm>

#include "frame/export.h"
#include "frame/vec/vec.h"

namespace mox::channel {
namespace {

// What a number of states means: subsets of points, sets of symbols made of them, and branches
// that leave a state, which take every second set.
struct Trellis {
  int states, subsetBits, sets;

  explicit Trellis(int numStates)
      : states(numStates == 16 || numStates == 32 ? numStates : 64),
        subsetBits(numStates == 16 ? 2 : 3),
        sets(states / 2) {}

  int subsets() const { return 1 << subsetBits; }
  int branches() const { return sets / 2; }
};

constexpr int pitch = 256;

int squared(int v) { return v * v >> 4; }

// A point of the grid near the received one, in steps of the pitch from the reference point.
struct Neighbour {
  int x, y;
  int distance(int fr, int fi) const { return squared(fr - x * pitch) + squared(fi - y * pitch); }
};
constexpr Neighbour nearest[] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
// Those of the subsets that the nearest ones are not of: each subset has two.
constexpr Neighbour farther[2][4] = {{{2, 0}, {2, 1}, {-1, 0}, {-1, 1}},
                                     {{0, 2}, {0, -1}, {1, 2}, {1, -1}}};

MoxStatus getVarPoint(const Mox16sc* src, Mox16sc* dstPoint, Mox16sc* dstVar, const Mox8u* table,
                      int numStates) {
  if (anyNull(src, dstPoint, dstVar, table)) return moxErrNullPtr;
  const Trellis trellis(numStates);
  const auto received = load<Mox16sc>(src);
  const int fr = (received.re & 255) ^ 128, fi = (received.im & 255) ^ 128;
  const int re = received.re - fr, im = received.im - fi;
  store(dstPoint, Mox16sc{Mox16s(re), Mox16s(im)});

  const auto storeFor = [&](Neighbour n, int distance, int tag) {
    const int column = ((re - 128) / pitch + 2 + n.x) & 3, row = ((im - 128) / pitch + 2 + n.y) & 3;
    const int subset = table[4 * row + column] & (trellis.subsets() - 1);
    store(dstVar + subset, Mox16sc{Mox16s(distance), Mox16s(tag)});
  };
  for (int i = 0; i < 4; ++i) storeFor(nearest[i], nearest[i].distance(fr, fi), i);
  for (int i = 0; i < 4 && trellis.states > 16; ++i) {
    const int first = farther[0][i].distance(fr, fi), second = farther[1][i].distance(fr, fi);
    storeFor(farther[0][i], std::min(first, second), (second <= first ? 8 : 4) + i);
  }
  return moxOk;
}

// Set k has the pairs of subsets with the numbers k, k + sets, k + 2 sets .. A number is that of
// the first subset in its high bits, and the second one's lead over the first in its low bits.
MoxStatus buildSymbolTable(const Mox16sc* src, Mox16sc* dst, int numStates, int flag) {
  if (anyNull(src, dst)) return moxErrNullPtr;
  const Trellis trellis(numStates);
  const int subsets = trellis.subsets(), pairs = subsets * subsets;
  for (int k = 0; k < trellis.sets; ++k) {
    int least = 1 << 17;
    for (int pair = k; pair < pairs; pair += trellis.sets) {
      const int number = (pair ^ flag) & (pairs - 1), first = number >> trellis.subsetBits;
      const auto a = load<Mox16sc>(src + first),
                 b = load<Mox16sc>(src + subsets + (number + first) % subsets);
      const int distance = Mox16u(a.re) + Mox16u(b.re);
      if (distance >= least) continue;
      least = distance;
      store(dst + k, Mox16sc{Mox16s((a.im & 255) | b.im << 8), Mox16s(distance)});
    }
  }
  return moxOk;
}

MoxStatus calcStates(const Mox16u* metric, const Mox8u* nextStates, Mox16u* dst,
                     const Mox16sc* branch, Mox16sc* path, int numStates, int offset) {
  if (anyNull(metric, nextStates, dst, branch, path)) return moxErrNullPtr;
  const Trellis trellis(numStates);
  for (int s = 0; s < trellis.states; ++s) {
    const Mox16u m = load<Mox16u>(metric + s);
    for (int b = 0; b < trellis.branches(); ++b) {
      const int next = nextStates[s * trellis.branches() + b] & (trellis.states - 1);
      const auto way = load<Mox16sc>(branch + 2 * b + (s & 1));
      const Mox16u sum = Mox16u(m + Mox16u(way.im));
      if (sum >= load<Mox16u>(dst + next)) continue;
      store(dst + next, sum);
      store(path + long(offset) + next, Mox16sc{way.re, Mox16s(s)});
    }
  }
  return moxOk;
}

MoxStatus updatePathMetrics(const Mox16u* src, Mox16u* minMetric, Mox8u* minIndex, Mox16u* dst,
                            int numStates) {
  if (anyNull(src, minMetric, minIndex, dst)) return moxErrNullPtr;
  const int states = Trellis(numStates).states;
  int index = 0;
  for (int s = 1; s < states; ++s)
    if (load<Mox16u>(src + s) < load<Mox16u>(src + index)) index = s;
  const auto least = load<Mox16u>(src + index);
  store(minMetric, least);
  *minIndex = Mox8u(index);
  for (int s = 0; s < states; ++s) store(dst + s, Mox16u(load<Mox16u>(src + s) - least));
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsGetVarPointDV_16sc, getVarPoint);
MOX_EXPORT(moxsBuildSymblTableDV4D_16sc, buildSymbolTable);
MOX_EXPORT(moxsCalcStatesDV_16sc, calcStates);
MOX_EXPORT(moxsUpdatePathMetricsDV_16u, updatePathMetrics);

}  // namespace mox::channel
