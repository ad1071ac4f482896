# 32-bit Windows, whose programs cannot be run here: Debian's 64-bit Wine has none of the libraries.
set(CMAKE_SYSTEM_PROCESSOR i686)
set(ZORKANCA_TARGET i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
