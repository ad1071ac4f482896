# 64-bit Windows. Its programs run here, under Wine.
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(ZORKANCA_TARGET x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../script/wine)
