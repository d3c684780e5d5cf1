// Entries of an ascending table nearest to given values.
#include <moxsp/measures.h>

#include "frame/export.h"
#include "frame/vec/vec.h"

namespace mox::stats {
namespace {

int nearestIndex(Mox16u value, const Mox16u* table, int tableLen) {
  const auto entry = [=](int k) { return int(load<Mox16u>(table + k)); };
  if (value <= entry(0)) return 0;
  if (value >= entry(tableLen - 1)) return tableLen - 1;
  // The largest entry that is not above the value is among the `left` ones from k on.
  int k = 0;
  for (int left = tableLen; left > 1;) {
    const int half = left / 2;
    k = entry(k + half) <= value ? k + half : k;
    left -= half;
  }
  // In a table out of order it may be the last one.
  return k + 1 < tableLen && value - entry(k) > entry(k + 1) - value ? k + 1 : k;
}

void findOne(Mox16u value, Mox16u* outVal, int* outIndex, const Mox16u* table, int tableLen) {
  const int k = nearestIndex(value, table, tableLen);
  store(outVal, load<Mox16u>(table + k));
  store(outIndex, k);
}

MoxStatus findNearestOne(Mox16u value, Mox16u* outVal, int* outIndex, const Mox16u* table,
                         int tableLen) {
  if (MoxStatus s = checkArrays(tableLen, outVal, outIndex, table)) return s;
  findOne(value, outVal, outIndex, table, tableLen);
  return moxOk;
}

MoxStatus findNearest(const Mox16u* src, Mox16u* outVals, int* outIndices, int len,
                      const Mox16u* table, int tableLen) {
  if (MoxStatus s = checkArrays(len, src, outVals, outIndices, table)) return s;
  if (MoxStatus s = checkLength(tableLen)) return s;
  for (long i = 0; i < len; ++i)
    findOne(load<Mox16u>(src + i), outVals + i, outIndices + i, table, tableLen);
  return moxOk;
}

}  // namespace

MOX_EXPORT(moxsFindNearestOne_16u, findNearestOne);
MOX_EXPORT(moxsFindNearest_16u, findNearest);

}  // namespace mox::stats
