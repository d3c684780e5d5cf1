# installed.sh find_package|pkg_config SOURCE-DIR BUILD-DIR CC CXX: users of an installed copy.
source "$(dirname "$0")/common.sh"
source "$(dirname "$0")/programs.sh"
way=$1 source_dir=$2 build_dir=$3 cc=$4 cxx=$5
consumer=$source_dir/tests/install/consumer

# The copy is moved after the installation: nothing in it may hold its place.
cmake --install "$build_dir" --prefix "$scratch/first" > /dev/null
prefix=$scratch/moved
mv "$scratch/first" "$prefix"
wider=$(find "$prefix" -path "*glibc-hwcaps*" -name "libmoxsp.so.1")

case $way in
  find_package)
    cmake -S "$consumer" -B "$scratch/build" -DCMAKE_PREFIX_PATH="$prefix" \
      -DCMAKE_C_COMPILER="$cc" -DCMAKE_CXX_COMPILER="$cxx" > "$scratch/log" 2>&1 &&
      cmake --build "$scratch/build" >> "$scratch/log" 2>&1 || fail "$(cat "$scratch/log")"
    grep -q 'Linking C executable moxsp_static_c' "$scratch/log" || fail "a C program is linked as C++"
    check_programs "$scratch/build"
    ;;
  pkg_config)
    PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name moxsp.pc)")
    export PKG_CONFIG_PATH PKG_CONFIG_ALLOW_SYSTEM_CFLAGS=1
    lib_dir=$(pkg-config --variable=libdir moxsp)
    export LD_LIBRARY_PATH=$lib_dir
    mkdir "$scratch/build"
    cd "$scratch/build"
    shared=$(pkg-config --cflags --libs moxsp)
    static=$(pkg-config --cflags --libs --static moxsp)
    # shellcheck disable=SC2086 # the flags are words
    {
      "$cc" "$consumer/program.c" $shared -o moxsp_c
      "$cxx" "$consumer/program.cpp" $shared -o moxsp_cpp
      "$cc" -static "$consumer/program.c" $static -o moxsp_static_c
      "$cxx" -static "$consumer/program.cpp" $static -o moxsp_static_cpp
    }
    check_programs "$scratch/build"
    [[ $(pkg-config --modversion moxsp) == 1.* ]] || fail "pkg-config tells another version"
    ;;
  *) fail "unknown way: $way" ;;
esac
