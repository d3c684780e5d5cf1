// Memory between two inaccessible pages, used again and again: a sweep places millions of arrays.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "support/guarded_array.h"

namespace every {

enum class Edge { start, end };  // the array starts right after, or ends right before, a wall

// An array at `edge`, moved away from it by the fewest bytes that give its address the wanted
// remainder by 32; -1 takes the remainder that lies at the wall itself.
struct Placement {
  Edge edge = Edge::start;
  int remainder = -1;
};

class Region {
 public:
  // Room for an array, with bytes of a known value on both sides (poisoned under the address
  // sanitizer). The array's own bytes are the caller's to fill.
  std::byte* place(std::size_t bytes, Placement placement);

  // The first byte near the array that was written, counted from the array's start.
  std::optional<long> strayWrite();

  // Where `address` is, counted from the array's start, if it is in this memory or its walls.
  std::optional<long> distanceTo(const void* address) const;

 private:
  void seal(bool closed) const;

  std::unique_ptr<test::GuardedBytes> memory_;
  std::size_t room_ = 0;
  std::byte *array_ = nullptr, *before_ = nullptr, *end_ = nullptr, *after_ = nullptr;
};

// A region for the time of one call.
struct GiveBack {
  void operator()(Region* region) const;
};
using BorrowedRegion = std::unique_ptr<Region, GiveBack>;
BorrowedRegion borrowRegion();

}  // namespace every
