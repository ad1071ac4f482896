#include "foundation/argument_details.h"

namespace zorkanca {

Text ArgumentDetails::operator()() const {
  Text details;
  for (const NamedArgument& argument : arguments_) {
    if (!details.empty()) details.append(u"; ");
    details.append(argument.name).append(u" = ");
    if (const TextView* text = std::get_if<TextView>(&argument.value)) {
      details.append(u"\"").append(*text).append(u"\"");
    } else {
      AppendDecimal(details, std::get<std::int64_t>(argument.value));
    }
  }
  return details;
}

}  // namespace zorkanca
