// The larger and the smaller of two vectors, element by element.
#include <moxsp/extrema.h>

#include "frame/checks.h"
#include "frame/export.h"
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
  constexpr int registerBytes = std::is_integral_v<E> ? 16 : vectorBytes;
  mapElements<Stores::bypassing, registerBytes>(op, dst, len, src1, src2);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsMaxEvery_16s_I, inPlace<every<larger, Mox16s>>);
MOX_EXPORT(moxsMaxEvery_16u, every<larger, Mox16u>);
MOX_EXPORT(moxsMaxEvery_16u_I, inPlace<every<larger, Mox16u>>);
MOX_EXPORT(moxsMaxEvery_32f, every<larger, Mox32f>);
MOX_EXPORT(moxsMaxEvery_32f_I, inPlace<every<larger, Mox32f>>);
MOX_EXPORT(moxsMaxEvery_32s_I, inPlace<every<larger, Mox32s>>);
MOX_EXPORT(moxsMaxEvery_64f, every<larger, Mox64f>);
MOX_EXPORT(moxsMaxEvery_64f_I, inPlace<every<larger, Mox64f>>);
MOX_EXPORT(moxsMaxEvery_8u, every<larger, Mox8u>);
MOX_EXPORT(moxsMaxEvery_8u_I, inPlace<every<larger, Mox8u>>);

MOX_EXPORT(moxsMinEvery_16s_I, inPlace<every<smaller, Mox16s>>);
MOX_EXPORT(moxsMinEvery_16u, every<smaller, Mox16u>);
MOX_EXPORT(moxsMinEvery_16u_I, inPlace<every<smaller, Mox16u>>);
MOX_EXPORT(moxsMinEvery_32f, every<smaller, Mox32f>);
MOX_EXPORT(moxsMinEvery_32f_I, inPlace<every<smaller, Mox32f>>);
MOX_EXPORT(moxsMinEvery_32s_I, inPlace<every<smaller, Mox32s>>);
MOX_EXPORT(moxsMinEvery_64f, every<smaller, Mox64f>);
MOX_EXPORT(moxsMinEvery_64f_I, inPlace<every<smaller, Mox64f>>);
MOX_EXPORT(moxsMinEvery_8u, every<smaller, Mox8u>);
MOX_EXPORT(moxsMinEvery_8u_I, inPlace<every<smaller, Mox8u>>);

}  // namespace mox::stats
