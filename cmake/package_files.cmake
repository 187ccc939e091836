# What other builds find an installed library by: a file for pkg-config and a package for CMake. Both
# go by where they stand themselves, so that the installed tree may be moved.
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/velnorxmltoimg)
set(pkgconfig_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH VELNOR_PREFIX_FROM_PKGCONFIG /prefix/${pkgconfig_folder} /prefix)
string(REGEX REPLACE "/$" "" VELNOR_PREFIX_FROM_PKGCONFIG "${VELNOR_PREFIX_FROM_PKGCONFIG}")

configure_file(${CMAKE_CURRENT_LIST_DIR}/velnorxmltoimg.pc.in
    ${PROJECT_BINARY_DIR}/package/velnorxmltoimg.pc @ONLY)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/velnorxmltoimgConfig.cmake.in
    ${PROJECT_BINARY_DIR}/package/velnorxmltoimgConfig.cmake INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/package/velnorxmltoimgConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)

install(FILES ${PROJECT_BINARY_DIR}/package/velnorxmltoimg.pc DESTINATION ${pkgconfig_folder})
install(FILES
    ${PROJECT_BINARY_DIR}/package/velnorxmltoimgConfig.cmake
    ${PROJECT_BINARY_DIR}/package/velnorxmltoimgConfigVersion.cmake
    DESTINATION ${package_folder})
install(EXPORT velnorxmltoimgTargets NAMESPACE velnorxmltoimg:: DESTINATION ${package_folder})
