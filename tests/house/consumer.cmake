# SPDX-License-Identifier: GPL-2.0-or-later
# Installs the library, moves it, and builds and runs a small project that uses it from there.
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

file(GLOB_RECURSE library ${work_dir}/moved/libkelo_base.so.${version})
execute_process(COMMAND ${readelf} -d ${library} OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
if(NOT dynamic MATCHES "SONAME[^\n]*\\[libkelo_base\\.so\\.${soversion}\\]")
  message(FATAL_ERROR "The SONAME is not libkelo_base.so.${soversion}:\n${dynamic}")
endif()
run(${python} ${CMAKE_CURRENT_LIST_DIR}/exports.py ${nm} ${library} ${work_dir}/moved/include)
