// Transforms of integers by way of floats: the data are converted into an area of the work memory,
// transformed there in place, and converted out by the rule of scaled integers, to nearest with
// ties to even. Data are arrays of real or complex integers, or of the parts of complex ones.
#pragma once

#include "convert/samples.h"
#include "frame/complex_views.h"

namespace mox::transforms {
namespace detail {

// E with parts F in place of its own.
template <class E, class F>
using WithParts = typename std::conditional_t<Complex<E>, std::type_identity<ComplexOf<F>>,
                                              std::type_identity<F>>::type;

// The elements of the area of a run.
template <class F, class E>
Array<WithParts<std::remove_const_t<E>, F>> areaFor(Array<E>, F* area, long) {
  return {reinterpret_cast<WithParts<std::remove_const_t<E>, F>*>(area)};
}
template <class F, class E>
Split<F> areaFor(Split<E>, F* area, long count) {
  return {area, area + count};
}

template <class S, class H>
void takeIn(Array<const S> src, Array<H> area, long count) {
  convert::takeIn(src.p, area.p, count);
}
template <class S, class H>
void takeIn(Split<const S> src, Split<H> area, long count) {
  convert::takeIn(src.re, area.re, count);
  convert::takeIn(src.im, area.im, count);
}
template <class H, class D>
void giveOut(Array<H> area, Array<D> dst, long count, int scaleFactor) {
  convert::giveOut(area.p, dst.p, count, scaleFactor);
}
template <class H, class D>
void giveOut(Split<H> area, Split<D> dst, long count, int scaleFactor) {
  convert::giveOut(area.re, dst.re, count, scaleFactor);
  convert::giveOut(area.im, dst.im, count, scaleFactor);
}

}  // namespace detail

// dst = run(src) 2^-scaleFactor, where run(area) transforms `taken` elements of an Array or a Split
// of floats in place into `given`; `area` has room for the larger number. `dst` may be `src`.
template <class F, class Source, class Target, class Run>
void integerRun(Source src, long taken, Target dst, long given, int scaleFactor, F* area, Run run) {
  const HiddenExceptions scope;
  const auto data = detail::areaFor(src, area, std::max(taken, given));
  detail::takeIn(src, data, taken);
  run(data);
  detail::giveOut(data, dst, given, scaleFactor);
}

}  // namespace mox::transforms
