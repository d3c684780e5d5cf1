// What Copy and Move are made of. Every kernel loads whatever its stores might overwrite first, so
// that the overlap of the arrays matters for the direction only.
#pragma once

#include <moxsp/types.h>

#include "frame/vec/vec.h"

namespace mox::move {

constexpr long shortCopyBytes = 8 * vectorBytes;
constexpr long stringMoveBytes = 32768;  // from here on the string move wins

// Between N and 2 N vectors, N from each end of the arrays.
template <class T, int n = 1>
[[gnu::always_inline]] inline void copyEnds(const Mox8u* src, Mox8u* dst, long bytes) {
  constexpr long size = sizeof(T);
  T head[n], tail[n];
  for (int i = 0; i < n; ++i) head[i] = load<T>(src + i * size);
  for (int i = 0; i < n; ++i) tail[i] = load<T>(src + bytes - (i + 1) * size);
  for (int i = 0; i < n; ++i) store(dst + i * size, head[i]);
  for (int i = 0; i < n; ++i) store(dst + bytes - (i + 1) * size, tail[i]);
}

// At most shortCopyBytes, overlapping in any way.
inline void copyShort(const Mox8u* src, Mox8u* dst, long bytes) {
  if (bytes > 4 * vectorBytes) return copyEnds<V<Mox8u>, 4>(src, dst, bytes);
  if (bytes > 2 * vectorBytes) return copyEnds<V<Mox8u>, 2>(src, dst, bytes);
  if (bytes >= vectorBytes) return copyEnds<V<Mox8u>>(src, dst, bytes);
  if (bytes >= 16) return copyEnds<V<Mox8u, 16>>(src, dst, bytes);
  if (bytes >= 8) return copyEnds<Mox64u>(src, dst, bytes);
  if (bytes >= 4) return copyEnds<Mox32u>(src, dst, bytes);
  if (bytes >= 2) return copyEnds<Mox16u>(src, dst, bytes);
  if (bytes == 1) *dst = *src;
}

// From a vector on; correct where src lies above dst. The two unaligned ends are loaded before the
// loop and stored after it.
inline void copyForward(const Mox8u* src, Mox8u* dst, long bytes) {
  constexpr long size = vectorBytes;
  const auto head = load<V<Mox8u>>(src), tail = load<V<Mox8u>>(src + bytes - size);
  long i = size - long(addressOf(dst) % size);
  for (; i < bytes - 4 * size; i += 4 * size) {
    V<Mox8u> r[4];
    for (int j = 0; j < 4; ++j) r[j] = load<V<Mox8u>>(src + i + j * size);
    for (int j = 0; j < 4; ++j) storeAligned(dst + i + j * size, r[j]);
  }
  for (; i < bytes - size; i += size) storeAligned(dst + i, load<V<Mox8u>>(src + i));
  store(dst, head);
  store(dst + bytes - size, tail);
}

// The same from the last byte down; correct where src lies below dst.
inline void copyBackward(const Mox8u* src, Mox8u* dst, long bytes) {
  constexpr long size = vectorBytes;
  const auto head = load<V<Mox8u>>(src), tail = load<V<Mox8u>>(src + bytes - size);
  long i = bytes - long(addressOf(dst + bytes) % size);
  for (; i > 4 * size; i -= 4 * size) {
    V<Mox8u> r[4];
    for (int j = 0; j < 4; ++j) r[j] = load<V<Mox8u>>(src + i - (j + 1) * size);
    for (int j = 0; j < 4; ++j) storeAligned(dst + i - (j + 1) * size, r[j]);
  }
  for (; i > size; i -= size) storeAligned(dst + i - size, load<V<Mox8u>>(src + i - size));
  store(dst, head);
  store(dst + bytes - size, tail);
}

// While it lives, string instructions go upwards; the direction flag is put back at the end.
class StringsUpwards {
 public:
  StringsUpwards() : wereDownwards_(__builtin_ia32_readeflags_u64() & directionFlag) {
    if (wereDownwards_) asm volatile("cld");
  }
  ~StringsUpwards() {
    if (wereDownwards_) asm volatile("std");
  }
  StringsUpwards(const StringsUpwards&) = delete;
  StringsUpwards& operator=(const StringsUpwards&) = delete;

 private:
  static constexpr unsigned long directionFlag = 1 << 10;
  bool wereDownwards_;
};

// `count` elements of E, of 1, 2 or 4 bytes.
template <class E>
void repeatMove(const Mox8u* src, Mox8u* dst, long count) {
  const StringsUpwards upwards;
  if constexpr (sizeof(E) == 4)
    asm volatile("rep movsl" : "+S"(src), "+D"(dst), "+c"(count) : : "memory");
  else if constexpr (sizeof(E) == 2)
    asm volatile("rep movsw" : "+S"(src), "+D"(dst), "+c"(count) : : "memory");
  else
    asm volatile("rep movsb" : "+S"(src), "+D"(dst), "+c"(count) : : "memory");
}

// The widest element on whose boundaries both arrays can be at once: single moves up to the first
// boundary, then the string move.
template <class E>
void alignedStringMove(const Mox8u* src, Mox8u* dst, long bytes) {
  constexpr long size = sizeof(E);
  const long peel = -long(addressOf(dst)) & (size - 1);
  for (long i = 0; i < peel; ++i) dst[i] = src[i];
  const long count = (bytes - peel) / size, done = peel + count * size;
  repeatMove<E>(src + peel, dst + peel, count);
  for (long i = done; i < bytes; ++i) dst[i] = src[i];
}

inline void stringMove(const Mox8u* src, Mox8u* dst, long bytes) {
  const auto distance = addressOf(dst) - addressOf(src);
  if (distance % 4 == 0)
    alignedStringMove<Mox32u>(src, dst, bytes);
  else if (distance % 2 == 0)
    alignedStringMove<Mox16u>(src, dst, bytes);
  else
    alignedStringMove<Mox8u>(src, dst, bytes);
}

// Upwards over any number of bytes above shortCopyBytes. The string move of some processors crawls
// where the stores follow close behind the loads, modulo a page; and it gains nothing where they
// go to lines that have just been loaded.
inline void copyUpwards(const Mox8u* src, Mox8u* dst, long bytes) {
  const auto lead = addressOf(dst) - addressOf(src), inPage = lead % 4096;
  const bool crawls = inPage > 0 && inPage < 64, inCache = -lead < std::uintptr_t(stringMoveBytes);
  if (bytes < stringMoveBytes || crawls || inCache) return copyForward(src, dst, bytes);
  stringMove(src, dst, bytes);
}

}  // namespace mox::move
