# examples.sh SOURCE LIBRARY C_COMPILER: the program in the file comment of each header compiles as
# C11 and prints what the comments behind its calls of printf say.
source "$(dirname "$0")/../install/common.sh"
source_dir=$1 library=$2 compiler=$3

for header in "$source_dir"/include/moxsp/*.h; do
  name=$(basename "$header" .h)
  sed -n '1,/^#ifndef/{/@code/,/@endcode/p}' "$header" | sed '/@code\|@endcode/d; s/^ \* \?//' > "$scratch/$name.c"
  if [[ ! -s $scratch/$name.c ]]; then
    # Only headers that declare no function by themselves go without.
    ! grep -q '^MOX_API' "$header" || fail "$name.h has no example"
    continue
  fi
  "$compiler" -std=c11 -Wall -Wextra -Wpedantic -Werror -I"$source_dir/include" "$scratch/$name.c" "$library" \
    -Wl,-rpath,"$(dirname "$library")" -o "$scratch/$name" || fail "the example of $name.h does not compile"
  sed -n 's|.*printf.*;  *// ||p' "$scratch/$name.c" | xargs > "$scratch/expected"
  [[ $(wc -w < "$scratch/expected") -gt 0 ]] || fail "the example of $name.h tells no output"
  "$scratch/$name" | xargs > "$scratch/found" || fail "the example of $name.h fails"
  same "output of the example of $name.h" "$scratch/expected" "$scratch/found"
done
