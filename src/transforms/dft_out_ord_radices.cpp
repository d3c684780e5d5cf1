// The choice of the radices of an out-of-order DFT.
#include <algorithm>
#include <bit>
#include <climits>

#include "transforms/butterfly_cost.h"
#include "transforms/dft_out_ord.h"

namespace mox::transforms {
namespace {

// Chooses the radices of an out-of-order transform, for the ends of the length from each factor on.
class OutOrdSearch {
 public:
  OutOrdSearch(int len, long lanes) : len_(len), lanes_(lanes) {
    int rest = len;
    for (int p = 2; p <= outOrdMostFactor; ++p)
      for (; rest % p == 0; rest /= p) end_[count_++].factor = p;
    end_[count_].len = rest;
    end_[count_].stage.cost = rest > 1 ? 0 : LONG_MAX;
    for (int i = count_ - 1; i >= 0; --i) {
      end_[i].len = end_[i + 1].len * end_[i].factor;
      if (rest == 1 && end_[i].len <= outOrdMostTile) chooseTile(i);
      chooseStage(i);
    }
  }

  OutOrdRadices chosen() const {
    OutOrdRadices chosen;
    const End* end = end_;
    for (; end->stage.next; end = end->stage.next) chosen.radix[chosen.stages++] = end->stage.radix;
    chosen.leaf = int(end->len);
    chosen.kind = end == end_ + count_ ? OutOrdLeaf::plan : OutOrdLeaf::tile;
    chosen.coprime = end->coprime;
    for (; end != end_ + count_; end = end->tile.next)
      chosen.radix[chosen.stages + chosen.tileStages++] = end->tile.radix;
    return chosen;
  }

 private:
  struct End;
  struct Choice {
    long cost = LONG_MAX;
    int radix = 0;
    const End* next = nullptr;
  };
  struct End {
    int factor;
    long len;
    Choice stage;       // the first stage of such an end; none if it is a leaf
    Choice tile = {0};  // the first stage in a tile
    bool coprime = true;
  };

  template <class Visit>
  void eachRadix(int i, Visit visit) {
    int radix = 1;
    for (; i < count_ && (radix *= end_[i].factor) <= mostButterfly; ++i) visit(radix, end_[i + 1]);
  }
  static void consider(Choice& choice, const Choice& other) {
    if (other.cost < choice.cost) choice = other;
  }
  // Of the stage on a vector of every number; large butterflies keep much of it in memory.
  static long tileCost(int radix, const End& behind, int twiddles) {
    const long butterfly = butterflyCost(radix) * (radix > 8 ? 3 : 2) + 4 * radix;
    return (butterfly + twiddles * (radix - 1)) * behind.len + radix * behind.tile.cost;
  }

  // The powers of primes, or any radices and twiddles between them.
  void chooseTile(int i) {
    End& end = end_[i];
    int power = 1, next = i;
    for (; next < count_ && end_[next].factor == end.factor; ++next) power *= end.factor;
    const End& others = end_[next];
    end.coprime = power <= mostButterfly && others.coprime;
    if (end.coprime) {
      end.tile = {tileCost(power, others, 0), power, &others};
    } else {
      end.tile = {};
      eachRadix(i, [&](int radix, const End& behind) {
        consider(end.tile, {tileCost(radix, behind, behind.len > 1 ? 8 : 0), radix, &behind});
      });
    }
  }

  void chooseStage(int i) {
    End& end = end_[i];
    const long numbers = lanes_ / 2;
    if (end.tile.next && end.len >= numbers) {
      const long leaves = len_ / end.len, tiles = (leaves + lanes_ - 1) / lanes_;
      end.stage.cost = tiles * (end.tile.cost + 10 * end.len) / leaves;
    }
    eachRadix(i, [&](int radix, const End& behind) {
      if (behind.len < numbers || behind.stage.cost == LONG_MAX) return;
      const long vectors = (behind.len + numbers - 1) / numbers;
      const long vector = butterflyCost(radix) + 4 * radix + twiddleCost * (radix - 1);
      consider(end.stage, {vectors * vector + radix * behind.stage.cost, radix, &behind});
    });
  }

  int len_, count_ = 0;
  long lanes_;
  End end_[outOrdMaxStages + 1];
};

}  // namespace

OutOrdRadices outOrdRadices(int len, long lanes) {
  if (len > mostButterfly && !std::has_single_bit(unsigned(len)))
    return OutOrdSearch(len, lanes).chosen();
  OutOrdRadices chosen;
  chosen.leaf = len == 32 ? 8 : std::min(len, mostButterfly);
  for (int rest = len / chosen.leaf; rest > 1; rest /= chosen.radix[chosen.stages++])
    chosen.radix[chosen.stages] = rest == 8 ? 8 : 4;
  return chosen;
}

}  // namespace mox::transforms
