#include <moxsp/move.h>

#include "frame/export.h"
#include "support/moxcore.h"

namespace mox::move {
namespace {

template <unsigned elementBytes>
void* mallocElements(int len) {
  return len < 1 ? nullptr : moxMalloc(int(unsigned(len) * elementBytes));
}

}  // namespace

MOX_EXPORT_SHARED(moxsMalloc_8u, mallocElements<1>);
MOX_EXPORT_SHARED(moxsMalloc_8s, mallocElements<1>);
MOX_EXPORT_SHARED(moxsMalloc_16u, mallocElements<2>);
MOX_EXPORT_SHARED(moxsMalloc_16s, mallocElements<2>);
MOX_EXPORT_SHARED(moxsMalloc_8sc, mallocElements<2>);
MOX_EXPORT_SHARED(moxsMalloc_32u, mallocElements<4>);
MOX_EXPORT_SHARED(moxsMalloc_32s, mallocElements<4>);
MOX_EXPORT_SHARED(moxsMalloc_32f, mallocElements<4>);
MOX_EXPORT_SHARED(moxsMalloc_16sc, mallocElements<4>);
MOX_EXPORT_SHARED(moxsMalloc_64s, mallocElements<8>);
MOX_EXPORT_SHARED(moxsMalloc_64f, mallocElements<8>);
MOX_EXPORT_SHARED(moxsMalloc_32sc, mallocElements<8>);
MOX_EXPORT_SHARED(moxsMalloc_32fc, mallocElements<8>);
MOX_EXPORT_SHARED(moxsMalloc_64sc, mallocElements<16>);
MOX_EXPORT_SHARED(moxsMalloc_64fc, mallocElements<16>);

MOX_EXPORT(moxsFree, [](void* p) { moxFree(p); });

}  // namespace mox::move
