// The processor's string moves, which do not first load the lines that they overwrite.
#pragma once

#include <moxsp/types.h>

namespace mox::move {

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

}  // namespace mox::move
