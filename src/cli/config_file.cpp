#include "cli/config_file.h"

#include <CLI/Option.hpp>
#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "cli/command_line.h"
#include "runtime/nearest_name.h"

namespace zorkanca::cli {

namespace {

constexpr std::size_t kLargest = 1 << 20;  // bytes

bool IsBare(char byte) {
  return std::isalnum(static_cast<unsigned char>(byte)) != 0 || byte == '-' || byte == '_' || byte == '+' ||
         byte == '.' || byte == ':' || byte == '%';
}

class ConfigReader {
 public:
  ConfigReader(std::string_view text, const std::string& name) : rest_(text), name_(name) {}

  std::vector<ConfigEntry> Read() {
    if (rest_.starts_with("\xEF\xBB\xBF")) rest_.remove_prefix(3);
    for (SkipToNext(); !rest_.empty(); SkipToNext()) {
      if (Take('[')) {
        ReadTable();
      } else {
        ReadEntry();
      }
      SkipBlanks();
      if (!rest_.empty() && rest_.front() != '\n') Fail("nothing may follow here");
    }
    return std::move(entries_);
  }

 private:
  [[noreturn]] void Fail(const std::string& what) const {
    throw UsageError(name_ + ":" + std::to_string(line_) + ": " + what);
  }

  bool Take(char byte) {
    if (rest_.empty() || rest_.front() != byte) return false;
    rest_.remove_prefix(1);
    return true;
  }

  void SkipBlanks() {
    while (Take(' ') || Take('\t') || Take('\r')) {
    }
    if (!rest_.empty() && rest_.front() == '#') rest_.remove_prefix(std::min(rest_.find('\n'), rest_.size()));
  }

  // Over lines that hold nothing.
  void SkipToNext() {
    for (SkipBlanks(); Take('\n'); SkipBlanks()) ++line_;
  }

  std::string Bare() {
    const auto* end = std::find_if_not(rest_.begin(), rest_.end(), IsBare);
    const std::string word(rest_.begin(), end);
    rest_.remove_prefix(word.size());
    return word;
  }

  std::string Key() {
    SkipBlanks();
    std::string key = !rest_.empty() && (rest_.front() == '"' || rest_.front() == '\'') ? Quoted() : Bare();
    if (key.empty()) Fail("the name of an option is expected");
    SkipBlanks();
    return key;
  }

  void ReadTable() {
    table_ = Key();
    std::replace(table_.begin(), table_.end(), '.', ' ');
    if (!Take(']')) Fail("] is expected after the name of a command");
  }

  void ReadEntry() {
    ConfigEntry entry{.command = table_, .option = Key(), .values = {}, .line = line_};
    if (!Take('=')) Fail("= is expected after " + entry.option);
    SkipBlanks();
    if (Take('[')) {
      for (SkipToNext(); !Take(']'); SkipToNext()) {
        entry.values.push_back(Value());
        SkipToNext();
        if (!Take(',') && (rest_.empty() || rest_.front() != ']')) Fail(", or ] is expected");
      }
    } else {
      entry.values.push_back(Value());
    }
    entries_.push_back(std::move(entry));
  }

  std::string Value() {
    if (!rest_.empty() && (rest_.front() == '"' || rest_.front() == '\'')) return Quoted();
    std::string value = Bare();
    const bool literal =
        !value.empty() && (value == "true" || value == "false" || value.find_first_of("0123456789") == 0 ||
                           value[0] == '-' || value[0] == '+');
    if (!literal) Fail("a value is expected: a number, true, false, or a text in quotes");
    return value;
  }

  std::string Quoted() {
    const char quote = rest_.front();
    rest_.remove_prefix(1);
    std::string text;
    while (!Take(quote)) {
      if (rest_.empty() || rest_.front() == '\n') Fail("a text has no end");
      const char byte = rest_.front();
      rest_.remove_prefix(1);
      text.push_back(byte == '\\' && quote == '"' ? Escaped() : byte);
    }
    return text;
  }

  char Escaped() {
    constexpr std::string_view kEscapes = "\\\"ntr";
    constexpr std::string_view kMeanings = "\\\"\n\t\r";
    const std::size_t at = rest_.empty() ? std::string_view::npos : kEscapes.find(rest_.front());
    if (at == std::string_view::npos) Fail(R"(\\, \", \n, \t and \r are known in quotes; apostrophes take \ as it is)");
    rest_.remove_prefix(1);
    return kMeanings[at];
  }

