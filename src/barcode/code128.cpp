#include "barcode/code128.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "runtime/ascii.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

constexpr std::uint8_t kNoValue = 0xFF;
constexpr std::uint64_t kModulus = 103;
constexpr std::uint64_t kMaximalSum = 32767;  // the published sum is a 16-bit integer
constexpr std::uint8_t kStartBCode = 181;
constexpr std::uint8_t kStartCCode = 182;
constexpr std::uint8_t kStopCode = 184;

// Symbol values by ANSI code, for the characters of both layouts.
constexpr std::array<std::uint8_t, 256> MakeValues() {
  std::array<std::uint8_t, 256> values{};
  values.fill(kNoValue);
  const auto setRange = [&values](std::size_t first, std::size_t last, std::uint8_t value) {
    for (std::size_t code = first; code <= last; ++code) values[code] = value++;
  };
  setRange(32, 127, 0);
  setRange(128, 137, 96);
  setRange(166, 169, 96);
  setRange(171, 173, 100);
  setRange(180, 182, 103);
  setRange(184, 184, 0);  // some fonts of the second layout draw a blank with this one
  return values;
}

constexpr std::array<std::uint8_t, 256> kValues = MakeValues();

std::uint8_t ValueOrNone(char16_t unit, const CodePage& codePage) {
  if (unit < 128) return kValues[unit];
  const std::uint8_t code = codePage.Encode(unit);
  const bool isOfThePage = codePage.Decode(code) == unit;  // no best fit: the font would draw something else
  return isOfThePage ? kValues[code] : kNoValue;
}

char16_t FontCharacter(std::uint64_t value, Code128Layout layout, const CodePage& codePage) {
  if (layout == Code128Layout::kSecond) return Code128FontCharacter(static_cast<float>(value), codePage);
  return codePage.Decode(static_cast<std::uint8_t>(value + 32));
}

std::uint8_t PairValue(TextView digits, std::size_t index) {
  return static_cast<std::uint8_t>((digits[index] - u'0') * 10 + (digits[index + 1] - u'0'));
}

char16_t WithVisibleBlank(char16_t unit) {
  return unit == u' ' ? u'_' : unit;
}

}  // namespace

char16_t Code128FontCharacter(float value, const CodePage& codePage) {
  const float offset = value < 96 ? 32.F : value < 100 ? 70.F : value < 103 ? 71.F : 77.F;
  const float code = std::nearbyint(value + offset);
  if (!(code >= 0 && code <= 255)) Raise(RuntimeError::kInvalidCall);
  return codePage.Decode(static_cast<std::uint8_t>(code));
}

bool IsCode128Digits(TextView content) {
  return !content.empty() && std::all_of(content.begin(), content.end(), [](char16_t unit) { return IsDigit(unit); });
}

std::vector<std::uint8_t> Code128PairValues(TextView digits) {
  std::vector<std::uint8_t> values;
  values.reserve(digits.size() / 2);
  for (std::size_t index = 0; index + 1 < digits.size(); index += 2) values.push_back(PairValue(digits, index));
  return values;
}

std::optional<std::vector<std::uint8_t>> Code128BValues(TextView content, const CodePage& codePage) {
  std::vector<std::uint8_t> values;
  values.reserve(content.size());
  for (const char16_t unit : content) {
    values.push_back(ValueOrNone(unit, codePage));
    if (values.back() == kNoValue) return std::nullopt;
  }
  return values;
}

std::uint8_t Code128CheckValue(std::uint8_t start, const std::vector<std::uint8_t>& values) {
  std::uint64_t sum = start;
  for (std::size_t index = 0; index < values.size(); ++index) sum += values[index] * (index + 1);
  return static_cast<std::uint8_t>(sum % kModulus);
}

Text EncodeCode128B(TextView content, bool checkCharacter, Code128Layout layout, const CodePage& codePage) {
  const bool isFirst = layout == Code128Layout::kFirst;
  Text text;
  text.reserve(content.size() + 3);
  if (!isFirst) text.push_back(codePage.Decode(kStartBCode));
  const std::size_t start = text.size();
  std::uint64_t sum = kCode128StartB;
  for (std::size_t index = 0; index < content.size(); ++index) {
    const char16_t unit = content[index];
    const std::uint8_t value = ValueOrNone(unit, codePage);
    if (value == kNoValue) return Text();
    sum += value * (index + 1);
    text.push_back(isFirst ? WithVisibleBlank(unit) : unit);
  }
  if (checkCharacter) {
    if (sum > kMaximalSum) Raise(RuntimeError::kOverflow);
    const char16_t check = FontCharacter(sum % kModulus, layout, codePage);
    text.push_back(isFirst ? WithVisibleBlank(check) : check);
  }
  if (text.size() == start) return Text();
  if (!isFirst) text.push_back(codePage.Decode(kStopCode));
  return text;
}

Text EncodeCode128C(TextView digits, const CodePage& codePage) {
  Text text;
  text.reserve(digits.size() / 2 + 3);
  text.push_back(codePage.Decode(kStartCCode));
  std::uint64_t sum = kCode128StartC;
  for (std::size_t index = 0; index + 1 < digits.size(); index += 2) {
    const std::uint8_t value = PairValue(digits, index);
    sum += value * (index / 2 + 1);
    text.push_back(FontCharacter(value, Code128Layout::kSecond, codePage));
  }
  text.push_back(FontCharacter(sum % kModulus, Code128Layout::kSecond, codePage));
  text.push_back(codePage.Decode(kStopCode));
  return text;
}

}  // namespace zorkanca
