#include "support/core_probe.h"

extern "C" {
void* __real_moxMalloc(int bytes);
void __real_moxFree(void* p);
int __real_ownGetFeature(std::uint64_t mask);
}

namespace {
CoreProbe* active = nullptr;
}

CoreProbe::CoreProbe() : outer_(active) { active = this; }
CoreProbe::~CoreProbe() { active = outer_; }

void* CoreProbe::allocate(int bytes) {
  lastBytes_ = bytes;
  if (++allocations_ == failAt_) return nullptr;
  void* p = __real_moxMalloc(bytes);
  live_ += p != nullptr;
  return p;
}

void CoreProbe::release(void* p) {
  live_ -= p != nullptr;
  __real_moxFree(p);
}

int CoreProbe::feature(std::uint64_t mask) const {
  return features_ ? (*features_ & mask) == mask : __real_ownGetFeature(mask);
}

extern "C" {
void* __wrap_moxMalloc(int bytes) {
  return active ? active->allocate(bytes) : __real_moxMalloc(bytes);
}
void __wrap_moxFree(void* p) { active ? active->release(p) : __real_moxFree(p); }
int __wrap_ownGetFeature(std::uint64_t mask) {
  return active ? active->feature(mask) : __real_ownGetFeature(mask);
}
}
