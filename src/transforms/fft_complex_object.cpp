// The objects of complex transforms.
#include <moxsp/transforms.h>

#include "frame/export.h"
#include "transforms/fft_object.h"

namespace mox {
namespace {

using C32fc = ComplexKind<Mox32f, fftComplex32fc>;
using C32f = ComplexKind<Mox32f, fftComplex32f>;
using C64fc = ComplexKind<Mox64f, fftComplex64fc>;
using C64f = ComplexKind<Mox64f, fftComplex64f>;

}  // namespace

MOX_EXPORT(moxsFFTGetSize_C_32fc, fftGetSize<C32fc>);
MOX_EXPORT(moxsFFTGetSize_C_32f, fftGetSize<C32f>);
MOX_EXPORT(moxsFFTGetSize_C_64fc, fftGetSize<C64fc>);
MOX_EXPORT(moxsFFTGetSize_C_64f, fftGetSize<C64f>);
MOX_EXPORT(moxsFFTInit_C_32fc, fftInit<C32fc>);
MOX_EXPORT(moxsFFTInit_C_32f, fftInit<C32f>);
MOX_EXPORT(moxsFFTInit_C_64fc, fftInit<C64fc>);
MOX_EXPORT(moxsFFTInit_C_64f, fftInit<C64f>);
MOX_EXPORT(moxsFFTInitAlloc_C_32fc, fftInitAlloc<C32fc>);
MOX_EXPORT(moxsFFTInitAlloc_C_32f, fftInitAlloc<C32f>);
MOX_EXPORT(moxsFFTInitAlloc_C_64fc, fftInitAlloc<C64fc>);
MOX_EXPORT(moxsFFTInitAlloc_C_64f, fftInitAlloc<C64f>);
MOX_EXPORT(moxsFFTFree_C_32fc, fftFree<C32fc>);
MOX_EXPORT(moxsFFTFree_C_32f, fftFree<C32f>);
MOX_EXPORT(moxsFFTFree_C_64fc, fftFree<C64fc>);
MOX_EXPORT(moxsFFTFree_C_64f, fftFree<C64f>);
MOX_EXPORT(moxsFFTGetBufSize_C_32fc, fftGetBufSize<C32fc>);
MOX_EXPORT(moxsFFTGetBufSize_C_32f, fftGetBufSize<C32f>);
MOX_EXPORT(moxsFFTGetBufSize_C_64fc, fftGetBufSize<C64fc>);
MOX_EXPORT(moxsFFTGetBufSize_C_64f, fftGetBufSize<C64f>);

}  // namespace mox
