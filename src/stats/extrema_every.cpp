// The larger and the smaller of two vectors, element by element.
#include <moxsp/extrema.h>

#include "frame/in_place.h"
#include "frame/map.h"

namespace mox::stats {
namespace {

constexpr auto larger = [](auto a, auto b) { return greater(a, b); };
constexpr auto smaller = [](auto a, auto b) { return lesser(a, b); };

// A negative length is that of an empty vector.
template <auto op, class E>
MoxStatus every(const E* src1, const E* src2, E* dst, int len) {
  if (anyNull(src1, src2, dst)) return moxErrNullPtr;
  if (len == 0) return moxErrSize;
  mapElements<Stores::bypassing, registerBytes<E>>(op, dst, len, src1, src2);
  return moxOk;
}

}  // namespace

MOX_EXPORT_IN_PLACE(moxsMaxEvery_16s_I, every<larger>);
MOX_EXPORT_BOTH(moxsMaxEvery_16u, moxsMaxEvery_16u_I, every<larger>);
MOX_EXPORT_BOTH(moxsMaxEvery_32f, moxsMaxEvery_32f_I, every<larger>);
MOX_EXPORT_IN_PLACE(moxsMaxEvery_32s_I, every<larger>);
MOX_EXPORT_BOTH(moxsMaxEvery_64f, moxsMaxEvery_64f_I, every<larger>);
MOX_EXPORT_BOTH(moxsMaxEvery_8u, moxsMaxEvery_8u_I, every<larger>);

MOX_EXPORT_IN_PLACE(moxsMinEvery_16s_I, every<smaller>);
MOX_EXPORT_BOTH(moxsMinEvery_16u, moxsMinEvery_16u_I, every<smaller>);
MOX_EXPORT_BOTH(moxsMinEvery_32f, moxsMinEvery_32f_I, every<smaller>);
MOX_EXPORT_IN_PLACE(moxsMinEvery_32s_I, every<smaller>);
MOX_EXPORT_BOTH(moxsMinEvery_64f, moxsMinEvery_64f_I, every<smaller>);
MOX_EXPORT_BOTH(moxsMinEvery_8u, moxsMinEvery_8u_I, every<smaller>);

}  // namespace mox::stats
