# Interface targets that say how our own code is compiled. Nothing here is installed.

add_library(ink_warnings INTERFACE)
target_compile_options(ink_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Woverloaded-virtual)
if(PROJECT_IS_TOP_LEVEL) # a project that adds this one is not stopped by a warning of a newer compiler
    target_compile_options(ink_warnings INTERFACE -Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(ink_warnings INTERFACE -Wsuggest-override)
    if(INK_SANITIZE) # its code hides from the compiler what has been initialised
        target_compile_options(ink_warnings INTERFACE -Wno-maybe-uninitialized)
    endif()
endif()

add_library(ink_instrumented INTERFACE)
if(INK_SANITIZE)
    target_compile_options(ink_instrumented INTERFACE -fsanitize=${INK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(ink_instrumented INTERFACE -fsanitize=${INK_SANITIZE})
    target_compile_definitions(ink_instrumented INTERFACE QT_FORCE_ASSERTS) # checks every index into a Qt container
endif()
if(INK_COVERAGE)
    target_compile_options(ink_instrumented INTERFACE --coverage -fprofile-abs-path)
    target_link_options(ink_instrumented INTERFACE --coverage)
endif()

# A multiplication fused with an addition is rounded once, so that points would differ between processors. For the library, and for
# what is compiled to be compared with it.
add_library(ink_unfused INTERFACE)
target_compile_options(ink_unfused INTERFACE $<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:-ffp-contract=off>)
