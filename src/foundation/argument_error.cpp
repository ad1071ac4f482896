#include "foundation/argument_error.h"

#include <utility>

#include "foundation/application_name.h"
#include "foundation/argument_details.h"
#include "foundation/error_codes.h"
#include "foundation/error_routines.h"
#include "foundation/guarded.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr TextView kMustNotBeBlank = u"Argument nesmí být nevyplněný řetězec";

}  // namespace

void ArgumentError::RaiseArgumentError(TextView argumentName, TextView argumentValue, TextView expectedText,
                                       TextView sourceFunctionName) const {
  Text description = Guarded(
      u"ArgumentError.RaiseArgumentError",
      ArgumentDetails({{u"argumentName", argumentName},
                       {u"argumentValue", argumentValue},
                       {u"expectedText", expectedText},
                       {u"sourceFunctionName", sourceFunctionName}}),
      [&] { return BuildArgumentErrorDescription(argumentName, argumentValue, expectedText, sourceFunctionName); });
  throw Error(ArgumentErrorCode, Text(sourceFunctionName), std::move(description));
}

void ArgumentError::RaiseArgumentIsNothingError(TextView argumentName, TextView functionName) const {
  Text description = Guarded(u"ArgumentError.RaiseArgumentIsNothingError",
                             ArgumentDetails({{u"argumentName", argumentName}, {u"functionName", functionName}}),
                             [&] { return BuildArgumentIsNothingDescription(argumentName, functionName); });
  throw Error(ArgumentErrorCode, Text(functionName), std::move(description));
}

Text ArgumentError::BuildArgumentErrorDescription(TextView argumentName, TextView argumentValue, TextView expectedText,
                                                  TextView sourceFunctionName) const {
  return Guarded(u"ArgumentError.BuildArgumentErrorDescription",
                 ArgumentDetails({{u"argumentName", argumentName},
                                  {u"argumentValue", argumentValue},
                                  {u"expectedText", expectedText},
                                  {u"sourceFunctionName", sourceFunctionName}}),
                 [&] {
                   Text description =
                       ErrorRoutines::BuildUnexpectedValueErrorDescription(argumentValue, argumentName, {});
                   description.append(kCrLf).append(ErrorRoutines::BuildDetailsText(u"Očekáváno", expectedText));
                   description.append(kCrLf).append(kCrLf).append(sourceFunctionName);
                   if (!SourceInfoText.empty()) description.append(kCrLf).append(kCrLf).append(SourceInfoText);
                   return description;
                 });
}

Text ArgumentError::BuildArgumentIsNothingDescription(TextView argumentName, TextView functionName) const {
  constexpr TextView kName = u"ArgumentError.BuildArgumentIsNothingDescription";
  StringArgumentMustNotBeBlank(argumentName, u"argumentName", kName);
  StringArgumentMustNotBeBlank(functionName, u"functionName", kName);
  return ErrorRoutines::BuildUnexpectedValueErrorDescription(u"Nothing", argumentName, {});
}

Text ArgumentError::BuildStringArgumentIsBlankErrorDescription(TextView argumentName, TextView value,
                                                               TextView sourceFunctionName) const {
  return BuildArgumentErrorDescription(argumentName, value, kMustNotBeBlank, sourceFunctionName);
}

void ArgumentError::StringArgumentMustNotBeEmpty(TextView value, TextView argumentName,
                                                 TextView sourceFunctionName) const {
  NamesMustNotBeBlank(argumentName, sourceFunctionName, u"ArgumentError.StringArgumentMustNotBeEmpty");
  if (!value.empty()) return;
  RaiseArgumentError(argumentName, u"[Prázdný řetězec]", u"Argument nesmí být prázdný řetězec", sourceFunctionName);
}

void ArgumentError::StringArgumentMustNotBeBlank(TextView value, TextView argumentName,
                                                 TextView sourceFunctionName) const {
  NamesMustNotBeBlank(argumentName, sourceFunctionName, u"ArgumentError.StringArgumentMustNotBeBlank");
  if (IsBlank(value)) RaiseBlankArgument(value, argumentName, sourceFunctionName);
}

void ArgumentError::ObjectArgumentMustNotBeNothing(const void* value, TextView argumentName,
                                                   TextView sourceFunctionName) const {
  if (value == nullptr) RaiseArgumentIsNothingError(argumentName, sourceFunctionName);
}

void ArgumentError::RaiseBlankArgument(TextView value, TextView argumentName, TextView sourceFunctionName) const {
  RaiseArgumentError(argumentName, value, kMustNotBeBlank,
                     ErrorRoutines::BuildErrorSourceText(kApplicationName, sourceFunctionName));
}

void ArgumentError::NamesMustNotBeBlank(TextView argumentName, TextView sourceFunctionName,
                                        TextView checkingFunction) const {
  if (IsBlank(argumentName)) RaiseBlankArgument(argumentName, u"argumentName", checkingFunction);
  if (IsBlank(sourceFunctionName)) RaiseBlankArgument(sourceFunctionName, u"sourceFunctionName", checkingFunction);
}

}  // namespace zorkanca
