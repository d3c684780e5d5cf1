#include "transforms/fft_real_object.h"

#include <moxsp/transforms.h>

#include "frame/export.h"

namespace mox {

MOX_EXPORT(moxsFFTGetSize_R_32f, fftGetSize<RealKind<Mox32f>>);
MOX_EXPORT(moxsFFTInit_R_32f, fftInit<RealKind<Mox32f>>);
MOX_EXPORT(moxsFFTInitAlloc_R_32f, fftInitAlloc<RealKind<Mox32f>>);
MOX_EXPORT(moxsFFTFree_R_32f, fftFree<RealKind<Mox32f>>);
MOX_EXPORT(moxsFFTGetBufSize_R_32f, fftGetBufSize<RealKind<Mox32f>>);
MOX_EXPORT(moxsFFTGetSize_R_64f, fftGetSize<RealKind<Mox64f>>);
MOX_EXPORT(moxsFFTInit_R_64f, fftInit<RealKind<Mox64f>>);
MOX_EXPORT(moxsFFTInitAlloc_R_64f, fftInitAlloc<RealKind<Mox64f>>);
MOX_EXPORT(moxsFFTFree_R_64f, fftFree<RealKind<Mox64f>>);
MOX_EXPORT(moxsFFTGetBufSize_R_64f, fftGetBufSize<RealKind<Mox64f>>);

}  // namespace mox
