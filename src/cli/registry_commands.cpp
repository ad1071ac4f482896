// Commands that show and change the registry of the home folder.
#include <charconv>
#include <cstdio>
#include <memory>
#include <vector>

#include "cli/command_line.h"
#include "cli/output_check.h"
#include "files/atomic_file.h"
#include "host/registry/reg_transfer.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

struct RegistryKey {
  RegistryHive hive;
  Text path;
};

RegistryKey ReadKey(const std::string& argument) {
  const Text key = FromUtf8(argument);
  const std::size_t end = key.find(u'\\');
  const Text root = UpperCase(TextView(key).substr(0, end));
  const Text path = end == Text::npos ? Text() : key.substr(end + 1);
  if (root == u"HKCU") return {RegistryHive::kCurrentUser, path};
  if (root == u"HKLM") return {RegistryHive::kLocalMachine, path};
  if (root == u"HKCR") return {RegistryHive::kClassesRoot, path};
  throw UsageError("a key begins with HKCU, HKLM or HKCR: " + argument);
}

std::int32_t ReadNumber(const std::string& text) {
  std::int32_t number = 0;
  const char* end = text.data() + text.size();
  const auto [rest, status] = std::from_chars(text.data(), end, number);
  if (status != std::errc() || rest != end) throw UsageError("not a 32-bit number: " + text);
  return number;
}

Text TypeName(const RegistryValue& value) {
  if (std::holds_alternative<Text>(value)) return u"string";
  if (std::holds_alternative<std::int32_t>(value)) return u"number";
  return u"raw";
}

Text Shown(const RegistryValue& value) {
  if (const Text* text = std::get_if<Text>(&value)) return *text;
  if (const std::int32_t* number = std::get_if<std::int32_t>(&value)) return DecimalText(*number);
  constexpr TextView kDigits = u"0123456789abcdef";
  Text hex;
  for (const std::byte byte : std::get<RawRegistryValue>(value).bytes) {
    const auto code = std::to_integer<unsigned>(byte);
    hex.push_back(kDigits[code >> 4]);
    hex.push_back(kDigits[code & 15]);
  }
  return hex;
}

int Missing(Report& report, const std::string& key, const std::string& what) {
  report.Failure(FromUtf8("no such " + what + ": " + key));
  return kFailed;
}

struct RegistryOptions {
  std::string key;
  std::string name;
  std::string value;
  std::string type = "string";
  std::string file;
};

int Get(const CommandContext& context, const RegistryOptions& options) {
  const RegistryKey key = ReadKey(options.key);
  const auto value = context.platform.registry.Read(key.hive, key.path, FromUtf8(options.name));
  if (!value) return Missing(context.report, options.key + " " + options.name, "value");
  context.report.Value(Shown(*value));
  return kDone;
}

int Set(const CommandContext& context, const RegistryOptions& options) {
  const RegistryKey key = ReadKey(options.key);
  RegistryValue value = FromUtf8(options.value);
  if (options.type == "number") value = ReadNumber(options.value);
  context.platform.registry.Write(key.hive, key.path, FromUtf8(options.name), value);
  return kDone;
}

int Delete(const CommandContext& context, const RegistryOptions& options) {
  const RegistryKey key = ReadKey(options.key);
  if (key.path.empty()) throw UsageError("a whole hive cannot be deleted");
  return context.platform.registry.DeleteKey(key.hive, key.path) ? kDone : Missing(context.report, options.key, "key");
}

int List(const CommandContext& context, const RegistryOptions& options) {
  const RegistryKey key = ReadKey(options.key);
  Registry& registry = context.platform.registry;
  if (!key.path.empty() && !registry.KeyExists(key.hive, key.path)) return Missing(context.report, options.key, "key");
  for (const Text& name : registry.SubkeyNames(key.hive, key.path)) context.report.Value(name + u"\\");
  for (const Text& name : registry.ValueNames(key.hive, key.path)) {
    if (const auto value = registry.Read(key.hive, key.path, name)) {
      context.report.Value(name + u"\t" + TypeName(*value) + u"\t" + Shown(*value));
    }
  }
  return kDone;
}

int Export(const CommandContext& context, const RegistryOptions& options) {
  const Text path = context.platform.files.GetAbsolutePathName(FromUtf8(options.file));
  RequireNew(context, path);
  std::vector<RegistryPlace> places;
  for (const RegistryHive hive :
       {RegistryHive::kClassesRoot, RegistryHive::kCurrentUser, RegistryHive::kLocalMachine}) {
    places.push_back({.hive = hive, .key = Text()});
  }
  AtomicFile file(ToUtf8(path), {});
  file.Write(ExportRegistry(context.platform.registry, places));
  file.Commit();
  context.report.File(path);
  return kDone;
}

int Import(const CommandContext& context, const RegistryOptions& options) {
  ImportRegistry(context.platform.registry, BytesOf(options.file), FromUtf8(options.file));
  return kDone;
}

using Operation = int (*)(const CommandContext&, const RegistryOptions&);

CLI::App* AddOperation(CLI::App& group, Command& chosen, const std::shared_ptr<RegistryOptions>& options,
                       const char* name, const char* description, Operation operation) {
  CLI::App* command = group.add_subcommand(name, description);
  command->callback([&chosen, options, operation] {
    chosen = [options, operation](const CommandContext& context) { return operation(context, *options); };
  });
  return command;
}

}  // namespace

void AddRegistryCommands(CLI::App& app, Command& chosen) {
  CLI::App& group = *app.add_subcommand("registry", "Show and change the registry");
  group.require_subcommand(1);
  const auto options = std::make_shared<RegistryOptions>();
  const auto addKey = [&](CLI::App* command) {
    command->add_option("KEY", options->key, "key, beginning with HKCU, HKLM or HKCR")->required();
    return command;
  };
  addKey(AddOperation(group, chosen, options, "get", "Print a value", Get))
      ->add_option("NAME", options->name, "value name; without it the key's default value");
  CLI::App* set = addKey(AddOperation(group, chosen, options, "set", "Write a value", Set));
  set->add_option("NAME", options->name, "value name; '' is the key's default value")->required();
  set->add_option("VALUE", options->value, "the value")->required();
  set->add_option("--type", options->type, "type of the value")
      ->check(CLI::IsMember({"string", "number"}))
      ->capture_default_str();
  addKey(AddOperation(group, chosen, options, "delete", "Delete a key with all below it", Delete));
  addKey(AddOperation(group, chosen, options, "list", "List sub-keys and values of a key", List));
  AddOperation(group, chosen, options, "export", "Write the registry to a .reg file", Export)
      ->add_option("FILE", options->file, "file to write")
      ->required();
  AddOperation(group, chosen, options, "import", "Read a .reg file into the registry", Import)
      ->add_option("FILE", options->file, "file to read")
      ->required();
}

}  // namespace zorkanca::cli
