# Checks every #include of the program's folders against the layer order:
# a folder includes only itself and folders below it. Folders of one layer
# (the subsystems built on the core) meet only through the workstation
# context, never by including each other.
#
#   cmake -DSOURCE_DIR=<repo> -P cmake/check_layers.cmake
#
# The order, top to bottom; the README's layout section says the same.
set(LAYERS
  "app"
  "ui"
  "acquisition"
  "config"
  "chart,chromatograph,products,alarms,stats,wits"
  "depth"
  "store"
  "workstation"
  "forms"
  "db"
  "platform"
  "text")

if(NOT SOURCE_DIR)
  message(FATAL_ERROR "check_layers: give -DSOURCE_DIR=<repo>")
endif()

set(level 0)
set(folders)
foreach(layer IN LISTS LAYERS)
  string(REPLACE "," ";" members "${layer}")
  foreach(folder IN LISTS members)
    set(LEVEL_${folder} ${level})
    list(APPEND folders ${folder})
  endforeach()
  math(EXPR level "${level} + 1")
endforeach()

set(bad 0)
foreach(folder IN LISTS folders)
  file(GLOB_RECURSE sources "${SOURCE_DIR}/${folder}/*.cpp" "${SOURCE_DIR}/${folder}/*.h")
  foreach(src IN LISTS sources)
    file(STRINGS "${src}" lines REGEX "^[ \t]*#[ \t]*include[ \t]*\"[a-z_]+/")
    foreach(line IN LISTS lines)
      string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]*\"([a-z_]+)/.*" "\\1" target "${line}")
      if(target STREQUAL folder)
        continue()
      endif()
      if(NOT DEFINED LEVEL_${target})
        file(RELATIVE_PATH rel "${SOURCE_DIR}" "${src}")
        message(SEND_ERROR "${rel}: includes ${target}/, which is in no layer")
        set(bad 1)
      elseif(NOT LEVEL_${target} GREATER LEVEL_${folder})
        file(RELATIVE_PATH rel "${SOURCE_DIR}" "${src}")
        message(SEND_ERROR "${rel}: ${folder}/ may not include ${target}/ (${line})")
        set(bad 1)
      endif()
    endforeach()
  endforeach()
endforeach()

if(bad)
  message(FATAL_ERROR "Includes that point up or sideways: see above")
endif()
