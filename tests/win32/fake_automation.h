// Automation objects of a test: every name is a member of theirs, and what is done with them is written into a journal.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "runtime/utf8.h"
#include "win32/automation/late_object.h"
#include "win32/automation/safe_array.h"
#include "win32/wide_text.h"

namespace zorkanca::testing {

using win32::ComPointer;
using win32::FromWide;
using win32::LateObject;
using win32::ToVariant;
using win32::Variant;

class FakeObject;

/// What an object tells of a failure.
struct Report {
  WORD wCode = 0;
  SCODE scode = 0;
  const wchar_t* source = nullptr;
  const wchar_t* description = nullptr;
  bool deferred = false;  ///< the description is filled in when it is asked for
};

/// What the objects of a test share.
class FakeWorld {
 public:
  std::map<std::string, Variant> values;    ///< what the members of that name hold; the others hold objects
  std::set<std::string> nothing;            ///< members that hold "Nothing"
  std::set<std::string> missing;            ///< members that no object has
  std::map<std::string, HRESULT> failures;  ///< how calls of members end
  std::map<std::string, Report> reports;    ///< the same with a report
  int rejections = 0;                       ///< so many calls are refused because the server is busy
  HRESULT rejection = RPC_E_CALL_REJECTED;
  bool knowsArgumentNames = true;
  bool isScript = false;  ///< answers as objects of scripts do
  std::vector<std::string> journal;
  int living = 0;  ///< objects

  /// The first object; the path of all others begins at it.
  LateObject Root();
  /// The journal's lines since the last time.
  std::string Lines() {
    std::string lines;
    for (const std::string& line : journal) lines.append(lines.empty() ? "" : " | ").append(line);
    journal.clear();
    return lines;
  }

 private:
  friend class FakeObject;
  DISPID IdOf(const std::string& name) {
    const auto known = std::find(names_.begin(), names_.end(), name);
    if (known == names_.end()) return names_.push_back(name), static_cast<DISPID>(names_.size());
    return static_cast<DISPID>(known - names_.begin()) + 1;
  }
  std::string NameOf(DISPID id) const { return id <= 0 ? std::string() : names_[static_cast<std::size_t>(id) - 1]; }

  std::vector<std::string> names_;
};

class FakeObject final : public IDispatchEx {
 public:
  FakeObject(FakeWorld& world, std::string place) : path(std::move(place)), world_(world) { ++world_.living; }

  const std::string path;

  HRESULT __stdcall QueryInterface(REFIID id, void** object) override {
    const bool extended = world_.isScript && id == __uuidof(IDispatchEx);
    *object = id == IID_IUnknown || id == IID_IDispatch || extended ? this : nullptr;
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG __stdcall AddRef() override { return ++references_; }
  ULONG __stdcall Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT __stdcall GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
  HRESULT __stdcall GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT __stdcall GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    if (world_.isScript) return E_NOTIMPL;
    if (Rejects()) return world_.rejection;
    HRESULT result = S_OK;
    for (UINT index = 0; index < count; ++index) {
      const std::string name = ToUtf8(FromWide(names[index]));
      const bool known = !world_.missing.contains(name) && (index == 0 || world_.knowsArgumentNames);
      ids[index] = known ? world_.IdOf(name) : DISPID_UNKNOWN;
      if (!known) result = DISP_E_UNKNOWNNAME;
    }
    return result;
  }
  HRESULT __stdcall Invoke(DISPID id, REFIID, LCID language, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                           EXCEPINFO* report, UINT*) override {
    if (language != win32::kAutomationLanguage) return DISP_E_UNKNOWNLCID;
    if (Rejects()) return world_.rejection;
    if (id == DISPID_VALUE && parameters->cArgs == 0) {  // asked when an object is to be turned into a text or a number
      *result = win32::TextToVariant(FromUtf8(path)).Detach();
      return S_OK;
    }
    const std::string name = world_.NameOf(id);
    if (const auto failure = world_.failures.find(name); failure != world_.failures.end()) return failure->second;
    if (const auto told = world_.reports.find(name); told != world_.reports.end()) return Tell(told->second, *report);
    const std::string member = id == DISPID_VALUE ? path : path.empty() ? name : path + "." + name;
    if (kind == DISPATCH_PROPERTYPUT) {
      if (parameters->cNamedArgs != 1 || *parameters->rgdispidNamedArgs != DISPID_PROPERTYPUT) return E_INVALIDARG;
      world_.journal.push_back(member + " = " + Shown(*parameters->rgvarg));
      return S_OK;
    }
    const bool method = kind == DISPATCH_METHOD;
    if (method != (result == nullptr)) return E_INVALIDARG;
    const std::string called = member + (parameters->cArgs > 0 || method ? "(" + Arguments(*parameters) + ")" : "");
    return Answer(name, called, result);
  }

