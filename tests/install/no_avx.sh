# no_avx.sh SOURCE-DIR LIBRARY ARCHIVE CC: on a processor without AVX a program that never calls
# the library runs to its end, one that calls it stops, and both have heard why.
source "$(dirname "$0")/common.sh"
source_dir=$1 library=$2 archive=$3 cc=$4
command -v qemu-x86_64 > /dev/null || { echo "skipped: needs qemu-x86_64"; exit; }

cat > "$scratch/program.c" << 'END'
#include <moxsp.h>

int main(int argc, char** argv) {
  const float a[3] = {1, 2, 3};
  float sum[3];
  (void)argv;
  return argc > 1 ? moxsAdd_32f(a, a, sum, 3) : 0;
}
END
"$cc" -O0 -I"$source_dir/include" "$scratch/program.c" "$library" \
  -Wl,-rpath,"$(dirname "$library")" -o "$scratch/shared"
"$cc" -O0 -I"$source_dir/include" "$scratch/program.c" "$archive" -lm -o "$scratch/static"

# run PROCESSOR PROGRAM [ARGUMENT]: the program's exit code, its words in $scratch/words.
run() {
  local processor=$1 code=0; shift
  (ulimit -c 0; qemu-x86_64 -cpu "$processor" "$@" 2> "$scratch/words") 2> /dev/null || code=$?
  echo "$code"
}
illegal_instruction=$((128 + 4))
for program in "$scratch/shared" "$scratch/static"; do
  [[ $(run Nehalem "$program") == 0 ]] || fail "$program stops without a call"
  grep -q '^moxSP: .* has no AVX' "$scratch/words" || fail "$program says nothing without a call"
  [[ $(run Nehalem "$program" call) == "$illegal_instruction" ]] || fail "$program survives a call"
  grep -q '^moxSP: .* has no AVX' "$scratch/words" || fail "$program says nothing before a call"
  [[ $(run SandyBridge "$program" call) == 0 ]] || fail "$program does not run with AVX"
  ! grep moxSP "$scratch/words" || fail "$program speaks on a processor with AVX"
done
