# debian_packages.sh SOURCE-DIR: lintian accepts the packages (`./run package`); dpkg installs them
# into a root of its own, without the wider builds, which take long; a program is built with them and runs, and dpkg leaves nothing behind.
source "$(dirname "$0")/common.sh"
source_dir=$1
"$source_dir/run" package -DMOXSP_WIDER=OFF > "$scratch/log" 2>&1 || fail "$(tail -30 "$scratch/log")"

root=$scratch/root
mkdir -p "$root/var/lib/dpkg"
touch "$root/var/lib/dpkg/status"
# The root has no other packages: what these depend on is the machine's own.
packages() { dpkg --root="$root" --force-not-root --force-depends --log=/dev/null "$@" > "$scratch/log" 2>&1; }
packages -i "$source_dir"/build/package/*.deb || fail "$(cat "$scratch/log")"

lib_dir=$(dirname "$(find "$root/usr" -name libmoxsp.so)")
cd "$scratch"
program=$source_dir/tests/install/consumer/program.c
source "$source_dir/tests/install/programs.sh"
cc -I"$root/usr/include" "$program" -L"$lib_dir" -lmoxsp -o shared
cc -I"$root/usr/include" "$program" "$lib_dir/libmoxsp.a" -lm -o static
plain="AVX (v7)"
LD_LIBRARY_PATH=$lib_dir check_program ./shared "$plain"
check_program ./static "$plain"

packages -r libmoxsp-dev libmoxsp1 || fail "$(cat "$scratch/log")"
left=$(find "$root" -name '*moxsp*' -not -path '*/var/*')
[[ -z $left ]] || fail "left behind: $left"
