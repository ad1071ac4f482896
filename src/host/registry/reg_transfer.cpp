#include "host/registry/reg_transfer.h"

#include "host/registry/reg_format.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

void ExportKey(RegWriter& writer, Registry& registry, RegistryHive hive, const Text& key) {
  const std::vector<Text> values = registry.ValueNames(hive, key);
  if (!key.empty() || !values.empty()) writer.AddKey(hive, key);
  for (const Text& name : values) {
    if (const std::optional<RegistryValue> value = registry.Read(hive, key, name)) writer.AddValue(name, value);
  }
  for (const Text& name : registry.SubkeyNames(hive, key)) {
    ExportKey(writer, registry, hive, key.empty() ? name : key + u"\\" + name);
  }
}

void ImportSection(Registry& registry, RegistryHive hive, const Text& key, const RegSection& section) {
  if (section.deleted) {
    registry.DeleteKey(hive, key);
    return;
  }
  registry.CreateKey(hive, key);
  for (const RegLine& line : section.lines) {
    if (line.value) {
      registry.Write(hive, key, line.name, *line.value);
    } else {
      registry.DeleteValue(hive, key, line.name);
    }
  }
}

}  // namespace

std::string ExportRegistry(Registry& registry, std::span<const RegistryPlace> places) {
  RegWriter writer;
  for (const auto& [hive, key] : places) {
    if (!registry.KeyExists(hive, key)) Raise(RuntimeError::kInvalidCall, u"No such registry key: " + key);
    ExportKey(writer, registry, hive, key);
  }
  return writer.Bytes();
}

void ImportRegistry(Registry& registry, std::string_view bytes, const Text& origin) {
  const std::vector<RegSection> sections = ParseReg(bytes, origin);
  registry.Change([&] {
    for (const RegSection& section : sections) {
      const auto place = SplitRegPath(section.path);
      if (!place) {
        Text description = origin + u", line ";
        AppendDecimal(description, section.lineNumber);
        Raise(RuntimeError::kInvalidCall, description + u": unknown root of the key " + section.path);
      }
      ImportSection(registry, place->first, place->second, section);
    }
  });
}

}  // namespace zorkanca
