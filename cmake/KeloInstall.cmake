# SPDX-License-Identifier: GPL-2.0-or-later
# Installs the library, its public headers, and what CMake and pkg-config have to know of it. Of the
# components "library" is for running, "development" for building; "tools" is what apps/ installs.
include(CMakePackageConfigHelpers)
include(KeloPkgConfig)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/kelo_base)
install(TARGETS kelo_base EXPORT kelo_base
  RUNTIME COMPONENT library
  LIBRARY COMPONENT library NAMELINK_COMPONENT development
  ARCHIVE COMPONENT development
  FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kelo_base COMPONENT development)
install(EXPORT kelo_base NAMESPACE kelo_base:: FILE kelo_baseTargets.cmake
  DESTINATION ${package_dir} COMPONENT development)
configure_package_config_file(cmake/kelo_baseConfig.cmake.in
  ${PROJECT_BINARY_DIR}/kelo_baseConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/kelo_baseConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/kelo_baseConfig.cmake
  ${PROJECT_BINARY_DIR}/kelo_baseConfigVersion.cmake
  DESTINATION ${package_dir} COMPONENT development)

kelo_pkg_config_file(${PROJECT_BINARY_DIR}/kelo_base.pc)
install(FILES ${PROJECT_BINARY_DIR}/kelo_base.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

install(FILES samples/village.dxf
  DESTINATION ${CMAKE_INSTALL_DATADIR}/kelo_base/samples COMPONENT tools)

# What comes along for those who use the programs; each kind of package has a place for it.
set(kelo_tools_documents docs/dxf2gk2.md docs/exchange-files.md docs/gk2-format.md docs/viewer.md)

# What scripts/docs tells of.
get_target_property(public_headers kelo_base HEADER_SET)
list(JOIN public_headers " " public_headers)
file(WRITE ${PROJECT_BINARY_DIR}/public_headers.txt "${public_headers}\n")
