// The objects of the DFT of any length.
#include "transforms/dft_object.h"

#include <moxsp/dft.h>

#include "frame/export.h"

namespace mox::transforms {
namespace {

using C32fc = DftFloatKind<Mox32f, dftComplex32fc, false>;
using C32f = DftFloatKind<Mox32f, dftComplex32f, false>;
using R32f = DftFloatKind<Mox32f, dftReal32f, true>;
using C64fc = DftFloatKind<Mox64f, dftComplex64fc, false>;
using C64f = DftFloatKind<Mox64f, dftComplex64f, false>;
using R64f = DftFloatKind<Mox64f, dftReal64f, true>;

}  // namespace

MOX_EXPORT(moxsDFTGetSize_C_32fc, getDftSize<C32fc>);
MOX_EXPORT(moxsDFTGetSize_C_32f, getDftSize<C32f>);
MOX_EXPORT(moxsDFTGetSize_R_32f, getDftSize<R32f>);
MOX_EXPORT(moxsDFTGetSize_C_64fc, getDftSize<C64fc>);
MOX_EXPORT(moxsDFTGetSize_C_64f, getDftSize<C64f>);
MOX_EXPORT(moxsDFTGetSize_R_64f, getDftSize<R64f>);
MOX_EXPORT(moxsDFTInit_C_32fc, initDft<C32fc>);
MOX_EXPORT(moxsDFTInit_C_32f, initDft<C32f>);
MOX_EXPORT(moxsDFTInit_R_32f, initDft<R32f>);
MOX_EXPORT(moxsDFTInit_C_64fc, initDft<C64fc>);
MOX_EXPORT(moxsDFTInit_C_64f, initDft<C64f>);
MOX_EXPORT(moxsDFTInit_R_64f, initDft<R64f>);
MOX_EXPORT(moxsDFTInitAlloc_C_32fc, initAllocDft<C32fc>);
MOX_EXPORT(moxsDFTInitAlloc_C_32f, initAllocDft<C32f>);
MOX_EXPORT(moxsDFTInitAlloc_R_32f, initAllocDft<R32f>);
MOX_EXPORT(moxsDFTInitAlloc_C_64fc, initAllocDft<C64fc>);
MOX_EXPORT(moxsDFTInitAlloc_C_64f, initAllocDft<C64f>);
MOX_EXPORT(moxsDFTInitAlloc_R_64f, initAllocDft<R64f>);
MOX_EXPORT(moxsDFTFree_C_32fc, freeDft<C32fc>);
MOX_EXPORT(moxsDFTFree_C_32f, freeDft<C32f>);
MOX_EXPORT(moxsDFTFree_R_32f, freeDft<R32f>);
MOX_EXPORT(moxsDFTFree_C_64fc, freeDft<C64fc>);
MOX_EXPORT(moxsDFTFree_C_64f, freeDft<C64f>);
MOX_EXPORT(moxsDFTFree_R_64f, freeDft<R64f>);
MOX_EXPORT(moxsDFTGetBufSize_C_32fc, getDftBufSize<C32fc>);
MOX_EXPORT(moxsDFTGetBufSize_C_32f, getDftBufSize<C32f>);
MOX_EXPORT(moxsDFTGetBufSize_R_32f, getDftBufSize<R32f>);
MOX_EXPORT(moxsDFTGetBufSize_C_64fc, getDftBufSize<C64fc>);
MOX_EXPORT(moxsDFTGetBufSize_C_64f, getDftBufSize<C64f>);
MOX_EXPORT(moxsDFTGetBufSize_R_64f, getDftBufSize<R64f>);

}  // namespace mox::transforms
