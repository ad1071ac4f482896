// What is wrong with an export before it is run: --check; and what a template asks for: the command "fields".
#pragma once

#include <functional>
#include <string>

#include "cli/command_line.h"
#include "cli/query_arguments.h"
#include "cli/query_database.h"
#include "cli/template_arguments.h"
#include "export/template_check.h"

namespace zorkanca::cli {

/// The parts of an export that can be looked at without running it.
struct CheckOrder {
  const QueryOptions& query;
  const TemplateOptions& fromTemplate;
  TemplateUse use = TemplateUse::kMerge;
  std::function<void()> tryOutput;  ///< raises what is wrong with -o
  bool hasTemplate = true;
  std::function<void(QueryDatabase&)> require{};  ///< names the columns that options ask for; may be empty
  std::string headers{};  ///< prepared files in the place of the query; of a merge the data file alone
  std::string data{};
};

/// Looks at each part and writes nothing: a line "ok: ..." on standard output, or warnings and failures, for each.
/// @return the exit status: 1 after a failure, and with --strict after a warning
int RunCheck(const CommandContext& context, const CheckOrder& order);

/// Warns of a Word template without any merge field.
void WarnOfNoField(const CommandContext& context, const Text& path);

}  // namespace zorkanca::cli
