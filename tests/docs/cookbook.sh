# cookbook.sh SOURCE LIBRARY C_COMPILER [FLAG...]: the programs of the cookbook compile as C11, and the
# commands on their pages print what the pages say. The flags are those of the other libraries.
source "$(dirname "$0")/../install/common.sh"
source_dir=$1 library=$2 compiler=$3
shift 3

for program in "$source_dir"/docs/cookbook/*.c; do
  name=$(basename "$program" .c)
  [[ -f ${program%.c}.md ]] || fail "$name.c has no page"
  "$compiler" -std=c11 -Wall -Wextra -Wpedantic -Werror -I"$source_dir/include" "$program" "$library" "$@" -lm \
    -Wl,-rpath,"$(dirname "$library")" -o "$scratch/$name" || fail "$name.c does not compile"
done

# A page's console block: lines that begin with "$ " are commands, the others their output.
cd "$scratch"
for page in "$source_dir"/docs/cookbook/*.md; do
  [[ $page == */README.md ]] && continue
  sed -n '/^```console$/,/^```$/{/^```/d;p}' "$page" > block
  grep -q '^\$ ' block || fail "$(basename "$page") shows no command"
  grep -v '^\$ ' block > expected || true
  sed -n 's/^\$ //p' block > commands
  # No pipefail: `head` may end before what it reads from.
  bash -eu commands > printed || fail "a command of $(basename "$page") fails"
  sed 's/ *$//' printed > found
  same "what $(basename "$page") shows" expected found
done
