# SPDX-License-Identifier: GPL-2.0-or-later
# What every target of the house has in common.

set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_CXX_SCAN_FOR_MODULES OFF)
if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release)
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

# Declares sources and public headers of one folder of the library:
#   kelo_folder(SOURCES a.cpp ... HEADERS A.h ...)
function(kelo_folder)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "" "SOURCES;HEADERS")
  if(arg_SOURCES)
    target_sources(kelo_base_objects PRIVATE ${arg_SOURCES})
  endif()
  if(arg_HEADERS)
    # Headers with Q_OBJECT need moc even when no source carries their name.
    target_sources(kelo_base_objects PRIVATE ${arg_HEADERS})
    target_sources(kelo_base PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR}
      FILES ${arg_HEADERS})
  endif()
endfunction()
