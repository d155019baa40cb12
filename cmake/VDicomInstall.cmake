# What is installed: headers, both libraries, and what CMake and pkg-config need to find them.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/vdicom)
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vdicom FILES_MATCHING PATTERN "*.h")

# An export set each: users of the shared library need not have zlib's development files.
install(TARGETS vdicom EXPORT vdicomShared)
install(TARGETS vdicom_static EXPORT vdicomStatic)
install(EXPORT vdicomShared NAMESPACE vdicom:: DESTINATION ${package_dir})
install(EXPORT vdicomStatic NAMESPACE vdicom:: DESTINATION ${package_dir})

configure_package_config_file(cmake/vdicom-config.cmake.in ${PROJECT_BINARY_DIR}/vdicom-config.cmake
                              INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/vdicom-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/vdicom-config.cmake ${PROJECT_BINARY_DIR}/vdicom-config-version.cmake
        DESTINATION ${package_dir})

# Relative to the .pc file, so that an installed tree can be moved.
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig
           OUTPUT_VARIABLE VDICOM_PC_PREFIX)
configure_file(cmake/vdicom.pc.in ${PROJECT_BINARY_DIR}/vdicom.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/vdicom.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
