#include "transforms/fft_object.h"

#include <moxsp/transforms.h>

#include "frame/export.h"

namespace mox {
namespace {

using C_32fc = ComplexKind<Mox32f, fftComplex32fc>;
using C_32f = ComplexKind<Mox32f, fftComplex32f>;
using C_64fc = ComplexKind<Mox64f, fftComplex64fc>;
using C_64f = ComplexKind<Mox64f, fftComplex64f>;

}  // namespace

MOX_EXPORT(moxsFFTGetSize_C_32fc, fftGetSize<C_32fc>);
MOX_EXPORT(moxsFFTGetSize_C_32f, fftGetSize<C_32f>);
MOX_EXPORT(moxsFFTGetSize_C_64fc, fftGetSize<C_64fc>);
MOX_EXPORT(moxsFFTGetSize_C_64f, fftGetSize<C_64f>);
MOX_EXPORT(moxsFFTInit_C_32fc, fftInit<C_32fc>);
MOX_EXPORT(moxsFFTInit_C_32f, fftInit<C_32f>);
MOX_EXPORT(moxsFFTInit_C_64fc, fftInit<C_64fc>);
MOX_EXPORT(moxsFFTInit_C_64f, fftInit<C_64f>);
MOX_EXPORT(moxsFFTInitAlloc_C_32fc, fftInitAlloc<C_32fc>);
MOX_EXPORT(moxsFFTInitAlloc_C_32f, fftInitAlloc<C_32f>);
MOX_EXPORT(moxsFFTInitAlloc_C_64fc, fftInitAlloc<C_64fc>);
MOX_EXPORT(moxsFFTInitAlloc_C_64f, fftInitAlloc<C_64f>);
MOX_EXPORT(moxsFFTFree_C_32fc, fftFree<C_32fc>);
MOX_EXPORT(moxsFFTFree_C_32f, fftFree<C_32f>);
MOX_EXPORT(moxsFFTFree_C_64fc, fftFree<C_64fc>);
MOX_EXPORT(moxsFFTFree_C_64f, fftFree<C_64f>);
MOX_EXPORT(moxsFFTGetBufSize_C_32fc, fftGetBufSize<C_32fc>);
MOX_EXPORT(moxsFFTGetBufSize_C_32f, fftGetBufSize<C_32f>);
MOX_EXPORT(moxsFFTGetBufSize_C_64fc, fftGetBufSize<C_64fc>);
MOX_EXPORT(moxsFFTGetBufSize_C_64f, fftGetBufSize<C_64f>);

}  // namespace mox
