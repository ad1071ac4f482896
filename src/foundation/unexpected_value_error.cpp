#include "foundation/unexpected_value_error.h"

#include <utility>

#include "foundation/argument_details.h"
#include "foundation/argument_error.h"
#include "foundation/error_codes.h"
#include "foundation/error_routines.h"
#include "foundation/guarded.h"
#include "runtime/error.h"

namespace zorkanca {

Text UnexpectedValueError::BuildDescription(TextView valueName, TextView value, TextView details) {
  ArgumentError().StringArgumentMustNotBeBlank(valueName, u"valueName", u"UnexpectedError.BuildDescription");
  return ErrorRoutines::BuildUnexpectedValueErrorDescription(value, valueName, details);
}

void UnexpectedValueError::RaiseUnexpectedValueError(TextView valueName, TextView value, TextView sourceFunctionName,
                                                     TextView details) {
  Text description = Guarded(
      u"UnexpectedError.RaiseUnexpectedValueError",
      [&] {
        return ArgumentDetails({{u"valueName", valueName},
                                {u"value", value},
                                {u"sourceFunctionName", sourceFunctionName},
                                {u"details", details}})()
            .append(u".");
      },
      [&] { return BuildDescription(valueName, value, details); });
  throw Error(ArgumentErrorCode, Text(sourceFunctionName), std::move(description));
}

}  // namespace zorkanca
