// Sorts by comparison, in place, of values and of values with their indices.
#include <moxsp/sorting.h>

#include "frame/export.h"
#include "stats/sort_quick.h"

namespace mox::stats {
namespace {

template <class Order, class T>
MoxStatus sort(T* srcDst, int len) {
  if (MoxStatus s = checkArrays(len, srcDst)) return s;
  sortValues<Order>(srcDst, len);
  return moxOk;
}

template <class Order, class T>
MoxStatus sortIndex(T* srcDst, Mox32s* dstIdx, int len) {
  if (MoxStatus s = checkArrays(len, srcDst, dstIdx)) return s;
  for (long i = 0; i < len; ++i) store(dstIdx + i, Mox32s(i));
  quickSort<Order>(IndexedKeys<T>{srcDst, dstIdx}, len);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsSortAscend_8u_I, sort<Ascending>);
MOX_EXPORT(moxsSortAscend_16s_I, sort<Ascending>);
MOX_EXPORT(moxsSortAscend_16u_I, sort<Ascending>);
MOX_EXPORT(moxsSortAscend_32s_I, sort<Ascending>);
MOX_EXPORT(moxsSortAscend_32f_I, sort<Ascending>);
MOX_EXPORT(moxsSortAscend_64f_I, sort<Ascending>);
MOX_EXPORT(moxsSortDescend_8u_I, sort<Descending>);
MOX_EXPORT(moxsSortDescend_16s_I, sort<Descending>);
MOX_EXPORT(moxsSortDescend_16u_I, sort<Descending>);
MOX_EXPORT(moxsSortDescend_32s_I, sort<Descending>);
MOX_EXPORT(moxsSortDescend_32f_I, sort<Descending>);
MOX_EXPORT(moxsSortDescend_64f_I, sort<Descending>);
MOX_EXPORT(moxsSortIndexAscend_8u_I, sortIndex<Ascending>);
MOX_EXPORT(moxsSortIndexAscend_16s_I, sortIndex<Ascending>);
MOX_EXPORT(moxsSortIndexAscend_16u_I, sortIndex<Ascending>);
MOX_EXPORT(moxsSortIndexAscend_32s_I, sortIndex<Ascending>);
MOX_EXPORT(moxsSortIndexAscend_32f_I, sortIndex<Ascending>);
MOX_EXPORT(moxsSortIndexAscend_64f_I, sortIndex<Ascending>);
MOX_EXPORT(moxsSortIndexDescend_8u_I, sortIndex<Descending>);
MOX_EXPORT(moxsSortIndexDescend_16s_I, sortIndex<Descending>);
MOX_EXPORT(moxsSortIndexDescend_16u_I, sortIndex<Descending>);
MOX_EXPORT(moxsSortIndexDescend_32s_I, sortIndex<Descending>);
MOX_EXPORT(moxsSortIndexDescend_32f_I, sortIndex<Descending>);
MOX_EXPORT(moxsSortIndexDescend_64f_I, sortIndex<Descending>);

}  // namespace mox::stats
