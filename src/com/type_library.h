// The type library, which lies in the DLL as a resource, and what the definition of its interfaces says in C++.
#pragma once

#include <string>

#include "win32/automation/com_pointer.h"
#include "win32/system.h"

#include <zorkanca_idl.h>

namespace zorkanca::com {

/// The DLL itself.
HMODULE Module();
/// Full path of the DLL.
std::wstring ModulePath();

/// Errors: the system's HRESULT when the library cannot be read.
HRESULT LoadTypes(win32::ComPointer<ITypeLib>& library);

}  // namespace zorkanca::com
