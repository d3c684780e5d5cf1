# What `cmake --install` leaves: headers, both libraries, the CMake package and the pkg-config file.
include(CMakePackageConfigHelpers)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/moxsp)

install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(TARGETS moxsp moxsp_static EXPORT moxsp-targets)
install(EXPORT moxsp-targets NAMESPACE moxsp:: DESTINATION ${package_dir})

configure_package_config_file(cmake/moxsp-config.cmake.in moxsp-config.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(moxsp-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/moxsp-config.cmake
  ${PROJECT_BINARY_DIR}/moxsp-config-version.cmake DESTINATION ${package_dir})

# Relative to the file itself, so that an installed copy can be moved.
file(RELATIVE_PATH prefix_from_pkgconfig
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(cmake/moxsp.pc.in moxsp.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/moxsp.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
