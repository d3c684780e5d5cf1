# Checks on the four programs of the consumer project. Sourced.
expected="0 11 22 33 moxSP AVX (v7)"

# check_program FILE: runs it.
check_program() {
  local answer
  answer=$("$1") || fail "$1 does not run"
  [[ $answer == "$expected" ]] || fail "$1 printed: $answer"
}

# check_programs DIRECTORY: moxsp_c, moxsp_cpp, moxsp_static_c, moxsp_static_cpp.
check_programs() {
  for program in moxsp_c moxsp_cpp moxsp_static_c moxsp_static_cpp; do
    check_program "$1/$program"
  done
  no_cxx_runtime "$1/moxsp_c"
  no_cxx_runtime "$1/moxsp_static_c"
  readelf -d "$1/moxsp_c" | grep 'NEEDED.*libmoxsp\.so\.1' > /dev/null || fail "moxsp_c is not shared"
  if readelf -d "$1/moxsp_static_c" | grep 'NEEDED.*libmoxsp'; then
    fail "moxsp_static_c is not static"
  fi
}
