// The objects of complex and real transforms.
#include "transforms/fft_object.h"

#include <moxsp/transforms.h>

#include "frame/export.h"

namespace mox::transforms {
namespace {

using C32fc = ComplexKind<Mox32f, fftComplex32fc>;
using C32f = ComplexKind<Mox32f, fftComplex32f>;
using C64fc = ComplexKind<Mox64f, fftComplex64fc>;
using C64f = ComplexKind<Mox64f, fftComplex64f>;
using R32f = RealKind<Mox32f>;
using R64f = RealKind<Mox64f>;

static_assert(figuresSuffice<C32fc>() && figuresSuffice<C64fc>());
static_assert(figuresSuffice<R32f>() && figuresSuffice<R64f>());

}  // namespace

MOX_EXPORT(moxsFFTGetSize_C_32fc, getSize<C32fc>);
MOX_EXPORT(moxsFFTGetSize_C_32f, getSize<C32f>);
MOX_EXPORT(moxsFFTGetSize_C_64fc, getSize<C64fc>);
MOX_EXPORT(moxsFFTGetSize_C_64f, getSize<C64f>);
MOX_EXPORT(moxsFFTGetSize_R_32f, getSize<R32f>);
MOX_EXPORT(moxsFFTGetSize_R_64f, getSize<R64f>);
MOX_EXPORT(moxsFFTInit_C_32fc, init<C32fc>);
MOX_EXPORT(moxsFFTInit_C_32f, init<C32f>);
MOX_EXPORT(moxsFFTInit_C_64fc, init<C64fc>);
MOX_EXPORT(moxsFFTInit_C_64f, init<C64f>);
MOX_EXPORT(moxsFFTInit_R_32f, init<R32f>);
MOX_EXPORT(moxsFFTInit_R_64f, init<R64f>);
MOX_EXPORT(moxsFFTInitAlloc_C_32fc, initAlloc<C32fc>);
MOX_EXPORT(moxsFFTInitAlloc_C_32f, initAlloc<C32f>);
MOX_EXPORT(moxsFFTInitAlloc_C_64fc, initAlloc<C64fc>);
MOX_EXPORT(moxsFFTInitAlloc_C_64f, initAlloc<C64f>);
MOX_EXPORT(moxsFFTInitAlloc_R_32f, initAlloc<R32f>);
MOX_EXPORT(moxsFFTInitAlloc_R_64f, initAlloc<R64f>);
MOX_EXPORT(moxsFFTFree_C_32fc, free<C32fc>);
MOX_EXPORT(moxsFFTFree_C_32f, free<C32f>);
MOX_EXPORT(moxsFFTFree_C_64fc, free<C64fc>);
MOX_EXPORT(moxsFFTFree_C_64f, free<C64f>);
MOX_EXPORT(moxsFFTFree_R_32f, free<R32f>);
MOX_EXPORT(moxsFFTFree_R_64f, free<R64f>);
MOX_EXPORT(moxsFFTGetBufSize_C_32fc, getBufSize<C32fc>);
MOX_EXPORT(moxsFFTGetBufSize_C_32f, getBufSize<C32f>);
MOX_EXPORT(moxsFFTGetBufSize_C_64fc, getBufSize<C64fc>);
MOX_EXPORT(moxsFFTGetBufSize_C_64f, getBufSize<C64f>);
MOX_EXPORT(moxsFFTGetBufSize_R_32f, getBufSize<R32f>);
MOX_EXPORT(moxsFFTGetBufSize_R_64f, getBufSize<R64f>);

}  // namespace mox::transforms
