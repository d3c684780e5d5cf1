#include <moxsp/move.h>

#include "frame/export.h"
#include "move/version_numbers.h"
#include "support/build.h"

namespace mox::move {
namespace {

constexpr moxLibraryVersion record = {
    MOXSP_VERSION_MAJOR, MOXSP_VERSION_MINOR,
    MOXSP_VERSION_PATCH, revision,
    MOX_BUILD_CODE,      "moxSP " MOX_BUILD_NAME " (" MOX_BUILD_CODE ")",
    versionText,         buildDate};

const moxLibraryVersion* getLibVersion() { return &record; }

}  // namespace

MOX_EXPORT(moxsGetLibVersion, getLibVersion);

}  // namespace mox::move
