# Cross-builds for arm64 with Debian's compiler and the tree that scripts/arm64 unpacks, and runs what was built in an emulator.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_LIBRARY_ARCHITECTURE aarch64-linux-gnu)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)

if(DEFINED ENV{INK_ARM64_SYSROOT})
    set(CMAKE_SYSROOT $ENV{INK_ARM64_SYSROOT})
else()
    get_filename_component(CMAKE_SYSROOT ${CMAKE_CURRENT_LIST_DIR}/../build/arm64/sysroot ABSOLUTE)
endif()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Qt does not find its plugins by itself: the emulator redirects files, but not the search for Qt's folder.
set(CMAKE_CROSSCOMPILING_EMULATOR
    qemu-aarch64-static -L ${CMAKE_SYSROOT} -E QT_PLUGIN_PATH=${CMAKE_SYSROOT}/usr/lib/aarch64-linux-gnu/qt5/plugins
)
