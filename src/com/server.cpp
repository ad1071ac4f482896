// The four entry points of the DLL, and the makers of its objects.
#include <algorithm>
#include <array>
#include <atomic>
#include <new>

#include "com/error_report.h"
#include "com/module.h"
#include "com/public_classes.h"
#include "com/registration.h"
#include "com/type_library.h"
#include "win32/automation/com_pointer.h"

namespace zorkanca::com {

namespace {

const std::array<PublicClass, 6> kClasses{{
    {__uuidof(::cZorOffice), L"cZorOffice", NewZorOffice},
    {__uuidof(::cKancelApl), L"cKancelApl", NewKancelApl},
    {__uuidof(::cFormat), L"cFormat", NewFormat},
    {__uuidof(::cAlternativeOfficeManager), L"cAlternativeOfficeManager", NewAlternativeOfficeManager},
    {__uuidof(::cOfficePdfConvert), L"cOfficePdfConvert", NewOfficePdfConvert},
    {__uuidof(::cExcel2003XmlTemplateFactory), L"cExcel2003XmlTemplateFactory", NewXmlTemplateFactory},
}};

class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(const PublicClass& made) : made_(made) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = id == IID_IUnknown || id == IID_IClassFactory ? this : nullptr;
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references_); }
  ULONG STDMETHODCALLTYPE Release() override {
    const long left = --references_;
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    try {
      const auto made = win32::ComPointer<IDispatch>::Owning(made_.make());
      return made->QueryInterface(id, object);
    } catch (...) {
      return ReportErrorBeingHandled(IID_IClassFactory, reinterpret_cast<const char16_t*>(made_.name));
    }
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    LockModule(lock != FALSE);
    return S_OK;
  }

 private:
  ~ClassFactory() = default;

  const ModuleUse use_{};
  std::atomic<long> references_{1};
  const PublicClass& made_;
};

}  // namespace

}  // namespace zorkanca::com

extern "C" {

HRESULT __stdcall DllGetClassObject(REFCLSID id, REFIID interfaceId, LPVOID* object) {
  using namespace zorkanca::com;
  if (!object) return E_POINTER;
  *object = nullptr;
  const auto wanted = std::find_if(kClasses.begin(), kClasses.end(), [&](const auto& each) { return each.id == id; });
  if (wanted == kClasses.end()) return CLASS_E_CLASSNOTAVAILABLE;
  auto* const factory = new (std::nothrow) ClassFactory(*wanted);
  if (!factory) return E_OUTOFMEMORY;
  const HRESULT result = factory->QueryInterface(interfaceId, object);
  factory->Release();
  return result;
}

HRESULT __stdcall DllCanUnloadNow() {
  return zorkanca::com::ModuleInUse() ? S_FALSE : S_OK;
}

HRESULT __stdcall DllRegisterServer() {
  return zorkanca::com::RegisterServer(zorkanca::com::kClasses);
}

HRESULT __stdcall DllUnregisterServer() {
  return zorkanca::com::UnregisterServer(zorkanca::com::kClasses);
}
}
