# SPDX-License-Identifier: GPL-2.0-or-later
# Installs the library, its public headers and its CMake package.
include(CMakePackageConfigHelpers)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/kelo_base)
install(TARGETS kelo_base EXPORT kelo_base
  FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kelo_base)
install(EXPORT kelo_base NAMESPACE kelo_base:: FILE kelo_baseTargets.cmake
  DESTINATION ${package_dir})
configure_package_config_file(cmake/kelo_baseConfig.cmake.in
  ${PROJECT_BINARY_DIR}/kelo_baseConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/kelo_baseConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/kelo_baseConfig.cmake
  ${PROJECT_BINARY_DIR}/kelo_baseConfigVersion.cmake DESTINATION ${package_dir})
