// What happens when the library becomes part of a process. Where the processor has no AVX, any call
// would end in an illegal instruction without a word, so one sentence is written then. The process
// goes on: it may never call the library, or know the processor itself and take another way.
#include <unistd.h>

#include "support/moxcore.h"

namespace {

constexpr char sentence[] =
    "moxSP: this processor or its operating system has no AVX; a call of the library ends with an "
    "illegal instruction.\n";

}  // namespace

// Every export refers to this name (frame/export.h), which brings the file into a static link.
extern "C" [[gnu::constructor, gnu::visibility("hidden")]] void moxAttach() {
  constexpr std::uint64_t needed = mox::cpuAvx | mox::cpuWideState;
  if ((moxGetEnabledCpuFeatures() & needed) == needed) return;
  [[maybe_unused]] const auto written = write(STDERR_FILENO, sentence, sizeof sentence - 1);
}
