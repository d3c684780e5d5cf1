# What every target of this project is compiled with. Users of the library inherit none of it.
add_library(moxsp_warnings INTERFACE)
target_compile_options(moxsp_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow
  $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-psabi>)
if(PROJECT_IS_TOP_LEVEL)
  target_compile_options(moxsp_warnings INTERFACE -Werror)
endif()
