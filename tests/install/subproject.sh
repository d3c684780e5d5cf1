# subproject.sh configure|build SOURCE-DIR CC CXX: the library inside a user's project.
source "$(dirname "$0")/common.sh"
source "$(dirname "$0")/programs.sh"
how_far=$1 source_dir=$2 cc=$3 cxx=$4

# Warnings are errors as in `./run`: with other flags the compiler's cache has nothing for us.
cmake -S "$source_dir/tests/install/consumer" -B "$scratch/build" -DSUBPROJECT="$source_dir" \
  -DCMAKE_COMPILE_WARNING_AS_ERROR=ON -DCMAKE_C_COMPILER="$cc" -DCMAKE_CXX_COMPILER="$cxx" > "$scratch/log" 2>&1 ||
  fail "$(cat "$scratch/log")"
if [[ $how_far == build ]]; then
  cmake --build "$scratch/build" >> "$scratch/log" 2>&1 || fail "$(tail -50 "$scratch/log")"
  check_programs "$scratch/build"
  cmake --install "$scratch/build" --prefix "$scratch/prefix" > "$scratch/log"
  if [[ -e $scratch/prefix/include/moxsp.h ]]; then
    fail "the subproject adds to the installation of its parent"
  fi
fi
