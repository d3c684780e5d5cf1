# Shared by the scripts of this folder: a scratch directory, and failure with a reason.
set -euo pipefail
export LC_ALL=C
CMAKE_BUILD_PARALLEL_LEVEL=$(nproc)
export CMAKE_BUILD_PARALLEL_LEVEL
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

fail() {
  echo "$*" >&2
  exit 1
}

# same WHAT EXPECTED-FILE FOUND-FILE
same() {
  diff -u "$2" "$3" >&2 || fail "$1: the lines above differ (- expected, + found)"
}

# No program of a user of the library may need the C++ runtime only because of the library.
no_cxx_runtime() {
  if readelf -d "$1" | grep -E 'NEEDED.*(libstdc\+\+|libc\+\+|libgcc_s)'; then
    fail "$1 needs the C++ runtime"
  fi
}
