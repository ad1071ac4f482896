#include "com/member.h"

#include <array>

namespace zorkanca::com {

namespace {

// A result would be written to a wild address through the description of the dispinterface, which has none.
HRESULT VtableForm(ITypeInfo& dispatch, ITypeInfo** vtable) {
  HREFTYPE reference = 0;
  const HRESULT result = dispatch.GetRefTypeOfImplType(static_cast<UINT>(-1), &reference);
  return FAILED(result) ? result : dispatch.GetRefTypeInfo(reference, vtable);
}

// A property that is set is called by either kind, whichever way the client sets it.
constexpr std::array<std::pair<WORD, INVOKEKIND>, 6> kKinds{{{DISPATCH_METHOD, INVOKE_FUNC},
                                                             {DISPATCH_PROPERTYGET, INVOKE_PROPERTYGET},
                                                             {DISPATCH_PROPERTYPUT, INVOKE_PROPERTYPUT},
                                                             {DISPATCH_PROPERTYPUTREF, INVOKE_PROPERTYPUTREF},
                                                             {DISPATCH_PROPERTYPUT, INVOKE_PROPERTYPUTREF},
                                                             {DISPATCH_PROPERTYPUTREF, INVOKE_PROPERTYPUT}}};

}  // namespace

HRESULT InterfaceDescription::Load() {
  if (vtable_) return S_OK;
  win32::ComPointer<ITypeLib> library;
  HRESULT result = LoadTypes(library);
  if (SUCCEEDED(result)) result = library->GetTypeInfoOfGuid(interfaceId_, dispatch_.Receive());
  if (SUCCEEDED(result)) result = VtableForm(*dispatch_.get(), vtable_.Receive());
  if (SUCCEEDED(result)) ReadMembers();
  return result;
}

HRESULT InterfaceDescription::TypeInfo(ITypeInfo** typeInfo) {
  const HRESULT result = Load();
  return FAILED(result) ? result : dispatch_->QueryInterface(IID_ITypeInfo, reinterpret_cast<void**>(typeInfo));
}

HRESULT InterfaceDescription::IdsOfNames(LPOLESTR* names, UINT count, DISPID* ids) {
  const HRESULT result = Load();
  return FAILED(result) ? result : dispatch_->GetIDsOfNames(names, count, ids);
}

const Member* InterfaceDescription::Find(DISPID id, WORD flags) {
  if (FAILED(Load())) return nullptr;
  for (const auto& [flag, kind] : kKinds) {
    if (!(flags & flag)) continue;
    const auto found = members_.find({id, kind});
    if (found != members_.end()) return &found->second;
  }
  return nullptr;
}

void InterfaceDescription::ReadMembers() {
  FUNCDESC* function = nullptr;
  for (UINT index = 0; SUCCEEDED(vtable_->GetFuncDesc(index, &function)); ++index) {
    members_.emplace(std::pair(function->memid, function->invkind), Describe(*function));
    vtable_->ReleaseFuncDesc(function);
  }
}

Member InterfaceDescription::Describe(const FUNCDESC& function) const {
  Member member;
  member.vtableOffset = static_cast<std::size_t>(function.oVft);
  for (SHORT index = 0; index < function.cParams; ++index) {
    const ELEMDESC& element = function.lprgelemdescParam[index];
    if (element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL) {
      member.result = Describe(element);
    } else {
      member.parameters.push_back(Describe(element));
      if (!member.parameters.back().optional) member.required = member.parameters.size();
    }
  }
  return member;
}

Parameter InterfaceDescription::Describe(const ELEMDESC& element) const {
  Parameter parameter;
  int indirections = 0;
  const TYPEDESC* type = &element.tdesc;
  for (; type->vt == VT_PTR; type = type->lptdesc) ++indirections;
  parameter.type = type->vt;
  if (type->vt == VT_SAFEARRAY) {
    parameter.type = static_cast<VARTYPE>(VT_ARRAY | type->lptdesc->vt);
  } else if (type->vt == VT_USERDEFINED) {
    parameter.type = VT_I4;
    win32::ComPointer<ITypeInfo> named;
    TYPEATTR* attributes = nullptr;
    if (SUCCEEDED(vtable_->GetRefTypeInfo(type->hreftype, named.Receive())) &&
        SUCCEEDED(named->GetTypeAttr(&attributes))) {
      if (attributes->typekind != TKIND_ENUM) {
        parameter.type = VT_DISPATCH;
        parameter.interfaceId = attributes->guid;
        --indirections;  // the pointer that an interface always is
      }
      named->ReleaseTypeAttr(attributes);
    }
  }
  parameter.byReference = indirections > 0;

  const PARAMDESC& description = element.paramdesc;
  parameter.optional = (description.wParamFlags & (PARAMFLAG_FOPT | PARAMFLAG_FHASDEFAULT)) != 0;
  if (description.wParamFlags & PARAMFLAG_FHASDEFAULT) {
    VariantChangeTypeEx(parameter.omitted.Receive(), &description.pparamdescex->varDefaultValue, LOCALE_INVARIANT, 0,
                        parameter.type);
  }
  return parameter;
}

}  // namespace zorkanca::com
