// Lays out the parts of an object one behind the other. An object has one layout function, run over
// a measuring arena for its size and over a placing one for its set-up, so that the two agree.
#pragma once

#include <cstddef>
#include <type_traits>

#include "support/moxcore.h"

namespace mox {

constexpr std::size_t roundUp(std::size_t bytes, std::size_t alignment) {
  return (bytes + alignment - 1) & -alignment;
}

class Arena {
 public:
  constexpr Arena() = default;  // measures
  explicit Arena(void* memory) : memory_(static_cast<std::byte*>(memory)) {}

  // Room for `count` elements on a multiple of `alignment`; null while measuring. The block itself
  // must start on a multiple of the largest alignment in use.
  template <class T>
  constexpr T* place(std::size_t count, std::size_t alignment = alignof(T)) {
    const std::size_t start = roundUp(used_, alignment);
    used_ = start + count * sizeof(T);
    return memory_ ? reinterpret_cast<T*>(memory_ + start) : nullptr;
  }

  constexpr std::size_t used() const { return used_; }

 private:
  std::byte* memory_ = nullptr;
  std::size_t used_ = 0;
};

// The next multiple of `alignment` at or after `p`.
template <class T>
T* alignUp(T* p, int alignment) {
  return static_cast<T*>(moxAlignPtr(const_cast<std::remove_const_t<T>*>(p), alignment));
}

}  // namespace mox
