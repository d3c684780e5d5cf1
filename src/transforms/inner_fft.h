// A transform inside the library, on memory of our own: nothing can fail. Real samples have spectra
// in Perm layout; the inverse multiplies by 1/N.
#pragma once

#include "transforms/fft_object.h"
#include "transforms/fft_run.h"
#include "transforms/packed_product.h"

namespace mox::transforms {

// Of elements E, real or complex floats. An InnerFft is a member of the record of the object that
// uses it, and its parts are among the parts of that object.
template <class E>
class InnerFft {
  using F = Part<E>;
  using Kind = std::conditional_t<
      Complex<E>, ComplexKind<F, sizeof(F) == 4 ? fftComplex32fc : fftComplex64fc>, RealKind<F>>;

 public:
  static constexpr int mostOrder = Kind::maxOrder;

  // What the size query of the transform reports, each figure rounded up to the alignment.
  static constexpr long figure(int order) {
    const FftSizes sizes = fftSizes<Kind>(order);
    return wholeLines(sizes.spec) + wholeLines(sizes.init) + wholeLines(sizes.work);
  }

  // Elements of an array of the transform's length that has room for the scratch of fill() as well.
  static constexpr std::size_t roomElements(int order) {
    return std::max(std::size_t(1) << order, std::size_t(fftInitSize<F>(order)) / sizeof(E) + 1);
  }

  constexpr void place(Arena& arena, int order) {
    spec_ = placeRecord<FftSpec<F>>(arena, typename Kind::Shape{order});
    placeWork(arena, order);
  }
  // Moves what a run writes to: copies with work memory of their own run at the same time.
  constexpr void placeWork(Arena& arena, int order) {
    const long work = order > Kind::maxSmallOrder ? Kind::workBytes(order) : 0;
    work_ = arena.place<Mox8u>(std::size_t(work), fftAlignment);
  }
  void fill(int order, E* room) {
    constexpr int inverseByN = 2;
    fillSpec<Kind>(*spec_, order, inverseByN, 0, reinterpret_cast<Mox8u*>(room));
  }

  long length() const { return 1L << spec_->order; }

  // `dst` may be `src`.
  void forward(const E* src, E* dst) const {
    if constexpr (Complex<E>)
      ownFftRun<Direction::forward, Array<E>>(*spec_, {src}, {dst}, spec_->order, work());
    else
      runRealForward(*spec_, src, dst, work());
  }
  void inverse(const E* src, E* dst) const {
    if constexpr (Complex<E>)
      ownFftRun<Direction::inverse, Array<E>>(*spec_, {src}, {dst}, spec_->order, work());
    else
      runRealInverse(*spec_, src, dst, work());
  }
  // Each number of a spectrum becomes the square of its magnitude.
  void squareMagnitudes(E* srcDst) const {
    if constexpr (Complex<E>)
      arith::mulComplexConjugate(srcDst, srcDst, srcDst, length());
    else
      mulPackedConjugate<PermLayout>(srcDst, srcDst, srcDst, length());
  }
  // srcDst becomes the product of two spectra.
  void multiply(const E* src, E* srcDst) const {
    if constexpr (Complex<E>)
      arith::mulComplex(src, srcDst, srcDst, length());
    else
      mulPacked<PermLayout>(src, srcDst, srcDst, length());
  }

 private:
  F* work() const { return reinterpret_cast<F*>(work_); }

  FftSpec<F>* spec_;
  Mox8u* work_;
};

}  // namespace mox::transforms
