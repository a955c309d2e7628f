# Refuses an include that runs up, or across between rooms that do not know each other.
#   cmake -DSOURCES=<folder src> -P check_includes.cmake

# From the ground up. Rooms of one level do not include each other.
set(levels
  "base"
  "platform"
  "aids"
  "game"
  "teams"
  "record"
  "sheet"
  "database"
  "season|archive"
  "real|book"
  "browser"
  "windows"
  "shell|replay")

# Who may include a room above it; ARCHITECTURE.md has the reasons.
set(allowed
  "game/start_up.cpp teams"
  "game/new_game.cpp teams"
  "platform/jet database"
  "platform/sqlite/jet database")

set(height 0)
foreach(rooms IN LISTS levels)
  string(REPLACE "|" ";" rooms "${rooms}")
  foreach(room IN LISTS rooms)
    set(height_${room} ${height})
  endforeach()
  math(EXPR height "${height} + 1")
endforeach()

set(faults "")
file(GLOB_RECURSE files RELATIVE ${SOURCES} ${SOURCES}/*.h ${SOURCES}/*.cpp)
foreach(path IN LISTS files)
  string(REGEX REPLACE "/.*" "" own ${path})
  if(NOT DEFINED height_${own})
    string(APPEND faults "\n  src/${path}: the room ${own} has no level yet")
    continue()
  endif()
  file(STRINGS ${SOURCES}/${path} includes REGEX "^#include \"[^\"]+/")
  foreach(include IN LISTS includes)
    string(REGEX REPLACE "^#include \"([^/]+)/.*" "\\1" room "${include}")
    if(room STREQUAL own OR NOT DEFINED height_${room} OR height_${room} LESS height_${own})
      continue()
    endif()
    set(fine FALSE)
    foreach(pair IN LISTS allowed)
      string(REPLACE " " ";" pair "${pair}")
      list(GET pair 0 start)
      list(GET pair 1 above)
      string(FIND "${path}" "${start}" at)
      if(room STREQUAL above AND at EQUAL 0)
        set(fine TRUE)
      endif()
    endforeach()
    if(NOT fine)
      string(APPEND faults "\n  src/${path}: ${include} is above it, or beside it")
    endif()
  endforeach()
endforeach()
if(faults)
  message(FATAL_ERROR "No room includes one above it (see the levels in ARCHITECTURE.md):${faults}")
endif()
