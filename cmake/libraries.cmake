# Libraries that bring no CMake package of their own, found by header and library alone, so that each
# system's way of telling of them does not matter: dtb::icu, dtb::xlsxwriter, dtb::minizip, and dtb::mdb.

# dtb_library(NAME HEADER LIBRARY...): each LIBRARY is a list of names, of which one is enough.
function(dtb_library name header)
  find_path(${name}_INCLUDE ${header} REQUIRED)
  add_library(dtb::${name} INTERFACE IMPORTED GLOBAL)
  target_include_directories(dtb::${name} SYSTEM INTERFACE ${${name}_INCLUDE})
  foreach(names ${ARGN})
    string(REPLACE "|" ";" names ${names})
    list(GET names 0 first)
    find_library(${name}_${first} NAMES ${names} REQUIRED)
    target_link_libraries(dtb::${name} INTERFACE ${${name}_${first}})
  endforeach()
endfunction()

find_package(ZLIB REQUIRED)
if(WIN32)
  dtb_library(icu unicode/ucol.h sicuin sicuuc sicudt)
  target_compile_definitions(dtb::icu INTERFACE U_STATIC_IMPLEMENTATION)
else()
  dtb_library(icu unicode/ucol.h icui18n icuuc)
endif()
dtb_library(minizip minizip/unzip.h minizip)
target_link_libraries(dtb::minizip INTERFACE ZLIB::ZLIB)
dtb_library(xlsxwriter xlsxwriter.h xlsxwriter)
target_link_libraries(dtb::xlsxwriter INTERFACE dtb::minizip)
# Its header needs those of GLib, whose place only pkg-config knows.
if(NOT WIN32)
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(MDB REQUIRED IMPORTED_TARGET libmdb)
  add_library(dtb::mdb ALIAS PkgConfig::MDB)
endif()
