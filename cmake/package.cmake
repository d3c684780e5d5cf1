# The pair of Debian packages that `./run package` makes with CPack: libmoxsp1 has the shared
# library, libmoxsp-dev all that a program is built with.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME moxsp)
set(CPACK_PACKAGE_CONTACT "moxSP developers <moxsp@packages.debian.org>" CACHE STRING
  "Maintainer of the packages")
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
  GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(runtime_package libmoxsp${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime_package})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# The C library that it was built with, or a later one. CPack's own search for it would bring
# maintainer scripts that call ldconfig once more.
execute_process(COMMAND dpkg-query -W -f=\${Version} libc6-dev
  OUTPUT_VARIABLE libc_version COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "-.*" "" libc_version ${libc_version})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS "libc6 (>= ${libc_version})")
# Its control files: which package a program linked with it depends on, and that ldconfig shall run.
file(WRITE ${PROJECT_BINARY_DIR}/debian/shlibs
  "libmoxsp ${PROJECT_VERSION_MAJOR} ${runtime_package}\n")
file(WRITE ${PROJECT_BINARY_DIR}/debian/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
  ${PROJECT_BINARY_DIR}/debian/shlibs ${PROJECT_BINARY_DIR}/debian/triggers)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libmoxsp-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "${runtime_package} (= ${PROJECT_VERSION}), libc6-dev")

set(about "Functions in C on plain arrays, from vector addition to FFT and FIR
filters, for x86-64 processors with AVX.")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "${about}
.
This package has the shared library.")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "${about}
.
This package has the headers, the static library, and the files for CMake and
pkg-config.")

# The papers of a Debian package. They belong to no other installation.
string(TIMESTAMP package_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(cmake/debian_changelog.in debian/changelog @ONLY)
find_program(MOXSP_GZIP gzip REQUIRED)
add_custom_command(OUTPUT debian/changelog.gz
  COMMAND ${MOXSP_GZIP} -9nkf ${PROJECT_BINARY_DIR}/debian/changelog
  DEPENDS ${PROJECT_BINARY_DIR}/debian/changelog VERBATIM)
add_custom_target(moxsp_debian_papers ALL DEPENDS debian/changelog.gz)
foreach(component runtime development)
  string(TOUPPER ${component} name)
  set(papers ${CMAKE_INSTALL_DATADIR}/doc/${CPACK_DEBIAN_${name}_PACKAGE_NAME})
  install(FILES LICENSE DESTINATION ${papers} RENAME copyright COMPONENT ${component} EXCLUDE_FROM_ALL)
  install(FILES ${PROJECT_BINARY_DIR}/debian/changelog.gz DESTINATION ${papers}
    COMPONENT ${component} EXCLUDE_FROM_ALL)
endforeach()
include(CPack)
