// Stands between the library and moxcore while it lives: counts and fails allocations, fixes the
// feature mask. It hooks in at link time (--wrap), so the library carries no trace of it.
#pragma once

#include <cstdint>
#include <optional>

class CoreProbe {
 public:
  CoreProbe();
  ~CoreProbe();
  CoreProbe(const CoreProbe&) = delete;
  CoreProbe& operator=(const CoreProbe&) = delete;

  void failAllocation(int nth) { failAt_ = allocations_ + nth; }  // 1 is the next one
  void fixFeatures(std::uint64_t mask) { features_ = mask; }

  int allocations() const { return allocations_; }  // asked for, failed ones included
  long lastBytes() const { return lastBytes_; }     // of the last allocation asked for
  int live() const { return live_; }                // taken and not yet released

  // Called by the hooks.
  void* allocate(int bytes);
  void release(void* p);
  int feature(std::uint64_t mask) const;

 private:
  CoreProbe* outer_;  // which stands by meanwhile
  int allocations_ = 0, live_ = 0, failAt_ = 0;
  long lastBytes_ = 0;
  std::optional<std::uint64_t> features_;
};
