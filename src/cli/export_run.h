// One export of this program: the office object, and its events on the terminal.
#pragma once

#include <vector>

#include "cli/command_line.h"
#include "cli/progress_display.h"
#include "cli/query_arguments.h"
#include "export/zor_office.h"

namespace zorkanca::cli {

/// Passes what the library tells beside its events on to the report.
class ReportedExport : public ExportListener {
 public:
  explicit ReportedExport(Report& report) : report_(report) {}
  void Cause(const Error& cause) override { report_.Cause(cause); }
  void Warning(TextView text) override { report_.Warning(text); }
  void Written(std::int64_t records) override { report_.Records(records); }

 private:
  Report& report_;
};

/// Shows the events, reports causes and warnings, and keeps what states tell of failures: one that ends no step well.
class OfficeEvents final : public ZorOfficeEvents, public ReportedExport {
 public:
  /// @param showsStates  on a terminal, too, what the export waits for
  OfficeEvents(const CommandContext& context, bool showsStates)
      : ReportedExport(context.report), display_(context, showsStates) {}

  void ExportState(ExportStateValue state, TextView DefaultMessage) override;
  void PercentDone(float Percent, bool& Cancel) override { display_.PercentDone(Percent, Cancel); }

  const std::vector<Text>& failures() const { return failures_; }

 private:
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
  int StatusOf(bool done, const char* operation) const;

 private:
  const CommandContext& context_;
  bool strict_;
  OfficeEvents events_;
  cZorOffice office_;
};

}  // namespace zorkanca::cli
