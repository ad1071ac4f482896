// What all our objects have in common: the count of their references, calls by name, and errors that clients can read.
#pragma once

#include <atomic>

#include "com/error_report.h"
#include "com/invoke.h"
#include "com/module.h"
#include "com/type_library.h"

namespace zorkanca::com {

/// An object of one thread, behind a dual interface. The last reference deletes it.
/// @tparam Dual    the interface, first in the object: calls through the type library go by its address
/// @tparam Class   the class of the type library
/// @tparam Events  its default source, void when it has none
template <typename Dual, typename Class, typename Events = void>
class AutomationObject : public Dual, public ISupportErrorInfo, public IProvideClassInfo2 {
 public:
  AutomationObject(const AutomationObject&) = delete;
  AutomationObject& operator=(const AutomationObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = Interface(id);
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

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** typeInfo) override {
    if (!typeInfo) return E_POINTER;
    *typeInfo = nullptr;
    return index == 0 ? description_.TypeInfo(typeInfo) : DISP_E_BADINDEX;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    return names && ids ? description_.IdsOfNames(names, count, ids) : E_POINTER;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID language, WORD flags, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* failure, UINT* wrongArgument) override {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    return com::Invoke(description_, this, {id, language, flags, arguments, result, failure, wrongArgument});
  }

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override {
    return id == __uuidof(Dual) ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** typeInfo) override {
    if (!typeInfo) return E_POINTER;
    *typeInfo = nullptr;
    win32::ComPointer<ITypeLib> library;
    const HRESULT result = LoadTypes(library);
    return FAILED(result) ? result : library->GetTypeInfoOfGuid(__uuidof(Class), typeInfo);
  }
  HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* id) override {
    if (!id) return E_POINTER;
    *id = GUID_NULL;
    if constexpr (!std::is_void_v<Events>) {
      if (kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID) {
        *id = __uuidof(Events);
        return S_OK;
      }
    }
    return E_INVALIDARG;
  }

 protected:
  explicit AutomationObject(TextView className) : className_(className) {}
  virtual ~AutomationObject() = default;

  /// One of the object's interfaces, not counted; null for others.
  virtual void* Interface(REFIID id) {
    if (id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(Dual)) return static_cast<Dual*>(this);
    if (id == IID_ISupportErrorInfo) return static_cast<ISupportErrorInfo*>(this);
    if (id == IID_IProvideClassInfo || id == IID_IProvideClassInfo2) return static_cast<IProvideClassInfo2*>(this);
    return nullptr;
  }

  /// The body of every member: what it raises is reported to the client. The object lives at least until the end,
  /// whatever the client's handlers of events release meanwhile.
  template <typename Body>
  HRESULT Guard(const Body& body) {
    const win32::ComPointer<Dual> alive(this);
    SetErrorInfo(0, nullptr);
    try {
      body();
      return S_OK;
    } catch (...) {
      return ReportErrorBeingHandled(__uuidof(Dual), className_);
    }
  }

 private:
  const ModuleUse use_;
  std::atomic<long> references_{1};
  TextView className_;
  InterfaceDescription description_{__uuidof(Dual)};
};

}  // namespace zorkanca::com
