// What the system's registry knows of the server.
#pragma once

#include <span>

#include "win32/system.h"

namespace zorkanca::com {

/// A class that clients can create.
struct PublicClass {
  CLSID id;
  const wchar_t* name;  ///< of the type library; the programmatic identifier is "zorKancA." and this
  IDispatch* (*make)();
};

/// Enters the classes and the type library. Returns SELFREG_E_CLASS or SELFREG_E_TYPELIB.
HRESULT RegisterServer(std::span<const PublicClass> classes);
/// Takes out all that `RegisterServer` enters; what is not there is no failure.
HRESULT UnregisterServer(std::span<const PublicClass> classes);

}  // namespace zorkanca::com
