// The figures that the size queries report, in bytes. They bound what a record and its tables take.
#pragma once

#include "transforms/fft_layout.h"

namespace mox::transforms {
namespace detail {

template <class F>
constexpr long levelFigure(int order) {
  constexpr long number = 2 * sizeof(F);
  const FftRows<F> rows(order);
  const long inner = rows.order < FftLimits<F>::largeOrder
                         ? wholeLines(number * rows.length + number)
                         : levelFigure<F>(rows.order);
  return inner + (long(sizeof(F)) << order);
}

}  // namespace detail

// The record with room for a pointer to its block, and its tables with the slack for any address.
template <class F>
constexpr int fftRecordFigure = (sizeof(F) == 4 ? 88 : 96) + fftAlignment;
constexpr int fftTablesSlack = 192;

// Of the tables of a complex transform above the small orders.
template <class F>
constexpr long complexTablesFigure(int order) {
  constexpr long number = 2 * sizeof(F);
  if (order < FftLimits<F>::largeOrder)
    return wholeLines((number << order) + number) + wholeLines((1L << order) + long(sizeof(int)));
  constexpr int tileBits = FftLimits<F>::tileBits;
  const long tiles = (1L << (order - 2 * tileBits)) + (1L << (2 * tileBits - 2));
  return detail::levelFigure<F>(order) + long(sizeof(int)) * tiles + fftAlignment;
}

// Of both tables of a real transform.
template <class F>
constexpr long realTablesFigure(int order) {
  return 2 * wholeLines(2 * long(sizeof(F)) * realTwiddleCount<F>(order));
}

}  // namespace mox::transforms
