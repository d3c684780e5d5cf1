# reproducible.sh SOURCE-DIR CC CXX: two builds at different places and times give the same bytes.
source "$(dirname "$0")/common.sh"
source_dir=$1 cc=$2 cxx=$3

export SOURCE_DATE_EPOCH=1700000000 CCACHE_DISABLE=1
for place in one another/place; do
  mkdir -p "$scratch/$place"
  cmake -S "$source_dir" -B "$scratch/$place" -DCMAKE_C_COMPILER="$cc" -DCMAKE_CXX_COMPILER="$cxx" \
    > "$scratch/log" && cmake --build "$scratch/$place" >> "$scratch/log" 2>&1 ||
    fail "$(tail -30 "$scratch/log")"
done
for library in libmoxsp.so libmoxsp.a; do
  cmp "$scratch/one/$library" "$scratch/another/place/$library" || fail "$library differs"
done
strings -a "$scratch/one/libmoxsp.so" | grep -x 'Nov 14 2023' > /dev/null ||
  fail "the build date does not follow SOURCE_DATE_EPOCH"
