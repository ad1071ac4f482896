#include "win32/automation/late_object.h"

#include <algorithm>

#include "runtime/error.h"
#include "win32/automation/busy_server.h"
#include "win32/automation/dispatch_error.h"
#include "win32/wide_text.h"

namespace zorkanca::win32 {

namespace {

constexpr WORD kMethodOrProperty = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
constexpr std::int32_t kObjectRequired = 424;

// Asks an object of a script, which answers by its other interface alone.
HRESULT ExtendedIdOf(const ComPointer<IDispatch>& object, const Text& name, DISPID& id) {
  const auto extended = object.As<IDispatchEx>();
  if (!extended) return DISP_E_UNKNOWNNAME;
  const BSTR member = SysAllocStringLen(Wide(name), static_cast<UINT>(name.size()));
  if (!member) return E_OUTOFMEMORY;
  const HRESULT result = extended->GetDispID(member, fdexNameCaseInsensitive, &id);
  SysFreeString(member);
  return result;
}

}  // namespace

Variant LateObject::GetMember(TextView member, std::span<const Variant> arguments) const {
  return InvokeInOrder(IdOf(member), kMethodOrProperty, arguments, member);
}

void LateObject::CallMember(TextView member, std::span<const Variant> arguments) const {
  InvokeInOrder(IdOf(member), DISPATCH_METHOD, arguments, member);
}

void LateObject::PutMember(TextView member, const Variant& value) const {
  DISPID named = DISPID_PROPERTYPUT;
  VARIANT argument = value.get();
  DISPPARAMS parameters{&argument, &named, 1, 1};
  Invoke(IdOf(member), DISPATCH_PROPERTYPUT, parameters, /*wantsResult=*/false, member);
}

LateObject LateObject::DefaultItem(const Variant& index) const {
  return ObjectIn(InvokeInOrder(DISPID_VALUE, kMethodOrProperty, std::span(&index, 1), u"Item"));
}

Variant LateObject::CallNamed(TextView member, std::initializer_list<NamedArgument> arguments) const {
  std::vector<DISPID> ids = IdsOf(member, arguments);
  // The system counts arguments from the last one.
  std::vector<VARIANT> values;
  for (const NamedArgument& argument : arguments) values.push_back(argument.value.get());
  std::reverse(values.begin(), values.end());
  DISPPARAMS parameters{values.data(), nullptr, static_cast<UINT>(values.size()), 0};
  if (ids.size() > 1) {
    std::reverse(ids.begin() + 1, ids.end());
    parameters.rgdispidNamedArgs = ids.data() + 1;
    parameters.cNamedArgs = parameters.cArgs;
  }
  return Invoke(ids.front(), kMethodOrProperty, parameters, /*wantsResult=*/true, member);
}

// The number of the member, and of each argument when the object knows them.
std::vector<DISPID> LateObject::IdsOf(TextView member, std::span<const NamedArgument> arguments) const {
  if (!object_) Raise(RuntimeError::kObjectNotSet);
  std::vector<Text> names{Text(member)};
  for (const NamedArgument& argument : arguments) names.emplace_back(argument.name);
  std::vector<wchar_t*> pointers;
  for (Text& name : names) pointers.push_back(reinterpret_cast<wchar_t*>(name.data()));
  std::vector<DISPID> ids(names.size(), DISPID_UNKNOWN);
  const HRESULT result = CallWhileBusy([&] {
    return object_->GetIDsOfNames(IID_NULL, pointers.data(), static_cast<UINT>(pointers.size()), kAutomationLanguage,
                                  ids.data());
  });
  if (SUCCEEDED(result)) return ids;
  if (result != DISP_E_UNKNOWNNAME && result != E_NOTIMPL) RaiseResult(result, member);
  const auto known = std::count_if(ids.begin() + 1, ids.end(), [](DISPID id) { return id != DISPID_UNKNOWN; });
  const DISPID id = IdOf(member);
  // A script takes names of arguments for those of its members.
  if (known > 0 && !object_.As<IDispatchEx>()) RaiseResult(DISP_E_PARAMNOTFOUND, member);
  return {id};
}

LateObject LateObject::ObjectIn(const Variant& variant) {
  Variant held;
  Require(VariantCopyInd(held.Receive(), const_cast<VARIANT*>(&variant.get())));
  if (held.type() != VT_DISPATCH && held.type() != VT_UNKNOWN) RaiseNumber(kObjectRequired);
  if (!held.get().punkVal) Raise(RuntimeError::kObjectNotSet);
  LateObject object(ComPointer<IUnknown>(held.get().punkVal).As<IDispatch>());
  if (!object) RaiseNumber(kObjectRequired);
  return object;
}

DISPID LateObject::IdOf(TextView member) const {
  if (!object_) Raise(RuntimeError::kObjectNotSet);
  for (const auto& [name, id] : ids_) {
    if (name == member) return id;
  }
  Text name(member);
  wchar_t* pointer = reinterpret_cast<wchar_t*>(name.data());
  DISPID id = DISPID_UNKNOWN;
  HRESULT result =
      CallWhileBusy([&] { return object_->GetIDsOfNames(IID_NULL, &pointer, 1, kAutomationLanguage, &id); });
  if (result == E_NOTIMPL) result = ExtendedIdOf(object_, name, id);
  if (FAILED(result)) RaiseResult(result, member);
  ids_.emplace_back(std::move(name), id);
  return id;
}

Variant LateObject::InvokeInOrder(DISPID id, WORD kind, std::span<const Variant> arguments, TextView member) const {
  std::vector<VARIANT> values(arguments.size());
  std::transform(arguments.rbegin(), arguments.rend(), values.begin(),
                 [](const Variant& argument) { return argument.get(); });
  DISPPARAMS parameters{values.data(), nullptr, static_cast<UINT>(values.size()), 0};
  return Invoke(id, kind, parameters, /*wantsResult=*/kind != DISPATCH_METHOD, member);
}

Variant LateObject::Invoke(DISPID id, WORD kind, DISPPARAMS& parameters, bool wantsResult, TextView member) const {
  if (!object_) Raise(RuntimeError::kObjectNotSet);
  Variant value;
  EXCEPINFO report{};
  const HRESULT result = CallWhileBusy([&] {
    const HRESULT called = object_->Invoke(id, IID_NULL, kAutomationLanguage, kind, &parameters,
                                           wantsResult ? value.Receive() : nullptr, &report, nullptr);
    return called == DISP_E_EXCEPTION && IsBusy(report.scode) ? report.scode : called;
  });
  if (result == DISP_E_EXCEPTION) RaiseReported(report);
  if (FAILED(result)) RaiseResult(result, member);
  return value;
}

}  // namespace zorkanca::win32
