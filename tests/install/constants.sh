# constants.sh SOURCE-DIR LIBRARY CC: what the headers tell of version and statuses agrees with the
# library and with itself.
source "$(dirname "$0")/common.sh"
source_dir=$1 library=$2 cc=$3
include=$source_dir/include

bash "$source_dir/cmake/from_headers.sh" status "$include" > "$scratch/status.h"
same "status.h and types.h (./run exports)" "$scratch/status.h" "$include/moxsp/status.h"
[[ $(grep -c 'case mox' "$scratch/status.h") == \
   $(grep -cE '^ +mox(Ok|Warn|Err)' "$include/moxsp/types.h") ]] || fail "a status has no text"

cat > "$scratch/program.c" << 'END'
#include <moxsp.h>
#include <stdio.h>
#include <string.h>

int main(void) {
  const moxLibraryVersion* v = moxsGetLibVersion();
  MoxsFFTSpec* spec;
  return MOXSP_VERSION != MOXSP_MAKE_VERSION(v->major, v->minor, v->update) ||
         MOXSP_VERSION <= MOXSP_MAKE_VERSION(0, 999, 999) ||
         moxsFFTInitAlloc_R_32f(&spec, 4, moxNormInverse, moxHintNone) != moxOk ||
         moxsFFTFree_R_32f(spec) != moxOk ||
         strcmp(moxsStatusText(moxsFFTFree_R_32f(NULL)), "a required pointer is null") ||
         strcmp(moxsStatusText(12345), "unknown status");
}
END
"$cc" -std=c11 -Wall -Wextra -Werror -I"$include" "$scratch/program.c" "$library" \
  -Wl,-rpath,"$(dirname "$library")" -o "$scratch/program" && "$scratch/program" ||
  fail "the constants do not agree with the library"
