# The library, built once as position-independent objects and packed as shared and static.
string(TIMESTAMP MOXSP_BUILD_DATE "%b %d %Y" UTC)  # SOURCE_DATE_EPOCH, where it is set
execute_process(COMMAND git rev-list --count HEAD
  WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE MOXSP_REVISION
  OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
if(NOT MOXSP_REVISION)
  set(MOXSP_REVISION 0)
endif()
configure_file(cmake/version_numbers.h.in generated/move/version_numbers.h)
set_source_files_properties(src/move/version.cpp
  PROPERTIES INCLUDE_DIRECTORIES ${PROJECT_BINARY_DIR}/generated)

if(MOXSP_SANITIZE)
  # For all targets, so before the first of them: a program and a library under the sanitizers must
  # agree. A null pointer ends a program anyway, and misaligned arrays are a matter for the library
  # alone: their checks would make a quarter of the time that compilers take for programs. A check
  # of every sum of a pointer and an index takes the transforms from 20 seconds to 10 minutes a file,
  # while the address sanitizer sees what such a pointer reaches.
  # The instrumentation makes GCC see uninitialised reads where there are none.
  add_compile_options(-O1 -fno-omit-frame-pointer -fsanitize=address,undefined
    -fno-sanitize=null,alignment,vptr,pointer-overflow
    -fno-sanitize-recover=undefined -Wno-uninitialized
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  add_link_options(-fsanitize=address,undefined)
endif()

# One text, built for the registers of each instruction set, and a folder in which the dynamic loader
# looks on processors that have it.
set(flags_avx -mavx)
set(flags_avx2 -mavx2)
set(flags_avx512 -mavx512f -mavx512bw -mavx512dq -mavx512vl)
set(folder_avx2 glibc-hwcaps/x86-64-v3)
set(folder_avx512 glibc-hwcaps/x86-64-v4)
if(NOT DEFINED flags_${MOXSP_ISA})
  message(FATAL_ERROR "MOXSP_ISA is avx, avx2 or avx512, not ${MOXSP_ISA}")
endif()

file(GLOB_RECURSE sources CONFIGURE_DEPENDS src/*.cpp)
# These run before it is known which instructions the processor has.
set_source_files_properties(src/support/attach.cpp src/support/processor.cpp
  PROPERTIES COMPILE_OPTIONS -mno-avx SKIP_PRECOMPILE_HEADERS ON)
# The compiler must not move arithmetic out of a scope that changes the rounding mode.
foreach(source ${sources})
  file(STRINGS ${source} uses_rounding_control REGEX "#include \"frame/rounding_control\\.h\"")
  if(uses_rounding_control)
    set_source_files_properties(${source} PROPERTIES COMPILE_OPTIONS -frounding-math)
  endif()
endforeach()

# Objects for one instruction set.
function(moxsp_objects target isa)
  add_library(${target} OBJECT ${sources})
  target_include_directories(${target}
    PUBLIC include PRIVATE src)
  set_target_properties(${target} PROPERTIES
    POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  # Results are defined to the bit: no fused operations, no reordering of floating-point arithmetic.
  # Vectors are written by hand, so the compiler's own vectoriser would only bloat what is scalar; it
  # would fuse operations, too, where the instructions are there.
  target_compile_options(${target} PRIVATE
    $<$<CONFIG:>:-O3> ${flags_${isa}} -ffp-contract=off -fno-tree-vectorize -fno-tree-slp-vectorize
    -fno-exceptions -fno-rtti -fno-threadsafe-statics -ffunction-sections
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. $<$<BOOL:${MOXSP_SANITIZE}>:-fsanitize=alignment>)
  if(isa STREQUAL avx512 AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Which it sees in its own intrinsics.
    target_compile_options(${target} PRIVATE -Wno-uninitialized -Wno-maybe-uninitialized)
  endif()
  # Reading these headers takes half a second for each object. ccache refuses objects that have a
  # precompiled header, so builds with a launcher have none.
  if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
    target_precompile_headers(${target} PRIVATE
      <immintrin.h> <algorithm> <bit> <cmath> <cstring> <limits> <utility>)
  endif()
  string(TOUPPER ${isa} name)
  target_compile_definitions(${target} PRIVATE MOXSP_${name})
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:moxsp_warnings>)
endfunction()

# A shared library of such objects, under the one name.
function(moxsp_shared target objects folder)
  add_library(${target} SHARED $<TARGET_OBJECTS:${objects}>)
  set_target_properties(${target} PROPERTIES
    OUTPUT_NAME moxsp VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${folder}
    LINK_DEPENDS "${PROJECT_SOURCE_DIR}/src/frame/entry_table.ld;${PROJECT_SOURCE_DIR}/src/frame/exports.map")
  target_link_options(${target} PRIVATE
    -Wl,-T,${PROJECT_SOURCE_DIR}/src/frame/entry_table.ld
    -Wl,--version-script,${PROJECT_SOURCE_DIR}/src/frame/exports.map
    -Wl,--as-needed -Wl,-z,relro,-z,now)
  if(NOT MOXSP_SANITIZE)  # whose functions stand in the program
    target_link_options(${target} PRIVATE -Wl,--no-undefined)
  endif()
  target_link_libraries(${target} PRIVATE m)
endfunction()

moxsp_objects(moxsp_objects ${MOXSP_ISA})
moxsp_shared(moxsp moxsp_objects .)
add_library(moxsp_static STATIC $<TARGET_OBJECTS:moxsp_objects>)
set_target_properties(moxsp_static PROPERTIES
  OUTPUT_NAME moxsp EXPORT_NAME moxsp_static ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
target_link_libraries(moxsp_static INTERFACE m)
foreach(library moxsp moxsp_static)
  add_library(moxsp::${library} ALIAS ${library})
  target_include_directories(${library} INTERFACE
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
endforeach()

# The loader takes a wider library that it finds beside the plain one, so all are made together.
set(wider_builds)
if(MOXSP_WIDER)
  set(wider_builds avx2 avx512)
endif()
foreach(isa ${wider_builds})
  moxsp_objects(moxsp_objects_${isa} ${isa})
  moxsp_shared(moxsp_${isa} moxsp_objects_${isa} ${folder_${isa}})
  add_dependencies(moxsp moxsp_${isa})
endforeach()
