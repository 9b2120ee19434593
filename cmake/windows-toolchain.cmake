# SPDX-License-Identifier: GPL-2.0-or-later
# Cross-compiles for 64-bit Windows with Debian's mingw-w64. The toolkit and what else the library
# wants lies where scripts/windows-toolkit has put it: below KELO_BASE_CACHE, by default the user's
# folder for such things.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)  # posix: std::thread and std::mutex
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

set(kelo_cache "$ENV{KELO_BASE_CACHE}")
if(NOT kelo_cache AND NOT "$ENV{XDG_CACHE_HOME}" STREQUAL "")
  set(kelo_cache "$ENV{XDG_CACHE_HOME}/kelo_base")
elseif(NOT kelo_cache)
  set(kelo_cache "$ENV{HOME}/.cache/kelo_base")
endif()
set(CMAKE_FIND_ROOT_PATH ${kelo_cache}/windows/root /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The toolkit's tools (moc, rcc, lrelease) run here: they are this system's own.
set(QT_HOST_PATH /usr)
file(GLOB QT_HOST_PATH_CMAKE_DIR /usr/lib/*/cmake/Qt6HostInfo)
cmake_path(GET QT_HOST_PATH_CMAKE_DIR PARENT_PATH QT_HOST_PATH_CMAKE_DIR)
set(CMAKE_PROGRAM_PATH /usr/lib/qt6/bin)

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/windows-run)
