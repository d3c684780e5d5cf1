// The transform of the FFT engine, by type of element: its object scales the inverse by 1/N.
#pragma once

#include "arith/mul_complex.h"
#include "transforms/fft_complex.h"
#include "transforms/fft_real.h"
#include "transforms/fft_real_object.h"

namespace mox {

// Bytes of the object, of scratch while it is set up, and of the work buffer.
struct FirTransformSizes {
  int spec, init, work;
};

// What the transforms of real and complex elements have in common.
template <class Kind>
class FirTransformObject {
 public:
  static MoxStatus sizes(int order, FirTransformSizes& s) {
    return fftGetSize<Kind>(order, flag, hint, &s.spec, &s.init, &s.work);
  }
  static MoxStatus init(MoxsFFTSpec** spec, int order, Mox8u* memory, Mox8u* scratch) {
    return fftInit<Kind>(spec, order, flag, hint, memory, scratch);
  }

 private:
  static constexpr int flag = 2, hint = 0;
};

template <class E>
struct FirTransform : FirTransformObject<RealKind<E>> {
  static MoxStatus forward(const E* src, E* dst, const MoxsFFTSpec* spec, Mox8u* buffer) {
    return ownFftFwdRToPerm(src, dst, spec, buffer);
  }
  static MoxStatus inverse(const E* src, E* dst, const MoxsFFTSpec* spec, Mox8u* buffer) {
    return ownFftInvPermToR(src, dst, spec, buffer);
  }
  static MoxStatus multiply(const E* src, E* srcDst, int len) {
    return ownMulPerm_I(src, srcDst, len);
  }
};

template <Complex E>
struct FirTransform<E> : FirTransformObject<ComplexKind<Part<E>, fftComplexId<E>>> {
  static MoxStatus forward(const E* src, E* dst, const MoxsFFTSpec* spec, Mox8u* buffer) {
    return ownFftCToC<Direction::forward>(src, dst, spec, buffer);
  }
  static MoxStatus inverse(const E* src, E* dst, const MoxsFFTSpec* spec, Mox8u* buffer) {
    return ownFftCToC<Direction::inverse>(src, dst, spec, buffer);
  }
  static MoxStatus multiply(const E* src, E* srcDst, int len) {
    mulComplex(src, srcDst, srcDst, len);
    return moxOk;
  }
};

}  // namespace mox
