// One run of an export: its recordset, its output file, the pointer, and the ending that every export has in common.
#pragma once

#include <memory>

#include "export/export_context.h"
#include "platform/database.h"
#include "platform/file_system.h"

namespace zorkanca {

/// The destructor is the common ending: default pointer, file and recordset closed, no blank records for the next
/// export.
class ExportSession {
 public:
  explicit ExportSession(ExportContext& context) : context_(context) {}
  ~ExportSession();
  ExportSession(const ExportSession&) = delete;
  ExportSession& operator=(const ExportSession&) = delete;

  ExportContext& context() { return context_; }

  void ShowPointer(MousePointer pointer) { context_.platform.userInterface.SetMousePointer(pointer); }

  /// Takes the recordset over for the duration of the export.
  void Hold(std::unique_ptr<Recordset> recordset);
  /// The recordset taken over last. Errors: 91 when there is none.
  Recordset& recordset();
  void CloseRecordset();

  /// Creates or overwrites the output file. Errors: those of `FileSystem::OpenTextFile`.
  TextStream& OpenOutput(const Text& path, TextFormat format);
  /// Puts the finished output file into its place, with a warning of what its encoding does not have; it is kept from
  /// being cleared away until the export ends.
  void CloseOutput();

  /// Lets a failure leave the output file as far as it was written.
  void KeepOutputAfterFailure() { keepsOutput_ = true; }
  /// Shows the failure to the user and removes the output file, if this export has opened one and is not to keep it.
  void Fail(TextView title, const Text& message);

 private:
  ExportContext& context_;
  std::unique_ptr<Recordset> recordset_;
  std::unique_ptr<TextStream> output_;
  bool keepsOutput_ = false;
  std::unique_ptr<FileLock> lock_;  // of the finished output file
  Text outputPath_;  // empty until the export has opened its file: a file of that name is nobody else's from then on
};

/// The encoding of a file that is ANSI unless the caller prefers to keep every character.
inline TextFormat AnsiOrUtf8(const ExportPreferences& preferences) {
  return preferences.unicode ? TextFormat::kUtf8 : TextFormat::kAnsi;
}

/// Settles the path of an export's own file: a name without folder goes into the work folder, an empty one becomes a
/// fresh temporary name there; a path with a folder stays.
Text OutputPathInWorkFolder(const ExportContext& context, const Text& path);

}  // namespace zorkanca
