// Stable sorts by the digits of keys, of vectors in place and of indices.
#include <moxsp/sorting.h>

#include "frame/export.h"
#include "frame/vec/vec.h"
#include "stats/sort_quick.h"
#include "stats/sort_radix_cut.h"
#include "stats/sort_radix_passes.h"

namespace mox::stats {
namespace {

// Keys, and indices, for which clearing and adding up counts takes longer than comparing them.
constexpr long mostCompared = 256, mostInserted = 32;

// Equal keys cannot be told apart, so that a sort by comparison leaves the same vector.
template <class Key, class T>
void sortByComparison(T* srcDst, long len) {
  using Bits = typename Key::Bits;
  const PlainKeys<Bits> keys = {reinterpret_cast<Bits*>(srcDst)};
  for (long i = 0; i < len; ++i) keys.put(i, {Key::mapped(keys.key(i))});
  quickSort<Ascending>(keys, len);
  for (long i = 0; i < len; ++i) keys.put(i, {Key::unmapped(keys.key(i))});
}

template <class Key, class T>
void sortKeys(T* srcDst, T* buffer, long len) {
  if (len <= mostCompared) return sortByComparison<Key>(srcDst, len);
  if constexpr (sizeof(T) >= 4)
    if (len > longestUncut<T>) return sortByParts<Key>(srcDst, buffer, len, false);
  sortByDigits<Key, WholeKeys<typename Key::Bits>>(srcDst, buffer, len, false);
}

template <class Order, class T>
MoxStatus sortRadix(T* srcDst, T* buffer, int len) {
  if (MoxStatus s = checkArrays(len, srcDst, buffer)) return s;
  if constexpr (sizeof(T) == 1)
    sortValues<Order>(srcDst, len);
  else
    sortKeys<RadixKey<T, Order>>(srcDst, buffer, len);
  return moxOk;
}

// Keys that stand a stride apart, seen as digits. The first pass takes them as they stand, each
// further pass in the order of the one before.
template <class Key>
void orderByDigits(const void* src, long stride, Mox32s* dstIdx, Mox32s* tmpIdx, long len) {
  using Bits = typename Key::Bits;
  using Digits = WholeKeys<Bits>;
  constexpr int last = digitCount<Digits> - 1;
  const auto key = [=](long i) {
    return Key::mapped(load<Bits>(static_cast<const Mox8u*>(src) + i * stride));
  };
  if (len <= mostInserted) {
    for (long i = 0; i < len; ++i) {
      long place = i;
      for (; place > 0 && key(load<Mox32s>(dstIdx + place - 1)) > key(i); --place)
        store(dstIdx + place, load<Mox32s>(dstIdx + place - 1));
      store(dstIdx + place, Mox32s(i));
    }
    return;
  }
  DigitTables<Digits> tables;
  for (long i = 0; i < len; ++i) tables.tally(key(i));
  tables.place();
  eachDigit<Digits>([&]<int d> {
    constexpr bool intoDst = (last - d) % 2 == 0;
    const Mox32s* from = intoDst ? tmpIdx : dstIdx;
    Mox32s* to = intoDst ? dstIdx : tmpIdx;
    for (long i = 0; i < len; ++i) {
      const Mox32s index = d == 0 ? Mox32s(i) : load<Mox32s>(from + i);
      store(to + tables.template takePlace<d>(key(index)), index);
    }
  });
}

template <class Order, class T>
MoxStatus sortRadixIndex(const T* src, int srcStrideBytes, Mox32s* dstIdx, Mox32s* tmpIdx,
                         int len) {
  if (MoxStatus s = checkArrays(len, src, dstIdx, tmpIdx)) return s;
  if (srcStrideBytes < int(sizeof(T))) return moxErrSize;
  orderByDigits<RadixKey<T, Order>>(src, srcStrideBytes, dstIdx, tmpIdx, len);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsSortRadixAscend_8u_I, sortRadix<Ascending>);
MOX_EXPORT(moxsSortRadixAscend_16s_I, sortRadix<Ascending>);
MOX_EXPORT(moxsSortRadixAscend_16u_I, sortRadix<Ascending>);
MOX_EXPORT(moxsSortRadixAscend_32s_I, sortRadix<Ascending>);
MOX_EXPORT(moxsSortRadixAscend_32u_I, sortRadix<Ascending>);
MOX_EXPORT(moxsSortRadixAscend_32f_I, sortRadix<Ascending>);
MOX_EXPORT(moxsSortRadixAscend_64f_I, sortRadix<Ascending>);
MOX_EXPORT(moxsSortRadixDescend_8u_I, sortRadix<Descending>);
MOX_EXPORT(moxsSortRadixDescend_16s_I, sortRadix<Descending>);
MOX_EXPORT(moxsSortRadixDescend_16u_I, sortRadix<Descending>);
MOX_EXPORT(moxsSortRadixDescend_32s_I, sortRadix<Descending>);
MOX_EXPORT(moxsSortRadixDescend_32u_I, sortRadix<Descending>);
MOX_EXPORT(moxsSortRadixDescend_32f_I, sortRadix<Descending>);
MOX_EXPORT(moxsSortRadixDescend_64f_I, sortRadix<Descending>);
MOX_EXPORT(moxsSortRadixIndexAscend_8u, sortRadixIndex<Ascending>);
MOX_EXPORT(moxsSortRadixIndexAscend_16s, sortRadixIndex<Ascending>);
MOX_EXPORT(moxsSortRadixIndexAscend_16u, sortRadixIndex<Ascending>);
MOX_EXPORT(moxsSortRadixIndexAscend_32s, sortRadixIndex<Ascending>);
MOX_EXPORT(moxsSortRadixIndexAscend_32u, sortRadixIndex<Ascending>);
MOX_EXPORT(moxsSortRadixIndexAscend_32f, sortRadixIndex<Ascending>);
MOX_EXPORT(moxsSortRadixIndexDescend_8u, sortRadixIndex<Descending>);
MOX_EXPORT(moxsSortRadixIndexDescend_16s, sortRadixIndex<Descending>);
MOX_EXPORT(moxsSortRadixIndexDescend_16u, sortRadixIndex<Descending>);
MOX_EXPORT(moxsSortRadixIndexDescend_32s, sortRadixIndex<Descending>);
MOX_EXPORT(moxsSortRadixIndexDescend_32u, sortRadixIndex<Descending>);
MOX_EXPORT(moxsSortRadixIndexDescend_32f, sortRadixIndex<Descending>);

}  // namespace mox::stats
