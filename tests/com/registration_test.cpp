// Registration: what stands in the registry afterwards, and that nothing is left of it in the end.
#include <gtest/gtest.h>

#include "com/server_under_test.h"

namespace zorkanca::testing {
namespace {

constexpr const wchar_t* kClasses[] = {L"cZorOffice",        L"cKancelApl",
                                       L"cFormat",           L"cAlternativeOfficeManager",
                                       L"cOfficePdfConvert", L"cExcel2003XmlTemplateFactory"};

std::string ValueOf(const std::wstring& key, const wchar_t* name = nullptr) {
  wchar_t text[1024] = {};
  DWORD bytes = sizeof text - sizeof(wchar_t);
  const LSTATUS status = RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &bytes);
  return status == 0 ? Utf8(text) : "none";
}

std::vector<std::wstring> Names(const std::wstring& key) {
  std::vector<std::wstring> names;
  HKEY opened = nullptr;
  if (RegOpenKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, KEY_READ, &opened) != 0) return names;
  wchar_t name[300];
  DWORD length = 300;
  for (DWORD index = 0; RegEnumKeyExW(opened, index, name, &length, nullptr, nullptr, nullptr, nullptr) == 0; ++index) {
    names.push_back(name);
    length = 300;
  }
  RegCloseKey(opened);
  return names;
}

// All keys under which anything of ours could stand, the values of interfaces included.
std::vector<std::wstring> Traces() {
  std::vector<std::wstring> traces;
  for (const std::wstring& name : Names(L"")) {
    if (name.starts_with(L"zorKancA")) traces.push_back(name);
  }
  for (const wchar_t* root :
       {L"CLSID\\", L"TypeLib\\", L"Interface\\", L"Wow6432Node\\Interface\\", L"Wow6432Node\\CLSID\\"}) {
    for (const std::wstring& name : Names(root)) {
      const std::wstring key = root + name;
      const std::string text = ValueOf(key);
      if (text.find("zorKancA") != std::string::npos || text.find("_cZor") != std::string::npos ||
          text.find("_cExcel2003") != std::string::npos || text.find("_cKancel") != std::string::npos ||
          ValueOf(key + L"\\4.1").find("Zorix") != std::string::npos) {
        traces.push_back(key);
      }
    }
  }
  return traces;
}

TEST(Registration, EntersAllClassesAndLeavesNothing) {
  const Apartment apartment;
  const auto enter = EntryPoint<HRESULT(__stdcall*)()>("DllRegisterServer");
  const auto leave = EntryPoint<HRESULT(__stdcall*)()>("DllUnregisterServer");
  leave();
  ASSERT_EQ(Traces(), std::vector<std::wstring>());
  ASSERT_EQ(enter(), S_OK);
  EXPECT_EQ(enter(), S_OK);  // once more is no failure
  for (const wchar_t* const name : kClasses) {
    const std::wstring identifier = std::wstring(L"zorKancA.") + name;
    CLSID id{};
    ASSERT_EQ(CLSIDFromProgID(identifier.c_str(), &id), S_OK) << Utf8(name);
    wchar_t braced[39] = {};
    StringFromGUID2(id, braced, 39);
    const std::wstring key = std::wstring(L"CLSID\\") + braced;
    EXPECT_EQ(ValueOf(key), Utf8(identifier.c_str()));
    EXPECT_EQ(ValueOf(key + L"\\InprocServer32"), Utf8(ServerPath().c_str()));
    EXPECT_EQ(ValueOf(key + L"\\InprocServer32", L"ThreadingModel"), "Apartment");
    EXPECT_EQ(ValueOf(key + L"\\ProgID"), Utf8(identifier.c_str()));
    EXPECT_EQ(ValueOf(key + L"\\Version"), "4.1");
    EXPECT_EQ(ValueOf(key + L"\\Programmable"), "");
    EXPECT_EQ(ValueOf(std::wstring(L"TypeLib\\") + Wide(ValueOf(key + L"\\TypeLib")) + L"\\4.1"),
              "Zorix - Vazba na kancelářské aplikace");
    win32::ComPointer<IDispatch> object;
    EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.ReceiveAny()), S_OK);
  }
  CLSID id{};
  EXPECT_NE(CLSIDFromProgID(L"zorKancA.cExcel2003XmlWorksheet", &id), S_OK);
  EXPECT_EQ(leave(), S_OK);
  EXPECT_EQ(Traces(), std::vector<std::wstring>());
  EXPECT_EQ(leave(), S_OK);
}

TEST(Registration, UnknownClassesAndAggregationAreRefused) {
  const Apartment apartment;
  const auto getClassObject = EntryPoint<HRESULT(__stdcall*)(REFCLSID, REFIID, void**)>("DllGetClassObject");
  void* object = nullptr;
  EXPECT_EQ(getClassObject(__uuidof(::cExcel2003XmlWorksheet), IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(getClassObject(IID_IUnknown, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(getClassObject(__uuidof(::cFormat), IID_IDispatch, &object), E_NOINTERFACE);
  EXPECT_EQ(getClassObject(__uuidof(::cFormat), IID_IClassFactory, nullptr), E_POINTER);
  win32::ComPointer<IClassFactory> factory;
  ASSERT_EQ(getClassObject(__uuidof(::cFormat), IID_IClassFactory, factory.ReceiveAny()), S_OK);
  EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IPersist, &object), E_NOINTERFACE);
}

TEST(Registration, TheLibraryStaysLoadedWhileAnythingLives) {
  const Apartment apartment;
  const auto canUnload = EntryPoint<HRESULT(__stdcall*)()>("DllCanUnloadNow");
  ASSERT_EQ(canUnload(), S_OK);
  {
    auto office = New<::_cZorOffice>(__uuidof(::cZorOffice));
    ASSERT_TRUE(office);
    EXPECT_EQ(canUnload(), S_FALSE);
    win32::ComPointer<IConnectionPoint> point;
    office.As<IConnectionPointContainer>()->FindConnectionPoint(__uuidof(::__cZorOffice), point.Receive());
    office.Reset();
    EXPECT_EQ(canUnload(), S_FALSE);  // the connection point outlives its object
    win32::ComPointer<IConnectionPointContainer> container;
    EXPECT_EQ(point->GetConnectionPointContainer(container.Receive()), E_UNEXPECTED);
  }
  EXPECT_EQ(canUnload(), S_OK);
  win32::ComPointer<IClassFactory> factory;
  EntryPoint<HRESULT(__stdcall*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(__uuidof(::cFormat), IID_IClassFactory,
                                                                                 factory.ReceiveAny());
  factory->LockServer(TRUE);
  factory.Reset();
  EXPECT_EQ(canUnload(), S_FALSE);
  EntryPoint<HRESULT(__stdcall*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(__uuidof(::cFormat), IID_IClassFactory,
                                                                                 factory.ReceiveAny());
  factory->LockServer(FALSE);
  factory.Reset();
  EXPECT_EQ(canUnload(), S_OK);
}

}  // namespace
}  // namespace zorkanca::testing
