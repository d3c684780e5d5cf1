// Sums over windows that start several samples apart, for filters that drop outputs.
#pragma once

#include <algorithm>

#include "frame/elements.h"
#include "frame/vec/vec.h"

namespace mox::kernels {

// Samples dealt out to rows: sample i stands in row i % count at the place i / count. Rows begin on
// cache lines. Real ones stand there twice, the second time half a line off and `toCopy` behind.
template <class A>
struct Rows {
  A* first;
  long count, stride, toCopy = 0;

  A* row(long i) const { return first + i * stride; }
  constexpr long elements() const { return count * stride + toCopy; }
};
template <class A>
constexpr Rows<A> rowsOf(A* first, long count, long length) {
  constexpr long line = 2 * vectorBytes / sizeof(A);
  const long stride = (length + line - 1) / line * line;
  return {first, count, stride, Complex<A> ? 0 : count * stride + line / 2};
}

// dst[n] = sum over k of revTaps[k] * sample (start + n * rows.count + k), each one chain of
// additions as that of filterWindow(). For Mox32f, Mox64f, Mox32fc, Mox64fc.
template <class A>
void filterStriped(const Rows<A>& rows, long start, A* dst, long count, const A* revTaps,
                   long tapsLen);

namespace detail {

// What moves elements of 4 or 8 bytes.
template <class E>
using Cell = V<std::conditional_t<sizeof(E) == 4, Mox32f, Mox64f>, 4>;

// Squares of 4 columns from 0 on, and 4 rows from `row` on. Where there are only `height` rows, the
// lanes behind those of a column belong to the next column.
template <int height, class E>
long dealSquares(const E* src, long columns, Rows<E> rows, long row) {
  E* to[height];
  for (int j = 0; j < height; ++j) to[j] = rows.row(row + j);
  const E* from = src + row;
  long i = 0;
  for (; i <= columns - 4; i += 4, from += 4 * rows.count) {
    Cell<E> t[4];
    for (int j = 0; j < 4; ++j) t[j] = load<Cell<E>>(from + j * rows.count);
    transpose(t);
    for (int j = 0; j < height; ++j) store(to[j] + i, t[j]);
  }
  return i;
}
template <int height, class E>
long collectSquares(Rows<E> rows, long row, long columns, E* dst) {
  const E* from[height];
  for (int j = 0; j < height; ++j) from[j] = rows.row(row + j);
  E* to = dst + row;
  long i = 0;
  for (; i <= columns - 4; i += 4, to += 4 * rows.count) {
    Cell<E> t[4] = {};
    for (int j = 0; j < height; ++j) t[j] = load<Cell<E>>(from[j] + i);
    transpose(t);
    for (int j = 0; j < 4; ++j) store(to + j * rows.count, t[j]);
  }
  return i;
}

// Runs squares(height, row) over all rows, where elements have a cell and columns are long enough;
// returns the columns that are done.
template <class E, class Squares>
long forRows(long rows, Squares squares) {
  if constexpr (sizeof(E) > 8) {
    return 0;
  } else {
    if (rows == 2) return squares(std::integral_constant<int, 2>(), 0);
    if (rows == 3) return squares(std::integral_constant<int, 3>(), 0);
    long done = 0;
    for (long r = 0; r < rows; r += 4)
      done = squares(std::integral_constant<int, 4>(), std::min(r, rows - 4));
    return done;
  }
}

// Columns whose 4 lanes lie within the array.
inline long wholeColumns(long len, long rows) {
  return rows >= 4 ? len / rows : (len - 4) / rows + 1;
}

}  // namespace detail

// Deals `len` samples out to rows, and their copies.
template <class E>
void deal(const E* src, long len, Rows<E> rows) {
  const long whole = detail::wholeColumns(len, rows.count);
  const long columns = (len + rows.count - 1) / rows.count;
  long i = detail::forRows<E>(rows.count, [&](auto height, long row) {
    return detail::dealSquares<height>(src, whole, rows, row);
  });
  for (; i < columns; ++i)
    for (long r = 0; r < std::min(rows.count, len - i * rows.count); ++r)
      store(rows.row(r) + i, load<E>(src + i * rows.count + r));
  if (rows.toCopy)
    for (long r = 0; r < rows.count; ++r)
      std::memcpy(rows.row(r) + rows.toCopy, rows.row(r), std::size_t(columns) * sizeof(E));
}

// Collects the rows' `columns` samples; undoes deal().
template <class E>
void collect(Rows<E> rows, long columns, E* dst) {
  const long whole = detail::wholeColumns(columns * rows.count, rows.count);
  long i = detail::forRows<E>(rows.count, [&](auto height, long row) {
    return detail::collectSquares<height>(rows, row, whole, dst);
  });
  for (; i < columns; ++i)
    for (long r = 0; r < rows.count; ++r) store(dst + i * rows.count + r, load<E>(rows.row(r) + i));
}

}  // namespace mox::kernels
