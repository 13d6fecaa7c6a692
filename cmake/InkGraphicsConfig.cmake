include(CMakeFindDependencyMacro)
find_dependency(Qt5 5.15 COMPONENTS Core Gui Widgets)
include(${CMAKE_CURRENT_LIST_DIR}/InkGraphicsTargets.cmake)
