# Installed like any program of the system: the workstation and its tools in
# bin/, what a first start copies into the user's data folder in
# share/gaschart/, a menu entry and an icon; `cpack` makes the Debian package.
#
# The program finds share/gaschart by walking up from its own bin/ folder,
# so the layout below is relative and any prefix works.
include(GNUInstallDirs)

# The program and every tool: any executable built from tools/, whatever its
# name, so a new tool is installed the day it is added.
install(TARGETS gaschart RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
set(GASCHART_TOOL_TARGETS)
get_property(_gaschart_targets DIRECTORY ${CMAKE_SOURCE_DIR} PROPERTY BUILDSYSTEM_TARGETS)
foreach(_target IN LISTS _gaschart_targets)
  get_target_property(_type ${_target} TYPE)
  get_target_property(_sources ${_target} SOURCES)
  if(_type STREQUAL "EXECUTABLE" AND _sources MATCHES "(^|;)${CMAKE_SOURCE_DIR}/tools/")
    install(TARGETS ${_target} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    list(APPEND GASCHART_TOOL_TARGETS ${_target})
  endif()
endforeach()
# The install suite installs the build into a prefix of its own.
if(TARGET test_install)
  add_dependencies(test_install gaschart ${GASCHART_TOOL_TARGETS})
endif()

# The files the program folder starts with, laid out as in the program
# folder: the WITS item names, the blank job new jobs are made from, the
# kept demonstration job, and the demonstration job itself in DB_CUE (a link
# to the kept one: the first start copies its contents, and the package
# carries the ten megabytes once).
set(GASCHART_SHARE ${CMAKE_INSTALL_DATADIR}/gaschart)
install(FILES
  ${CMAKE_SOURCE_DIR}/resources/WITSconfig_V10.txt
  ${CMAKE_BINARY_DIR}/OMBRI_010_BLANK.db
  ${CMAKE_BINARY_DIR}/V11_DEMO.DB
  DESTINATION ${GASCHART_SHARE})
install(CODE "
  set(_cue \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${GASCHART_SHARE}/DB_CUE\")
  file(MAKE_DIRECTORY \"\${_cue}\")
  file(REMOVE \"\${_cue}/V11_DEMO.DB\")
  file(CREATE_LINK ../V11_DEMO.DB \"\${_cue}/V11_DEMO.DB\" SYMBOLIC)
  message(STATUS \"Installing: \${_cue}/V11_DEMO.DB -> ../V11_DEMO.DB\")
")

# The menu entry and its icon.
install(FILES ${CMAKE_SOURCE_DIR}/resources/gaschart.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_SOURCE_DIR}/resources/gaschart.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${CMAKE_SOURCE_DIR}/resources/gaschart-48.png
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/48x48/apps
        RENAME gaschart.png)

# The Debian package. The dependencies are Debian 12's run-time packages of
# what the program links; scripts/package.sh checks the list against the
# libraries the installed binaries really need.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME gaschart)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Wellsite mud-gas logging workstation")
set(CPACK_PACKAGE_DESCRIPTION
    "Reads the gas instrument's packets over a serial port or TCP, keeps one\n"
    "record per packet in the job's database, lags the gas back to its depth and\n"
    "draws the gas chart. Settings, logs and jobs live in each user's data folder.")
string(REPLACE ";" "" CPACK_PACKAGE_DESCRIPTION "${CPACK_PACKAGE_DESCRIPTION}")
set(CPACK_PACKAGE_CONTACT "gaschart maintainers <gaschart@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES TRUE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(GASCHART_DEB_DEPENDS
    "libc6"
    "libstdc++6"
    "libgcc-s1"
    "libqt6core6 (>= 6.4)"
    "libqt6gui6 (>= 6.4)"
    "libqt6widgets6 (>= 6.4)"
    "libqt6printsupport6 (>= 6.4)"
    "libqt6network6 (>= 6.4)"
    "libqt6serialport6 (>= 6.4)"
    "libqt6multimedia6 (>= 6.4)"
    "libsqlite3-0")
string(REPLACE ";" ", " CPACK_DEBIAN_PACKAGE_DEPENDS "${GASCHART_DEB_DEPENDS}")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core")
include(CPack)
