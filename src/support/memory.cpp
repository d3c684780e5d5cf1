#include <cstdlib>

#include "support/moxcore.h"

namespace {
constexpr std::size_t blockAlignment = 64;
}

void* moxMalloc(int bytes) {
  if (bytes < 1) return nullptr;
  const std::size_t rounded = (std::size_t(bytes) + blockAlignment - 1) & -blockAlignment;
  return std::aligned_alloc(blockAlignment, rounded);
}

void moxFree(void* p) { std::free(p); }

void* moxAlignPtr(void* p, int alignment) {
  const std::uintptr_t mask = std::uintptr_t(alignment) - 1;
  const std::uintptr_t step = -reinterpret_cast<std::uintptr_t>(p) & mask;
  return static_cast<char*>(p) + step;
}
