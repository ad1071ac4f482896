// What a command tells the world: results on standard output, everything else on standard error; or, for programs, all
// of it in one JSON object at the end.
#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "cli/status_line.h"
#include "platform/user_interface.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace zorkanca::cli {

/// Every command reports through the one object of its run; several threads may.
class Report {
 public:
  /// Gathers everything for one JSON object instead of printing results as they come.
  void GatherAsJson() { json_ = true; }
  bool gathersJson() const { return json_; }

  /// A file that was produced: its path is a line of standard output.
  /// @param path  absolute
  void File(TextView path);
  /// A value that was asked for: a line of standard output.
  void Value(TextView text);
  /// Adds to the number of records of the query that were written.
  void Records(std::int64_t count);

  /// "zorkanca: warning: TEXT", once for each text: the same may come with each of thousands of documents.
  void Warning(TextView text);
  bool HasWarnings() const { return !warnings_.empty(); }

  /// "zorkanca: cause: NUMBER - DESCRIPTION": what a message box hides; what one has said is not said again.
  void Cause(const Error& error);
  /// "zorkanca: NUMBER - DESCRIPTION": why the command failed.
  void Failure(const Error& error);
  /// "zorkanca: TEXT": why the command failed, in words that need no number.
  void Failure(TextView text);
  /// "zorkanca: TEXT" and where to read on.
  /// @param command  its path, "registry get"; empty for the program
  void WrongUsage(const std::string& text, const std::string& command);
  /// A message box that is about to be shown by somebody else.
  void MessageBox(const Message& message);

  /// Where the progress is drawn.
  StatusLine& statusLine() { return statusLine_; }

  /// Prints the JSON object where one was asked for, and what is still buffered. @return the exit status
  int Finish(int status);

 private:
  void Tell(TextView text);
  void PrintLine(TextView text);
  std::string AsJson(int status) const;

  std::mutex mutex_;
  bool json_ = false;
  StatusLine statusLine_;
  std::vector<Text> files_;
  std::vector<Text> values_;
  std::int64_t records_ = 0;
  std::vector<Text> warnings_;
  std::set<Text> toldWarnings_;
  std::optional<Error> cause_;
  std::optional<Error> failure_;
  Text message_;  // of the last box that told of a failure
  Text said_;     // by all boxes
};

/// The user of a command: message boxes are reported, too, and never printed over the progress.
class ReportedUserInterface final : public UserInterface {
 public:
  /// @param user  does everything; outlives this object, as the report does
  ReportedUserInterface(UserInterface& user, Report& report) : user_(user), report_(report) {}

  MessageAnswer Show(const Message& message) override;
  void SetMousePointer(MousePointer pointer) override { user_.SetMousePointer(pointer); }
  void Beep() override { user_.Beep(); }
  void ProcessPendingEvents() override { user_.ProcessPendingEvents(); }
  Text ChooseFile(const FileDialog& dialog) override;
  Text ChooseFolder(TextView title, TextView startFolder) override;
  WorkingArea GetWorkingArea() override { return user_.GetWorkingArea(); }
  void ShowModal(Form& form, Form* owner) override;

 private:
  UserInterface& user_;
  Report& report_;
};

}  // namespace zorkanca::cli
