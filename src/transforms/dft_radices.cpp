// The choice of the radices of the passes.
#include <algorithm>
#include <climits>

#include "transforms/butterfly_cost.h"
#include "transforms/dft_mixed.h"

namespace mox::transforms {
namespace {

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
    if (rows < numbers && columns == 1) cost += 3 * vectors(n);
    cost += vector / 2;  // the next pass waits for the last vector
    rows *= radix;
  }
  return cost;
}

// Finds the cheapest product of factors up to 16 for what is left of a length, in rising order but
// for the last.
class Search {
 public:
  Search(long n, long numbers, bool realOdd) : n_(n), numbers_(numbers), realOdd_(realOdd) {}

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
      long cost = costOf(ordered, n_, numbers_);
      if (realOdd_ && cost < LONG_MAX && halvesRows(ordered, n_, numbers_)) cost /= 2;
      if (best_.count == 0 || cost < cost_) best_ = ordered, cost_ = cost;
    }
  }

  long n_, numbers_, cost_ = 0;
  bool realOdd_;
  DftRadices best_;
};

}  // namespace

DftRadices dftRadices(const DftFactors& factors, long numbers, bool realOdd) {
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
  Search search(length, numbers, realOdd);
  search.complete(primes, smooth, 2);
  return search.best();
}

}  // namespace mox::transforms
