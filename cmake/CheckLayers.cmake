# cmake -DSOURCE_DIR=<src> -P CheckLayers.cmake: fails when a folder of the sources includes a header of
# a folder on its own layer or above it. Lower layers first; folders on one line are peers.
set(layers
  "document"
  "ui"
  "catalogue"
  "designer"
  "texts;link;printing;appearance"
  "app;cli"
)

get_filename_component(SOURCE_DIR "${SOURCE_DIR}" ABSOLUTE)

set(rank 0)
foreach(layer IN LISTS layers)
  foreach(folder ${layer})
    set(rank_${folder} ${rank})
  endforeach()
  math(EXPR rank "${rank} + 1")
endforeach()

set(violations "")
file(GLOB_RECURSE sources RELATIVE "${SOURCE_DIR}" "${SOURCE_DIR}/*.h" "${SOURCE_DIR}/*.cpp")
foreach(source IN LISTS sources)
  string(REGEX MATCH "^[^/]+" folder "${source}")
  if(NOT DEFINED rank_${folder})
    list(APPEND violations "${source}: the folder '${folder}' has no layer")
    continue()
  endif()
  file(STRINGS "${SOURCE_DIR}/${source}" includes REGEX "^#include \"[^/\"]+/")
  foreach(line IN LISTS includes)
    string(REGEX REPLACE "^#include \"([^/\"]+)/.*" "\\1" included "${line}")
    if(included STREQUAL folder)
      continue()
    endif()
    if(NOT DEFINED rank_${included})
      list(APPEND violations "${source}: ${line}: the folder '${included}' has no layer")
    elseif(NOT rank_${included} LESS rank_${folder})
      list(APPEND violations "${source}: ${line}: '${folder}' may include only the layers below it")
    endif()
  endforeach()
endforeach()

if(violations)
  list(JOIN violations "\n" report)
  message(FATAL_ERROR "Includes that run up the layers:\n${report}")
endif()
