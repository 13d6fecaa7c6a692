include(CMakeFindDependencyMacro)
find_dependency(InkGraphics)
find_dependency(Qt5 5.15 COMPONENTS Core Gui)
include(${CMAKE_CURRENT_LIST_DIR}/InkLessonTargets.cmake)
