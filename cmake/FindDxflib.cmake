# SPDX-License-Identifier: GPL-2.0-or-later
# Finds the DXF parser; defines the target Dxflib::Dxflib.
find_path(Dxflib_INCLUDE_DIR dl_dxf.h PATH_SUFFIXES dxflib)
find_library(Dxflib_LIBRARY dxflib)
if(Dxflib_INCLUDE_DIR)
  file(STRINGS ${Dxflib_INCLUDE_DIR}/dl_dxf.h version_line REGEX "#define DL_VERSION +\"")
  string(REGEX REPLACE ".*\"(.*)\".*" "\\1" Dxflib_VERSION "${version_line}")
endif()
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Dxflib REQUIRED_VARS Dxflib_LIBRARY Dxflib_INCLUDE_DIR
  VERSION_VAR Dxflib_VERSION)
if(Dxflib_FOUND AND NOT TARGET Dxflib::Dxflib)
  add_library(Dxflib::Dxflib UNKNOWN IMPORTED)
  set_target_properties(Dxflib::Dxflib PROPERTIES
    IMPORTED_LOCATION ${Dxflib_LIBRARY} INTERFACE_INCLUDE_DIRECTORIES ${Dxflib_INCLUDE_DIR})
endif()
mark_as_advanced(Dxflib_INCLUDE_DIR Dxflib_LIBRARY)
