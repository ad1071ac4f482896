// An automation object of which nothing is known but the names of its members.
#pragma once

#include <array>
#include <initializer_list>
#include <span>
#include <utility>
#include <vector>

#include "win32/automation/com_pointer.h"
#include "win32/automation/variant.h"

namespace zorkanca::win32 {

/// The language of all calls: names, and texts that stand for numbers and formulas, are English wherever the program
/// runs.
inline constexpr LCID kAutomationLanguage = 0x0409;

/// One argument of `CallNamed`.
struct NamedArgument {
  TextView name;
  Variant value;
};

/// A shared reference to an object; "Nothing" when it is null. The number of each member is asked once and kept.
/// Errors of every call: 91 for "Nothing", 438 for a member that the object does not have, 462 when its server is gone,
/// those of the object itself with their source and description. A busy server is asked again for ten seconds.
class LateObject {
 public:
  LateObject() = default;
  explicit LateObject(ComPointer<IDispatch> object) : object_(std::move(object)) {}

  explicit operator bool() const { return static_cast<bool>(object_); }
  IDispatch* dispatch() const { return object_.get(); }

  /// The value of a property, or what a function returns.
  template <typename... Arguments>
  Variant Get(TextView member, const Arguments&... arguments) const {
    const std::array<Variant, sizeof...(Arguments)> packed{ToVariant(arguments)...};
    return GetMember(member, packed);
  }
  Variant GetMember(TextView member, std::span<const Variant> arguments) const;
  /// The object that a property holds or a function returns. Errors: 91 for "Nothing", 424 for what is no object.
  template <typename... Arguments>
  LateObject Child(TextView member, const Arguments&... arguments) const {
    return ObjectIn(Get(member, arguments...));
  }
  /// Calls a method whose result does not matter.
  template <typename... Arguments>
  void Call(TextView member, const Arguments&... arguments) const {
    const std::array<Variant, sizeof...(Arguments)> packed{ToVariant(arguments)...};
    CallMember(member, packed);
  }
  void CallMember(TextView member, std::span<const Variant> arguments) const;
  /// Sets a property.
  template <typename Kind>
  void Put(TextView member, const Kind& value) const {
    PutMember(member, ToVariant(value));
  }
  void PutMember(TextView member, const Variant& value) const;
  /// `Collection(index)`: the default member of what the property holds.
  template <typename Index>
  LateObject Item(TextView collection, const Index& index) const {
    return Child(collection).DefaultItem(ToVariant(index));
  }

  /// Calls a method with arguments by their names. An object that knows no names, as those of scripts do, gets the
  /// values by position in the order written here. Errors: 448 when it knows some of the names and not others.
  Variant CallNamed(TextView member, std::initializer_list<NamedArgument> arguments) const;

  /// The object in a variant. Errors: 91 for "Nothing", 424 for what is no object.
  static LateObject ObjectIn(const Variant& variant);

 private:
  LateObject DefaultItem(const Variant& index) const;
  DISPID IdOf(TextView member) const;
  std::vector<DISPID> IdsOf(TextView member, std::span<const NamedArgument> arguments) const;
  Variant Invoke(DISPID id, WORD kind, DISPPARAMS& parameters, bool wantsResult, TextView member) const;
  Variant InvokeInOrder(DISPID id, WORD kind, std::span<const Variant> arguments, TextView member) const;

  ComPointer<IDispatch> object_;
  mutable std::vector<std::pair<Text, DISPID>> ids_;
};

inline Variant ToVariant(const LateObject& object) {
  VARIANT variant{};
  variant.vt = VT_DISPATCH;
  variant.pdispVal = ComPointer<IDispatch>(object.dispatch()).Detach();
  return Variant::Owning(variant);
}

}  // namespace zorkanca::win32
