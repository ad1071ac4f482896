#include "foundation/value_serializers.h"

#include <cmath>
#include <cstddef>
#include <limits>

#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/locale.h"

namespace zorkanca {

namespace {

constexpr char16_t kEscape = u'\\';
constexpr std::size_t kCodeDigits = 3;

// Numbers as they are written here: a decimal point and nothing else that a locale could settle.
const Locale& PlainNumbers() {
  static const Locale locale = [] {
    Locale plain;
    plain.decimalSeparator = u".";
    return plain;
  }();
  return locale;
}

Text PlainText(const Value& number) {
  return Text(Trim(ToStrText(number)));
}

void AppendCode(Text& text, char16_t character) {
  const unsigned code = character;
  text.push_back(kEscape);
  for (const unsigned power : {100U, 10U, 1U}) text.push_back(static_cast<char16_t>(u'0' + code / power % 10U));
}

char16_t CharacterOfCode(TextView digits) {
  if (digits.size() < kCodeDigits) Raise(RuntimeError::kTypeMismatch);
  unsigned code = 0;
  for (const char16_t digit : digits) {
    if (digit < u'0' || digit > u'9') Raise(RuntimeError::kTypeMismatch);
    code = code * 10U + (digit - unsigned{u'0'});
  }
  return static_cast<char16_t>(code);
}

}  // namespace

Text IntegerValueToStringSerializer::Serialize(const Value& value) const {
  return PlainText(std::get<std::int16_t>(value));
}

Value IntegerValueToStringSerializer::Deserialize(TextView data) const {
  return ToInteger(Text(data), PlainNumbers());
}

Text LongValueToStringSerializer::Serialize(const Value& value) const {
  return PlainText(std::get<std::int32_t>(value));
}

Value LongValueToStringSerializer::Deserialize(TextView data) const {
  return ToLong(Text(data), PlainNumbers());
}

Text SingleValueToStringSerializer::Serialize(const Value& value) const {
  return PlainText(std::get<float>(value));
}

Value SingleValueToStringSerializer::Deserialize(TextView data) const {
  const double number = ToDouble(Text(data), PlainNumbers());
  if (std::abs(number) > static_cast<double>(std::numeric_limits<float>::max())) Raise(RuntimeError::kOverflow);
  return static_cast<float>(number);
}

Text StringValueToStringSerializer::Serialize(const Value& value) const {
  Text text;
  for (const char16_t character : std::get<Text>(value)) {
    if (character < 32 || character == u'|') {
      AppendCode(text, character);
    } else {
      if (character == kEscape) text.push_back(kEscape);
      text.push_back(character);
    }
  }
  return text;
}

Value StringValueToStringSerializer::Deserialize(TextView data) const {
  Text text;
  while (!data.empty()) {
    const bool isPlain = data.front() != kEscape;
    const bool isDoubled = data.starts_with(u"\\\\");
    text.push_back(isPlain || isDoubled ? data.front() : CharacterOfCode(data.substr(1, kCodeDigits)));
    data.remove_prefix(isPlain ? 1 : isDoubled ? 2 : 1 + kCodeDigits);
  }
  return text;
}

}  // namespace zorkanca
