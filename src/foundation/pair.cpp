#include "foundation/pair.h"

#include "foundation/argument_error.h"
#include "runtime/convert.h"
#include "runtime/format.h"

namespace zorkanca {

namespace {

float NotNegative(float number, TextView argumentName, TextView sourceFunctionName) {
  if (number >= 0) return number;
  ArgumentError().RaiseArgumentError(argumentName, Trim(ToStrText(number)), u"Nezáporné číslo", sourceFunctionName);
}

}  // namespace

Text Pair::ToString(const Locale& locale) const {
  const FormatPattern format(itemFormat_);
  Text text = format.Apply(first_, locale);
  text.append(u", ");
  format.Append(text, second_, locale);
  return text;
}

Size::Size(float width, float height)
    : Pair(NotNegative(width, u"Width", u"Size.Width"), NotNegative(height, u"Height", u"Size.Height"), u"###0") {}

}  // namespace zorkanca
