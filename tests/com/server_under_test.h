// The DLL that is tested: objects without registration, and what it shows to the user without a user.
#pragma once

#include <string>
#include <vector>

#include "win32/automation/com_pointer.h"
#include "win32/automation/late_object.h"
#include "win32/system.h"

#include <zorkanca_idl.h>

namespace zorkanca::testing {

/// COM in this thread for as long as it lives.
class Apartment {
 public:
  Apartment() { OleInitialize(nullptr); }
  ~Apartment() { OleUninitialize(); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

/// What the library asked of the system's user interface, and how it was answered. There is one: the library calls
/// plain functions.
struct Desktop {
  std::vector<std::string> messages;  ///< "title: text" of message boxes
  std::vector<std::string> opened;    ///< files handed to the shell
  int answer = IDOK;                  ///< of message boxes
  INT_PTR shellResult = 42;

  /// The lines since the last time, joined by " | ".
  std::string Messages();
  std::string Opened();
};
Desktop& TheDesktop();

/// The library beside the test program, loaded once, with its user interface replaced.
HMODULE ServerModule();
std::wstring ServerPath();

/// A new object of a class. Returns the factory's result.
HRESULT Create(REFCLSID id, REFIID interfaceId, void** object);
/// @param className  of the type library, for example "cZorOffice"
win32::LateObject CreateByName(const std::wstring& className);
template <typename Interface>
win32::ComPointer<Interface> New(REFCLSID id) {
  win32::ComPointer<Interface> object;
  win32::ComPointer<IDispatch> made;
  if (SUCCEEDED(Create(id, IID_IDispatch, made.ReceiveAny()))) object = made.As<Interface>();
  return object;
}

/// The same for the four entry points.
template <typename Function>
Function EntryPoint(const char* name) {
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(ServerModule(), name)));
}

/// A new empty folder below the temporary one, with a separator at its end; it goes with the object.
class TestFolder {
 public:
  TestFolder();
  ~TestFolder();
  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;

  const std::wstring& path() const { return path_; }
  std::wstring File(const std::wstring& name) const { return path_ + name; }

 private:
  std::wstring path_;
};

/// All bytes of a file; empty when it is not there.
std::string BytesOf(const std::wstring& path);
void WriteBytes(const std::wstring& path, const std::string& bytes);
/// Text of a value, as the tests print it: UTF-8.
std::string Utf8(const wchar_t* text);
std::wstring Wide(const std::string& utf8);

}  // namespace zorkanca::testing
