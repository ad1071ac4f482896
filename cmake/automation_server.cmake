# The automation server for Windows clients, zorKancA.dll: the logic, the Windows computer, and the face of both.
enable_language(RC)

# What COM's interfaces break by themselves: they have virtual functions and no virtual destructor. Texts and the
# system's strings are the same units under two types.
add_library(zorkanca_windows_options INTERFACE)
target_compile_options(zorkanca_windows_options INTERFACE -Wno-non-virtual-dtor -fno-strict-aliasing)

zorkanca_layer(win32 textfiles)
set_source_files_properties(${CMAKE_SOURCE_DIR}/src/win32/computer/win32_platform.cpp
                            PROPERTIES COMPILE_DEFINITIONS ZORKANCA_VERSION="${PROJECT_VERSION}")
target_link_libraries(zorkanca_win32 PUBLIC zorkanca_windows_options ole32 oleaut32 uuid advapi32 user32 gdi32 shell32
                                            comdlg32)

# The interface definition, which names things in Czech, is kept in UTF-8; widl takes texts as they come, and the
# system reads them in the code page of Czech users. It is read twice: for the type library and for the C++ header.
find_program(ICONV iconv REQUIRED)
set(idl_folder ${CMAKE_SOURCE_DIR}/src/com/idl)
set(idl_output ${CMAKE_BINARY_DIR}/idl)
set(idl ${idl_output}/zorkanca_idl.idl)
# Where stdole2.tlb lies, which every type library of automation refers to.
find_path(STDOLE_FOLDER stdole2.tlb PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows NO_DEFAULT_PATH
          NO_CMAKE_FIND_ROOT_PATH)
if(NOT STDOLE_FOLDER)
  message(FATAL_ERROR "no stdole2.tlb of Wine: run script/bootstrap --windows")
endif()
file(MAKE_DIRECTORY ${idl_output})
add_custom_command(OUTPUT ${idl} COMMAND ${ICONV} -f UTF-8 -t CP1250 ${idl_folder}/zorkanca.idl > ${idl}
                   DEPENDS ${idl_folder}/zorkanca.idl VERBATIM)
set(widl ${ZORKANCA_WIDL} -I ${idl_folder}/base -L ${STDOLE_FOLDER})
add_custom_command(OUTPUT ${idl_output}/zorkanca_idl.h COMMAND ${widl} -h -o ${idl_output}/zorkanca_idl.h ${idl}
                   DEPENDS ${idl} ${idl_folder}/base/oaidl.idl VERBATIM)
# Each default of a parameter by reference draws a remark about what widl then does right; all others are kept.
add_custom_command(OUTPUT ${idl_output}/zorkanca.tlb DEPENDS ${idl} ${idl_folder}/base/oaidl.idl VERBATIM
                   COMMAND bash -o pipefail -c "\"$0\" \"$@\" 2>&1 | sed '/non-null pointer default value/d'"
                           ${widl} -t -DZORKANCA_TYPE_LIBRARY -o ${idl_output}/zorkanca.tlb ${idl})
add_custom_target(zorkanca_idl DEPENDS ${idl_output}/zorkanca_idl.h ${idl_output}/zorkanca.tlb)

# A library of its own, because windres takes none of the compiler's options.
add_library(zorkanca_resources OBJECT ${CMAKE_SOURCE_DIR}/src/com/zorkanca.rc)
target_include_directories(zorkanca_resources PRIVATE ${idl_output})
set_source_files_properties(${CMAKE_SOURCE_DIR}/src/com/zorkanca.rc PROPERTIES OBJECT_DEPENDS
                            ${idl_output}/zorkanca.tlb)
add_dependencies(zorkanca_resources zorkanca_idl)

file(GLOB com_sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/com/*.cpp)
add_library(zorkanca_server SHARED ${com_sources} ${CMAKE_SOURCE_DIR}/src/com/zorkanca.def
                                   $<TARGET_OBJECTS:zorkanca_resources>)
add_dependencies(zorkanca_server zorkanca_idl)
target_include_directories(zorkanca_server SYSTEM PRIVATE ${idl_output})
target_link_libraries(zorkanca_server PRIVATE zorkanca_export zorkanca_xmltemplate zorkanca_win32)
target_link_options(zorkanca_server PRIVATE -static -Wl,--gc-sections -Wl,--enable-stdcall-fixup -s)
set_target_properties(zorkanca_server PROPERTIES PREFIX "" OUTPUT_NAME zorKancA)

zorkanca_precompile()
if(ZORKANCA_TESTS)
  enable_testing()
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  add_subdirectory(tests)
endif()
if(ZORKANCA_BENCH)
  add_subdirectory(bench)
endif()
