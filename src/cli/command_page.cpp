#include "cli/command_page.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "cli/arguments.h"
#include "runtime/locale.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

struct NamedValue {
  const char* name;   // of an option, or of a value in capitals
  const char* shown;  // what stands for the value
  ValueKind kind = ValueKind::kText;
};

// The parser knows texts and numbers only.
constexpr auto kValues = std::to_array<NamedValue>({
    {"--home", "DIR", ValueKind::kFolder},
    {"--locale", "TAG", ValueKind::kLocale},
    {"--config", "FILE", ValueKind::kFile},
    {"--db", "DB", ValueKind::kFile},
    {"--db-password-file", "FILE", ValueKind::kFile},
    {"--separator", "CHAR"},
    {"--select", "SQL"},
    {"--sql-file", "FILE", ValueKind::kFile},
    {"--query", "NAME=SQL"},
    {"--names", "NAMES"},
    {"--step", "PERCENT"},
    {"--multiplier", "COLUMN"},
    {"--data-file", "FILE", ValueKind::kFile},
    {"--headers", "FILE", ValueKind::kFile},
    {"--data", "FILE", ValueKind::kFile},
    {"--application", "CODE", ValueKind::kApplication},
    {"--template", "TEMPLATE", ValueKind::kTemplate},
    {"--list", "NAME", ValueKind::kList},
    {"--format", "FORMAT"},
    {"--output", "FILE", ValueKind::kFileOrFolder},
    {"--svg", "FILE", ValueKind::kFileOrFolder},
    {"--file", "FILE", ValueKind::kFile},
    {"--name", "PATTERN"},
    {"--part", "K/N"},
    {"--barcode", "PARAM"},
    {"--left", "CM"},
    {"--top", "CM"},
    {"--left2", "CM"},
    {"--top2", "CM"},
    {"--before", "POSITION"},
    {"--prefix", "CODE", ValueKind::kApplication},
    {"FILE", "FILE", ValueKind::kFile},
    {"TEMPLATE", "TEMPLATE", ValueKind::kFile},
    {"STEPS", "STEPS", ValueKind::kFile},
    {"SOURCE", "SOURCE", ValueKind::kFileOrFolder},
    {"COMMAND", "COMMAND", ValueKind::kCommand},
});

const NamedValue* FindValue(const CLI::Option& option) {
  const auto isMeant = [&option](const NamedValue& value) { return option.check_name(value.name); };
  const auto* found = std::find_if(kValues.begin(), kValues.end(), isMeant);
  return found == kValues.end() ? nullptr : found;
}

// The parser writes the values that a check lets through as "TEXT:{a,b}".
std::vector<std::string> ChoicesOf(const CLI::Option& option) {
  std::vector<std::string> choices;
  if (KindOfValue(option) == ValueKind::kLocale) {
    for (const Text& tag : KnownLocaleTags()) choices.push_back(ToUtf8(tag));
  }
  const std::string type = option.get_type_name();
  const std::size_t start = type.find(":{");
  if (start == std::string::npos) return choices;
  std::string_view rest = std::string_view(type).substr(start + 2, type.rfind('}') - start - 2);
  while (!rest.empty()) {
    const std::size_t end = rest.find(',');
    choices.emplace_back(rest.substr(0, end));
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
  }
  return choices;
}

std::string ValueOf(const CLI::Option& option) {
  if (const NamedValue* named = FindValue(option)) return named->shown;
  if (option.get_positional()) return option.get_name(true);
  return option.get_type_name().starts_with("TEXT") ? "TEXT" : "N";
}

std::vector<std::string> NamesOf(const CLI::Option& option) {
  std::vector<std::string> names;
  if (option.get_positional()) return {option.get_name(true)};
  for (const std::string& name : option.get_snames()) names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
  return names;
}

OptionPage PageOf(const CLI::Option& option) {
  OptionPage page{.names = NamesOf(option),
                  .value = {},
                  .choices = {},
                  .description = option.get_description(),
                  .defaultValue = option.get_default_str(),
                  .environment = option.get_envname(),
                  .required = option.get_required(),
                  .repeatable = option.get_expected_max() > 1};
  if (!TakesValue(option)) return page;
  page.choices = ChoicesOf(option);
  page.kind =
      page.choices.empty() || KindOfValue(option) == ValueKind::kLocale ? KindOfValue(option) : ValueKind::kChoice;
  page.value = ValueOf(option);
  if (page.kind == ValueKind::kChoice && !option.get_positional()) {
    page.value.clear();
    for (const std::string& choice : page.choices) page.value += (page.value.empty() ? "" : "|") + choice;
  }
  return page;
}

void AddOptions(const CLI::App& app, CommandPage& page) {
  for (const CLI::Option* option : app.get_options()) {
    if (option == app.get_help_ptr() || option->get_group().empty()) continue;
    (option->get_positional() ? page.values : page.options).push_back(PageOf(*option));
  }
  for (const CLI::App* group : app.get_subcommands([](const CLI::App* each) { return each->get_name().empty(); })) {
    AddOptions(*group, page);
  }
}

}  // namespace

ValueKind KindOfValue(const CLI::Option& option) {
  const NamedValue* named = FindValue(option);
  return named ? named->kind : ValueKind::kText;
}

CommandPage PageOf(const CLI::App& app, const std::string& path) {
  const auto examples = ExamplesOf(path);
  CommandPage page{.path = path,
                   .name = app.get_name(),
                   .description = app.get_description(),
                   .examples = {examples.begin(), examples.end()},
                   .values = {},
                   .options = {},
                   .commands = {},
                   .oneCommand = app.get_require_subcommand_min() > 0};
  AddOptions(app, page);
  // A command without a group is for scripts of ours, not for people.
  const auto isShown = [](const CLI::App* each) { return !each->get_name().empty() && !each->get_group().empty(); };
  for (const CLI::App* command : app.get_subcommands(isShown)) {
    page.commands.push_back(PageOf(*command, path.empty() ? command->get_name() : path + " " + command->get_name()));
  }
  return page;
}

}  // namespace zorkanca::cli
