#include "support/bar_code_reader.h"

#include <array>
#include <vector>

namespace zorkanca::testing {

namespace {

// Symbol value of a font character, -1 for a code that the layout does not have.
int FirstLayoutValue(int code) {
  return code >= 32 && code <= 137 ? code - 32 : -1;
}

int SecondLayoutValue(int code) {
  if (code >= 32 && code <= 127) return code - 32;
  for (const auto& [first, last, value] : {std::array{166, 169, 96}, {171, 173, 100}, {180, 182, 103}}) {
    if (code >= first && code <= last) return code - first + value;
  }
  return -1;
}

int Remainder(int start, const std::vector<int>& values) {
  int remainder = start % 103;
  int weight = 0;
  for (const int value : values) remainder = (remainder + value * (++weight % 103)) % 103;
  return remainder;
}

}  // namespace

std::optional<Text> ReadCode39(TextView fontText, bool hasCheck) {
  if (fontText.size() < 3 || fontText.front() != u'*' || fontText.back() != u'*') return std::nullopt;
  const TextView alphabet = u"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-._$/+%";
  Text content;
  std::size_t sum = 0;
  std::size_t value = 0;
  for (const char16_t unit : fontText.substr(1, fontText.size() - 2)) {
    value = alphabet.find(unit);
    if (value == TextView::npos) return std::nullopt;
    sum += value;
    content.push_back(unit == u'_' ? u' ' : unit);
  }
  if (!hasCheck) return content;
  content.pop_back();
  return (sum - value) % 43 == value ? std::optional(content) : std::nullopt;
}

std::optional<Text> ReadCode128First(TextView fontText, bool hasCheck, const CodePage& codePage) {
  std::vector<int> values;
  for (const char16_t unit : fontText) values.push_back(unit == u'_' ? 0 : FirstLayoutValue(codePage.Encode(unit)));
  if (hasCheck) {
    if (values.empty()) return std::nullopt;
    const int check = values.back();
    values.pop_back();
    const int expected = Remainder(104, values);
    const bool isShownAsBlank = expected == u'_' - 32 && check == 0;
    if (expected != check && !isShownAsBlank) return std::nullopt;
  }
  Text content;
  for (const int value : values) {
    if (value < 0) return std::nullopt;
    content.push_back(codePage.Decode(static_cast<std::uint8_t>(value + 32)));
  }
  return content;
}

std::optional<Text> ReadCode128Second(TextView fontText, bool hasCheck, const CodePage& codePage) {
  if (fontText.size() < 3 || codePage.Encode(fontText.back()) != 184) return std::nullopt;
  const int start = SecondLayoutValue(codePage.Encode(fontText.front()));
  if (start != 104 && start != 105) return std::nullopt;
  TextView symbols = fontText.substr(1, fontText.size() - 2);
  std::vector<int> values;
  for (const char16_t unit : symbols) values.push_back(SecondLayoutValue(codePage.Encode(unit)));
  if (hasCheck || start == 105) {
    const int check = values.back();
    values.pop_back();
    symbols.remove_suffix(1);
    if (Remainder(start, values) != check) return std::nullopt;
  }
  if (start == 104) return Text(symbols);
  Text digits;
  for (const int value : values) {
    if (value < 0 || value > 99) return std::nullopt;
    digits.push_back(static_cast<char16_t>(u'0' + value / 10));
    digits.push_back(static_cast<char16_t>(u'0' + value % 10));
  }
  return digits;
}

}  // namespace zorkanca::testing
