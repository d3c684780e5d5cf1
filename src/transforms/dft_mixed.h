// The mixed-radix method: which passes a length takes, and their run.
#pragma once

#include "frame/arena.h"
#include "transforms/dft_passes.h"

namespace mox::transforms {

// The radices of the passes, from the first to the last.
struct DftRadices {
  int count = 0;
  int radix[dftMaxPasses] = {};
};

// The radices whose passes take the fewest instructions on vectors of `numbers` numbers. The primes
// of a length above 16 are radices themselves; the rest is divided into factors of at most 16. Of
// real samples and an odd length half of the rows are enough.
DftRadices dftRadices(const DftFactors& factors, long numbers, bool realOdd);

// Whether half of the rows, and pairs of columns, fill vectors.
constexpr bool halvesRows(const DftRadices& radices, long n, long numbers) {
  return n / radices.radix[0] >= 2 * numbers &&
         n / radices.radix[radices.count - 1] / 2 + 1 >= numbers;
}

template <class F>
constexpr long columnTwiddles(const DftPass<F>& pass) {
  return 2L * (pass.rows - 1) * (pass.radix - 1);
}
template <class F>
constexpr long lastTwiddles(const DftPass<F>& pass) {
  constexpr long numbers = lanesOf<F> / 2;
  return long(roundUp(std::size_t(pass.rows), numbers)) * 2 * (pass.radix - 1);
}

// Numbers of the first work area, which the last pass reads, and bytes of all of them.
template <class F>
constexpr long mixedAreaNumbers(const DftSpec<F>& plan) {
  return plan.core + lastPassSlack<F>(plan.pass[plan.passes - 1].radix);
}
template <class F>
constexpr long mixedWorkBytes(const DftSpec<F>& plan) {
  return 2 * wholeLines(2 * long(sizeof(F)) * mixedAreaNumbers(plan));
}

// From the source to the target, which may be the same arrays: views, plain or scaled.
template <class F, class Source, class Target>
void ownDftMixed(const DftSpec<F>& plan, const Source& src, const Target& dst, F* work);

// Bins 0 to n/2 of n real samples, in the work area, of a plan that halves its rows.
template <class F>
const ComplexOf<F>* ownDftMixedReal(const DftSpec<F>& plan, const F* src, F* work);

}  // namespace mox::transforms
