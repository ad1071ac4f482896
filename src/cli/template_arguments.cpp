#include "cli/template_arguments.h"

#include "cli/command_line.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

void AddTemplateOptions(CLI::App& command, TemplateOptions& options) {
  command.add_option("--application", options.application,
                     "code of the application that owns the template lists (default: none)");
  command.add_option("--template", options.name,
                     "template: a path, a bare name of the shared templates folder or of the current one, or [List]; "
                     "without it the application's own list");
  command.add_flag("--supply", options.supply, "register the supplied templates before the list is shown");
  command.add_flag("--admin", options.admin, "the list may be changed");
  command.add_option("--list-caption", options.listCaption, "caption of the list (default: its own)");
  AddCheckOptions(command, options);
}

void AddCheckOptions(CLI::App& command, TemplateOptions& options) {
  command.add_flag("--strict", options.strict, "what would be a warning about the template is a failure");
  command.add_flag("--check", options.check,
                   "tell what is wrong with database, query, template and output; write nothing");
}

void AddCheckOption(CLI::App& command, TemplateOptions& options) {
  command.add_flag("--check", options.check, "tell what is wrong with database, query and output; write nothing");
}

void SetTemplate(TemplateArguments& arguments, const TemplateOptions& options) {
  if (options.application.empty() && (options.name.empty() || options.name.starts_with('['))) {
    const std::string what = options.name.empty() ? "" : options.name + " is a list of an application: ";
    throw UsageError(
        what + (what.empty() ? "--template is required, or --application for its lists" : "--application is required"));
  }
  arguments.rsZorApl = FromUtf8(options.application);
  arguments.rsTemplate = FromUtf8(options.name);
  arguments.rbAdmin = options.admin;
  arguments.rsListCaption = FromUtf8(options.listCaption);
  arguments.rbSupply = options.supply;
}

void AddFormatOption(CLI::App& command, std::vector<std::string>& formats) {
  command
      .add_option("--format", formats,
                  "format of the next column, in column order; '' leaves it as it is (default: none)")
      ->allow_extra_args(false);
}

std::vector<Text> FormatsOf(const std::vector<std::string>& formats) {
  std::vector<Text> texts;
  for (const std::string& format : formats) texts.push_back(FromUtf8(format));
  return texts;
}

}  // namespace zorkanca::cli
