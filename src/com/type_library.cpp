#include "com/type_library.h"

#include <string>

extern "C" IMAGE_DOS_HEADER __ImageBase;  // the linker's name for the start of the DLL

namespace zorkanca::com {

HMODULE Module() {
  return reinterpret_cast<HMODULE>(&__ImageBase);
}

std::wstring ModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(Module(), path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

HRESULT LoadTypes(win32::ComPointer<ITypeLib>& library) {
  return LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.Receive());
}

}  // namespace zorkanca::com
