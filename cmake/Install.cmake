# What `cmake --install` puts where. Two components: "library" is what a program needs to run, "development" what it
# needs to be built with CMake, pkg-config or qmake.

include(CMakePackageConfigHelpers)

set(include_dir ${CMAKE_INSTALL_INCLUDEDIR}/InkGraphics)
set(config_dir ${CMAKE_INSTALL_LIBDIR}/cmake/InkGraphics)
set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
set(qmake_dir ${CMAKE_INSTALL_LIBDIR}/InkGraphics)

install(TARGETS InkGraphics EXPORT InkGraphicsTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
    FILE_SET HEADERS DESTINATION ${include_dir} COMPONENT development
    FILE_SET generated DESTINATION ${include_dir} COMPONENT development
    INCLUDES DESTINATION ${include_dir} # for a CMake that does not know file sets
)
install(EXPORT InkGraphicsTargets NAMESPACE Ink:: DESTINATION ${config_dir} COMPONENT development)

set(generated ${CMAKE_CURRENT_BINARY_DIR}/installed)
write_basic_package_version_file(${generated}/InkGraphicsConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${generated}/InkGraphicsConfigVersion.cmake ${CMAKE_CURRENT_LIST_DIR}/InkGraphicsConfig.cmake
    DESTINATION ${config_dir} COMPONENT development)

# Paths in these two start from where the file lies, so that an installed tree may be moved.
set(root /prefix)
cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_INCLUDEDIR BASE_DIRECTORY ${root} OUTPUT_VARIABLE include_root)
cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_LIBDIR BASE_DIRECTORY ${root} OUTPUT_VARIABLE library_root)
file(RELATIVE_PATH pkgconfig_to_include ${library_root}/pkgconfig ${include_root})
file(RELATIVE_PATH qmake_to_include ${library_root}/InkGraphics ${include_root})
configure_file(${CMAKE_CURRENT_LIST_DIR}/InkGraphics.pc.in ${generated}/InkGraphics.pc @ONLY)
configure_file(${CMAKE_CURRENT_LIST_DIR}/InkGraphics.pri.in ${generated}/InkGraphics.pri @ONLY)
install(FILES ${generated}/InkGraphics.pc DESTINATION ${pkgconfig_dir} COMPONENT development)
install(FILES ${generated}/InkGraphics.pri DESTINATION ${qmake_dir} COMPONENT development)
