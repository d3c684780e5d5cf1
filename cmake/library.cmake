# The library, built once as position-independent objects and packed as shared and static.
string(TIMESTAMP MOXSP_BUILD_DATE "%b %d %Y" UTC)  # SOURCE_DATE_EPOCH, where it is set
execute_process(COMMAND git rev-list --count HEAD
  WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE MOXSP_REVISION
  OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
if(NOT MOXSP_REVISION)
  set(MOXSP_REVISION 0)
endif()
configure_file(cmake/version_numbers.h.in generated/move/version_numbers.h)

if(MOXSP_SANITIZE)
  # For all targets, so before the first of them: a program and a library under the sanitizers must
  # agree. A null pointer ends a program anyway, and misaligned arrays are a matter for the library
  # alone: their checks would make a quarter of the time that compilers take for programs.
  # The instrumentation makes GCC see uninitialised reads where there are none.
  add_compile_options(-O1 -fno-omit-frame-pointer -fsanitize=address,undefined
    -fno-sanitize=null,alignment,vptr -fno-sanitize-recover=undefined -Wno-uninitialized
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  add_link_options(-fsanitize=address,undefined)
endif()

file(GLOB_RECURSE sources CONFIGURE_DEPENDS src/*.cpp)
add_library(moxsp_objects OBJECT ${sources})
target_include_directories(moxsp_objects
  PUBLIC include PRIVATE src ${PROJECT_BINARY_DIR}/generated)
set_target_properties(moxsp_objects PROPERTIES
  POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
# Results are defined to the bit: no fused operations, no reordering of floating-point arithmetic.
# Vectors are written by hand, so the compiler's own vectoriser would only bloat peels and tails.
target_compile_options(moxsp_objects PRIVATE
  $<$<CONFIG:>:-O3> -mavx -ffp-contract=off -fno-tree-vectorize -fno-tree-slp-vectorize
  -fno-exceptions -fno-rtti -fno-threadsafe-statics -ffunction-sections
  -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. $<$<BOOL:${MOXSP_SANITIZE}>:-fsanitize=alignment>)
# These run before it is known that the processor has AVX.
set_source_files_properties(src/support/attach.cpp src/support/processor.cpp
  PROPERTIES COMPILE_OPTIONS -mno-avx)
# The compiler must not move arithmetic out of a scope that changes the rounding mode.
foreach(source ${sources})
  file(STRINGS ${source} uses_rounding_control REGEX "#include \"frame/rounding_control\\.h\"")
  if(uses_rounding_control)
    set_source_files_properties(${source} PROPERTIES COMPILE_OPTIONS -frounding-math)
  endif()
endforeach()
target_link_libraries(moxsp_objects PRIVATE $<BUILD_INTERFACE:moxsp_warnings>)

add_library(moxsp SHARED $<TARGET_OBJECTS:moxsp_objects>)
add_library(moxsp_static STATIC $<TARGET_OBJECTS:moxsp_objects>)
add_library(moxsp::moxsp ALIAS moxsp)
add_library(moxsp::moxsp_static ALIAS moxsp_static)
set_target_properties(moxsp PROPERTIES
  VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
  LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}
  LINK_DEPENDS "${PROJECT_SOURCE_DIR}/src/frame/entry_table.ld;${PROJECT_SOURCE_DIR}/src/frame/exports.map")
set_target_properties(moxsp_static PROPERTIES
  OUTPUT_NAME moxsp EXPORT_NAME moxsp_static ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
target_link_options(moxsp PRIVATE
  -Wl,-T,${PROJECT_SOURCE_DIR}/src/frame/entry_table.ld
  -Wl,--version-script,${PROJECT_SOURCE_DIR}/src/frame/exports.map
  -Wl,--as-needed -Wl,-z,relro,-z,now)
if(NOT MOXSP_SANITIZE)  # whose functions stand in the program
  target_link_options(moxsp PRIVATE -Wl,--no-undefined)
endif()
foreach(library moxsp moxsp_static)
  target_include_directories(${library} INTERFACE
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
endforeach()
target_link_libraries(moxsp_static INTERFACE m)
target_link_libraries(moxsp PRIVATE m)
