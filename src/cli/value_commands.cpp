// Commands that show how a single value is read and written: format, number, date, text.
#include <charconv>
#include <cmath>
#include <memory>
#include <optional>

#include "cli/command_line.h"
#include "formats/format.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/format.h"
#include "runtime/iso_date.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

double ReadDouble(const std::string& text) {
  double number = 0;
  const char* end = text.data() + text.size();
  const auto [rest, status] = std::from_chars(text.data(), end, number);
  const bool whole = status == std::errc() && rest == end && !text.empty();
  if (!whole || !std::isfinite(number)) throw UsageError("not a number with \".\" as decimal point: " + text);
  return number;
}

Decimal ReadDecimal(const std::string& text) {
  ReadDouble(text);  // refuses what is no number at all
  return ToDecimal(FromUtf8(text));
}

bool ReadBoolean(const std::string& text) {
  const Text word = LowerCase(FromUtf8(text));
  if (word == u"true") return true;
  if (word == u"false") return false;
  return ReadDouble(text) != 0;
}

Date ReadDate(const std::string& text) {
  if (const std::optional<Date> date = ParseIsoDate(text)) return *date;
  throw UsageError("not an ISO date (2026-11-16, 2026-11-16 14:05:09 or 14:05:09): " + text);
}

// The value of a command-line argument; numbers have "." as decimal point, dates are ISO.
Value ReadValue(const std::string& text, const std::string& type, const Locale& locale) {
  if (type == "text") return FromUtf8(text);
  if (type == "date") return ReadDate(text);
  if (type == "boolean") return ReadBoolean(text);
  if (type == "decimal") return ReadDecimal(text);
  if (type == "currency") return ToCurrency(ReadDecimal(text), locale);
  const double number = ReadDouble(text);
  if (type == "integer") return ToInteger(number, locale);
  if (type == "long") return ToLong(number, locale);
  if (type == "single") return static_cast<float>(number);
  return number;
}

struct ValueOptions {
  std::string pattern;
  std::string value;
  std::string type = "double";
};

void AddTypeOption(CLI::App& command, ValueOptions& options) {
  command.add_option("--type", options.type, "type of the value")
      ->check(CLI::IsMember({"double", "single", "currency", "decimal", "integer", "long", "boolean", "date", "text"}))
      ->capture_default_str();
}

void SetFormatCallback(CLI::App& command, Command& chosen, const std::shared_ptr<ValueOptions>& options) {
  command.callback([&chosen, options] {
    chosen = [options](const CommandContext& context) {
      const Locale& locale = context.platform.locale;
      context.report.Value(
          Format(ReadValue(options->value, options->type, locale), FromUtf8(options->pattern), locale));
      return kDone;
    };
  });
}

struct ColumnFormatOptions {
  std::string format;
  std::string value;
  bool isNull = false;
};

void AddFormat(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("format", "Format a value as a column of a Word export");
  const auto options = std::make_shared<ColumnFormatOptions>();
  command->add_option("FORMAT", options->format, "column format, for example 'case 1: ano case else: ne'")->required();
  CLI::Option* value = command->add_option("VALUE", options->value, "the value, a text");
  CLI::Option* null = command->add_flag("--null", options->isNull, "the value is Null")->excludes(value);
  command->callback([&chosen, options, value, null] {
    if (value->empty() && null->empty()) throw CLI::RequiredError("VALUE or --null");
    chosen = [options](const CommandContext& context) {
      cFormat format(context.platform.locale);
      format.format(FromUtf8(options->format));
      context.report.Value(format.Apply(options->isNull ? Value(Null()) : Value(FromUtf8(options->value))));
      return kDone;
    };
  });
}

void AddNumber(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("number", "Format a number by a pattern");
  const auto options = std::make_shared<ValueOptions>();
  command->add_option("PATTERN", options->pattern, "format pattern, for example '#,##0.00'")->required();
  command->add_option("VALUE", options->value, "value with \".\" as decimal point; as text it is read by the locale")
      ->required();
  AddTypeOption(*command, *options);
  SetFormatCallback(*command, chosen, options);
}

void AddDate(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("date", "Format a date by a pattern");
  const auto options = std::make_shared<ValueOptions>();
  options->type = "date";
  command->add_option("PATTERN", options->pattern, "format pattern, for example 'd.m.yyyy'")->required();
  command->add_option("VALUE", options->value, "ISO date, time or both")->required();
  SetFormatCallback(*command, chosen, options);
}

void AddText(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("text", "Print the text form that a value takes in an export");
  const auto options = std::make_shared<ValueOptions>();
  command->add_option("VALUE", options->value, "value with \".\" as decimal point, or an ISO date")->required();
  AddTypeOption(*command, *options);
  command->callback([&chosen, options] {
    chosen = [options](const CommandContext& context) {
      const Locale& locale = context.platform.locale;
      context.report.Value(ToText(ReadValue(options->value, options->type, locale), locale));
      return kDone;
    };
  });
}

}  // namespace

void AddValueCommands(CLI::App& app, Command& chosen) {
  AddFormat(app, chosen);
  AddNumber(app, chosen);
  AddDate(app, chosen);
  AddText(app, chosen);
}

}  // namespace zorkanca::cli