  std::string_view rest_;
  const std::string& name_;
  std::size_t line_ = 1;
  std::string table_;
  std::vector<ConfigEntry> entries_;
};

// The command of a table; the program itself of none.
const CLI::App& CommandOf(const CLI::App& app, const ConfigEntry& entry) {
  const CLI::App* command = &app;
  std::string_view rest = entry.command;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(' '), rest.size());
    const std::string name(rest.substr(0, end));
    const CLI::App* inner = FindCommand(*command, name);
    if (!inner) throw UsageError("there is no command " + name);
    command = inner;
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return *command;
}

void CollectNames(const CLI::App& app, std::vector<std::string>& names) {
  for (const std::string& name : LongNames(app)) names.push_back(name.substr(2));
  for (const CLI::App* command : app.get_subcommands([](const CLI::App* each) { return !each->get_name().empty(); })) {
    CollectNames(*command, names);
  }
}

// Where the entry belongs among the commands that are given; nothing when it is for other commands.
GivenOption Place(const GivenArguments& given, const ConfigEntry& entry) {
  const CLI::App& app = *given.commands.front();
  const std::string name = "--" + entry.option;
  const CLI::App& table = CommandOf(app, entry);
  std::vector<std::string> names;
  if (entry.command.empty()) {
    CollectNames(app, names);
  } else {
    for (const std::string& each : LongNames(table)) names.push_back(each.substr(2));
  }
  if (std::find(names.begin(), names.end(), entry.option) == names.end()) {
    const std::string owner = entry.command.empty() ? "there is" : entry.command + " has";
    throw UsageError(owner + " no option " + entry.option + DidYouMean(NearestName(entry.option, names)));
  }
  for (std::size_t level = given.commands.size(); level-- > 0;) {
    const CLI::Option* option = given.commands[level]->get_option_no_throw(name);
    const bool meant = entry.command.empty() || given.commands[level] == &table;
    if (option && meant) return {.option = option, .level = level};
  }
  return {};
}

bool IsSettled(const GivenArguments& given, const CLI::Option& option) {
  const std::string environment = option.get_envname();
  const char* value = environment.empty() ? nullptr : std::getenv(environment.c_str());
  if (given.Has(&option) || (value && *value)) return true;
  const auto excluded = option.get_excludes();
  return std::any_of(excluded.begin(), excluded.end(), [&](const CLI::Option* other) { return given.Has(other); });
}

void Add(GivenArguments& given, const ConfigEntry& entry, GivenOption option) {
  if (TakesValue(*option.option)) {
    const bool several = option.option->get_expected_max() > 1;
    if (!several && entry.values.size() != 1) throw UsageError(entry.option + " takes one value");
    for (const std::string& value : entry.values) {
      option.value = value;
      given.options.push_back(option);
    }
    return;
  }
  const std::string value = entry.values.size() == 1 ? entry.values.front() : "";
  if (value != "true" && value != "false") throw UsageError(entry.option + " is true or false");
  if (value == "true") given.options.push_back(option);
}

void AddEntries(GivenArguments& given, std::vector<ConfigEntry> entries, const std::string& name) {
  // What stands in a command's table holds before what stands for all; the last line before the ones above it.
  std::reverse(entries.begin(), entries.end());
  std::stable_sort(entries.begin(), entries.end(), [](const ConfigEntry& one, const ConfigEntry& other) {
    return one.command.size() > other.command.size();
  });
  for (const ConfigEntry& entry : entries) {
    try {
      const GivenOption option = Place(given, entry);
      if (option.option && !IsSettled(given, *option.option)) Add(given, entry, option);
    } catch (const UsageError& error) {
      throw UsageError(name + ":" + std::to_string(entry.line) + ": " + error.what());
    }
  }
}

}  // namespace

std::string DefaultConfigFile() {
  const char* folder = std::getenv("XDG_CONFIG_HOME");
  if (folder && *folder == '/') return std::string(folder) + "/zorkanca/config.toml";
  const char* home = std::getenv("HOME");
  return home && *home ? std::string(home) + "/.config/zorkanca/config.toml" : "";
}

std::vector<ConfigEntry> ReadConfig(const std::string& text, const std::string& name) {
  return ConfigReader(text, name).Read();
}

void AddConfigured(GivenArguments& given) {
  const std::string* asked = given.ValueOf("--config");
  const std::string path = asked ? *asked : DefaultConfigFile();
  std::error_code none;
  if (path.empty() || (!asked && !std::filesystem::exists(path, none))) return;
  const std::string text = BytesOf(path);
  if (text.size() > kLargest) throw UsageError(path + " is too large for a file of options");
  AddEntries(given, ReadConfig(text, path), path);
}

}  // namespace zorkanca::cli
