# What `cmake --install` puts where, and the Debian package CPack makes of it.
#
#   lib/       libLxDataAccess.so.1 (the runtime), the .so link (development)
#   include/   LxDataAccess.h
#   bin/       lxcat and the editor tool RuvDbEditor.exe beside it: the library
#              looks for the tool next to the host executable, so lxcat and any
#              client installed into the same bin/ find it
#   lib/cmake/LxDataAccess/   the package for find_package(LxDataAccess)
#   lib/pkgconfig/LxDataAccess.pc
include(CMakePackageConfigHelpers)

install(TARGETS LxDataAccess EXPORT LxDataAccessTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} NAMELINK_COMPONENT Development
        PUBLIC_HEADER DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(TARGETS lxcat RuvDbEditor RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# lxcat finds the library of its own prefix wherever the prefix is unpacked.
file(RELATIVE_PATH lx_bin_to_lib /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
set_target_properties(lxcat PROPERTIES INSTALL_RPATH "$ORIGIN/${lx_bin_to_lib}")

set(lx_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/LxDataAccess)
install(EXPORT LxDataAccessTargets NAMESPACE LxDataAccess:: DESTINATION ${lx_cmake_dir})
configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/LxDataAccessConfig.cmake.in
                              ${CMAKE_BINARY_DIR}/LxDataAccessConfig.cmake INSTALL_DESTINATION ${lx_cmake_dir})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/LxDataAccessConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/LxDataAccessConfig.cmake ${CMAKE_BINARY_DIR}/LxDataAccessConfigVersion.cmake
        DESTINATION ${lx_cmake_dir})

# pkg-config wants paths relative to its own ${prefix}, so that a relocated
# prefix (a .deb's /usr, a test's temporary folder) stays right.
file(RELATIVE_PATH lx_pc_to_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" lx_pc_to_prefix "${lx_pc_to_prefix}")
file(RELATIVE_PATH lx_pc_libdir ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH lx_pc_includedir ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
configure_file(${CMAKE_SOURCE_DIR}/cmake/LxDataAccess.pc.in ${CMAKE_BINARY_DIR}/LxDataAccess.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/LxDataAccess.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME lxdataaccess)
set(CPACK_PACKAGE_VENDOR "LxDataAccess developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Catalogs of standard engineering parts over Firebird, as a C library")
set(CPACK_PACKAGE_CONTACT "LxDataAccess developers <lxdataaccess@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
# dpkg-shlibdeps names the shared libraries the binaries need; the engine is
# loaded by the Firebird client at run time, so embedded catalogs need it named.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "firebird3.0-server-core")
include(CPack)
