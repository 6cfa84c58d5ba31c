# SPDX-License-Identifier: MIT
# What a driver's or a client's author needs: the library, its headers, a pkg-config file and a
# CMake package. Programs and man pages are installed by their own folders.

include(CMakePackageConfigHelpers)

install(TARGETS zxdrvw32 EXPORT zerdix LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY include/zerdix DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN *.h)
install(FILES ${PROJECT_BINARY_DIR}/include/zerdix/version.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zerdix)

# From where the .pc file lies, so that it holds under every prefix of an installation.
file(RELATIVE_PATH way_to_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(cmake/zxdrvw32.pc.in zxdrvw32.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zxdrvw32.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/zerdix)
install(EXPORT zerdix NAMESPACE zerdix:: DESTINATION ${package_folder})
configure_package_config_file(cmake/zerdixConfig.cmake.in zerdixConfig.cmake
  INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(zerdixConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zerdixConfig.cmake ${PROJECT_BINARY_DIR}/zerdixConfigVersion.cmake
  DESTINATION ${package_folder})
