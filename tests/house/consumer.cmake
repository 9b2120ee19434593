# SPDX-License-Identifier: GPL-2.0-or-later
# Installs the library, moves it, and builds and runs a small project that uses it from there, by
# CMake and by pkg-config. Installed programs run there, too.
function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE ${work_dir})
run(${CMAKE_COMMAND} --install ${build_dir} --prefix ${work_dir}/first)
file(RENAME ${work_dir}/first ${work_dir}/moved)

run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/consumer -B ${work_dir}/build -G ${generator}
  -D CMAKE_CXX_COMPILER=${compiler} "-DCMAKE_CXX_FLAGS=${flags}"
  -D CMAKE_PREFIX_PATH=${work_dir}/moved -D wanted_version=${version})
run(${CMAKE_COMMAND} --build ${work_dir}/build)
run(${work_dir}/build/consumer ${CMAKE_CURRENT_LIST_DIR}/../../samples/village.dxf 21)

file(GLOB_RECURSE pc_file ${work_dir}/moved/kelo_base.pc)
cmake_path(GET pc_file PARENT_PATH pc_dir)
set(ENV{PKG_CONFIG_PATH} ${pc_dir})
execute_process(COMMAND pkgconf --cflags --libs kelo_base OUTPUT_VARIABLE told
  COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(told UNIX_COMMAND "${told}")
separate_arguments(flags UNIX_COMMAND "${flags}")
run(${compiler} ${flags} -std=c++20 -fPIC ${CMAKE_CURRENT_LIST_DIR}/consumer/main.cpp
  -o ${work_dir}/by-pkg-config ${told})
run(${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${pc_dir}/..
  ${work_dir}/by-pkg-config ${CMAKE_CURRENT_LIST_DIR}/../../samples/village.dxf 21)

file(GLOB programs ${work_dir}/moved/bin/*)
foreach(program IN LISTS programs)
  run(${program} --help OUTPUT_QUIET)
endforeach()

# Each file belongs to one of the packages.
foreach(component IN ITEMS library development tools)
  run(${CMAKE_COMMAND} --install ${build_dir} --prefix ${work_dir}/parts --component ${component}
    OUTPUT_QUIET)
endforeach()
file(GLOB_RECURSE whole RELATIVE ${work_dir}/moved ${work_dir}/moved/*)
file(GLOB_RECURSE parts RELATIVE ${work_dir}/parts ${work_dir}/parts/*)
if(NOT whole STREQUAL parts)
  list(REMOVE_ITEM whole ${parts})
  message(FATAL_ERROR "In no component: ${whole}")
endif()

file(GLOB_RECURSE library ${work_dir}/moved/libkelo_base.so.${version})
execute_process(COMMAND ${readelf} -d ${library} OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
if(NOT dynamic MATCHES "SONAME[^\n]*\\[libkelo_base\\.so\\.${soversion}\\]")
  message(FATAL_ERROR "The SONAME is not libkelo_base.so.${soversion}:\n${dynamic}")
endif()
run(${python} ${CMAKE_CURRENT_LIST_DIR}/exports.py ${nm} ${library} ${work_dir}/moved/include)
