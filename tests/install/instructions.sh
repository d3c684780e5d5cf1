# instructions.sh ISA LIBRARY: processors of the build have every instruction of the library, by the
# judgement of the assembler, and no operation is fused.
source "$(dirname "$0")/common.sh"
case $1 in
  avx) has=avx ;;
  avx2) has=avx2 ;;
  avx512) has=avx512f+avx512bw+avx512dq+avx512vl ;;
esac

# Prints the instructions of an object file that must not be there. Left out are half floats in
# functions that ask the processor first, `tzcnt` and `endbr64`, which others run as `bsf` and not
# at all, branches, whose targets the assembler would not find, and padding.
faults() {
  objdump -d --no-addresses --no-show-raw-insn "$1" | awk -F '\t' '
    /^</ { asks = /convert.*(6decode|14encodeRounding)/ }
    asks && $2 ~ /^vcvt(ph2ps|ps2ph)/ { next }
    NF > 1 && $2 !~ /^(tzcnt|endbr64|j|call|bnd|notrack|nop|cs nop|data16|xchg  *%ax)/ {
      sub(/ *[#<].*/, "", $2)
      print $2
    }' | sort -u > "$scratch/instructions"
  grep -E '^vfn?m(add|sub)' "$scratch/instructions" || true
  as -march="generic64+sse4.2+$has" "$scratch/instructions" -o /dev/null 2>&1 | grep Error || true
}

for planted in 'vfmadd231ps %xmm0, %xmm1, %xmm2' 'vpermb %zmm0, %zmm1, %zmm2'; do
  as -o "$scratch/planted.o" <<< "$planted"
  [[ -n $(faults "$scratch/planted.o") ]] || fail "does not see $planted"
done

found=$(faults "$2")
[[ $(wc -l < "$scratch/instructions") -gt 10000 ]] || fail "$2 is no library"
[[ -z $found ]] || fail "$found"
