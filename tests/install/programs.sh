# Checks on the four programs of the consumer project. Sourced.
# check_program FILE BUILD: runs it, with the library that is meant.
check_program() {
  local answer
  answer=$("$1") || fail "$1 does not run"
  [[ $answer == "0 11 22 33 moxSP $2" ]] || fail "$1 printed: $answer"
}

# check_programs DIRECTORY: moxsp_c, moxsp_cpp, moxsp_static_c, moxsp_static_cpp.
check_programs() {
  local build="AVX (v7)" program
  for program in moxsp_static_c moxsp_static_cpp; do check_program "$1/$program" "$build"; done
  # Where there are wider builds, the loader picks by the processor, or by what it is told of it.
  GLIBC_TUNABLES=glibc.cpu.hwcaps=-AVX512F,-AVX2 check_program "$1/moxsp_c" "$build"
  if [[ ${wider:-} ]] && grep -qw avx2 /proc/cpuinfo; then
    GLIBC_TUNABLES=glibc.cpu.hwcaps=-AVX512F check_program "$1/moxsp_c" "AVX2 (v8)"
    build="AVX2 (v8)"
    ! grep -qw avx512vl /proc/cpuinfo || build="AVX-512 (v9)"
  fi
  for program in moxsp_c moxsp_cpp; do check_program "$1/$program" "$build"; done
  no_cxx_runtime "$1/moxsp_c"
  no_cxx_runtime "$1/moxsp_static_c"
  readelf -d "$1/moxsp_c" | grep 'NEEDED.*libmoxsp\.so\.1' > /dev/null || fail "moxsp_c is not shared"
  if readelf -d "$1/moxsp_static_c" | grep 'NEEDED.*libmoxsp'; then
    fail "moxsp_static_c is not static"
  fi
}
