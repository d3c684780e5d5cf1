#!/usr/bin/env bash
# same_bits.sh ISA PLAIN-DIGESTS WIDER-TEST: all functions touch no more memory than they may in a build
# for wider registers, and give the same bits as in the plain one.
set -euo pipefail
case $1 in
  avx2) needs=avx2 ;;
  avx512) needs=avx512vl ;;
esac
grep -qw "$needs" /proc/cpuinfo || { echo "this processor has no $needs"; exit; }

"$3" --gtest_brief=1 --gtest_filter='*EveryLengthAndAlignment:*RunsOntoItsSource'

[ "$(wc -l <"$2")" -gt 2000 ]
"$3" --digests /dev/stdout | diff "$2" -
