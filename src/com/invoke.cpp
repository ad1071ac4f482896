// Calls by the description in the type library. The system's own `DispInvoke` does neither omitted arguments nor
// variables of scripts, which are variants by reference, in every version.
//
//   arguments -> one `PassedArgument` for each parameter (positions, names, the value of a property that is set)
//             -> the function in the table of virtual functions
//             -> outputs back into the client's variables, the result, or the error that the member reported
#include "com/invoke.h"

#include <algorithm>
#include <deque>

#include "com/passed_argument.h"

namespace zorkanca::com {

namespace {

using Arguments = std::vector<VARIANTARG*>;  // by parameter; null: omitted

void NameArgument(const LateCall& call, UINT index) {
  if (call.wrongArgument) *call.wrongArgument = index;
}

// Clients hand arguments over from the last to the first, those with names before all others.
HRESULT Distribute(const LateCall& call, const Member& member, Arguments& arguments) {
  DISPPARAMS& given = *call.arguments;
  const std::size_t count = member.parameters.size();
  if (given.cArgs > count) return DISP_E_BADPARAMCOUNT;
  for (UINT named = 0; named < given.cNamedArgs && named < given.cArgs; ++named) {
    const DISPID name = given.rgdispidNamedArgs[named];
    const std::size_t position = name == DISPID_PROPERTYPUT ? count - 1 : static_cast<std::size_t>(name);
    if (position >= count || arguments[position]) {
      NameArgument(call, named);
      return DISP_E_PARAMNOTFOUND;
    }
    arguments[position] = &given.rgvarg[named];
  }
  for (UINT index = given.cNamedArgs; index < given.cArgs; ++index) {
    const std::size_t position = given.cArgs - 1 - index;
    if (arguments[position]) return DISP_E_BADPARAMCOUNT;
    arguments[position] = &given.rgvarg[index];
  }
  const auto required = arguments.begin() + static_cast<std::ptrdiff_t>(member.required);
  return std::find(arguments.begin(), required, nullptr) == required ? S_OK : DISP_E_BADPARAMCOUNT;
}

// A failed member has told more than its result where it could.
HRESULT Report(const LateCall& call, HRESULT result) {
  if (!call.failure) return DISP_E_EXCEPTION;
  *call.failure = EXCEPINFO{};
  call.failure->scode = result;
  win32::ComPointer<IErrorInfo> told;
  if (GetErrorInfo(0, told.Receive()) == S_OK) {
    told->GetSource(&call.failure->bstrSource);
    told->GetDescription(&call.failure->bstrDescription);
  }
  return DISP_E_EXCEPTION;
}

HRESULT CallMember(IDispatch* object, const Member& member, const LateCall& call) {
  Arguments arguments(member.parameters.size());
  HRESULT result = Distribute(call, member, arguments);
  if (FAILED(result)) return result;

  std::deque<PassedArgument> passed;  // which never moves what it holds
  for (std::size_t index = 0; index < arguments.size(); ++index) {
    passed.emplace_back(member.parameters[index]);
    result = passed.back().Take(arguments[index], call.language);
    if (FAILED(result)) {
      if (arguments[index]) NameArgument(call, static_cast<UINT>(arguments[index] - call.arguments->rgvarg));
      return result;
    }
  }
  if (member.result) passed.emplace_back(*member.result).TakeNothing();

  std::vector<VARTYPE> types;
  std::vector<VARIANTARG*> pushed;
  for (PassedArgument& each : passed) {
    types.push_back(each.pushedType());
    pushed.push_back(each.pushed());
  }
  VARIANT returned{};
  result = DispCallFunc(object, member.vtableOffset, CC_STDCALL, VT_I4, static_cast<UINT>(pushed.size()), types.data(),
                        pushed.data(), &returned);
  if (FAILED(result)) return result;
  if (FAILED(returned.lVal)) return Report(call, returned.lVal);

  for (std::size_t index = 0; index < arguments.size(); ++index) {
    result = passed[index].GiveBack(call.language);
    if (FAILED(result)) {
      NameArgument(call, static_cast<UINT>(arguments[index] - call.arguments->rgvarg));
      return result;
    }
  }
  if (call.result) *call.result = member.result ? passed.back().Detach() : VARIANT{};
  return S_OK;
}

// `factory.Worksheets(1)`: the property has no parameters, the object that it holds has a default member that does.
HRESULT CallDefaultOfResult(IDispatch* object, const Member& property, const LateCall& call) {
  DISPPARAMS none{};
  VARIANT holder{};
  LateCall reading = call;
  reading.arguments = &none;
  reading.result = &holder;
  HRESULT result = CallMember(object, property, reading);
  if (FAILED(result)) return result;
  if (holder.vt == VT_DISPATCH && holder.pdispVal) {
    result = holder.pdispVal->Invoke(DISPID_VALUE, IID_NULL, call.language, call.flags, call.arguments, call.result,
                                     call.failure, call.wrongArgument);
  } else {
    result = DISP_E_BADPARAMCOUNT;
  }
  VariantClear(&holder);
  return result;
}

}  // namespace

HRESULT Invoke(InterfaceDescription& description, IDispatch* object, const LateCall& call) noexcept {
  try {
    if (call.result) VariantInit(call.result);
    if (!call.arguments) return E_POINTER;
    const Member* const member = description.Find(call.id, call.flags);
    if (!member) return DISP_E_MEMBERNOTFOUND;
    const bool hasArgumentsTooMany = member->parameters.empty() && call.arguments->cArgs > 0;
    if (hasArgumentsTooMany && member->result && member->result->type == VT_DISPATCH) {
      return CallDefaultOfResult(object, *member, call);
    }
    return CallMember(object, *member, call);
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace zorkanca::com
