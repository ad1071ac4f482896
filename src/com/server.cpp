// The entry points of the library.
#include "win32/system.h"

extern "C" HRESULT __stdcall DllCanUnloadNow() {
  return S_FALSE;
}
