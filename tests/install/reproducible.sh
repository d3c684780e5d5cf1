# reproducible.sh SOURCE-DIR BUILD-DIR CC CXX: a build at another place and another time, without
# the compiler's cache, gives the bytes of this one.
source "$(dirname "$0")/common.sh"
source_dir=$1 build_dir=$2 cc=$3 cxx=$4
build_type=$(sed -n 's/^CMAKE_BUILD_TYPE:STRING=//p' "$build_dir/CMakeCache.txt")
# With it come precompiled headers or none, and with those another order of the functions.
launcher=$(sed -n 's/^CMAKE_CXX_COMPILER_LAUNCHER:[A-Z]*=//p' "$build_dir/CMakeCache.txt")
export CCACHE_DISABLE=1

# configure PLACE DATE: with the date as the time of the build.
configure() {
  SOURCE_DATE_EPOCH=$(date -u -d "$2" +%s) cmake -S "$source_dir" -B "$scratch/$1" \
    -DMOXSP_WIDER=OFF -DCMAKE_BUILD_TYPE="$build_type" -DCMAKE_C_COMPILER="$cc" -DCMAKE_CXX_COMPILER="$cxx" \
    -DCMAKE_CXX_COMPILER_LAUNCHER="$launcher" > "$scratch/log" || fail "$(cat "$scratch/log")"
}
numbers=generated/move/version_numbers.h
configure old "14 Nov 2023"
grep -q '"Nov 14 2023"' "$scratch/old/$numbers" || fail "the build date does not follow SOURCE_DATE_EPOCH"

configure another/place "$(grep -oE '[A-Z][a-z]{2} [0-9]{2} [0-9]{4}' "$build_dir/$numbers")"
same "$build_dir is configured for another revision" "$build_dir/$numbers" "$scratch/another/place/$numbers"
cmake --build "$scratch/another/place" > "$scratch/log" 2>&1 || fail "$(tail -30 "$scratch/log")"
for library in libmoxsp.so libmoxsp.a; do
  cmp "$build_dir/$library" "$scratch/another/place/$library" || fail "$library differs"
done
