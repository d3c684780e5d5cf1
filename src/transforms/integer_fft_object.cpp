// The objects of transforms of integers.
#include <moxsp/integer_fft.h>

#include "frame/export.h"
#include "transforms/integer_fft.h"

namespace mox::transforms {

static_assert(figuresSuffice<C16sc>() && figuresSuffice<C16s>() && figuresSuffice<R16s>());
static_assert(figuresSuffice<C32sc>() && figuresSuffice<C32s>() && figuresSuffice<R32s>());
static_assert(figuresSuffice<R16s32s>());

MOX_EXPORT(moxsFFTGetSize_C_16sc, getSize<C16sc>);
MOX_EXPORT(moxsFFTGetSize_C_16s, getSize<C16s>);
MOX_EXPORT(moxsFFTGetSize_R_16s, getSize<R16s>);
MOX_EXPORT(moxsFFTGetSize_C_32sc, getSize<C32sc>);
MOX_EXPORT(moxsFFTGetSize_C_32s, getSize<C32s>);
MOX_EXPORT(moxsFFTGetSize_R_32s, getSize<R32s>);
MOX_EXPORT(moxsFFTGetSize_R_16s32s, getSize<R16s32s>);
MOX_EXPORT(moxsFFTInit_C_16sc, init<C16sc>);
MOX_EXPORT(moxsFFTInit_C_16s, init<C16s>);
MOX_EXPORT(moxsFFTInit_R_16s, init<R16s>);
MOX_EXPORT(moxsFFTInit_C_32sc, init<C32sc>);
MOX_EXPORT(moxsFFTInit_C_32s, init<C32s>);
MOX_EXPORT(moxsFFTInit_R_32s, init<R32s>);
MOX_EXPORT(moxsFFTInit_R_16s32s, init<R16s32s>);
MOX_EXPORT(moxsFFTInitAlloc_C_16sc, initAlloc<C16sc>);
MOX_EXPORT(moxsFFTInitAlloc_C_16s, initAlloc<C16s>);
MOX_EXPORT(moxsFFTInitAlloc_R_16s, initAlloc<R16s>);
MOX_EXPORT(moxsFFTInitAlloc_C_32sc, initAlloc<C32sc>);
MOX_EXPORT(moxsFFTInitAlloc_C_32s, initAlloc<C32s>);
MOX_EXPORT(moxsFFTInitAlloc_R_32s, initAlloc<R32s>);
MOX_EXPORT(moxsFFTInitAlloc_R_16s32s, initAlloc<R16s32s>);
MOX_EXPORT(moxsFFTFree_C_16sc, free<C16sc>);
MOX_EXPORT(moxsFFTFree_C_16s, free<C16s>);
MOX_EXPORT(moxsFFTFree_R_16s, free<R16s>);
MOX_EXPORT(moxsFFTFree_C_32sc, free<C32sc>);
MOX_EXPORT(moxsFFTFree_C_32s, free<C32s>);
MOX_EXPORT(moxsFFTFree_R_32s, free<R32s>);
MOX_EXPORT(moxsFFTFree_R_16s32s, free<R16s32s>);
MOX_EXPORT(moxsFFTGetBufSize_C_16sc, getBufSize<C16sc>);
MOX_EXPORT(moxsFFTGetBufSize_C_16s, getBufSize<C16s>);
MOX_EXPORT(moxsFFTGetBufSize_R_16s, getBufSize<R16s>);
MOX_EXPORT(moxsFFTGetBufSize_C_32sc, getBufSize<C32sc>);
MOX_EXPORT(moxsFFTGetBufSize_C_32s, getBufSize<C32s>);
MOX_EXPORT(moxsFFTGetBufSize_R_32s, getBufSize<R32s>);
MOX_EXPORT(moxsFFTGetBufSize_R_16s32s, getBufSize<R16s32s>);

}  // namespace mox::transforms
