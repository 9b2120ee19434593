# SPDX-License-Identifier: GPL-2.0-or-later
# Asks pkg-config for the folders in a tree that was moved after it was installed.
include(${CMAKE_CURRENT_LIST_DIR}/../../cmake/KeloPkgConfig.cmake)
find_program(pkg_config NAMES pkgconf pkg-config REQUIRED)
set(first ${work_dir}/first)
set(moved ${work_dir}/some/where/else)
set(CMAKE_INSTALL_PREFIX ${first}/usr)

# Checks one way of saying where library and headers go; "expected" is where they are afterwards.
function(check libdir includedir expected_libdir expected_includedir)
  file(REMOVE_RECURSE ${work_dir})
  set(CMAKE_INSTALL_LIBDIR ${libdir})
  set(CMAKE_INSTALL_INCLUDEDIR ${includedir})
  kelo_pkg_config_file(${first}/${expected_libdir}/pkgconfig/kelo_base.pc)
  file(MAKE_DIRECTORY ${work_dir}/some/where)
  file(RENAME ${first} ${moved})
  set(ENV{PKG_CONFIG_PATH} ${moved}/${expected_libdir}/pkgconfig)
  foreach(name IN ITEMS libdir includedir)
    execute_process(COMMAND ${pkg_config} --variable=${name} kelo_base OUTPUT_VARIABLE dir
      OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    cmake_path(SET dir NORMALIZE ${dir}/.)
    string(REGEX REPLACE "/$" "" dir ${dir})
    if(NOT dir STREQUAL "${moved}/${expected_${name}}")
      message(SEND_ERROR "${libdir}, ${includedir}: ${name} is ${dir}")
    endif()
  endforeach()
endfunction()

check(lib include usr/lib usr/include)
check(lib/some-machine include/deep usr/lib/some-machine usr/include/deep)
check(${first}/usr/lib include usr/lib usr/include)
check(${first}/opt/lib64 ${first}/usr/include opt/lib64 usr/include)
