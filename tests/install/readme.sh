# readme.sh SOURCE LIBRARY C_COMPILER: the C program in the README compiles and prints what its
# comment says.
source "$(dirname "$0")/common.sh"
source_dir=$1 library=$2 compiler=$3
sed -n '/^```c$/,/^```$/p' "$source_dir/README.md" | sed '1d;$d' > "$scratch/program.c"
expected=$(sed -n 's|.*/\* \(.*\) \*/.*|\1|p' "$scratch/program.c")
"$compiler" -std=c11 -Wall -Wextra -Werror -I"$source_dir/include" "$scratch/program.c" "$library" \
  -Wl,-rpath,"$(dirname "$library")" -o "$scratch/program" || fail "the README's program does not compile"
answer=$("$scratch/program")
[[ -n $expected && ${answer% } == "$expected" ]] || fail "the README's program printed: $answer"
