// The system's headers: the one place where src/win32 and src/com get them from. Their macros that would rename members
// of ours are taken away again.
#pragma once

#ifndef UNICODE
#define UNICODE
#endif
#ifndef NOMINMAX  // the compiler's own library defines it, too
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#undef _WIN32_WINNT
#define _WIN32_WINNT 0x0601

#include <windows.h>

#include <ole2.h>

#include <commdlg.h>
#include <dispex.h>
#include <ocidl.h>
#include <olectl.h>
#include <shellapi.h>
#include <shlobj.h>

#undef CopyFile
#undef CreateFile
#undef DeleteFile
#undef FindText
#undef GetObject
#undef GetTempFileName
#undef ReplaceText
#undef ERROR
