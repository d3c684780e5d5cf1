# bare_system.sh SOURCE-DIR: README's lines under "Use it", in a Debian 12 system of
# its own that has the packages of the first line and nothing else.
source "$(dirname "$0")/common.sh"
source_dir=$1
skip() { echo "skipped: $*"; exit; }
[[ $(id -u) == 0 ]] || skip "a system of its own needs root"
command -v mmdebstrap > /dev/null || skip "needs the package mmdebstrap"

sed -n '/^## Use it/,/^## /s/^    //p' "$source_dir/README.md" > "$scratch/lines"
read -r apt_get install packages < "$scratch/lines"
[[ "$apt_get $install" == "apt-get install" ]] || fail "README begins with another line"

root=$scratch/root
if ! mmdebstrap --quiet --variant=apt --include="${packages// /,}" bookworm "$root" > "$scratch/log" 2>&1; then
  ! grep "Unable to locate package" "$scratch/log" || fail "README names a package that is not there"
  skip "no system could be made: $(grep '^E:' "$scratch/log" | head -1)"
fi
mkdir "$root/moxsp"
tar -C "$source_dir" --exclude='./build*' --exclude=./out --exclude='./.git' -c . | tar -C "$root/moxsp" -x
sed -n '/^```c$/,/^```$/p' "$source_dir/README.md" | sed '1d;$d' > "$root/moxsp/program.c"
# The wider builds take long, and other tests install them.
sed '1d; s/-B build/& -DMOXSP_WIDER=OFF/' "$scratch/lines" > "$root/moxsp/lines.sh"

# inside COMMAND…: runs in the new system, in the source directory.
inside() { env -i PATH=/usr/sbin:/usr/bin HOME=/root chroot "$root" /bin/sh -ec 'cd /moxsp && "$@"' sh "$@"; }
inside sh -e lines.sh > "$scratch/log" 2>&1 || fail "$(tail -20 "$scratch/log")"
[[ $(tail -1 "$scratch/log") == "0 1 2 1 2 " ]] || fail "the program printed: $(tail -1 "$scratch/log")"

inside cmake --build build --target uninstall > "$scratch/log" 2>&1 || fail "$(cat "$scratch/log")"
left=$(find "$root/usr/local" -name '*moxsp*')
[[ -z $left ]] || fail "uninstall leaves $left"
