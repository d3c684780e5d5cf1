#include "frame/every/trap.h"

#include <cstdlib>

namespace every::detail {

sigjmp_buf trapReturn;
volatile std::sig_atomic_t trapArmed = 0;
Fault trapFault;

namespace {

void onSignal(int signal, siginfo_t* info, void*) {
  if (!trapArmed) {
    std::signal(signal, SIG_DFL);
    std::raise(signal);
    return;
  }
  trapFault = {signal, info->si_addr};
  siglongjmp(trapReturn, 1);
}

}  // namespace

void installTraps() {
  static const bool installed = [] {
    struct sigaction action = {};
    action.sa_sigaction = onSignal;
    action.sa_flags = SA_SIGINFO | SA_NODEFER;
    for (int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL}) sigaction(signal, &action, nullptr);
    return true;
  }();
  static_cast<void>(installed);
}

}  // namespace every::detail
