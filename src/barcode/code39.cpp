#include "barcode/code39.h"

#include <algorithm>
#include <array>

namespace zorkanca {

namespace {

constexpr TextView kDataCharacters = u"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%";
constexpr std::uint8_t kNoValue = 0xFF;

constexpr std::array<std::uint8_t, 128> MakeValues() {
  std::array<std::uint8_t, 128> values{};
  values.fill(kNoValue);
  for (std::size_t value = 0; value < kDataCharacters.size(); ++value) {
    values[kDataCharacters[value]] = static_cast<std::uint8_t>(value);
  }
  return values;
}

constexpr std::array<std::uint8_t, 128> kValues = MakeValues();

char16_t FontCharacter(char16_t unit) {
  return unit == u' ' ? u'_' : unit;
}

}  // namespace

std::optional<std::uint8_t> Code39Value(char16_t unit) {
  if (unit >= kValues.size() || kValues[unit] == kNoValue) return std::nullopt;
  return kValues[unit];
}

char16_t Code39CheckCharacter(TextView content) {
  std::size_t sum = 0;
  for (const char16_t unit : content) sum += kValues[unit];
  return kDataCharacters[sum % kDataCharacters.size()];
}

bool IsCode39Content(TextView content) {
  return std::all_of(content.begin(), content.end(), [](char16_t unit) { return Code39Value(unit).has_value(); });
}

Text EncodeCode39(TextView content, bool checkCharacter) {
  if (!IsCode39Content(content)) return u"**";
  Text text;
  text.reserve(content.size() + 3);
  text.push_back(u'*');
  for (const char16_t unit : content) text.push_back(FontCharacter(unit));
  if (checkCharacter) text.push_back(FontCharacter(Code39CheckCharacter(content)));
  text.push_back(u'*');
  return text;
}

}  // namespace zorkanca
