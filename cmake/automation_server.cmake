# The automation server for Windows clients, zorKancA.dll: the logic, the Windows computer, and the face of both.
enable_language(RC)

# What COM's interfaces break by themselves: they have virtual functions and no virtual destructor. Texts and the
# system's strings are the same units under two types.
add_library(zorkanca_windows_options INTERFACE)
target_compile_options(zorkanca_windows_options INTERFACE -Wno-non-virtual-dtor -fno-strict-aliasing)

zorkanca_layer(win32 textfiles)
target_link_libraries(zorkanca_win32 PUBLIC zorkanca_windows_options ole32 oleaut32 uuid advapi32 user32 gdi32 shell32
                                            comdlg32)

file(GLOB com_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/com/*.cpp)
add_library(zorkanca_server SHARED ${com_sources})
target_link_libraries(zorkanca_server PRIVATE zorkanca_export zorkanca_xmltemplate zorkanca_win32)
target_link_options(zorkanca_server PRIVATE -static -Wl,--gc-sections -Wl,--enable-stdcall-fixup -s)
set_target_properties(zorkanca_server PROPERTIES PREFIX "" OUTPUT_NAME zorKancA)

zorkanca_precompile()
if(ZORKANCA_TESTS)
  enable_testing()
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  add_subdirectory(tests)
endif()
