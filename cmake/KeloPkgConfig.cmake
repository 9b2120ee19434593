# SPDX-License-Identifier: GPL-2.0-or-later
# The pkg-config file. All its folders are said from where it lies itself, in LIBDIR/pkgconfig, so
# that it stays right when the tree is moved, and whether the folders were given below the prefix or
# in full.
set(kelo_pkg_config_template ${CMAKE_CURRENT_LIST_DIR}/kelo_base.pc.in)

function(kelo_pkg_config_file result)
  set(own_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
  cmake_path(ABSOLUTE_PATH own_dir BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} NORMALIZE)
  foreach(name IN ITEMS PREFIX LIBDIR INCLUDEDIR)
    set(dir ${CMAKE_INSTALL_${name}})
    cmake_path(ABSOLUTE_PATH dir BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} NORMALIZE)
    cmake_path(RELATIVE_PATH dir BASE_DIRECTORY ${own_dir} OUTPUT_VARIABLE from_own_dir)
    string(REGEX REPLACE "/$" "" from_own_dir ${from_own_dir})
    set(PC_${name} "\${pcfiledir}/${from_own_dir}")
  endforeach()
  configure_file(${kelo_pkg_config_template} ${result} @ONLY)
endfunction()
