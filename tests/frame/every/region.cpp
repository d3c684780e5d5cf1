#include "frame/every/region.h"

#include <algorithm>
#include <cstring>
#include <vector>

#if defined(MOXSP_SANITIZED)
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(address, bytes) (void)(address), (void)(bytes)
#define ASAN_UNPOISON_MEMORY_REGION(address, bytes) (void)(address), (void)(bytes)
#endif

namespace every {
namespace {

constexpr std::size_t page = 4096, firstRoom = 8 * page;
constexpr std::ptrdiff_t margin = 64;
constexpr std::byte untouched{0xA5};

std::vector<std::unique_ptr<Region>>& idleRegions() {
  static std::vector<std::unique_ptr<Region>> idle;
  return idle;
}

}  // namespace

std::byte* Region::place(std::size_t bytes, Placement placement) {
  if (array_) seal(false);
  if (bytes + 2 * margin > room_) {
    room_ = std::max(firstRoom, (bytes + 2 * margin + page - 1) / page * page);
    memory_ = std::make_unique<test::GuardedBytes>(room_, test::Guard::after);
  }
  std::byte* const low = memory_->data();
  std::byte* const high = low + room_;
  const bool atStart = placement.edge == Edge::start;
  array_ = atStart ? low : high - bytes;
  if (placement.remainder >= 0) {
    const int past = int(reinterpret_cast<std::uintptr_t>(array_) & 31);
    const int shift = (placement.remainder - past) & 31;
    array_ += atStart || shift == 0 ? shift : shift - 32;
  }
  end_ = array_ + bytes;
  before_ = array_ - std::min(margin, array_ - low);
  after_ = end_ + std::min(margin, high - end_);
  std::fill(before_, array_, untouched);
  std::fill(end_, after_, untouched);
  seal(true);
  return array_;
}

void Region::seal(bool closed) const {
  if (closed) {
    ASAN_POISON_MEMORY_REGION(before_, std::size_t(array_ - before_));
    ASAN_POISON_MEMORY_REGION(end_, std::size_t(after_ - end_));
  } else {
    ASAN_UNPOISON_MEMORY_REGION(before_, std::size_t(array_ - before_));
    ASAN_UNPOISON_MEMORY_REGION(end_, std::size_t(after_ - end_));
  }
}

std::optional<long> Region::strayWrite() {
  seal(false);
  for (const std::byte* p = before_; p < after_; ++p)
    if ((p < array_ || p >= end_) && *p != untouched) return p - array_;
  return std::nullopt;
}

std::optional<long> Region::distanceTo(const void* address) const {
  const std::byte* const p = static_cast<const std::byte*>(address);
  const std::byte* const low = memory_->data();
  if (p < low - page || p >= low + room_ + page) return std::nullopt;
  return p - array_;
}

void GiveBack::operator()(Region* region) const { idleRegions().emplace_back(region); }

BorrowedRegion borrowRegion() {
  auto& idle = idleRegions();
  if (idle.empty()) return BorrowedRegion(new Region);
  BorrowedRegion region(idle.back().release());
  idle.pop_back();
  return region;
}

}  // namespace every
