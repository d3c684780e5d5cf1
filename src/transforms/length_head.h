// What objects begin with that transform vectors of one length.
#pragma once

#include <moxsp/types.h>

namespace mox::transforms {

struct LengthHead {
  Mox32s id;  // 0 after release
  Mox32s len;
  Mox32s hint;     // the caller's, stored untouched
  Mox32s bufSize;  // bytes of work buffer that a run needs, 0 for none
  Mox32s owned;    // 1 when InitAlloc took the memory
};

}  // namespace mox::transforms
