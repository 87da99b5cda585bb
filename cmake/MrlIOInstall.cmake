# Headers, library, the package for find_package(MrlIO) and mrlio.pc for pkg-config.

include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/MrlIO")

install(TARGETS MrlIO EXPORT MrlIOTargets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/mrlio"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
    FILES_MATCHING PATTERN "*.h")
install(EXPORT MrlIOTargets NAMESPACE MrlIO:: DESTINATION "${package_dir}")

configure_package_config_file(
    "${PROJECT_SOURCE_DIR}/cmake/MrlIOConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/package/MrlIOConfig.cmake"
    INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file(
    "${PROJECT_BINARY_DIR}/package/MrlIOConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/package/MrlIOConfig.cmake"
    "${PROJECT_BINARY_DIR}/package/MrlIOConfigVersion.cmake"
    DESTINATION "${package_dir}")

# The prefix is told relative to the file, so that an installed tree may be moved. The two directories may be absolute.
file(RELATIVE_PATH MRLIO_PC_PREFIX
    "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
    set(MRLIO_PC_LIBDIR "${CMAKE_INSTALL_LIBDIR}")
else()
    set(MRLIO_PC_LIBDIR "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
endif()
if(IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
    set(MRLIO_PC_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}")
else()
    set(MRLIO_PC_INCLUDEDIR "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
endif()
configure_file("${PROJECT_SOURCE_DIR}/cmake/mrlio.pc.in" "${PROJECT_BINARY_DIR}/package/mrlio.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/package/mrlio.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
