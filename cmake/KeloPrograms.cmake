# SPDX-License-Identifier: GPL-2.0-or-later
# What goes with a program that people get: it finds the library beside which it is installed, has
# manual page, completion and icons, and desktops know of it.

# From the folder of the programs to that of the library: the installed tree may be moved.
set(from ${CMAKE_INSTALL_FULL_BINDIR})
cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_LIBDIR BASE_DIRECTORY ${from} OUTPUT_VARIABLE to)
if(NOT APPLE)
  set(kelo_program_rpath "$ORIGIN/${to}")
else()
  set(kelo_program_rpath "@loader_path/${to}")
endif()

set(kelo_manuals_dir ${PROJECT_BINARY_DIR}/manuals)
if(WIN32)
  enable_language(RC)
  find_program(KELO_ICOTOOL icotool REQUIRED)
  find_program(KELO_RSVG_CONVERT rsvg-convert REQUIRED)
endif()
if(KELO_BASE_PACKAGING)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  find_program(KELO_GZIP gzip REQUIRED)
  find_program(KELO_HELP2MAN help2man REQUIRED)  # called by packaging/manual.sh
  find_program(KELO_RSVG_CONVERT rsvg-convert REQUIRED)
  file(MAKE_DIRECTORY ${kelo_manuals_dir})
endif()

# Declares that people get this program. What goes with it is called after the file it is built as.
function(kelo_program target)
  set_target_properties(${target} PROPERTIES INSTALL_RPATH "${kelo_program_rpath}")
  get_target_property(folder ${target} SOURCE_DIR)
  get_target_property(name ${target} OUTPUT_NAME)
  if(NOT name)
    set(name ${target})
  endif()
  if(WIN32)
    kelo_resource(${target} ${folder}/${name})
  elseif(EXISTS ${folder}/${name}.desktop)
    kelo_desktop(${folder}/${name})
  endif()
  if(KELO_BASE_PACKAGING)
    kelo_manual_page(${target} ${name})
    kelo_completion(${target} ${name})
    if(EXISTS ${folder}/${name}.svg)
      kelo_icons(${target} ${folder}/${name})
    endif()
  endif()
endfunction()

# Installs what desktops show: START.desktop, START.svg and START.metainfo.xml, which bears its id.
function(kelo_desktop start)
  file(STRINGS ${start}.metainfo.xml id REGEX "<id>")
  string(REGEX REPLACE " *</?id>" "" id ${id})
  install(FILES ${start}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES ${start}.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  install(FILES ${start}.metainfo.xml RENAME ${id}.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
endfunction()

# Gives the program its version, its manifest and, where there is START.svg, its icon.
function(kelo_resource target start)
  cmake_path(GET start FILENAME name)
  set(made ${CMAKE_CURRENT_BINARY_DIR}/${name})
  set(icon_line "")
  if(EXISTS ${start}.svg)
    set(icon_line "IDI_ICON1 ICON \"${made}.ico\"")  # as the toolkit looks for it
    kelo_icon_file(${start} ${made})
    set_source_files_properties(${made}.rc PROPERTIES OBJECT_DEPENDS ${made}.ico)
  endif()
  configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.rc.in ${made}.rc @ONLY)
  add_library(${target}_resource OBJECT ${made}.rc)
  target_link_libraries(${target} PRIVATE ${target}_resource)
endfunction()

# Sets RESULT to the picture for an icon of this size: the smallest may have one of their own,
# PICTURE-small.svg.
function(kelo_picture result picture size)
  set(source ${picture}.svg)
  if(size LESS_EQUAL 24 AND EXISTS ${picture}-small.svg)
    set(source ${picture}-small.svg)
  endif()
  set(${result} ${source} PARENT_SCOPE)
endfunction()

# MADE.ico of PICTURE.svg, in the sizes that Windows shows.
function(kelo_icon_file picture made)
  foreach(size IN ITEMS 16 24 32 48 256)
    kelo_picture(source ${picture} ${size})
    list(APPEND commands COMMAND ${KELO_RSVG_CONVERT} --width ${size} --height ${size}
      --output ${made}-${size}.png ${source})
    list(APPEND icons ${made}-${size}.png)
    list(APPEND sources ${source})
  endforeach()
  add_custom_command(OUTPUT ${made}.ico DEPENDS ${sources} ${commands}
    COMMAND ${KELO_ICOTOOL} --create --output ${made}.ico ${icons} VERBATIM)
endfunction()

# How the help is asked for: in English, and without a screen.
set(kelo_in_english ${CMAKE_COMMAND} -E env --unset=LANGUAGE LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen)

# Manual page and completion are made of what the program prints for --help, so they cannot disagree.
function(kelo_manual_page target name)
  set(page ${kelo_manuals_dir}/${name}.1)
  set(maker ${PROJECT_SOURCE_DIR}/packaging/manual.sh)
  add_custom_command(OUTPUT ${page}.gz
    DEPENDS ${target} ${maker} ${PROJECT_SOURCE_DIR}/packaging/manual.h2m
    COMMAND ${kelo_in_english} ${maker} $<TARGET_FILE:${target}> ${PROJECT_VERSION} ${page}
    COMMAND ${KELO_GZIP} -9nf ${page} VERBATIM)
  add_custom_target(${target}_manual ALL DEPENDS ${page}.gz)
  install(FILES ${page}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endfunction()

function(kelo_completion target name)
  set(bash ${kelo_manuals_dir}/${name})
  set(zsh ${kelo_manuals_dir}/_${name})
  set(fish ${kelo_manuals_dir}/${name}.fish)
  set(maker ${PROJECT_SOURCE_DIR}/packaging/completion.py)
  add_custom_command(OUTPUT ${bash} ${zsh} ${fish} DEPENDS ${target} ${maker}
    COMMAND ${kelo_in_english} ${Python3_EXECUTABLE} ${maker} $<TARGET_FILE:${target}>
      ${kelo_manuals_dir} VERBATIM)
  add_custom_target(${target}_completion ALL DEPENDS ${bash} ${zsh} ${fish})
  install(FILES ${bash} DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  install(FILES ${zsh} DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
  install(FILES ${fish} DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
endfunction()

# The sizes are the icon theme's.
function(kelo_icons target picture)
  cmake_path(GET picture FILENAME name)
  foreach(size IN ITEMS 16 22 24 32 48 64 128 256 512)
    set(icon ${kelo_manuals_dir}/${name}-${size}.png)
    kelo_picture(source ${picture} ${size})
    add_custom_command(OUTPUT ${icon} DEPENDS ${source}
      COMMAND ${KELO_RSVG_CONVERT} --width ${size} --height ${size} --output ${icon} ${source})
    install(FILES ${icon} RENAME ${name}.png
      DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
    list(APPEND icons ${icon})
  endforeach()
  add_custom_target(${target}_icons ALL DEPENDS ${icons})
endfunction()
