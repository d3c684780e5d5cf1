#include "support/require.h"

#include <stdexcept>
#include <string>

void require(MoxStatus status, const char* call) {
  if (status != moxOk)
    throw std::runtime_error(std::string(call) + " failed: " + moxsStatusText(status));
}
