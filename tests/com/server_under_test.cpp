#include "com/server_under_test.h"

#include <array>
#include <cstdio>
#include <cstring>

#include "runtime/utf8.h"
#include "win32/wide_text.h"

namespace zorkanca::testing {

namespace {

std::string Joined(std::vector<std::string>& lines) {
  std::string joined;
  for (const std::string& line : lines) joined.append(joined.empty() ? "" : " | ").append(line);
  lines.clear();
  return joined;
}

int __stdcall RecordMessage(HWND, const wchar_t* text, const wchar_t* title, UINT) {
  TheDesktop().messages.push_back(Utf8(title) + ": " + Utf8(text));
  return TheDesktop().answer;
}

HINSTANCE __stdcall RecordOpening(HWND, const wchar_t*, const wchar_t* file, const wchar_t*, const wchar_t*, INT) {
  TheDesktop().opened.push_back(Utf8(file));
  return reinterpret_cast<HINSTANCE>(TheDesktop().shellResult);
}

// Puts a function in the place of one that the module imports, by the module's own table of imports.
void Replace(HMODULE module, const char* name, void* function) {
  auto* const base = reinterpret_cast<std::byte*>(module);
  const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* const headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  const auto& directory = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  const auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
  for (; library->Name != 0; ++library) {
    const auto* names = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + library->OriginalFirstThunk);
    auto* places = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->FirstThunk);
    for (; names->u1.AddressOfData != 0; ++names, ++places) {
      if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
      const auto* import = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
      if (std::strcmp(reinterpret_cast<const char*>(import->Name), name) != 0) continue;
      DWORD before = 0;
      VirtualProtect(places, sizeof *places, PAGE_READWRITE, &before);
      places->u1.Function = reinterpret_cast<ULONG_PTR>(function);
      VirtualProtect(places, sizeof *places, before, &before);
    }
  }
}

HMODULE Load() {
  const HMODULE module = LoadLibraryW(ServerPath().c_str());
  if (!module) {
    std::fprintf(stderr, "the library cannot be loaded: %lu\n", GetLastError());
    std::exit(1);
  }
  Replace(module, "MessageBoxW", reinterpret_cast<void*>(&RecordMessage));
  Replace(module, "ShellExecuteW", reinterpret_cast<void*>(&RecordOpening));
  return module;
}

}  // namespace

std::string Desktop::Messages() {
  return Joined(messages);
}

std::string Desktop::Opened() {
  return Joined(opened);
}

Desktop& TheDesktop() {
  static Desktop desktop;
  return desktop;
}

std::wstring ServerPath() {
  std::array<wchar_t, 1024> program{};
  GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
  const std::wstring path(program.data());
  return path.substr(0, path.rfind(L'\\') + 1) + L"zorKancA.dll";
}

HMODULE ServerModule() {
  static const HMODULE module = Load();
  return module;
}

HRESULT Create(REFCLSID id, REFIID interfaceId, void** object) {
  const auto getClassObject = EntryPoint<HRESULT(__stdcall*)(REFCLSID, REFIID, void**)>("DllGetClassObject");
  win32::ComPointer<IClassFactory> factory;
  const HRESULT result = getClassObject(id, IID_IClassFactory, factory.ReceiveAny());
  return FAILED(result) ? result : factory->CreateInstance(nullptr, interfaceId, object);
}

win32::LateObject CreateByName(const std::wstring& className) {
  win32::ComPointer<ITypeLib> library;
  LoadTypeLibEx(ServerPath().c_str(), REGKIND_NONE, library.Receive());
  ITypeInfo* found = nullptr;
  MEMBERID id = 0;
  USHORT count = 1;
  std::wstring name = className;
  library->FindName(name.data(), 0, &found, &id, &count);
  const auto typeInfo = win32::ComPointer<ITypeInfo>::Owning(found);
  TYPEATTR* attributes = nullptr;
  if (!found || FAILED(typeInfo->GetTypeAttr(&attributes))) return {};
  const CLSID classId = attributes->guid;
  typeInfo->ReleaseTypeAttr(attributes);
  win32::ComPointer<IDispatch> object;
  Create(classId, IID_IDispatch, object.ReceiveAny());
  return win32::LateObject(object);
}

TestFolder::TestFolder() {
  static int number = 0;
  std::array<wchar_t, MAX_PATH + 1> folder{};
  GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
  path_ = std::wstring(folder.data()) + L"zk" + std::to_wstring(GetCurrentProcessId()) + L"_" +
          std::to_wstring(++number) + L"\\";
  CreateDirectoryW(path_.c_str(), nullptr);
}

TestFolder::~TestFolder() {
  WIN32_FIND_DATAW entry{};
  const HANDLE search = FindFirstFileW(File(L"*").c_str(), &entry);
  if (search != INVALID_HANDLE_VALUE) {
    do {
      DeleteFileW(File(entry.cFileName).c_str());
    } while (FindNextFileW(search, &entry));
    FindClose(search);
  }
  RemoveDirectoryW(path_.c_str());
}

std::string BytesOf(const std::wstring& path) {
  std::string bytes;
  FILE* const file = _wfopen(path.c_str(), L"rb");
  if (!file) return bytes;
  std::array<char, 4096> piece{};
  for (std::size_t count = 0; (count = std::fread(piece.data(), 1, piece.size(), file)) > 0;) {
    bytes.append(piece.data(), count);
  }
  std::fclose(file);
  return bytes;
}

void WriteBytes(const std::wstring& path, const std::string& bytes) {
  FILE* const file = _wfopen(path.c_str(), L"wb");
  if (!file) return;
  std::fwrite(bytes.data(), 1, bytes.size(), file);
  std::fclose(file);
}

std::string Utf8(const wchar_t* text) {
  return ToUtf8(win32::FromWide(text));
}

std::wstring Wide(const std::string& utf8) {
  const Text text = FromUtf8(utf8);
  return std::wstring(win32::Wide(text), text.size());
}

}  // namespace zorkanca::testing
