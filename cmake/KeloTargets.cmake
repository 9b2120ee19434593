# SPDX-License-Identifier: GPL-2.0-or-later
# What every target of the house has in common.

set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_CXX_SCAN_FOR_MODULES OFF)
if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release)
endif()

# What the sources that differ by system are called after: NAME_windows.cpp, NAME_unix.cpp.
if(WIN32)
  set(kelo_system windows)
  set(kelo_family windows)
elseif(APPLE)
  set(kelo_system macos)
  set(kelo_family unix)
else()
  set(kelo_system linux)
  set(kelo_family unix)
endif()

# Language level, hidden symbols and warnings for one target.
function(kelo_defaults target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  set_target_properties(${target} PROPERTIES
    CXX_EXTENSIONS OFF CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  target_compile_definitions(${target} PRIVATE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH)
  if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wconversion -Wshadow)
  endif()
endfunction()

# Declares one folder of the library, an object library that links what it may know and no more:
#   kelo_folder(KNOWS core ... LIBRARIES Qt6::Core ... SOURCES a.cpp ... HEADERS A.h ...)
# KNOWS names other folders (dxf/read), LIBRARIES what others made and this folder alone sees;
# HEADERS are the public ones.
# The arrows are stated here alone: tests/house/folders.py holds the includes against them.
function(kelo_folder)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "" "KNOWS;LIBRARIES;SOURCES;HEADERS")
  cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${PROJECT_SOURCE_DIR}
    OUTPUT_VARIABLE folder)
  kelo_folder_target(objects ${folder})
  list(TRANSFORM arg_HEADERS PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  foreach(header IN LISTS arg_HEADERS)
    cmake_path(NORMAL_PATH header)  # those of a room lie at the door above it
    list(APPEND headers ${header})
  endforeach()
  # Headers with Q_OBJECT need moc even when no source carries their name.
  add_library(${objects} OBJECT ${arg_SOURCES} ${headers})
  kelo_defaults(${objects})
  set_target_properties(${objects} PROPERTIES
    AUTOMOC ON AUTORCC ON POSITION_INDEPENDENT_CODE ON)
  target_link_libraries(${objects} PUBLIC kelo_base_tree PRIVATE ${arg_LIBRARIES})
  foreach(known IN LISTS arg_KNOWS)
    kelo_folder_target(known_objects ${known})
    target_link_libraries(${objects} PUBLIC ${known_objects})
  endforeach()
  target_sources(kelo_base_objects INTERFACE $<TARGET_OBJECTS:${objects}>)
  target_link_libraries(kelo_base_objects INTERFACE ${objects})
  if(headers)
    target_sources(kelo_base PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}
      FILES ${headers})
  endif()

  list(JOIN arg_KNOWS " " knows)
  set_property(GLOBAL APPEND PROPERTY KELO_FOLDERS "folder ${folder}" "knows ${knows}")
  foreach(file IN LISTS arg_SOURCES headers)
    cmake_path(ABSOLUTE_PATH file)
    set_property(GLOBAL APPEND PROPERTY KELO_FOLDERS "builds ${file}")
  endforeach()
endfunction()

# The name of a folder's object library: dxf/read has kelo_base_dxf_read.
function(kelo_folder_target result folder)
  string(REPLACE "/" "_" name ${folder})
  set(${result} kelo_base_${name} PARENT_SCOPE)
endfunction()
