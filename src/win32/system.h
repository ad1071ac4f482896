// The system's headers: all that src/win32 and src/com include of them. Sources include this last, so that no macro of
// theirs reaches the headers of the project.
#pragma once

#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#define UNICODE
#define _UNICODE
#define _WIN32_WINNT 0x0601

// clang-format off: each header needs those before it
#include <commdlg.h>
#include <dispex.h>
#include <ocidl.h>
#include <ole2.h>
#include <olectl.h>
#include <shellapi.h>
#include <shlobj.h>
#include <windows.h>
// clang-format on

// Macros that would rename members of ours.
#undef DeleteFile
#undef GetObject
#undef GetTempFileName
#undef CopyFile
#undef FindText
#undef ReplaceText
#undef CreateFile
#undef RegisterEventSource
#undef ERROR
