# SPDX-License-Identifier: GPL-2.0-or-later
# Finds the library that writes workbooks; defines the target Xlsxwriter::Xlsxwriter.
find_path(Xlsxwriter_INCLUDE_DIR xlsxwriter.h)
find_library(Xlsxwriter_LIBRARY xlsxwriter)
if(Xlsxwriter_INCLUDE_DIR)
  file(STRINGS ${Xlsxwriter_INCLUDE_DIR}/xlsxwriter.h version_line REGEX "#define LXW_VERSION +\"")
  string(REGEX REPLACE ".*\"(.*)\".*" "\\1" Xlsxwriter_VERSION "${version_line}")
endif()
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Xlsxwriter
  REQUIRED_VARS Xlsxwriter_LIBRARY Xlsxwriter_INCLUDE_DIR VERSION_VAR Xlsxwriter_VERSION)
if(Xlsxwriter_FOUND AND NOT TARGET Xlsxwriter::Xlsxwriter)
  add_library(Xlsxwriter::Xlsxwriter UNKNOWN IMPORTED)
  set_target_properties(Xlsxwriter::Xlsxwriter PROPERTIES IMPORTED_LOCATION ${Xlsxwriter_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${Xlsxwriter_INCLUDE_DIR})
endif()
mark_as_advanced(Xlsxwriter_INCLUDE_DIR Xlsxwriter_LIBRARY)
