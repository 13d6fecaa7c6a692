# What `cmake --install` puts where of InkLesson. Two components, as InkGraphics has: "lesson-library" and
# "lesson-development".

include(CMakePackageConfigHelpers)

set(include_dir ${CMAKE_INSTALL_INCLUDEDIR}/InkLesson)
set(config_dir ${CMAKE_INSTALL_LIBDIR}/cmake/InkLesson)

install(TARGETS InkLesson EXPORT InkLessonTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT lesson-library NAMELINK_COMPONENT lesson-development
    FILE_SET HEADERS DESTINATION ${include_dir} COMPONENT lesson-development
    INCLUDES DESTINATION ${include_dir} # for a CMake that does not know file sets
)
install(EXPORT InkLessonTargets NAMESPACE Ink:: DESTINATION ${config_dir} COMPONENT lesson-development)

set(generated ${CMAKE_CURRENT_BINARY_DIR}/installed)
write_basic_package_version_file(${generated}/InkLessonConfigVersion.cmake COMPATIBILITY ExactVersion) # no promise yet
install(FILES ${generated}/InkLessonConfigVersion.cmake ${CMAKE_CURRENT_LIST_DIR}/InkLessonConfig.cmake
    DESTINATION ${config_dir} COMPONENT lesson-development)

# Paths start from where the file lies, so that an installed tree may be moved.
cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_INCLUDEDIR BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} OUTPUT_VARIABLE include_root)
cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_LIBDIR BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} OUTPUT_VARIABLE library_root)
file(RELATIVE_PATH prefix_to_include ${CMAKE_INSTALL_PREFIX} ${include_root})
file(RELATIVE_PATH prefix_to_library ${CMAKE_INSTALL_PREFIX} ${library_root})
file(RELATIVE_PATH pkgconfig_to_prefix ${library_root}/pkgconfig ${CMAKE_INSTALL_PREFIX})
cmake_path(NORMAL_PATH pkgconfig_to_prefix)
configure_file(${CMAKE_CURRENT_LIST_DIR}/InkLesson.pc.in ${generated}/InkLesson.pc @ONLY)
install(FILES ${generated}/InkLesson.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT lesson-development)
