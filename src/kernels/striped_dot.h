// Sums over windows that start several samples apart, for filters that drop outputs.
#pragma once

#include <algorithm>

#include "frame/vec/vec.h"

namespace mox::kernels {

// Samples dealt out to rows: sample i stands in row i % count at the place i / count.
template <class A>
struct Rows {
  A* first;
  long stride, count;

  A* row(long i) const { return first + i * stride; }
};

// dst[n] = sum over k of revTaps[k] * sample (start + n * rows.count + k), each one chain of
// additions as that of filterWindow(). For Mox32f, Mox64f, Mox32fc, Mox64fc.
template <class A>
void filterStriped(Rows<const A> rows, long start, A* dst, long count, const A* revTaps,
                   long tapsLen);

namespace detail {

// What moves elements of 4 or 8 bytes.
template <class E>
using Cell = V<std::conditional_t<sizeof(E) == 4, Mox32f, Mox64f>, 4>;

// Runs square(r, i) on the squares of rows r to r + 3 and columns i to i + 3 that are within
// `squareColumns`, then single(r, i) on what is left. Of fewer rows than 4, the lanes of a column
// beyond the last row are the first of the next column, which comes later.
template <class Square, class Single>
void forSquares(long rows, long columns, long squareColumns, Square square, Single single) {
  long i = 0;
  for (; i + 4 <= squareColumns; i += 4)
    for (long r = 0; r < rows; r += 4) square(rows >= 4 ? std::min(r, rows - 4) : r, i);
  for (; i < columns; ++i)
    for (long r = 0; r < rows; ++r) single(r, i);
}

// Columns whose 4 elements from the last square's row on are within the array.
inline long wholeColumns(long len, long rows) {
  return rows >= 4 ? len / rows : (len - 4) / rows + 1;
}

}  // namespace detail

// Deals `len` samples out to rows.
template <class E>
void deal(const E* src, long len, Rows<E> rows) {
  const auto single = [&](long r, long i) {
    if (const long at = i * rows.count + r; at < len) store(rows.row(r) + i, load<E>(src + at));
  };
  const long columns = (len + rows.count - 1) / rows.count;
  if constexpr (sizeof(E) > 8) {
    detail::forSquares(rows.count, columns, 0, single, single);
  } else {
    const auto square = [&](long r, long i) {
      detail::Cell<E> t[4];
      for (int j = 0; j < 4; ++j) t[j] = load<detail::Cell<E>>(src + (i + j) * rows.count + r);
      transpose(t);
      for (long j = 0; j < std::min(4L, rows.count); ++j) store(rows.row(r + j) + i, t[j]);
    };
    detail::forSquares(rows.count, columns, detail::wholeColumns(len, rows.count), square, single);
  }
}

// Collects the rows' `columns` samples; undoes deal().
template <class E>
void collect(Rows<const E> rows, long columns, E* dst) {
  const auto single = [&](long r, long i) {
    store(dst + i * rows.count + r, load<E>(rows.row(r) + i));
  };
  if constexpr (sizeof(E) > 8) {
    detail::forSquares(rows.count, columns, 0, single, single);
  } else {
    const auto square = [&](long r, long i) {
      detail::Cell<E> t[4] = {};
      for (long j = 0; j < std::min(4L, rows.count); ++j)
        t[j] = load<detail::Cell<E>>(rows.row(r + j) + i);
      transpose(t);
      for (int j = 0; j < 4; ++j) store(dst + (i + j) * rows.count + r, t[j]);
    };
    detail::forSquares(rows.count, columns, detail::wholeColumns(columns * rows.count, rows.count),
                       square, single);
  }
}

}  // namespace mox::kernels
