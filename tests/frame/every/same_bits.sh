#!/usr/bin/env bash
# same_bits.sh ISA PLAIN WIDER: all functions touch no more memory than they may in a build for wider
# registers, and give the same bits as in the plain one.
set -euo pipefail
case $1 in
  avx2) needs=avx2 ;;
  avx512) needs=avx512vl ;;
esac
grep -qw "$needs" /proc/cpuinfo || { echo "this processor has no $needs"; exit; }

"$3" --gtest_brief=1 --gtest_filter='*EveryLengthAndAlignment:*RunsOntoItsSource'

results=$(mktemp -d)
trap 'rm -r "$results"' EXIT
"$2" --digests "$results/plain"
"$3" --digests "$results/wider"
[ "$(wc -l <"$results/plain")" -gt 2000 ]
diff "$results/plain" "$results/wider"
