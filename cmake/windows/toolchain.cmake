# Debian's compiler for Windows (g++-mingw-w64-x86-64-posix). The libraries made of headers alone are the host's.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix) # the test framework asks for one
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
set(CMAKE_PREFIX_PATH ${CMAKE_CURRENT_LIST_DIR})
# The program stands alone.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
# localtime_r and the like
set(CMAKE_CXX_FLAGS_INIT -D_POSIX_THREAD_SAFE_FUNCTIONS)
