# headers.sh INCLUDE-DIR CC CXX: each public header stands alone, in C11 and in C++20.
source "$(dirname "$0")/common.sh"
include=$1 cc=$2 cxx=$3

cd "$include"
for header in moxsp.h moxsp/*.h; do
  echo "#include <$header>" > "$scratch/one.c"
  cp "$scratch/one.c" "$scratch/one.cpp"
  strict=(-Wall -Wextra -Wpedantic -Wstrict-prototypes -Werror -fsyntax-only -I"$include")
  "$cc" -std=c11 "${strict[@]}" "$scratch/one.c" || fail "$header is not clean C11"
  "$cxx" -std=c++20 "${strict[@]/-Wstrict-prototypes/-Wold-style-cast}" "$scratch/one.cpp" ||
    fail "$header is not clean C++20"
  [[ $header == moxsp.h ]] || grep -q "<$header>" moxsp.h || fail "moxsp.h leaves out $header"
done
