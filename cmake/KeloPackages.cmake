# SPDX-License-Identifier: GPL-2.0-or-later
# What "cpack -G DEB" packs: a package a component.
set(KELO_BASE_CONTACT "kelo_base maintainers <maintainers@kelo-base.invalid>" CACHE STRING
  "Who answers for the packages; whoever publishes them names an address that is read")
set(library_package libkelo-base${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(development_package libkelo-base-dev)
set(tools_package kelo-base-tools)

find_program(KELO_GZIP gzip REQUIRED)
set(changelog ${PROJECT_BINARY_DIR}/changelog)
add_custom_command(OUTPUT ${changelog}.gz
  DEPENDS ${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_SOURCE_DIR}/packaging/changelog.py
  COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/packaging/changelog.py
    ${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_VERSION} ${KELO_BASE_CONTACT} ${changelog}
  COMMAND ${KELO_GZIP} -9nf ${changelog} VERBATIM)
add_custom_target(changelog ALL DEPENDS ${changelog}.gz)
foreach(component IN ITEMS library development tools)
  install(FILES ${changelog}.gz packaging/copyright
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${${component}_package} COMPONENT ${component})
endforeach()
install(FILES ${kelo_tools_documents}
  DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${tools_package} COMPONENT tools)

set(CPACK_PACKAGE_NAME kelo-base)
set(CPACK_PACKAGE_CONTACT "${KELO_BASE_CONTACT}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each component has its own
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_COMPONENTS_ALL library development tools)
set(CPACK_COMPONENTS_GROUPING IGNORE)  # a package each
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SOURCE kelo-base)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})  # the library itself
set(same_version "(= ${PROJECT_VERSION})")

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
# A plug-in, which no program links: the application's database.
set(CPACK_DEBIAN_LIBRARY_PACKAGE_DEPENDS "libqt6sql6-sqlite (>= 6.4)")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_RECOMMENDS qt6-translations-l10n)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SUGGESTS "libqt6sql6-psql, libreoffice-calc")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/triggers)
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION
  "base library for viewers of map sheets and technical plans
Registry of user actions, pie menus, view geometry, tables, the channel to a
partner program, and reading DXF plans, finding their sheets and writing them
as GK2 files.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME ${development_package})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "${library_package} ${same_version}, qt6-base-dev (>= 6.4)")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "base library for viewers of map sheets and technical plans - development files
Headers, and the files by which CMake and pkg-config find the library, for
programs that link it.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME ${tools_package})
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${library_package} ${same_version}")
set(CPACK_DEBIAN_TOOLS_PACKAGE_SUGGESTS libreoffice-calc)
set(CPACK_COMPONENT_TOOLS_DESCRIPTION
  "viewer, workbench and converter for the map sheets of DXF plans
The command dxf2gk2 finds the sheets that are drawn as block inserts in a DXF
plan, and writes their corners to a GK2 file; dxf-workbench does the same in a
window, and kelo-viewer shows plans with their sheets. A sample plan and a
simulated partner program come along.")
include(CPack)
