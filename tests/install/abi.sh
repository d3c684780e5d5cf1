# abi.sh LIBRARY SOURCE-DIR BUILD-DIR CC: the shared library's binary interface.
source "$(dirname "$0")/common.sh"
library=$1 source_dir=$2 build_dir=$3 cc=$4
here=$source_dir/tests/install include=$source_dir/include

# The headers declare the functions of the checked-in list with its prototypes. Whoever changes
# one runs `./run exports`.
bash "$source_dir/cmake/from_headers.sh" exports "$include" "$cc" > "$scratch/prototypes"
same "exports.txt and the headers" "$here/exports.txt" "$scratch/prototypes"
sed -E 's/\(.*//; s/.* //' "$here/exports.txt" > "$scratch/declared"
count=$(wc -l < "$scratch/declared")
[[ $count -gt 0 ]] || fail "exports.txt is empty"

# Exported are the declared functions, all under one version node, and nothing else.
sed 's/$/@@MOXSP_1 T/; $a MOXSP_1@@MOXSP_1 A' "$scratch/declared" | sort > "$scratch/expected"
nm -D --defined-only --with-symbol-versions "$library" | awk '{print $3, $2}' |
  sed 's/^MOXSP_1 A/MOXSP_1@@MOXSP_1 A/' | sort > "$scratch/exported"
same "exported symbols" "$scratch/expected" "$scratch/exported"

# Imported are functions of the C library alone.
nm -D --undefined-only --with-symbol-versions "$library" | awk '$1 == "U" && !/@GLIBC_/ {print $2}' \
  > "$scratch/foreign"
[[ ! -s $scratch/foreign ]] || fail "imports $(tr '\n' ' ' < "$scratch/foreign")"

readelf -dW "$library" > "$scratch/dynamic"
grep -q 'SONAME.*\[libmoxsp\.so\.1\]' "$scratch/dynamic" || fail "the SONAME is not libmoxsp.so.1"
if grep NEEDED "$scratch/dynamic" | grep -vE '\[lib[cm]\.so\.6\]'; then
  fail "needs more than libc and libm"
fi
if grep -E 'TEXTREL|RPATH|RUNPATH' "$scratch/dynamic"; then
  fail "has text relocations or a run path"
fi

# The entry-point table: one slot an export, in alphabetical order, read-only after relocation.
size=$(readelf -SW "$library" | sed -nE 's/.* \.moxsp_entries +[A-Z]+ +[0-9a-f]+ [0-9a-f]+ ([0-9a-f]+) .*/\1/p')
[[ -n $size ]] || fail "there is no entry-point table"
[[ $((16#$size)) -eq $((8 * count)) ]] || fail "the table has $((16#$size)) bytes for $count exports"
nm -n "$library" | sed -nE 's/.* moxSlot_(.*)/\1/p' > "$scratch/slots"
same "order of the slots" "$scratch/declared" "$scratch/slots"
readelf -lW "$library" | awk '
  /^  [A-Z_]+ / {kind[segments++] = $1}
  /^ +[0-9]+ .*\.moxsp_entries/ {if (kind[$1 + 0] == "GNU_RELRO") found = 1}
  END {exit !found}' || fail "the entry-point table stays writable"

# Nothing in the file tells where and on what machine it was built.
strings -a "$library" > "$scratch/strings"
for word in "$source_dir" "$build_dir" "$(uname -n)"; do
  [[ ${#word} -lt 4 ]] || ! grep -wF -- "$word" "$scratch/strings" || fail "the library holds '$word'"
done
