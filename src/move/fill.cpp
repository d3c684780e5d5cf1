#include "move/fill.h"

#include "move/cache_descriptors.h"
#include "move/string_instructions.h"
#include "support/moxcore.h"

namespace mox::move {
namespace {

constexpr long lineBytes = 64;
constexpr long stringStoreBytes = 32 << 20;  // from here on the string store wins

// The pattern as it goes on `by` bytes after its start.
V<Mox64u> rotated(const Pattern& pattern, long by) {
  const long phase = by & (pattern.width - 1);
  if (phase == 0) return pattern.repeated;
  Mox8u twice[2 * vectorBytes];
  store(twice, pattern.repeated);
  store(twice + vectorBytes, pattern.repeated);
  return load<V<Mox64u>>(twice + phase);
}

// Below a vector.
void fillShort(const Pattern& pattern, Mox8u* dst, long bytes) {
  const auto ends = [&]<class T>(T part) {
    store(dst, part), store(dst + bytes - sizeof part, part);
  };
  const V<Mox64u, 2> half = {pattern.repeated[0], pattern.repeated[1]};
  if (bytes >= 16) return ends(half);
  if (bytes >= 8) return ends(Mox64u(half[0]));
  if (bytes >= 4) return ends(Mox32u(half[0]));
  if (bytes >= 2) return ends(Mox16u(half[0]));
  if (bytes == 1) *dst = Mox8u(half[0]);
}

// The largest cache of the processor, as every fill of narrow elements compares itself with it.
bool exceedsLargestCache(long bytes) {
  constexpr long neverBypassed = 0x200000;
  int cache = 0;
  return bytes > neverBypassed && moxGetMaxCacheSizeB(&cache) == 0 && cache > 0 && bytes > cache;
}

// Wide elements go by the cache descriptors alone. No descriptor names a cache that a fill below
// the least of them exceeds, so the processor is not asked about those.
bool exceedsListedCache(long bytes, bool aligned) {
  constexpr long neverBypassed = 0x100000;
  if (bytes <= (aligned ? neverBypassed : leastListedCache)) return false;
  const long cache = listedCacheBytes();
  return cache > 0 && bytes > cache;
}

}  // namespace

void fill(const Pattern& pattern, void* to, long bytes) {
  auto* dst = static_cast<Mox8u*>(to);
  constexpr long size = vectorBytes;
  if (bytes < size) return fillShort(pattern, dst, bytes);
  store(dst, pattern.repeated);
  long i = size - long(addressOf(dst) % size);
  const auto v = rotated(pattern, i);
  if (bytes >= stringStoreBytes && pattern.width <= 8) {
    const long vectors = (bytes - size - i) / size;
    repeatStore(v[0], dst + i, vectors * lanesOf<Mox64u>);
    i += vectors * size;
  }
  for (; i < bytes - 4 * size; i += 4 * size)
    for (int j = 0; j < 4; ++j) storeAligned(dst + i + j * size, v);
  for (; i < bytes - size; i += size) storeAligned(dst + i, v);
  store(dst + bytes - size, pattern.repeated);
}

void fillBypassingCache(const Pattern& pattern, void* to, long bytes) {
  auto* dst = static_cast<Mox8u*>(to);
  long i = 0;
  const auto line = [&] {
    for (long half : {0L, lineBytes / 2}) store(dst + i + half, pattern.repeated);
  };
  line();
  i = -long(addressOf(dst)) & (lineBytes - 1);
  const auto v = rotated(pattern, i);
  for (; i <= bytes - lineBytes; i += lineBytes)
    for (long half : {0L, lineBytes / 2}) storeStream(dst + i + half, v);
  i = bytes - lineBytes;
  line();
  streamFence();
}

void zeroBytes(void* dst, long bytes) {
  constexpr Pattern zero = {{}, 1};
  exceedsLargestCache(bytes) ? fillBypassingCache(zero, dst, bytes) : fill(zero, dst, bytes);
}

void setBytes(const Pattern& pattern, void* dst, long bytes) {
  const bool aligned = isAligned(dst, pattern.width);
  const bool bypass = pattern.width < 8 ? aligned && exceedsLargestCache(bytes)
                                        : exceedsListedCache(bytes, aligned);
  bypass ? fillBypassingCache(pattern, dst, bytes) : fill(pattern, dst, bytes);
}

}  // namespace mox::move
