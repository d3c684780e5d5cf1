# What `cmake --install` leaves: headers, both libraries, the CMake package and the pkg-config file.
# Two components, for a system's two packages: what programs run with, and what they are built with.
include(CMakePackageConfigHelpers)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/moxsp)

install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
install(TARGETS moxsp moxsp_static EXPORT moxsp-targets
  LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
  ARCHIVE COMPONENT development)
foreach(isa ${wider_builds})
  install(TARGETS moxsp_${isa} LIBRARY
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/${folder_${isa}} COMPONENT runtime NAMELINK_SKIP)
endforeach()
install(EXPORT moxsp-targets NAMESPACE moxsp:: DESTINATION ${package_dir} COMPONENT development)

configure_package_config_file(cmake/moxsp-config.cmake.in moxsp-config.cmake
  INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(moxsp-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/moxsp-config.cmake
  ${PROJECT_BINARY_DIR}/moxsp-config-version.cmake DESTINATION ${package_dir} COMPONENT development)

# Relative to the file itself, so that an installed copy can be moved.
file(RELATIVE_PATH prefix_from_pkgconfig
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(cmake/moxsp.pc.in moxsp.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/moxsp.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT development)

add_custom_target(uninstall
  COMMAND ${CMAKE_COMMAND} -DMANIFEST=${PROJECT_BINARY_DIR}/install_manifest.txt
    -P ${PROJECT_SOURCE_DIR}/cmake/uninstall.cmake VERBATIM)
