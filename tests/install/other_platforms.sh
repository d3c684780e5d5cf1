# other_platforms.sh SOURCE-DIR CC CXX: a build for another platform is refused in one sentence.
source "$(dirname "$0")/common.sh"
source_dir=$1 cc=$2 cxx=$3

for platform in "Linux aarch64" "Linux i686" "Darwin x86_64" "Windows AMD64"; do
  read -r system processor <<< "$platform"
  if cmake -S "$source_dir" -B "$scratch/build" -DCMAKE_SYSTEM_NAME="$system" \
    -DCMAKE_SYSTEM_PROCESSOR="$processor" -DCMAKE_C_COMPILER="$cc" -DCMAKE_CXX_COMPILER="$cxx" \
    -DCMAKE_C_COMPILER_WORKS=ON -DCMAKE_CXX_COMPILER_WORKS=ON > "$scratch/log" 2>&1; then
    fail "a build for $platform is not refused"
  fi
  tr -s '\n ' ' ' < "$scratch/log" |
    grep -q "moxSP is written for 64-bit programs on x86-64 Linux, not for .* on $processor $system\." ||
    fail "a build for $platform is refused with other words: $(cat "$scratch/log")"
  rm -rf "$scratch/build"
done
