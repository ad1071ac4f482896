#include "com/registration.h"

#include <array>
#include <string>

#include "com/type_library.h"
#include "win32/automation/com_pointer.h"

namespace zorkanca::com {

namespace {

constexpr const wchar_t* kVersion = L"4.1";

std::wstring Braced(REFGUID id) {
  std::array<wchar_t, 39> text{};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return text.data();
}

std::wstring ProgrammaticId(const PublicClass& each) {
  return std::wstring(L"zorKancA.") + each.name;
}

std::wstring ClassKey(const PublicClass& each) {
  return L"CLSID\\" + Braced(each.id);
}

// One value of a key below HKEY_CLASSES_ROOT, the unnamed one when no name is given.
bool Enter(const std::wstring& key, const std::wstring& text, const wchar_t* name = nullptr) {
  HKEY opened = nullptr;
  if (RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &opened, nullptr) != 0) {
    return false;
  }
  const LSTATUS status = RegSetValueExW(opened, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
  RegCloseKey(opened);
  return status == 0;
}

bool Exists(const std::wstring& key) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, KEY_READ, &opened) != 0) return false;
  RegCloseKey(opened);
  return true;
}

bool Remove(const std::wstring& key) {
  const LSTATUS status = RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
  return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
}

bool EnterClass(const PublicClass& each, const std::wstring& path, const std::wstring& libraryId) {
  const std::wstring key = ClassKey(each);
  const std::wstring name = ProgrammaticId(each);
  return Enter(key, name) && Enter(key + L"\\InprocServer32", path) &&
         Enter(key + L"\\InprocServer32", L"Apartment", L"ThreadingModel") && Enter(key + L"\\ProgID", name) &&
         Enter(key + L"\\TypeLib", libraryId) && Enter(key + L"\\Version", kVersion) &&
         Enter(key + L"\\Programmable", L"") && Enter(name, name) && Enter(name + L"\\CLSID", Braced(each.id));
}

struct LibraryIdentity {
  GUID id;
  WORD major;
  WORD minor;
  LCID language;
  SYSKIND system;
};

HRESULT Identify(ITypeLib& library, LibraryIdentity& identity) {
  TLIBATTR* attributes = nullptr;
  const HRESULT result = library.GetLibAttr(&attributes);
  if (FAILED(result)) return result;
  identity = {attributes->guid, attributes->wMajorVerNum, attributes->wMinorVerNum, attributes->lcid,
              attributes->syskind};
  library.ReleaseTLibAttr(attributes);
  return S_OK;
}

}  // namespace

HRESULT RegisterServer(std::span<const PublicClass> classes) {
  win32::ComPointer<ITypeLib> library;
  LibraryIdentity identity{};
  if (FAILED(LoadTypes(library)) || FAILED(Identify(*library.get(), identity))) return SELFREG_E_TYPELIB;
  const std::wstring path = ModulePath();
  for (const PublicClass& each : classes) {
    if (!EnterClass(each, path, Braced(identity.id))) return SELFREG_E_CLASS;
  }
  std::wstring room = path;  // the system takes it writable
  return SUCCEEDED(RegisterTypeLib(library.get(), room.data(), nullptr)) ? S_OK : SELFREG_E_TYPELIB;
}

HRESULT UnregisterServer(std::span<const PublicClass> classes) {
  win32::ComPointer<ITypeLib> library;
  LibraryIdentity identity{};
  if (FAILED(LoadTypes(library)) || FAILED(Identify(*library.get(), identity))) return SELFREG_E_TYPELIB;
  const bool entered = Exists(L"TypeLib\\" + Braced(identity.id) + L"\\" + kVersion);
  const HRESULT left =
      entered ? UnRegisterTypeLib(identity.id, identity.major, identity.minor, identity.language, identity.system)
              : S_OK;
  bool removed = true;
  for (const PublicClass& each : classes) {
    removed = Remove(ClassKey(each)) && removed;
    removed = Remove(ProgrammaticId(each)) && removed;
  }
  if (!removed) return SELFREG_E_CLASS;
  return SUCCEEDED(left) ? S_OK : SELFREG_E_TYPELIB;
}

}  // namespace zorkanca::com
