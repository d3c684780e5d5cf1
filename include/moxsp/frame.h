/**
 * @file
 * Library version and memory.
 */
#ifndef MOXSP_FRAME_H
#define MOXSP_FRAME_H

#include <moxsp/types.h>

/** @defgroup version Version
 * The record is constant: every call returns the same pointer, and nothing is to be released.
 * @{ */
MOX_API const moxLibraryVersion* moxsGetLibVersion(void);
/** @} */

/** @defgroup malloc Memory
 * Each moxsMalloc function returns memory for `len` elements of its type, aligned to 64 bytes, or
 * null when `len` is below 1 or memory is short. The byte count, `len` times the element size, is
 * reckoned in 32 bits; keep it below 2^31. The memory is not cleared and is released with
 * moxsFree(), which takes a null pointer as well.
 * @{ */
MOX_API Mox8u* moxsMalloc_8u(int len);
MOX_API Mox8s* moxsMalloc_8s(int len);
MOX_API Mox16u* moxsMalloc_16u(int len);
MOX_API Mox16s* moxsMalloc_16s(int len);
MOX_API Mox8sc* moxsMalloc_8sc(int len);
MOX_API Mox32u* moxsMalloc_32u(int len);
MOX_API Mox32s* moxsMalloc_32s(int len);
MOX_API Mox32f* moxsMalloc_32f(int len);
MOX_API Mox16sc* moxsMalloc_16sc(int len);
MOX_API Mox64s* moxsMalloc_64s(int len);
MOX_API Mox64f* moxsMalloc_64f(int len);
MOX_API Mox32sc* moxsMalloc_32sc(int len);
MOX_API Mox32fc* moxsMalloc_32fc(int len);
MOX_API Mox64sc* moxsMalloc_64sc(int len);
MOX_API Mox64fc* moxsMalloc_64fc(int len);
MOX_API void moxsFree(void* p);
/** @} */

#endif
