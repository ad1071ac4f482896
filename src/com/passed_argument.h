// One argument on its way from a client's variable to a parameter, and back.
#pragma once

#include "com/member.h"

namespace zorkanca::com {

/// Storage of exactly the parameter's type. Outputs return to the client's variable only when the member changed them:
/// variables of scripts are often constants, or of a type that the unchanged value would not go back into.
class PassedArgument {
 public:
  explicit PassedArgument(const Parameter& parameter) : parameter_(parameter) {}
  PassedArgument(const PassedArgument&) = delete;
  ~PassedArgument() {
    VariantClear(&value_);
    VariantClear(&before_);
  }
  PassedArgument& operator=(const PassedArgument&) = delete;

  /// Takes what the client passed. @param source  null or a missing argument: omitted
  /// Returns DISP_E_TYPEMISMATCH or DISP_E_OVERFLOW for what is not of the parameter's type, DISP_E_PARAMNOTOPTIONAL
  /// for a missing argument that nobody may omit.
  HRESULT Take(VARIANTARG* source, LCID language);
  /// For a result: nothing yet.
  void TakeNothing();

  /// What is pushed: the value, or where it is.
  VARTYPE pushedType() const;
  VARIANT* pushed() { return parameter_.byReference ? &reference_ : &value_; }

  /// Puts a changed value into the client's variable, turned into the type that it has.
  HRESULT GiveBack(LCID language);
  /// Gives the value away.
  VARIANT Detach();

 private:
  HRESULT TakeObject(const VARIANT& given);
  HRESULT TakeArray(const VARIANT& given);
  bool Changed() const;

  const Parameter& parameter_;
  VARIANTARG* source_ = nullptr;
  VARIANT value_{};
  VARIANT before_{};  // the value as it was taken, where it can go back
  VARIANT reference_{};
};

}  // namespace zorkanca::com
