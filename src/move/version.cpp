#include <moxsp/move.h>

#include "frame/export.h"
#include "move/version_numbers.h"

namespace mox::move {
namespace {

constexpr moxLibraryVersion record = {
    MOXSP_VERSION_MAJOR, MOXSP_VERSION_MINOR, MOXSP_VERSION_PATCH, revision,
    {'v', '7'},          "moxSP AVX (v7)",    versionText,         buildDate};

const moxLibraryVersion* getLibVersion() { return &record; }

}  // namespace

MOX_EXPORT(moxsGetLibVersion, getLibVersion);

}  // namespace mox::move
