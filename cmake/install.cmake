# Installation: the library, its headers, the CMake package and the pkg-config file.
include(CMakePackageConfigHelpers)

install(TARGETS nox EXPORT nox LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/nox ${NOX_GENERATED}/include/nox
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")
install(EXPORT nox NAMESPACE nox:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/nox FILE noxConfig.cmake)
write_basic_package_version_file(noxConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/noxConfigVersion.cmake DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/nox)
# The file finds the prefix from its own place, so that it stays right where the package is moved.
file(RELATIVE_PATH NOX_PC_TO_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" NOX_PC_TO_PREFIX ${NOX_PC_TO_PREFIX})
configure_file(${PROJECT_SOURCE_DIR}/cmake/nox.pc.in nox.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/nox.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
