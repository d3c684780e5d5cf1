// The largest and smallest elements of a vector, by value or magnitude, and their indices.
#include <moxsp/extrema.h>

#include "frame/export.h"
#include "stats/extrema_scan.h"

namespace mox::stats {
namespace {

// No magnitude exceeds the maximum of the type.
struct HeldMagnitude {
  template <class T>
  auto operator()(T x) const {
    using M = decltype(magnitude(x));
    const M maximum = M(M(~M()) >> 1);
    return lesser(magnitude(x), maximum);
  }
};

// The extreme key; of zeros with both signs, the first.
template <class Key, class E, class K>
[[gnu::always_inline]] inline E valueOf(Extreme<K> extreme, const E* src) {
  if (std::is_floating_point_v<E> && extreme.key == 0)
    return load<E>(src + indexOf<Key>(extreme, src));
  return E(extreme.key);
}

template <class Relation, class Key, class E>
MoxStatus extreme(const E* src, int len, E* result) {
  if (MoxStatus s = checkArrays(len, src, result)) return s;
  store(result, valueOf<Key>(scan<coarseBlock, Key, Relation>(src, len)[0], src));
  return moxOk;
}

template <class Relation, class Key, class E>
MoxStatus extremeWithIndex(const E* src, int len, E* result, int* index) {
  if (!index) return extreme<Relation, Key>(src, len, result);
  if (MoxStatus s = checkArrays(len, src, result)) return s;
  const long i = indexOf<Key>(scan<fineBlock, Key, Relation>(src, len)[0], src);
  store(result, E(Key()(load<E>(src + i))));
  store(index, int(i));
  return moxOk;
}

template <class E>
MoxStatus minMax(const E* src, int len, E* min, E* max) {
  if (MoxStatus s = checkArrays(len, src, min, max)) return s;
  const auto [least, most] = scan<coarseBlock, Value, Smaller, Larger>(src, len);
  const E lowest = valueOf<Value>(least, src), highest = valueOf<Value>(most, src);
  store(min, lowest);
  store(max, highest);
  return moxOk;
}

template <class E>
MoxStatus minMaxWithIndex(const E* src, int len, E* min, int* minIndex, E* max, int* maxIndex) {
  if (MoxStatus s = checkArrays(len, src, min, minIndex, max, maxIndex)) return s;
  const auto [least, most] = scan<fineBlock, Value, Smaller, Larger>(src, len);
  const long first = indexOf<Value>(least, src), last = indexOf<Value>(most, src);
  const E lowest = load<E>(src + first), highest = load<E>(src + last);
  store(min, lowest);
  store(max, highest);
  store(minIndex, int(first));
  store(maxIndex, int(last));
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsMax_16s, extreme<Larger, Value>);
MOX_EXPORT(moxsMax_32f, extreme<Larger, Value>);
MOX_EXPORT(moxsMax_32s, extreme<Larger, Value>);
MOX_EXPORT(moxsMax_64f, extreme<Larger, Value>);

MOX_EXPORT(moxsMin_16s, extreme<Smaller, Value>);
MOX_EXPORT(moxsMin_32f, extreme<Smaller, Value>);
MOX_EXPORT(moxsMin_32s, extreme<Smaller, Value>);
MOX_EXPORT(moxsMin_64f, extreme<Smaller, Value>);

MOX_EXPORT(moxsMaxAbs_16s, extreme<Larger, HeldMagnitude>);
MOX_EXPORT(moxsMaxAbs_32s, extreme<Larger, HeldMagnitude>);

MOX_EXPORT(moxsMinAbs_16s, extreme<Smaller, HeldMagnitude>);
MOX_EXPORT(moxsMinAbs_32s, extreme<Smaller, HeldMagnitude>);

MOX_EXPORT(moxsMaxIndx_16s, extremeWithIndex<Larger, Value>);
MOX_EXPORT(moxsMaxIndx_32f, extremeWithIndex<Larger, Value>);
MOX_EXPORT(moxsMaxIndx_32s, extremeWithIndex<Larger, Value>);
MOX_EXPORT(moxsMaxIndx_64f, extremeWithIndex<Larger, Value>);

MOX_EXPORT(moxsMinIndx_16s, extremeWithIndex<Smaller, Value>);
MOX_EXPORT(moxsMinIndx_32f, extremeWithIndex<Smaller, Value>);
MOX_EXPORT(moxsMinIndx_32s, extremeWithIndex<Smaller, Value>);
MOX_EXPORT(moxsMinIndx_64f, extremeWithIndex<Smaller, Value>);

MOX_EXPORT(moxsMaxAbsIndx_16s, extremeWithIndex<Larger, HeldMagnitude>);
MOX_EXPORT(moxsMaxAbsIndx_32s, extremeWithIndex<Larger, HeldMagnitude>);

MOX_EXPORT(moxsMinAbsIndx_16s, extremeWithIndex<Smaller, HeldMagnitude>);
MOX_EXPORT(moxsMinAbsIndx_32s, extremeWithIndex<Smaller, HeldMagnitude>);

MOX_EXPORT(moxsMinMax_16s, minMax);
MOX_EXPORT(moxsMinMax_16u, minMax);
MOX_EXPORT(moxsMinMax_32f, minMax);
MOX_EXPORT(moxsMinMax_32s, minMax);
MOX_EXPORT(moxsMinMax_32u, minMax);
MOX_EXPORT(moxsMinMax_64f, minMax);
MOX_EXPORT(moxsMinMax_8u, minMax);

MOX_EXPORT(moxsMinMaxIndx_16s, minMaxWithIndex);
MOX_EXPORT(moxsMinMaxIndx_16u, minMaxWithIndex);
MOX_EXPORT(moxsMinMaxIndx_32f, minMaxWithIndex);
MOX_EXPORT(moxsMinMaxIndx_32s, minMaxWithIndex);
MOX_EXPORT(moxsMinMaxIndx_32u, minMaxWithIndex);
MOX_EXPORT(moxsMinMaxIndx_64f, minMaxWithIndex);
MOX_EXPORT(moxsMinMaxIndx_8u, minMaxWithIndex);

}  // namespace mox::stats
