#include "cli/help.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace zorkanca::cli {

namespace {

constexpr std::size_t kWidth = 100;
constexpr std::size_t kColumn = 28;  // where descriptions begin

std::size_t Columns(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0u) != 0x80u; }));
}

// The words of a text in lines that begin at a column.
std::string Wrapped(std::string_view text, std::size_t column) {
  std::string wrapped;
  std::size_t width = column;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(' '), text.size());
    const std::string_view word = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (width > column && width + 1 + Columns(word) > kWidth) {
      wrapped += "\n" + std::string(column, ' ');
      width = column;
    } else if (width > column) {
      wrapped += ' ';
      ++width;
    }
    wrapped += word;
    width += Columns(word);
  }
  return wrapped;
}

std::string Row(const std::string& title, const std::string& description) {
  std::string row = "  " + title;
  const std::size_t width = Columns(row);
  row += width + 2 > kColumn ? "\n" + std::string(kColumn, ' ') : std::string(kColumn - width, ' ');
  return row + Wrapped(description, kColumn) + "\n";
}

std::string Options(const std::vector<OptionPage>& options) {
  std::string text;
  for (const OptionPage& option : options) text += Row(TitleOf(option), DescriptionOf(option));
  return text;
}

std::string Examples(const CommandPage& page, std::size_t count) {
  if (page.examples.empty()) return "";
  std::string text = count == 1 ? "Example:\n" : "Examples:\n";
  for (std::size_t index = 0; index < std::min(count, page.examples.size()); ++index) {
    const Example& example = page.examples[index];
    text += std::string("  zorkanca ") + example.line + "\n      " + example.what + "\n";
  }
  return text + "\n";
}

std::string Commands(const CommandPage& page) {
  std::string text;
  for (const CommandPage& command : page.commands) text += Row(command.name, command.description);
  return text;
}

std::string ProgramAnd(const std::string& path) {
  return path.empty() ? "zorkanca" : "zorkanca " + path;
}

}  // namespace

std::string DescriptionOf(const OptionPage& option) {
  std::string text = option.description;
  std::string more;
  const auto add = [&more](const std::string& what) { more += (more.empty() ? "" : "; ") + what; };
  if (!option.choices.empty() && (option.kind != ValueKind::kChoice || option.names.front()[0] != '-')) {
    std::string choices;
    for (const std::string& choice : option.choices) choices += (choices.empty() ? "" : ", ") + choice;
    if (text != choices) add(choices);
  }
  if (option.required && option.names.front()[0] == '-') add("required");
  if (option.repeatable) add("may be given several times");
  if (!option.environment.empty()) add("environment: " + option.environment);
  if (!option.defaultValue.empty()) add("default: " + option.defaultValue);
  if (more.empty()) return text;
  if (text.ends_with(')')) return text.substr(0, text.size() - 1) + "; " + more + ")";
  text += " (" + more + ")";
  return text;
}

std::string TitleOf(const OptionPage& option) {
  std::string title;
  for (const std::string& name : option.names) title += (title.empty() ? "" : ", ") + name;
  const bool isOption = option.names.front()[0] == '-';
  return isOption && !option.value.empty() ? title + " " + option.value : title;
}

std::string UsageOf(const CommandPage& page) {
  std::string usage = ProgramAnd(page.path);
  if (!page.options.empty()) usage += page.path.empty() ? " [global options]" : " [options]";
  if (!page.commands.empty()) usage += " COMMAND";
  for (const OptionPage& value : page.values) {
    const std::string name = value.names.front() + (value.repeatable ? "..." : "");
    usage += value.required ? " " + name : " [" + name + "]";
  }
  return usage;
}

std::string HelpOf(const CommandPage& page) {
  std::string text = Examples(page, 2) + page.description + ".\n\nUsage: " + UsageOf(page) + "\n";
  if (!page.values.empty()) text += "\nValues:\n" + Options(page.values);
  if (!page.options.empty()) {
    text += (page.path.empty() ? "\nGlobal options:\n" : "\nOptions:\n") + Options(page.options);
  }
  if (!page.commands.empty()) text += "\nCommands:\n" + Commands(page);
  if (!page.commands.empty()) text += "\n'" + ProgramAnd(page.path) + " COMMAND --help' tells more of a command.\n";
  if (!page.path.empty()) text += "\nGlobal options (--locale, --home, --json, ...): see 'zorkanca --help'.\n";
  return text;
}

std::string ShortHelpOf(const CommandPage& page) {
  return page.description + ".\n\n" + Examples(page, 1) + "Usage: " + UsageOf(page) + "\n\nCommands:\n" +
         Commands(page) + "\n'" + ProgramAnd(page.path) + " --help' tells more.\n";
}

}  // namespace zorkanca::cli
