// The members of a dual interface as the type library describes them, in the shape in which a call needs them.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "com/type_library.h"
#include "win32/automation/variant.h"

namespace zorkanca::com {

/// One parameter of a member.
struct Parameter {
  VARTYPE type = VT_EMPTY;  ///< of the value itself; enumerations are VT_I4, interfaces VT_DISPATCH
  bool byReference = false;
  bool optional = false;
  IID interfaceId = IID_IDispatch;  ///< what a VT_DISPATCH must be
  win32::Variant omitted{};         ///< the library's default, of that type; Empty when it has none
};

/// A method, or one way of using a property. `parameters` are without the result.
struct Member {
  std::size_t vtableOffset = 0;
  std::vector<Parameter> parameters{};
  std::size_t required = 0;           ///< how many parameters no caller may leave out; these come first
  std::optional<Parameter> result{};  ///< always by reference
};

/// The description of one dual interface. Each member is read from the library once, when it is first called.
class InterfaceDescription {
 public:
  explicit InterfaceDescription(REFIID interfaceId) : interfaceId_(interfaceId) {}

  /// As clients get it: a dispinterface.
  HRESULT TypeInfo(ITypeInfo** typeInfo);
  HRESULT IdsOfNames(LPOLESTR* names, UINT count, DISPID* ids);
  /// The member that a call means. @param flags  as `IDispatch::Invoke` gets them
  /// @return null when there is none
  const Member* Find(DISPID id, WORD flags);

 private:
  HRESULT Load();
  void ReadMembers();
  Member Describe(const FUNCDESC& function) const;
  Parameter Describe(const ELEMDESC& element) const;

  IID interfaceId_;
  win32::ComPointer<ITypeInfo> dispatch_;  // the dispinterface: names and numbers
  win32::ComPointer<ITypeInfo> vtable_;    // the same as the table of virtual functions has it: with results
  std::map<std::pair<DISPID, INVOKEKIND>, Member> members_;
};

}  // namespace zorkanca::com
