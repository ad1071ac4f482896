#include "foundation/err_data.h"

#include <optional>

#include "foundation/application_name.h"
#include "foundation/error_codes.h"
#include "foundation/error_routines.h"
#include "runtime/error.h"

namespace zorkanca {

ErrData::ErrData() {
  FillWithCurrentErr();
}

void ErrData::FillWithCurrentErr() {
  const std::optional<Error> current = ErrorBeingHandled();
  number = current ? current->number() : 0;
  description = current ? current->description() : Text();
  source = current ? current->source() : Text();
}

void ErrData::RaiseAsInternalError(TextView sourceFunctionName, TextView details) const {
  throw Error(UnexpectedErrorCode, InternalSource(sourceFunctionName, details),
              InternalDescription(sourceFunctionName));
}

Text ErrData::BuildErrorMessage(TextView sourceFunctionName, TextView details) const {
  return InternalDescription(sourceFunctionName)
      .append(kCrLf)
      .append(kCrLf)
      .append(u"(Zdroj: ")
      .append(InternalSource(sourceFunctionName, details))
      .append(u")");
}

Text ErrData::InternalDescription(TextView sourceFunctionName) const {
  return Text(u"Neočekávaná chyba -> ")
      .append(DecimalText(number))
      .append(u" - ")
      .append(description)
      .append(u" -> \"")
      .append(ErrorRoutines::BuildErrorSourceText(kApplicationName, sourceFunctionName))
      .append(u"\".");
}

Text ErrData::InternalSource(TextView sourceFunctionName, TextView details) const {
  Text chain = ErrorRoutines::BuildErrorSourceText(kApplicationName, sourceFunctionName);
  chain.append(u"->").append(kCrLf).append(source);
  if (!details.empty()) chain.append(kCrLf).append(u"[Detaily: ").append(details).append(u"]");
  return chain;
}

}  // namespace zorkanca
