// One export of this program: the office object, and its events on the terminal.
#pragma once

#include <vector>

#include "cli/command_line.h"
#include "cli/progress_display.h"
#include "cli/query_arguments.h"
#include "cli/query_database.h"
#include "export/zor_office.h"

namespace zorkanca::cli {

/// Shows the events, reports causes and warnings, and keeps what states tell of failures: one that ends no step well.
class OfficeEvents final : public ZorOfficeEvents, public ExportListener {
 public:
  /// @param showsStates  on a terminal, too, what the export waits for
  OfficeEvents(const CommandContext& context, bool showsStates)
      : report_(context.report), display_(context, showsStates) {}

  void ExportState(ExportStateValue state, TextView DefaultMessage) override;
  void PercentDone(float Percent, bool& Cancel) override { display_.PercentDone(Percent, Cancel); }

  void Cause(const Error& cause) override { report_.Cause(cause); }
  void Warning(TextView text) override { report_.Warning(text); }

  const std::vector<Text>& failures() const { return failures_; }

 private:
  Report& report_;
  ProgressDisplay display_;
  std::vector<Text> failures_;
};

class ExportRun {
 public:
  /// @param platform  outlives the run
  /// @param strict    a warning about the template fails the export
  ExportRun(const CommandContext& context, const Platform& platform, const QueryOptions& options, bool showsStates,
            bool strict = false);

  cZorOffice& office() { return office_; }

  /// To be asked before a result is written: the merge itself may have found something. Errors: 5 for a warning of a
  /// strict run.
  void RequireNoWarnings() const;

  /// Exit status of an operation with this result. What only events told of a failure is reported, with the operation's
  /// name before it.
  /// @param query  its records are reported as written when all is done; null for an operation without a query
  int StatusOf(bool done, const char* operation, const QueryDatabase* query = nullptr) const;

 private:
  const CommandContext& context_;
  bool strict_;
  OfficeEvents events_;
  cZorOffice office_;
};

}  // namespace zorkanca::cli
