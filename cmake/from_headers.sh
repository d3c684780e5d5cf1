# from_headers.sh exports INCLUDE-DIR CC: every public function with its prototype, one a line.
# from_headers.sh status INCLUDE-DIR: moxsp/status.h, from the comments of the enumerators.
# What it prints is checked in; `./run exports` writes it anew.
set -euo pipefail
export LC_ALL=C
what=$1 include=$2

# The preprocessor takes comments and macros away; what is left is cut at each `;`, and parameters
# lose their names.
exports() {
  echo '#include <moxsp.h>' | "$1" -E -P -I"$include" - | tr -s '\n ' ' ' | tr ';' '\n' |
    sed -nE 's/^[ }]*extern __attribute__\(\(visibility\("default"\)\)\) //p' |
    sed -E 's/ ?\* ?/*/g; s/([a-z0-9])\*+/&\n/g; s/\*\n/* /g; s/\n/ /g' |
    sed -E 's/ ?[A-Za-z_0-9]+(\[[0-9]*\])? ?([,)])/\1\2/g; s/\(\)/(void)/' |
    sed -E 's/(.*) (moxs[A-Za-z0-9_]+\(.*)/\2\t\1 \2/' | sort | cut -f2
}

status() {
  cat << 'END'
/**
 * @file
 * The statuses as texts. Made from moxsp/types.h by `./run exports`.
 */
#ifndef MOXSP_STATUS_H
#define MOXSP_STATUS_H

#include <moxsp/types.h>

/** One line of text for a status, such as "a required pointer is null"; never a null pointer. */
static inline const char* moxsStatusText(MoxStatus status) {
  switch (status) {
END
  tr -d '`' < "$include/moxsp/types.h" |
    sed -nE 's%^  (mox(Ok|Warn|Err)\w*) = .*/\*\*< (.*) \*/$%    case \1:\n      return "\3";%p'
  cat << 'END'
    default:
      return "unknown status";
  }
}

#endif
END
}

"$what" "${3:-}"
