// The choice of the radices of the passes.
#include <algorithm>
#include <bit>
#include <climits>

#include "transforms/dft_mixed.h"
#include "transforms/dft_out_ord.h"

namespace mox::transforms {
namespace {

// Instructions of a butterfly as GCC makes it, a prime's of more than 16 by its sums; those of a
// twiddle.
constexpr int butterflyCost(int radix) {
  constexpr int costs[] = {0, 0, 2, 8, 10, 27, 24, 55, 35, 70, 66, 153, 67, 201, 136, 139, 130};
  return radix <= mostButterfly ? costs[radix] : radix * radix;
}
constexpr int twiddleCost = 6;

// Instructions of the passes of a transform of n numbers, `numbers` in a vector.
long costOf(const DftRadices& radices, long n, long numbers) {
  const auto vectors = [=](long count) { return (count + numbers - 1) / numbers; };
  long cost = 0, rows = 1;
  for (int i = 0; i < radices.count; ++i) {
    const long radix = radices.radix[i], columns = n / (rows * radix);
    const long twiddles = twiddleCost * (radix - 1), plain = butterflyCost(int(radix)) + 4;
    if (columns > 1 && columns < numbers) return LONG_MAX;
    const long vector = plain + (columns > 1 ? 2 : 4) * radix + twiddles;
    cost += (columns > 1 ? rows * vectors(columns) : vectors(rows)) * vector;
    if (columns > 1) cost -= vectors(columns) * twiddles;
    if (rows < numbers && columns == 1) cost += 6 * n;
    cost += vector / 2;  // the next pass waits for the last vector
    rows *= radix;
  }
  return cost;
}

// Finds the cheapest product of factors up to 16 for what is left of a length, in rising order but
// for the last.
class Search {
 public:
  Search(long n, long numbers) : n_(n), numbers_(numbers) {}

  void complete(DftRadices& chosen, long rest, int least) {
    if (rest == 1) return consider(chosen);
    if (chosen.count == dftMaxPasses) return;
    for (int r = least; r <= mostButterfly && r <= rest; ++r) {
      if (rest % r) continue;
      chosen.radix[chosen.count++] = r;
      complete(chosen, rest / r, r);
      --chosen.count;
    }
  }
  const DftRadices& best() const { return best_; }

 private:
  // With each of the radices as the last one.
  void consider(DftRadices radices) {
    std::sort(radices.radix, radices.radix + radices.count);
    for (int i = radices.count - 1; i >= 0; --i) {
      DftRadices ordered = radices;
      std::rotate(ordered.radix + i, ordered.radix + i + 1, ordered.radix + radices.count);
      const long cost = costOf(ordered, n_, numbers_);
      if (best_.count == 0 || cost < cost_) best_ = ordered, cost_ = cost;
    }
  }

  long n_, numbers_, cost_ = 0;
  DftRadices best_;
};

}  // namespace

DftRadices dftRadices(const DftFactors& factors, long numbers) {
  long smooth = 1, length = 1;
  DftRadices primes;
  const auto take = [&](int factor) {
    length *= factor;
    if (factor > mostButterfly)
      primes.radix[primes.count++] = factor;
    else
      smooth *= factor;
  };
  for (int i = 0; i < factors.levels; ++i) take(factors.radix[i]);
  take(factors.leaf);
  Search search(length, numbers);
  search.complete(primes, smooth, 2);
  return search.best();
}

namespace {

// Chooses the radices of an out-of-order transform: of the end of the length from each factor on.
class OutOrdSearch {
 public:
  OutOrdSearch(int len, long numbers) : numbers_(numbers) {
    int rest = len;
    for (int p = 2; p <= outOrdMostFactor; ++p)
      for (; rest % p == 0; rest /= p) end_[count_++].factor = p;
    end_[count_].len = rest;
    end_[count_].stage.cost = rest > 1 ? 0 : LONG_MAX;
    end_[count_].tile.cost = 0;
    for (int i = count_ - 1; i >= 0; --i) {
      end_[i].len = end_[i + 1].len * end_[i].factor;
      eachRadix(i, [&](int radix, const End& behind) {
        const long vector = butterflyCost(radix) * (radix > 8 ? 3 : 2) + 4 * radix;
        const long twiddles = behind.len > 1 ? 8 * (radix - 1) : 0;
        consider(end_[i].tile, radix, behind,
                 (vector + twiddles) * behind.len + radix * behind.tile.cost);
      });
    }
    for (int i = count_ - 1; i >= 0; --i) {
      if (rest == 1 && end_[i].len >= numbers && end_[i].len <= outOrdMostTile) {
        const long leaves = len / end_[i].len, tiles = (leaves + 2 * numbers - 1) / (2 * numbers);
        end_[i].stage.cost = tiles * (end_[i].tile.cost + 10 * end_[i].len) / leaves;
        end_[i].isTile = true;
      }
      eachRadix(i, [&](int radix, const End& behind) {
        if (behind.len < numbers || behind.stage.cost == LONG_MAX) return;
        const long vectors = (behind.len + numbers - 1) / numbers;
        const long vector = butterflyCost(radix) + 4 * radix + twiddleCost * (radix - 1);
        if (consider(end_[i].stage, radix, behind, vectors * vector + radix * behind.stage.cost))
          end_[i].isTile = false;
      });
    }
  }

  OutOrdRadices chosen() const {
    OutOrdRadices chosen;
    const End* end = end_;
    for (; end != end_ + count_ && !end->isTile; end = end->stage.next)
      chosen.radix[chosen.stages++] = end->stage.radix;
    chosen.leaf = int(end->len);
    chosen.kind = end->isTile ? OutOrdLeaf::tile : OutOrdLeaf::plan;
    for (; end != end_ + count_; end = end->tile.next)
      chosen.radix[chosen.stages + chosen.tileStages++] = end->tile.radix;
    return chosen;
  }

 private:
  struct End;
  struct Choice {
    long cost = LONG_MAX;
    int radix;
    const End* next;
  };
  struct End {
    int factor;
    long len;
    Choice stage, tile;  // over columns, and in a tile
    bool isTile = false;
  };

  template <class Visit>
  void eachRadix(int i, Visit visit) {
    int radix = 1;
    for (; i < count_ && (radix *= end_[i].factor) <= mostButterfly; ++i) visit(radix, end_[i + 1]);
  }
  static bool consider(Choice& choice, int radix, const End& behind, long cost) {
    if (cost >= choice.cost) return false;
    choice = {cost, radix, &behind};
    return true;
  }

  long numbers_;
  int count_ = 0;
  End end_[outOrdMaxStages + 1];
};

}  // namespace

OutOrdRadices outOrdRadices(int len, long numbers) {
  if (len > mostButterfly && !std::has_single_bit(unsigned(len)))
    return OutOrdSearch(len, numbers).chosen();
  OutOrdRadices chosen;
  chosen.leaf = len == 32 ? 8 : std::min(len, mostButterfly);
  for (int rest = len / chosen.leaf; rest > 1; rest /= chosen.radix[chosen.stages++])
    chosen.radix[chosen.stages] = rest == 8 ? 8 : 4;
  return chosen;
}

}  // namespace mox::transforms
