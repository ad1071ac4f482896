# Cross-compiles for Windows with Debian's mingw-w64; the tool chain file that includes this has set ZORKANCA_TARGET.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_C_COMPILER ${ZORKANCA_TARGET}-gcc-posix)  # of GoogleTest's project line
set(CMAKE_CXX_COMPILER ${ZORKANCA_TARGET}-g++-posix)
set(CMAKE_RC_COMPILER ${ZORKANCA_TARGET}-windres)
set(ZORKANCA_WIDL ${ZORKANCA_TARGET}-widl)
set(ZORKANCA_OBJDUMP ${ZORKANCA_TARGET}-objdump)

set(CMAKE_FIND_ROOT_PATH /usr/${ZORKANCA_TARGET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)  # the compiler's own libraries are nowhere on a Windows computer
