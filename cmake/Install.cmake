# What `cmake --install` puts where. Two components: "library" is what a program needs to run, "development" what it
# needs to be built with CMake, pkg-config or qmake. The board is a third one, "board": see board/CMakeLists.txt. InkLesson has two of its own.

include(CMakePackageConfigHelpers)

set(include_dir ${CMAKE_INSTALL_INCLUDEDIR}/InkGraphics)
set(config_dir ${CMAKE_INSTALL_LIBDIR}/cmake/InkGraphics)
set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
set(qmake_dir ${CMAKE_INSTALL_LIBDIR}/InkGraphics)
set(INK_QMAKE_MODULES ${CMAKE_INSTALL_LIBDIR}/qt5/mkspecs/modules CACHE STRING "Folder of modules for qmake, in the prefix")

install(TARGETS InkGraphics EXPORT InkGraphicsTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
    FILE_SET HEADERS DESTINATION ${include_dir} COMPONENT development
    FILE_SET generated DESTINATION ${include_dir} COMPONENT development
    INCLUDES DESTINATION ${include_dir} # for a CMake that does not know file sets
)
install(EXPORT InkGraphicsTargets NAMESPACE Ink:: DESTINATION ${config_dir} COMPONENT development)

# Whoever links the static library links what that uses itself, and tells our headers.
set(cmake_modules Core Gui)
set(static_definition "")
set(pkgconfig_definition "")
set(qmake_module_config "")
if(NOT BUILD_SHARED_LIBS)
    list(APPEND cmake_modules Widgets)
    set(static_definition INKGRAPHICS_STATIC)
    set(pkgconfig_definition "-DINKGRAPHICS_STATIC ")
    set(qmake_module_config staticlib)
endif()
list(TRANSFORM cmake_modules REPLACE "(.+)" "Qt5\\1 >= 5.15" OUTPUT_VARIABLE pkgconfig_modules)
string(TOLOWER "${cmake_modules}" qmake_modules)
foreach(modules cmake_modules pkgconfig_modules qmake_modules)
    list(JOIN ${modules} " " ${modules})
endforeach()

# Paths in these start from where the file lies, so that an installed tree may be moved.
cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_INCLUDEDIR BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} OUTPUT_VARIABLE include_root)
cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_LIBDIR BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} OUTPUT_VARIABLE library_root)
cmake_path(ABSOLUTE_PATH INK_QMAKE_MODULES BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} OUTPUT_VARIABLE module_root)
file(RELATIVE_PATH prefix_to_include ${CMAKE_INSTALL_PREFIX} ${include_root})
file(RELATIVE_PATH prefix_to_library ${CMAKE_INSTALL_PREFIX} ${library_root})
file(RELATIVE_PATH pkgconfig_to_prefix ${library_root}/pkgconfig ${CMAKE_INSTALL_PREFIX})
file(RELATIVE_PATH qmake_to_include ${library_root}/InkGraphics ${include_root})
file(RELATIVE_PATH module_to_include ${module_root} ${include_root})
file(RELATIVE_PATH module_to_library ${module_root} ${library_root})
cmake_path(NORMAL_PATH pkgconfig_to_prefix)

set(generated ${CMAKE_CURRENT_BINARY_DIR}/installed)
foreach(file InkGraphics.pc InkGraphics.pri InkGraphicsConfig.cmake qt_InkGraphics.pri)
    configure_file(${CMAKE_CURRENT_LIST_DIR}/${file}.in ${generated}/${file} @ONLY)
endforeach()
write_basic_package_version_file(${generated}/InkGraphicsConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${generated}/InkGraphicsConfigVersion.cmake ${generated}/InkGraphicsConfig.cmake
    DESTINATION ${config_dir} COMPONENT development)
install(FILES ${generated}/InkGraphics.pc DESTINATION ${pkgconfig_dir} COMPONENT development)
install(FILES ${generated}/InkGraphics.pri DESTINATION ${qmake_dir} COMPONENT development)
install(FILES ${generated}/qt_InkGraphics.pri DESTINATION ${INK_QMAKE_MODULES} COMPONENT development)
