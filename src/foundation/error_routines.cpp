#include "foundation/error_routines.h"

#include "foundation/application_name.h"
#include "foundation/argument_error.h"
#include "foundation/string_routines.h"

namespace zorkanca {

Text ErrorRoutines::BuildErrorSourceText(TextView appExeName, TextView functionName) {
  return StringRoutines::EncloseWithBrackets(appExeName).append(u".").append(functionName);
}

Text ErrorRoutines::BuildUnexpectedErrorDescription(std::int32_t errorNumber, TextView errorDescription,
                                                    TextView functionName, TextView appExeName) {
  constexpr TextView kName = u"ErrorRoutines.BuildUnexpectedErrorDescription";
  const ArgumentError argumentError;
  argumentError.StringArgumentMustNotBeBlank(errorDescription, u"errorDescription", kName);
  argumentError.StringArgumentMustNotBeBlank(appExeName, u"appExeName", kName);
  return Text(u"Neočekávaná chyba ")
      .append(DecimalText(errorNumber))
      .append(u" - ")
      .append(StringRoutines::EncloseWithQuotes(errorDescription))
      .append(u" -> ")
      .append(StringRoutines::EncloseWithQuotes(BuildErrorSourceText(appExeName, functionName)))
      .append(u".");
}

Text ErrorRoutines::BuildUnexpectedValueErrorDescription(TextView value, TextView valueName, TextView details) {
  ArgumentError().StringArgumentMustNotBeBlank(valueName, u"valueName",
                                               u"ErrorRoutines.BuildUnexpectedValueErrorDescription");
  const Text sentence = Text(u"Neočekávaná hodnota ")
                            .append(StringRoutines::EncloseWithQuotes(value))
                            .append(u" pro ")
                            .append(StringRoutines::EncloseWithQuotes(valueName))
                            .append(u".");
  return AppendDetailsIfTheyAreNotBlank(sentence, details);
}

Text ErrorRoutines::AppendDetailsIfTheyAreNotBlank(TextView text, TextView details) {
  Text result(text);
  if (StringRoutines::IsNotBlank(details)) result.append(u" ").append(BuildDetailsText(u"Detaily", details));
  return result;
}

Text ErrorRoutines::BuildDetailsText(TextView name, TextView details) {
  return StringRoutines::EncloseWithBrackets(Text(name).append(u": ").append(details));
}

Text ErrorRoutines::AppendDetails(TextView text, TextView details) {
  Text result(text);
  if (StringRoutines::IsNotBlank(details)) result.append(u" ").append(StringRoutines::EncloseWithBrackets(details));
  return result;
}

Text ErrorRoutines::BuildErrorSource(TextView functionName, TextView previousSource, TextView details) {
  const Text chain =
      BuildErrorSourceText(kApplicationName, functionName).append(u"->").append(kCrLf).append(previousSource);
  return AppendDetailsIfTheyAreNotBlank(chain, details);
}

}  // namespace zorkanca
