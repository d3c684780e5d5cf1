#include <moxsp/sorting.h>

#include <bit>
#include <utility>

#include "frame/checks.h"
#include "frame/copy.h"
#include "frame/export.h"
#include "frame/vec.h"
#include "stats/count_bytes.h"
#include "stats/sort_quick.h"
#include "stats/sort_radix_keys.h"

namespace mox {
namespace {

// Each pass stores the keys in the order of one digit, and leaves keys of the same digit as they
// were: the last pass leaves them sorted, in `keys` after an even number of digits, else in
// `other`.
template <class Key, class T>
[[gnu::noinline]] void sortByDigits(T* keys, T* other, long len) {
  using Bits = typename Key::Bits;
  constexpr int last = digitCount<Bits> - 1;
  DigitTables<Bits> tables;
  for (long i = 0; i < len; ++i) tables.tally(Key::mapped(load<Bits>(keys + i)));
  tables.place();
  eachDigit<Bits>([&]<int d> {
    const T* from = d % 2 ? other : keys;
    T* to = d % 2 ? keys : other;
    for (long i = 0; i < len; ++i) {
      const Bits stored = load<Bits>(from + i);
      const Bits key = d == 0 ? Key::mapped(stored) : stored;
      store(to + tables.template takePlace<d>(key), d == last ? Key::unmapped(key) : key);
    }
  });
}

// A pass over more memory than the processor has addresses at hand for waits for page tables at
// nearly every store. So long vectors are cut first, at a key of about the middle, as often as it
// takes.
constexpr long quickBytes = 2 << 20;

// The keys before the pivot go to the front of `to`, the others to its back.
template <class Key, class T>
long divide(const T* from, T* to, long len) {
  using Bits = typename Key::Bits;
  constexpr int samples = 15;
  Bits sample[samples];
  for (int i = 0; i < samples; ++i) sample[i] = Key::mapped(load<Bits>(from + len / samples * i));
  quickSort<Ascending>(PlainKeys<Bits>{sample}, samples);
  const Bits pivot = sample[samples / 2];
  long front = 0, back = len - 1;
  for (long i = 0; i < len; ++i) {
    const Bits stored = load<Bits>(from + i);
    const bool before = Key::mapped(stored) < pivot;
    store(to + front, stored);
    store(to + back, stored);
    front += before;
    back -= !before;
  }
  return front;
}

// Sorts `keys` into themselves or into `other`, by so many cuts first.
template <class Key, class T>
void sortByParts(T* keys, T* other, long len, bool intoOther, int cuts) {
  if (cuts > 0) {
    const long front = divide<Key>(keys, other, len);
    sortByParts<Key>(other, keys, front, !intoOther, cuts - 1);
    sortByParts<Key>(other + front, keys + front, len - front, !intoOther, cuts - 1);
  } else {
    sortByDigits<Key>(keys, other, len);
    constexpr bool endsInOther = digitCount<typename Key::Bits> % 2;
    if (endsInOther && !intoOther) copyElements(other, keys, len);
    if (!endsInOther && intoOther) copyElements(keys, other, len);
  }
}

int cutsFor(long bytes) { return std::bit_width(std::size_t((bytes - 1) / quickBytes)); }

template <class Order, class T>
MoxStatus sortRadix(T* srcDst, T* buffer, int len) {
  if (MoxStatus s = checkArrays(len, srcDst, buffer)) return s;
  if constexpr (sizeof(T) == 1)
    sortByCounting<Order>(srcDst, len);
  else
    sortByParts<RadixKey<T, Order>>(srcDst, buffer, len, false, cutsFor(len * long(sizeof(T))));
  return moxOk;
}

// Keys that stand a stride apart, seen as digits. The first pass takes them as they stand, each
// further pass in the order of the one before.
template <class Key>
void orderByDigits(const void* src, long stride, Mox32s* dstIdx, Mox32s* tmpIdx, long len) {
  using Bits = typename Key::Bits;
  constexpr int last = digitCount<Bits> - 1;
  const auto key = [=](long i) {
    return Key::mapped(load<Bits>(static_cast<const Mox8u*>(src) + i * stride));
  };
  DigitTables<Bits> tables;
  for (long i = 0; i < len; ++i) tables.tally(key(i));
  tables.place();
  eachDigit<Bits>([&]<int d> {
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

MOX_EXPORT(moxsSortRadixAscend_8u_I, sortRadix<Ascending, Mox8u>);
MOX_EXPORT(moxsSortRadixAscend_16s_I, sortRadix<Ascending, Mox16s>);
MOX_EXPORT(moxsSortRadixAscend_16u_I, sortRadix<Ascending, Mox16u>);
MOX_EXPORT(moxsSortRadixAscend_32s_I, sortRadix<Ascending, Mox32s>);
MOX_EXPORT(moxsSortRadixAscend_32u_I, sortRadix<Ascending, Mox32u>);
MOX_EXPORT(moxsSortRadixAscend_32f_I, sortRadix<Ascending, Mox32f>);
MOX_EXPORT(moxsSortRadixAscend_64f_I, sortRadix<Ascending, Mox64f>);
MOX_EXPORT(moxsSortRadixDescend_8u_I, sortRadix<Descending, Mox8u>);
MOX_EXPORT(moxsSortRadixDescend_16s_I, sortRadix<Descending, Mox16s>);
MOX_EXPORT(moxsSortRadixDescend_16u_I, sortRadix<Descending, Mox16u>);
MOX_EXPORT(moxsSortRadixDescend_32s_I, sortRadix<Descending, Mox32s>);
MOX_EXPORT(moxsSortRadixDescend_32u_I, sortRadix<Descending, Mox32u>);
MOX_EXPORT(moxsSortRadixDescend_32f_I, sortRadix<Descending, Mox32f>);
MOX_EXPORT(moxsSortRadixDescend_64f_I, sortRadix<Descending, Mox64f>);
MOX_EXPORT(moxsSortRadixIndexAscend_8u, sortRadixIndex<Ascending, Mox8u>);
MOX_EXPORT(moxsSortRadixIndexAscend_16s, sortRadixIndex<Ascending, Mox16s>);
MOX_EXPORT(moxsSortRadixIndexAscend_16u, sortRadixIndex<Ascending, Mox16u>);
MOX_EXPORT(moxsSortRadixIndexAscend_32s, sortRadixIndex<Ascending, Mox32s>);
MOX_EXPORT(moxsSortRadixIndexAscend_32u, sortRadixIndex<Ascending, Mox32u>);
MOX_EXPORT(moxsSortRadixIndexAscend_32f, sortRadixIndex<Ascending, Mox32f>);
MOX_EXPORT(moxsSortRadixIndexDescend_8u, sortRadixIndex<Descending, Mox8u>);
MOX_EXPORT(moxsSortRadixIndexDescend_16s, sortRadixIndex<Descending, Mox16s>);
MOX_EXPORT(moxsSortRadixIndexDescend_16u, sortRadixIndex<Descending, Mox16u>);
MOX_EXPORT(moxsSortRadixIndexDescend_32s, sortRadixIndex<Descending, Mox32s>);
MOX_EXPORT(moxsSortRadixIndexDescend_32u, sortRadixIndex<Descending, Mox32u>);
MOX_EXPORT(moxsSortRadixIndexDescend_32f, sortRadixIndex<Descending, Mox32f>);

}  // namespace mox
