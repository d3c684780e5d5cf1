// What happens when the library becomes part of a process. Where the processor lacks what the
// library is built for, a call would end in an illegal instruction without a word, so one sentence
// is written then. The process goes on: it may never call the library, or know the processor itself
// and take another way.
#include <unistd.h>

#include "support/build.h"

namespace {

constexpr char sentence[] = "moxSP: this processor or its operating system has no " MOX_BUILD_NAME
                            "; a call of the library ends with an illegal instruction.\n";

}  // namespace

// Every export refers to this name (frame/export.h), which brings the file into a static link.
extern "C" [[gnu::constructor, gnu::visibility("hidden")]] void moxAttach() {
  if (ownGetFeature(mox::cpuNeeded)) return;
  [[maybe_unused]] const auto written = write(STDERR_FILENO, sentence, sizeof sentence - 1);
}