  HRESULT __stdcall GetDispID(BSTR name, DWORD, DISPID* id) override {
    const std::string member = ToUtf8(FromWide(name));
    if (world_.missing.contains(member)) return DISP_E_UNKNOWNNAME;
    *id = world_.IdOf(member);
    return S_OK;
  }
  HRESULT __stdcall InvokeEx(DISPID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, IServiceProvider*) override {
    return E_NOTIMPL;
  }
  HRESULT __stdcall DeleteMemberByName(BSTR, DWORD) override { return E_NOTIMPL; }
  HRESULT __stdcall DeleteMemberByDispID(DISPID) override { return E_NOTIMPL; }
  HRESULT __stdcall GetMemberProperties(DISPID, DWORD, DWORD*) override { return E_NOTIMPL; }
  HRESULT __stdcall GetMemberName(DISPID, BSTR*) override { return E_NOTIMPL; }
  HRESULT __stdcall GetNextDispID(DWORD, DISPID, DISPID*) override { return E_NOTIMPL; }
  HRESULT __stdcall GetNameSpaceParent(IUnknown**) override { return E_NOTIMPL; }

  /// An argument, with the mark of its type: 1% Integer, 1 Long, 1.5! Single, 1.5# Double; "-" when it is left out.
  static std::string Shown(const VARIANT& argument) {
    switch (argument.vt) {
      case VT_BSTR:
        return "\"" + ToUtf8(FromWide(argument.bstrVal, SysStringLen(argument.bstrVal))) + "\"";
      case VT_BOOL:
        return argument.boolVal == VARIANT_FALSE ? "False" : "True";
      case VT_I2:
        return std::to_string(argument.iVal) + "%";
      case VT_I4:
        return std::to_string(argument.lVal);
      case VT_R4:
        return Plain(argument.fltVal) + "!";
      case VT_R8:
        return Plain(argument.dblVal) + "#";
      case VT_EMPTY:
        return "Empty";
      case VT_ERROR:
        return argument.scode == DISP_E_PARAMNOTFOUND ? "-" : "error";
      case VT_DISPATCH:
        return argument.pdispVal ? "[" + static_cast<FakeObject*>(argument.pdispVal)->path + "]" : "Nothing";
      case VT_ARRAY | VT_VARIANT:
        return ShownArray(argument.parray);
      default:
        return "type " + std::to_string(argument.vt);
    }
  }

 private:
  ~FakeObject() { --world_.living; }

  bool Rejects() { return world_.rejections > 0 && world_.rejections-- > 0; }

  HRESULT Answer(const std::string& name, const std::string& called, VARIANT* result) {
    if (world_.nothing.contains(name)) {
      result->vt = VT_DISPATCH;
      result->pdispVal = nullptr;
      return S_OK;
    }
    const auto value = world_.values.find(name);
    if (value != world_.values.end() || !result) world_.journal.push_back(called);
    if (!result) return S_OK;
    if (value != world_.values.end()) return VariantCopy(result, const_cast<VARIANT*>(&value->second.get()));
    result->vt = VT_DISPATCH;
    result->pdispVal = ComPointer<FakeObject>(new FakeObject(world_, called)).Detach();
    return S_OK;
  }

  std::string Arguments(const DISPPARAMS& parameters) const {
    std::string shown;
    for (UINT index = parameters.cArgs; index > 0; --index) {
      if (!shown.empty()) shown += ", ";
      if (index <= parameters.cNamedArgs) shown += world_.NameOf(parameters.rgdispidNamedArgs[index - 1]) + ":=";
      shown += Shown(parameters.rgvarg[index - 1]);
    }
    return shown;
  }

  static std::string Plain(double number) {
    std::string text = std::to_string(number);
    return text.erase(text.find_last_not_of('0') + 1 + (text[text.find_last_not_of('0')] == '.' ? 1 : 0));
  }

  // Bounds, then all elements as they lie.
  static std::string ShownArray(SAFEARRAY* array) {
    std::string shown = "{";
    for (UINT dimension = 1; dimension <= SafeArrayGetDim(array); ++dimension) {
      LONG first = 0;
      LONG last = 0;
      SafeArrayGetLBound(array, dimension, &first);
      SafeArrayGetUBound(array, dimension, &last);
      shown += (dimension > 1 ? ", " : "") + std::to_string(first) + " to " + std::to_string(last);
    }
    const win32::SafeArrayAccess access(array);
    const auto* const elements = access.As<const VARIANT>();
    for (std::size_t index = 0; index < access.elements(); ++index) shown += "; " + Shown(elements[index]);
    return shown + "}";
  }

  static HRESULT Tell(const Report& told, EXCEPINFO& report) {
    report.wCode = told.wCode;
    report.scode = told.scode;
    if (told.source) report.bstrSource = SysAllocString(told.source);
    if (told.description && !told.deferred) report.bstrDescription = SysAllocString(told.description);
    if (told.deferred) {
      report.pfnDeferredFillIn = [](EXCEPINFO* later) {
        later->bstrDescription = SysAllocString(L"filled in");
        return S_OK;
      };
    }
    return DISP_E_EXCEPTION;
  }

  FakeWorld& world_;
  ULONG references_ = 0;
};

inline LateObject FakeWorld::Root() {
  return LateObject(ComPointer<IDispatch>(new FakeObject(*this, "")));
}

}  // namespace zorkanca::testing
