// The work memory of one call: the caller's, aligned, or memory taken for the scope of the call.
#pragma once

#include <climits>

#include "frame/arena.h"
#include "support/moxcore.h"

namespace mox {

class WorkBuffer {
 public:
  static constexpr int alignment = 64;

  WorkBuffer(void* fromCaller, long bytes)
      : owned_(bytes > 0 && bytes <= INT_MAX && !fromCaller ? moxMalloc(int(bytes)) : nullptr),
        memory_(bytes < 1    ? nullptr
                : fromCaller ? alignUp(fromCaller, alignment)
                             : owned_),
        failed_(bytes > 0 && !memory_) {}
  ~WorkBuffer() {
    if (owned_) moxFree(owned_);
  }
  WorkBuffer(const WorkBuffer&) = delete;
  WorkBuffer& operator=(const WorkBuffer&) = delete;

  bool failed() const { return failed_; }  // the call ends with moxErrMemAlloc

  template <class T>
  T* as() const {
    return static_cast<T*>(memory_);
  }

 private:
  void* owned_;
  void* memory_;
  bool failed_;
};

}  // namespace mox
