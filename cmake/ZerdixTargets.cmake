# SPDX-License-Identifier: MIT
# One target per room. A room is a static library that the shared library takes whole and that
# tests may link on their own.

add_library(zerdix_flags INTERFACE)
target_compile_options(zerdix_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow $<$<BOOL:${ZERDIX_WERROR}>:-Werror>)
# GCC 12 sees overlapping copies in std::string where there are none.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(zerdix_flags INTERFACE -Wno-restrict)
endif()
if(ZERDIX_SANITIZE)
  target_compile_options(zerdix_flags INTERFACE
    -fsanitize=${ZERDIX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(zerdix_flags INTERFACE -fsanitize=${ZERDIX_SANITIZE})
endif()

# For tests, fuzzers and benchmarks, to be named behind zerdix_flags. To clang a changed sign is a
# conversion, to GCC it isn't in C++; the tests are as GCC takes them.
add_library(zerdix_test_flags INTERFACE)
# Tests of memory that runs out, or of how much is taken, can't be made with an allocator of its own.
if(ZERDIX_SANITIZE)
  target_compile_definitions(zerdix_test_flags INTERFACE ZERDIX_SANITIZED)
endif()
target_compile_options(zerdix_test_flags INTERFACE
  $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion>)

# What a test's environment says of leaks that aren't ours.
set(ZERDIX_LEAK_OPTIONS
  "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/cmake/leaks.supp:print_suppressions=0")

# What a library that is loaded is linked with. clang leaves the sanitizers' own functions to the
# program, so that they are undefined in the library.
set(ZERDIX_LIBRARY_LINK_OPTIONS -Wl,--as-needed)
if(NOT (ZERDIX_SANITIZE AND CMAKE_CXX_COMPILER_ID MATCHES "Clang"))
  list(APPEND ZERDIX_LIBRARY_LINK_OPTIONS -Wl,--no-undefined)
endif()

# zerdix_room(NAME SOURCES file... [LINKS target...])
function(zerdix_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS" ${ARGN})
  add_library(zx_${name} STATIC ${ROOM_SOURCES})
  target_include_directories(zx_${name} PUBLIC
    ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(zx_${name} PUBLIC ${ROOM_LINKS} PRIVATE zerdix_flags)
endfunction()

# How a test program is compiled. Its own code isn't what a test measures, and takes half as long
# again with all optimisations. All are position independent as those of Qt have to be, so that one
# set of precompiled headers fits.
add_library(zerdix_test_program INTERFACE)
target_compile_options(zerdix_test_program INTERFACE -fPIC $<$<CONFIG:Release>:-O1>)
# What GCC 12 wrongly sees in std::string it also tells, under more names, of precompiled headers.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(zerdix_test_program INTERFACE -Wno-array-bounds -Wno-stringop-overflow)
endif()

# zerdix_test_headers()
# Compiles once what nearly every test includes. A test still includes what it uses: with
# CMAKE_DISABLE_PRECOMPILE_HEADERS, as in the presets clang and asan, a missing include is seen.
function(zerdix_test_headers)
  set(source ${CMAKE_CURRENT_BINARY_DIR}/headers.cpp)
  if(NOT EXISTS ${source})
    file(WRITE ${source} "")
  endif()
  add_library(zx_test_headers OBJECT ${source})
  target_precompile_headers(zx_test_headers PRIVATE
    <algorithm> <filesystem> <fstream> <functional> <gmock/gmock.h> <gtest/gtest.h> <memory>
    <optional> <string> <vector>)
  target_link_libraries(zx_test_headers PRIVATE
    zerdix_flags zerdix_test_flags zerdix_test_program GTest::gmock)
endfunction()

# zerdix_test(NAME SOURCES file... [LINKS target...] [TIMEOUT seconds] [FILTER filter])
# A GoogleTest program; every case in it that the filter lets through becomes a test of ctest.
function(zerdix_test name)
  cmake_parse_arguments(T "" "TIMEOUT;FILTER" "SOURCES;LINKS" ${ARGN})
  if(NOT T_TIMEOUT)
    set(T_TIMEOUT 60)
  endif()
  add_executable(${name} ${T_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  # With sanitizers GCC takes much of the standard library's <regex> for uninitialized.
  if(ZERDIX_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${name} PRIVATE -Wno-maybe-uninitialized)
  endif()
  target_precompile_headers(${name} REUSE_FROM zx_test_headers)
  target_link_libraries(${name} PRIVATE
    ${T_LINKS} zerdix_flags zerdix_test_flags zerdix_test_program GTest::gmock GTest::gtest_main)
  gtest_discover_tests(${name} TEST_FILTER "${T_FILTER}" DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT ${T_TIMEOUT}
    ENVIRONMENT "${ZERDIX_LEAK_OPTIONS}"
    ENVIRONMENT_MODIFICATION "ZERDIX_INI=set:${PROJECT_BINARY_DIR}/tests/zerdix.ini")
endfunction()
