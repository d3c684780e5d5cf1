#pragma once
#include <moxsp/transforms.h>
namespace mox {
template <class A>
struct FirTransform {
  struct Sizes {
    int spec, init, work;
  };
  static MoxStatus sizes(int, Sizes&) { return moxErrFftOrder; }
  static MoxStatus init(MoxsFFTSpec**, int, Mox8u*, Mox8u*) { return moxErrFftOrder; }
  static MoxStatus forward(const A*, A*, const MoxsFFTSpec*, Mox8u*) { return moxErrFftOrder; }
  static MoxStatus inverse(const A*, A*, const MoxsFFTSpec*, Mox8u*) { return moxErrFftOrder; }
  static MoxStatus multiply(const A*, A*, int) { return moxErrFftOrder; }
};
}  // namespace mox
