// The type library that the DLL carries, against the written list of all that clients rely on.
#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <sstream>

#include "com/server_under_test.h"
#include "support/file_text.h"

namespace zorkanca::testing {
namespace {

using win32::ComPointer;

std::string Guid(REFGUID id) {
  wchar_t text[39] = {};
  StringFromGUID2(id, text, 39);
  return Utf8(text);
}

std::string NameOf(ITypeInfo& info, MEMBERID id) {
  BSTR name = nullptr;
  info.GetDocumentation(id, &name, nullptr, nullptr, nullptr);
  const std::string text = Utf8(name);
  SysFreeString(name);
  return text;
}

std::string TypeName(ITypeInfo& info, const TYPEDESC& type) {
  switch (type.vt) {
    case VT_PTR:
      return TypeName(info, *type.lptdesc) + "*";
    case VT_SAFEARRAY:
      return "array of " + TypeName(info, *type.lptdesc);
    case VT_USERDEFINED: {
      ComPointer<ITypeInfo> named;
      info.GetRefTypeInfo(type.hreftype, named.Receive());
      return NameOf(*named.get(), MEMBERID_NIL);
    }
    case VT_BSTR:
      return "String";
    case VT_BOOL:
      return "Boolean";
    case VT_I2:
      return "Integer";
    case VT_I4:
      return "Long";
    case VT_R4:
      return "Single";
    case VT_VARIANT:
      return "Variant";
    case VT_DISPATCH:
      return "Object";
    case VT_UNKNOWN:
      return "Unknown";
    case VT_HRESULT:
      return "HRESULT";
    case VT_VOID:
      return "nothing";
    default:
      return "type " + std::to_string(type.vt);
  }
}

std::string Default(const VARIANT& value) {
  switch (value.vt) {
    case VT_BOOL:
      return value.boolVal ? "True" : "False";
    case VT_I2:
      return std::to_string(value.iVal);
    case VT_I4:
      return std::to_string(value.lVal);
    case VT_R4:
      return std::to_string(static_cast<int>(value.fltVal)) + "!";
    case VT_BSTR:
      return "\"" + Utf8(value.bstrVal) + "\"";
    default:
      return "type " + std::to_string(value.vt);
  }
}

std::string ParameterText(ITypeInfo& info, const ELEMDESC& element, const std::string& name) {
  const USHORT flags = element.paramdesc.wParamFlags;
  std::string text;
  if (flags & PARAMFLAG_FIN) text += "in ";
  if (flags & PARAMFLAG_FOUT) text += "out ";
  if (flags & PARAMFLAG_FRETVAL) text += "retval ";
  if (flags & PARAMFLAG_FOPT) text += "optional ";
  text += TypeName(info, element.tdesc) + " " + name;
  if (flags & PARAMFLAG_FHASDEFAULT) text += " = " + Default(element.paramdesc.pparamdescex->varDefaultValue);
  return text;
}

std::string FunctionText(ITypeInfo& info, UINT index) {
  FUNCDESC* function = nullptr;
  if (FAILED(info.GetFuncDesc(index, &function))) return {};
  BSTR names[32] = {};
  UINT count = 0;
  info.GetNames(function->memid, names, 32, &count);
  char head[64];
  std::snprintf(head, sizeof head, "  0x%08lx ", static_cast<unsigned long>(function->memid));
  std::string text = head;
  if (function->invkind == INVOKE_PROPERTYGET) text += "get ";
  if (function->invkind == INVOKE_PROPERTYPUT) text += "let ";
  if (function->invkind == INVOKE_PROPERTYPUTREF) text += "putref ";
  if (function->wFuncFlags & FUNCFLAG_FRESTRICTED) text += "restricted ";
  if (function->wFuncFlags & FUNCFLAG_FHIDDEN) text += "hidden ";
  text += Utf8(names[0]) + "(";
  for (SHORT parameter = 0; parameter < function->cParams; ++parameter) {
    const UINT name = static_cast<UINT>(parameter) + 1;
    if (parameter > 0) text += ", ";
    // The value of a property that is set, and the result, go without names.
    const ELEMDESC& element = function->lprgelemdescParam[parameter];
    const bool isValue = function->invkind == INVOKE_PROPERTYPUT || function->invkind == INVOKE_PROPERTYPUTREF;
    const bool named = name < count && !isValue && !(element.paramdesc.wParamFlags & PARAMFLAG_FRETVAL);
    text += ParameterText(info, element, named ? Utf8(names[name]) : "-");
  }
  text += ") " + TypeName(info, function->elemdescFunc.tdesc);
  text += " @" + std::to_string(function->oVft / static_cast<SHORT>(sizeof(void*)));
  for (BSTR name : names) SysFreeString(name);
  info.ReleaseFuncDesc(function);
  return text;
}

std::string VariableText(ITypeInfo& info, UINT index) {
  VARDESC* variable = nullptr;
  if (FAILED(info.GetVarDesc(index, &variable))) return {};
  const std::string text = "  " + NameOf(info, variable->memid) + " = " + std::to_string(variable->lpvarValue->lVal);
  info.ReleaseVarDesc(variable);
  return text;
}

void DumpClass(ITypeInfo& info, const TYPEATTR& attributes, std::vector<std::string>& lines) {
  for (UINT index = 0; index < attributes.cImplTypes; ++index) {
    HREFTYPE reference = 0;
    INT flags = 0;
    ComPointer<ITypeInfo> implemented;
    info.GetRefTypeOfImplType(index, &reference);
    info.GetImplTypeFlags(index, &flags);
    info.GetRefTypeInfo(reference, implemented.Receive());
    lines.push_back(std::string("  ") + ((flags & IMPLTYPEFLAG_FDEFAULT) ? "default " : "") +
                    ((flags & IMPLTYPEFLAG_FSOURCE) ? "source " : "") + NameOf(*implemented.get(), MEMBERID_NIL));
  }
}

// Of the other form of a dual interface, which alone has some of them.
WORD FlagsOfVtable(ITypeInfo& info) {
  HREFTYPE reference = 0;
  ComPointer<ITypeInfo> vtable;
  TYPEATTR* attributes = nullptr;
  if (FAILED(info.GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)) ||
      FAILED(info.GetRefTypeInfo(reference, vtable.Receive())) || FAILED(vtable->GetTypeAttr(&attributes))) {
    return 0;
  }
  const WORD flags = attributes->wTypeFlags;
  vtable->ReleaseTypeAttr(attributes);
  return flags;
}

void DumpType(ITypeInfo& info, std::vector<std::string>& lines) {
  TYPEATTR* attributes = nullptr;
  info.GetTypeAttr(&attributes);
  const std::string name = NameOf(info, MEMBERID_NIL) + " " + Guid(attributes->guid);
  ComPointer<ITypeInfo> functions(&info);
  if (attributes->typekind == TKIND_ENUM) {
    lines.push_back("enum " + name);
    for (UINT index = 0; index < attributes->cVars; ++index) lines.push_back(VariableText(info, index));
  } else if (attributes->typekind == TKIND_COCLASS) {
    lines.push_back(((attributes->wTypeFlags & TYPEFLAG_FCANCREATE) ? "class " : "class without creation ") + name);
    DumpClass(info, *attributes, lines);
  } else {
    const WORD flags = static_cast<WORD>(attributes->wTypeFlags | FlagsOfVtable(info));
    lines.push_back(std::string((flags & TYPEFLAG_FDUAL) ? "dual " : "dispatch ") +
                    ((flags & TYPEFLAG_FOLEAUTOMATION) ? "oleautomation " : "") +
                    ((flags & TYPEFLAG_FNONEXTENSIBLE) ? "nonextensible " : "") + name);
    HREFTYPE reference = 0;
    if ((flags & TYPEFLAG_FDUAL) && SUCCEEDED(info.GetRefTypeOfImplType(static_cast<UINT>(-1), &reference))) {
      info.GetRefTypeInfo(reference, functions.Receive());
    }
    for (UINT index = 0;; ++index) {
      const std::string text = FunctionText(*functions.get(), index);
      if (text.empty()) break;
      lines.push_back(text);
    }
  }
  info.ReleaseTypeAttr(attributes);
}

std::vector<std::string> Dump() {
  ComPointer<ITypeLib> library;
  std::vector<std::string> lines;
  if (FAILED(LoadTypeLibEx(ServerPath().c_str(), REGKIND_NONE, library.Receive()))) return lines;
  TLIBATTR* attributes = nullptr;
  BSTR name = nullptr;
  BSTR help = nullptr;
  library->GetLibAttr(&attributes);
  library->GetDocumentation(-1, &name, &help, nullptr, nullptr);
  lines.push_back("library " + Utf8(name) + " " + Guid(attributes->guid) + " " +
                  std::to_string(attributes->wMajorVerNum) + "." + std::to_string(attributes->wMinorVerNum) + " " +
                  Utf8(help));
  SysFreeString(name);
  SysFreeString(help);
  library->ReleaseTLibAttr(attributes);
  for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
    ComPointer<ITypeInfo> info;
    library->GetTypeInfo(index, info.Receive());
    DumpType(*info.get(), lines);
  }
  return lines;
}

// In which order types lie in the library matters to nobody.
std::vector<std::string> ByType(const std::vector<std::string>& lines) {
  std::map<std::string, std::vector<std::string>> types;
  std::vector<std::string>* type = nullptr;
  for (const std::string& line : lines) {
    if (!line.starts_with("  ")) type = &types[line];
    type->push_back(line);
  }
  std::vector<std::string> sorted;
  for (const auto& [name, members] : types) sorted.insert(sorted.end(), members.begin(), members.end());
  return sorted;
}

TEST(TypeLibrary, IsTheOneThatClientsHaveCompiledIn) {
  const Apartment apartment;
  std::istringstream file(ProjectFileText("tests/com/typelib.txt"));
  std::vector<std::string> expected;
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (!line.empty() && line[0] != '#') expected.push_back(line);
  }
  ASSERT_GT(expected.size(), 100U);
  expected = ByType(expected);
  const std::vector<std::string> found = ByType(Dump());
  for (std::size_t index = 0; index < std::max(expected.size(), found.size()); ++index) {
    ASSERT_EQ(index < found.size() ? found[index] : "nothing", index < expected.size() ? expected[index] : "nothing");
  }
}

}  // namespace
}  // namespace zorkanca::testing
