#include "foundation/registry_access.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

#include "foundation/argument_details.h"
#include "foundation/argument_error.h"
#include "foundation/guarded.h"

namespace zorkanca {

namespace {

constexpr TextView kSettingsKey = u"Software\\VB and VBA Program Settings\\";
constexpr std::uint32_t kExpandableText = 2;

/// UTF-16LE bytes up to the first NUL.
Text TextOfBytes(const std::vector<std::byte>& bytes) {
  Text text;
  for (std::size_t index = 0; index + 1 < bytes.size(); index += 2) {
    const auto unit = static_cast<char16_t>(std::to_integer<unsigned>(bytes[index]) |
                                            std::to_integer<unsigned>(bytes[index + 1]) << 8U);
    if (unit == 0) break;
    text.push_back(unit);
  }
  return text;
}

std::optional<Text> TextOfValue(const RegistryValue& value) {
  if (const Text* text = std::get_if<Text>(&value)) return *text;
  if (const std::int32_t* number = std::get_if<std::int32_t>(&value)) return DecimalText(*number);
  const auto& raw = std::get<RawRegistryValue>(value);
  if (raw.type == kExpandableText) return TextOfBytes(raw.bytes);
  return std::nullopt;
}

Text ReadText(Registry& registry, RegistryHive hive, TextView key, TextView name, TextView defaultValue) {
  const std::optional<RegistryValue> value = registry.Read(hive, key, name);
  if (!value) return Text(defaultValue);
  return TextOfValue(*value).value_or(Text(defaultValue));
}

}  // namespace

Text RegistryAccess::ReadValue(RegistryHive rootKey, TextView keyPath, TextView valueName,
                               TextView defaultValue) const {
  return Guarded(
      u"RegistryAccess.ReadValue",
      ArgumentDetails(
          {{u"rootKey", static_cast<std::int64_t>(rootKey)}, {u"keyPath", keyPath}, {u"valueName", valueName}}),
      [&] { return ReadText(registry_, rootKey, keyPath, valueName, defaultValue); });
}

void RegistryAccess::SetApplicationName(TextView name) {
  ArgumentError().StringArgumentMustNotBeBlank(name, u"name", u"RegistryAccess.SetApplicationName");
  applicationName_ = name;
}

void RegistryAccess::SaveSetting(TextView section, TextView key, TextView value) const {
  constexpr TextView kName = u"RegistryAccess.SaveSetting";
  CheckSetting(section, key, kName);
  Guarded(kName, ArgumentDetails({{u"section", section}, {u"key", key}, {u"value", value}}),
          [&] { registry_.Write(RegistryHive::kCurrentUser, SectionPath(section), key, Text(value)); });
}

Text RegistryAccess::GetSetting(TextView section, TextView key, TextView defaultValue) const {
  constexpr TextView kName = u"RegistryAccess.GetSetting";
  CheckSetting(section, key, kName);
  return Guarded(kName, ArgumentDetails({{u"section", section}, {u"key", key}}), [&] {
    return ReadText(registry_, RegistryHive::kCurrentUser, SectionPath(section), key, defaultValue);
  });
}

void RegistryAccess::CheckSetting(TextView section, TextView key, TextView sourceFunctionName) const {
  const ArgumentError argumentError;
  argumentError.StringArgumentMustNotBeBlank(applicationName_, u"applicationName", sourceFunctionName);
  argumentError.StringArgumentMustNotBeBlank(section, u"section", sourceFunctionName);
  argumentError.StringArgumentMustNotBeBlank(key, u"key", sourceFunctionName);
}

Text RegistryAccess::SectionPath(TextView section) const {
  return Text(kSettingsKey).append(applicationName_).append(u"\\").append(section);
}

}  // namespace zorkanca
