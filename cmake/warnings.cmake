# What every target of this project is compiled with. Users of the library inherit none of it; that
# warnings are errors is asked for by `./run`, so that another compiler's new warning stops no one.
add_library(moxsp_warnings INTERFACE)
target_compile_options(moxsp_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow
  $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-psabi>)
