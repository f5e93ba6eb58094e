# Flags hang on this target, so that every part of the project is built alike.
add_library(kevra_flags INTERFACE)
target_compile_options(kevra_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
# Wide vectors never cross from one function to another: those that use them are inlined.
target_compile_options(kevra_flags INTERFACE -Wno-psabi)
if(KEVRA_WERROR)
    target_compile_options(kevra_flags INTERFACE -Werror)
endif()
if(KEVRA_SANITIZE)
    # GCC takes what the sanitizers put in for uses of values never set; the build without them has this warning.
    target_compile_options(kevra_flags INTERFACE -fsanitize=${KEVRA_SANITIZE} -fno-omit-frame-pointer
                                                 -fno-sanitize-recover=all
                                                 $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_link_options(kevra_flags INTERFACE -fsanitize=${KEVRA_SANITIZE})
endif()

find_program(CCACHE ccache)
if(CCACHE)
    # Precompiled headers and __TIME__ need these two, or every file that uses a precompiled header misses.
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
                                    CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${CCACHE})
endif()
