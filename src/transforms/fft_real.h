// Real transforms and products of their spectra in the Perm layout, for the families that filter
// and correlate by way of spectra. Arguments and statuses are those of the public functions.
#pragma once

#include "transforms/fft_spec.h"

namespace mox {

template <class F>
MoxStatus ownFftFwdRToPerm(const F* src, F* dst, const MoxsFFTSpec* spec, Mox8u* buffer);
template <class F>
MoxStatus ownFftInvPermToR(const F* src, F* dst, const MoxsFFTSpec* spec, Mox8u* buffer);

template <class F>
MoxStatus ownMulPerm_I(const F* src, F* srcDst, int len);

}  // namespace mox
