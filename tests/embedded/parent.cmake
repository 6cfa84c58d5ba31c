# SPDX-License-Identifier: MIT
cmake_minimum_required(VERSION 3.24)
project(parent LANGUAGES C CXX)
add_subdirectory(${ZERDIX_SOURCE} zerdix)
add_executable(parent parent.c)
target_link_libraries(parent PRIVATE zerdix::zxdrvw32)
