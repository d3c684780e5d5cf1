// Runs a call and comes back even when it touches forbidden memory or raises a floating-point
// exception, so that one faulty function does not end the run over all of them.
#pragma once

#include <csetjmp>
#include <csignal>
#include <optional>

namespace every {

struct Fault {
  int signal;
  const void* address;
};

namespace detail {
extern sigjmp_buf trapReturn;
extern volatile std::sig_atomic_t trapArmed;
extern Fault trapFault;
void installTraps();
}  // namespace detail

// Calls f(); what f had written by the time of the fault stays written. `f` must own nothing.
template <class F>
std::optional<Fault> trap(F f) {
  detail::installTraps();
  if (sigsetjmp(detail::trapReturn, 0)) {
    detail::trapArmed = 0;
    return detail::trapFault;
  }
  detail::trapArmed = 1;
  f();
  detail::trapArmed = 0;
  return std::nullopt;
}

}  // namespace every
