#include <moxsp/move.h>

#include "frame/export.h"
#include "move/version_numbers.h"
#include "support/moxcore.h"

namespace mox::move {
namespace {

constexpr moxLibraryVersion record = {versionMajor, versionMinor,     versionUpdate, revision,
                                      {'v', '7'},   "moxSP AVX (v7)", versionText,   buildDate};

const moxLibraryVersion* getLibVersion() { return &record; }

// Set once, before any call; kept for debuggers.
[[gnu::used]] bool wideVectorsEnabled = false;

[[gnu::constructor]] void attach() {
  constexpr std::uint64_t needed = cpuAvx | cpuWideState;
  wideVectorsEnabled = (moxGetEnabledCpuFeatures() & needed) == needed;
}

}  // namespace

MOX_EXPORT(moxsGetLibVersion, getLibVersion);

}  // namespace mox::move
