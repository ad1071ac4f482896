#include "foundation/invalid_operation_err.h"

#include "foundation/application_name.h"
#include "foundation/argument_details.h"
#include "foundation/argument_error.h"
#include "foundation/error_codes.h"
#include "foundation/error_routines.h"
#include "foundation/guarded.h"
#include "runtime/error.h"

namespace zorkanca {

void InvalidOperationErr::RaiseError(TextView errorDescription, TextView sourceFunctionName, TextView details) {
  constexpr TextView kName = u"InvalidOperationErr.RaiseError";
  const ArgumentError argumentError;
  argumentError.StringArgumentMustNotBeBlank(errorDescription, u"errorDescription", kName);
  argumentError.StringArgumentMustNotBeBlank(sourceFunctionName, u"sourceFunctionName", kName);
  throw Guarded(kName,
                ArgumentDetails({{u"errorDescription", errorDescription},
                                 {u"sourceFunctionName", sourceFunctionName},
                                 {u"details", details}}),
                [&] {
                  return Error(InvalidOperationErrorCode,
                               ErrorRoutines::BuildErrorSourceText(kApplicationName, sourceFunctionName),
                               BuildDescription(errorDescription, details));
                });
}

Text InvalidOperationErr::BuildDescription(TextView errorDescription, TextView details) {
  return ErrorRoutines::AppendDetailsIfTheyAreNotBlank(errorDescription, details);
}

}  // namespace zorkanca
