// The real FFT as the tests see it: by element type and layout.
#pragma once

#include <moxsp.h>

#include <vector>

#include "transforms/packed.h"

namespace test {

template <class F>
using Run = MoxStatus (*)(const F*, F*, const MoxsFFTSpec*, Mox8u*);
template <class F>
using RunInPlace = MoxStatus (*)(F*, const MoxsFFTSpec*, Mox8u*);

template <class F>
struct RealTransforms {
  Layout layout;
  Run<F> forward, inverse;
  RunInPlace<F> forwardInPlace, inverseInPlace;
};

template <class F>
struct RealFft;

template <>
struct RealFft<Mox32f> {
  static constexpr auto initAlloc = moxsFFTInitAlloc_R_32f;
  static constexpr auto free = moxsFFTFree_R_32f;
  static constexpr RealTransforms<Mox32f> runs[] = {
      {Layout::perm, moxsFFTFwd_RToPerm_32f, moxsFFTInv_PermToR_32f, moxsFFTFwd_RToPerm_32f_I,
       moxsFFTInv_PermToR_32f_I},
      {Layout::pack, moxsFFTFwd_RToPack_32f, moxsFFTInv_PackToR_32f, moxsFFTFwd_RToPack_32f_I,
       moxsFFTInv_PackToR_32f_I},
      {Layout::ccs, moxsFFTFwd_RToCCS_32f, moxsFFTInv_CCSToR_32f, moxsFFTFwd_RToCCS_32f_I,
       moxsFFTInv_CCSToR_32f_I}};
  static constexpr double bound = 3e-7;  // relative error in the L2 norm by the root of the order
};

template <>
struct RealFft<Mox64f> {
  static constexpr auto initAlloc = moxsFFTInitAlloc_R_64f;
  static constexpr auto free = moxsFFTFree_R_64f;
  static constexpr RealTransforms<Mox64f> runs[] = {
      {Layout::perm, moxsFFTFwd_RToPerm_64f, moxsFFTInv_PermToR_64f, moxsFFTFwd_RToPerm_64f_I,
       moxsFFTInv_PermToR_64f_I},
      {Layout::pack, moxsFFTFwd_RToPack_64f, moxsFFTInv_PackToR_64f, moxsFFTFwd_RToPack_64f_I,
       moxsFFTInv_PackToR_64f_I},
      {Layout::ccs, moxsFFTFwd_RToCCS_64f, moxsFFTInv_CCSToR_64f, moxsFFTFwd_RToCCS_64f_I,
       moxsFFTInv_CCSToR_64f_I}};
  static constexpr double bound = 6e-16;
};

// An object in library memory for the scope of a test.
template <class F>
class RealSpec {
 public:
  explicit RealSpec(int order, int flag = 8) { RealFft<F>::initAlloc(&spec_, order, flag, 0); }
  ~RealSpec() { RealFft<F>::free(spec_); }
  RealSpec(const RealSpec&) = delete;
  RealSpec& operator=(const RealSpec&) = delete;

  operator MoxsFFTSpec*() const { return spec_; }

 private:
  MoxsFFTSpec* spec_ = nullptr;
};

}  // namespace test
