# SPDX-License-Identifier: GPL-2.0-or-later
# What "cpack -G ZIP" packs for Windows: a folder that runs wherever it is unpacked.
get_target_property(core_library Qt6::Core IMPORTED_LOCATION_RELEASE)
cmake_path(GET core_library PARENT_PATH toolkit)
cmake_path(GET toolkit PARENT_PATH toolkit)

foreach(library IN ITEMS Qt6Core Qt6Gui Qt6Sql Qt6Svg Qt6Widgets libxlsxwriter)
  list(APPEND libraries ${toolkit}/bin/${library}.dll)
endforeach()
foreach(library IN ITEMS libgcc_s_seh-1 libstdc++-6 libwinpthread-1)  # the compiler's
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}.dll
    OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  list(APPEND libraries ${file})
endforeach()
install(FILES ${libraries} packaging/windows/qt.conf DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library)

foreach(plugin IN ITEMS
    iconengines/qsvgicon imageformats/qico imageformats/qjpeg imageformats/qsvg
    platforms/qoffscreen platforms/qwindows sqldrivers/qsqlite styles/qwindowsvistastyle)
  cmake_path(GET plugin PARENT_PATH kind)
  install(FILES ${toolkit}/plugins/${plugin}.dll DESTINATION plugins/${kind} COMPONENT library)
endforeach()
install(FILES ${toolkit}/translations/qtbase_de.qm DESTINATION translations COMPONENT library)
install(FILES ${kelo_tools_documents}
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT tools)
install(FILES LICENSE packaging/copyright DESTINATION . COMPONENT library)
install(DIRECTORY ${toolkit}/licences DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT library)

set(CPACK_PACKAGE_FILE_NAME kelo_base-${PROJECT_VERSION}-windows)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL library tools)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY ON)
include(CPack)
