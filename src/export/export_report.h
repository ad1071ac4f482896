// What an export tells beside its published events and message boxes: the causes that a box hides, and warnings about
// the template and the data. A client that does not listen loses nothing but these; causes are in the error log anyway.
#pragma once

#include <cstdint>
#include <set>
#include <vector>

#include "platform/platform.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace zorkanca {

class ExportListener {
 public:
  virtual ~ExportListener() = default;
  /// Why an operation failed, in the words of the database, the system or the office application. Told at the end of
  /// the operation, after its message box or its last state.
  virtual void Cause(const Error& cause) = 0;
  /// What the result will suffer from although the operation goes on. Told when it is found, in English.
  virtual void Warning(TextView text) = 0;
  /// How many records of the query, or of the files in its place, are in the result; told when an operation is done.
  virtual void Written(std::int64_t /*records*/) {}
};

/// Gathers what one operation of cZorOffice tells.
class ExportReport {
 public:
  explicit ExportReport(const Platform& platform) : platform_(platform) {}

  /// Null: nobody listens.
  void Listen(ExportListener* listener) { listener_ = listener; }
  /// Warnings cost a look at template and data; without a listener nobody needs them.
  bool HasListener() const { return listener_ != nullptr; }

  /// Keeps a cause until the operation ends.
  void NoteCause(const Error& cause) { causes_.push_back(cause); }
  bool HasCauses() const { return !causes_.empty(); }
  /// Tells a warning, once in an operation.
  void Warn(const Text& text);
  /// Number of different warnings of this operation so far.
  std::size_t WarningCount() const { return told_.size(); }

  /// Counts records of the running operation that are written.
  void NoteRecords(std::int64_t count) { records_ += count; }

  /// Ends the operation: its causes are told and written into the error log.
  /// @param operation  its published name
  /// @param done       it did what it was asked for, so that its records are told
  void EndOperation(TextView operation, bool done);

 private:
  void Log(TextView operation, const Error& cause) const;

  Platform platform_;
  ExportListener* listener_ = nullptr;
  std::vector<Error> causes_;
  std::set<Text> told_;
  std::int64_t records_ = 0;
};

}  // namespace zorkanca
