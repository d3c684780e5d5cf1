#include "move/fill.h"

#include "frame/map.h"

namespace mox::move {
namespace {

constexpr long lineBytes = 64;

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

// Through the cache.
void fillCached(const Pattern& pattern, Mox8u* dst, long bytes) {
  constexpr long size = vectorBytes;
  if (bytes < size) return fillShort(pattern, dst, bytes);
  store(dst, pattern.repeated);
  long i = size - long(addressOf(dst) % size);
  const auto v = rotated(pattern, i);
  for (; i < bytes - 4 * size; i += 4 * size)
    for (int j = 0; j < 4; ++j) storeAligned(dst + i + j * size, v);
  for (; i < bytes - size; i += size) storeAligned(dst + i, v);
  store(dst + bytes - size, pattern.repeated);
}

// Through stores that bypass it, from 64 bytes on.
void fillBypassing(const Pattern& pattern, Mox8u* dst, long bytes) {
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

}  // namespace

void fill(const Pattern& pattern, void* to, long bytes) {
  auto* dst = static_cast<Mox8u*>(to);
  bytes > bypassBytes ? fillBypassing(pattern, dst, bytes) : fillCached(pattern, dst, bytes);
}

}  // namespace mox::move
