# SPDX-License-Identifier: MIT
# Everything that is called and not written here. All of it is Debian packages (scripts/setup). What
# the library needs has to be there; a part whose needs aren't there is turned off, and configuring
# says so.

# zerdix_turn_off_without(OPTION FOUND-VARIABLE...)
# Turns an option off for this run when it is on and one of its needs wasn't found.
function(zerdix_turn_off_without option)
  foreach(found IN LISTS ARGN)
    if(${option} AND NOT ${found})
      string(REGEX REPLACE "_(FOUND|INCLUDE_DIR)$" "" need ${found})
      message(STATUS "zerdix: ${option} is turned off: ${need} is missing")
      set(${option} OFF PARENT_SCOPE)
      return()
    endif()
  endforeach()
endfunction()

find_package(PkgConfig REQUIRED)
pkg_check_modules(TIRPC REQUIRED IMPORTED_TARGET libtirpc)
pkg_check_modules(FREETYPE REQUIRED IMPORTED_TARGET freetype2)
pkg_check_modules(FONTCONFIG REQUIRED IMPORTED_TARGET fontconfig)
find_path(BOOST_PFR_INCLUDE_DIR boost/pfr.hpp REQUIRED)

if(ZERDIX_APPS OR ZERDIX_ALPHAD)
  find_path(CLI11_INCLUDE_DIR CLI/CLI.hpp)
  pkg_check_modules(TIFF IMPORTED_TARGET libtiff-4)
endif()
if(ZERDIX_APPS)
  find_path(JSON_INCLUDE_DIR nlohmann/json.hpp)
  find_package(PNG)
  pkg_check_modules(POPPLER IMPORTED_TARGET poppler)
  find_path(POPPLER_CORE_INCLUDE_DIR PDFDoc.h PATH_SUFFIXES poppler)
  zerdix_turn_off_without(ZERDIX_APPS
    CLI11_INCLUDE_DIR JSON_INCLUDE_DIR TIFF_FOUND PNG_FOUND POPPLER_FOUND POPPLER_CORE_INCLUDE_DIR)
endif()
if(ZERDIX_ALPHAD)
  find_package(SQLite3)
  zerdix_turn_off_without(ZERDIX_ALPHAD CLI11_INCLUDE_DIR TIFF_FOUND SQLite3_FOUND)
endif()
if(ZERDIX_DIALOGS)
  find_package(Qt6 COMPONENTS Widgets QUIET)
  pkg_check_modules(XCB IMPORTED_TARGET xcb)
  zerdix_turn_off_without(ZERDIX_DIALOGS Qt6_FOUND XCB_FOUND)
endif()
if(ZERDIX_TESTS)
  find_package(GTest)
  pkg_check_modules(POPPLER_CPP IMPORTED_TARGET poppler-cpp) # pages are held against it
  zerdix_turn_off_without(ZERDIX_TESTS GTest_FOUND)
  include(GoogleTest)
endif()
if(ZERDIX_BENCH)
  find_package(benchmark QUIET)
  find_package(JPEG QUIET)
  pkg_check_modules(LEPTONICA IMPORTED_TARGET lept)
  zerdix_turn_off_without(ZERDIX_BENCH
    benchmark_FOUND JPEG_FOUND LEPTONICA_FOUND ZERDIX_APPS ZERDIX_ALPHAD)
endif()
