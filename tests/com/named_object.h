// Automation objects of the tests: members by a list of names, calls in one function.
#pragma once

#include <vector>

#include "win32/automation/com_pointer.h"
#include "win32/automation/variant.h"
#include "win32/system.h"

namespace zorkanca::testing {

/// Member n (from 1) is the n-th name; 0 is the default member. The last reference deletes it.
class NamedObject : public IDispatch {
 public:
  explicit NamedObject(std::vector<const wchar_t*> names) : names_(std::move(names)) {}
  NamedObject(const NamedObject&) = delete;
  NamedObject& operator=(const NamedObject&) = delete;

  HRESULT __stdcall QueryInterface(REFIID id, void** object) override {
    *object = id == IID_IUnknown || id == IID_IDispatch || id == also_ ? this : nullptr;
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG __stdcall AddRef() override { return static_cast<ULONG>(++references_); }
  ULONG __stdcall Release() override {
    const long left = --references_;
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }
  HRESULT __stdcall GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
  HRESULT __stdcall GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT __stdcall GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    for (UINT index = 0; index < count; ++index) ids[index] = DISPID_UNKNOWN;
    for (std::size_t id = 0; id < names_.size(); ++id) {
      if (_wcsicmp(names_[id], names[0]) == 0) ids[0] = static_cast<DISPID>(id + 1);
    }
    return ids[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
  }
  HRESULT __stdcall Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* failure,
                           UINT*) override {
    win32::Variant unwanted;
    return Call(id, *parameters, result ? *result : *unwanted.Receive(), failure);
  }

 protected:
  virtual ~NamedObject() = default;
  /// @param result  Empty
  virtual HRESULT Call(DISPID member, DISPPARAMS& parameters, VARIANT& result, EXCEPINFO* failure) = 0;
  /// The object answers to this interface, too.
  void AnswerTo(REFIID id) { also_ = id; }

  /// An argument by its position from 0.
  static const VARIANT& Argument(const DISPPARAMS& parameters, UINT position) {
    return parameters.rgvarg[parameters.cArgs - 1 - position];
  }

 private:
  std::vector<const wchar_t*> names_;
  IID also_ = IID_IDispatch;
  long references_ = 0;
};

}  // namespace zorkanca::testing
