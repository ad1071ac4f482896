// What the commands that fill a template share.
#pragma once

#include <CLI/App.hpp>
#include <string>
#include <vector>

#include "export/template_choice.h"

namespace zorkanca::cli {

struct TemplateOptions {
  std::string application;
  std::string name;
  bool supply = false;
  bool admin = false;
  std::string listCaption;
  bool strict = false;
  bool check = false;
};

void AddTemplateOptions(CLI::App& command, TemplateOptions& options);
/// --strict and --check alone, for a command with a --template of its own.
void AddCheckOptions(CLI::App& command, TemplateOptions& options);
/// --check for a command without a template.
void AddCheckOption(CLI::App& command, TemplateOptions& options);

/// The options as arguments of an export. Errors: `UsageError` when they name neither a template nor whose lists to
/// look at.
void SetTemplate(TemplateArguments& arguments, const TemplateOptions& options);

/// --format, once for each column.
void AddFormatOption(CLI::App& command, std::vector<std::string>& formats);
std::vector<Text> FormatsOf(const std::vector<std::string>& formats);

}  // namespace zorkanca::cli
