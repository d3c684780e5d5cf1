# families.sh SOURCE: every group of functions tells its statuses and stands once on the families page, under its
# header; the table of conversions there is that of the header, and `families.sh SOURCE --table` prints it. The names
# page tells whose destination stands behind a length.
source "$(dirname "$0")/../install/common.sh"
source_dir=$1
page=$source_dir/docs/families.md

table() {
  sed -n 's/^MOX_API MoxStatus moxsConvert_\([0-9]*[a-z]*\)\([0-9]*[a-z]*\)\(_Sfs\)\?(.*/\1 \2 \3/p' \
    "$source_dir/include/moxsp/convert.h" | awk '
    { way[$1, $2] = way[$1, $2] (way[$1, $2] == "" ? "" : ", ") ($3 == "" ? "value" : "`Sfs`") }
    END {
      n = split("8u 8s 16u 16s 24u 24s 32u 32s 64s 16f 32f 64f", types, " ")
      head = "| from \\ to |"; rule = "|---|"
      for (j = 1; j <= n; ++j) { head = head " `" types[j] "` |"; rule = rule "---|" }
      print head; print rule
      for (i = 1; i <= n; ++i) {
        row = "| `" types[i] "` |"
        for (j = 1; j <= n; ++j) { row = row " " way[types[i], types[j]] " |"; delete way[types[i], types[j]] }
        gsub(/  /, " ", row)
        print row
      }
      for (other in way) if (way[other] != "") print "a type without a row: " other
    }'
}

if [[ ${2:-} == --table ]]; then
  table
  exit
fi

table > "$scratch/expected"
sed -n '/^| from/,/^$/{/^$/d;p}' "$page" > "$scratch/found"
same "the table of conversions" "$scratch/expected" "$scratch/found"

# The links of the first table: of its headers, and of the groups.
sed -n '/^| Header/,/^$/p' "$page" > "$scratch/rows"
grep -o 'moxsp/[a-z_]*\.h[#)][a-z0-9_]*' "$scratch/rows" | sort | uniq -d > "$scratch/twice"
[[ ! -s $scratch/twice ]] || fail "families.md names twice: $(xargs < "$scratch/twice")"
awk -F'[][]' '/^\| \[/ { header = $2 } {
  for (rest = $0; match(rest, /[a-z_]*\.h#[a-z0-9_]*/); rest = substr(rest, RSTART + RLENGTH)) {
    link = substr(rest, RSTART, RLENGTH)
    if (index(link, header "#") != 1) print link, "under", header } }' "$scratch/rows" > "$scratch/elsewhere"
[[ ! -s $scratch/elsewhere ]] || fail "families.md has $(cat "$scratch/elsewhere")"

for header in "$source_dir"/include/moxsp/*.h; do
  # Group by group: its name, and whether its block has told statuses when a function that has one comes.
  awk '
    /@defgroup/ { group = $3; told = 0 }
    /@return/ { told = 1 }
    /^MOX_API/ { print group, told || !/^MOX_API MoxStatus/ ? "told" : "untold" }' "$header" |
    sort -u | while read -r group statuses; do
    grep -q "$(basename "$header")#$group)" "$scratch/rows" ||
      fail "families.md names no group $group of $(basename "$header")"
    [[ $statuses == told ]] || fail "group $group of $(basename "$header") tells no statuses"
  done
done

sed -n '/^## Arguments/,/^## Objects/p' "$source_dir/docs/names.md" > "$scratch/orders"
cat "$source_dir"/include/moxsp/*.h | tr '\n' ' ' | grep -oE 'MOX_API MoxStatus moxs[^;]*' |
  sed -nE 's/.* moxs([A-Za-z]+[a-z])(Q15)?_.*int (len|srcLen|len2),.*\* (dst|srcDst|dstLow),?.*/\1/p' | sort -u |
  while read -r family; do
    grep -qw "$family" "$scratch/orders" || fail "names.md does not tell where the destination of $family stands"
  done
