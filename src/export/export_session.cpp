#include "export/export_session.h"

#include "foundation/ignore_errors.h"
#include "platform/paths.h"
#include "runtime/code_page.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

void WarnOfLostCharacters(const ExportContext& context, std::int64_t count) {
  if (count == 0) return;
  const Text page = DecimalText(context.platform.locale.codePage->number());
  context.Warn(DecimalText(count) + (count == 1 ? u" character is" : u" characters are") + u" not in the ANSI page " +
               page + u" and became another one; --unicode keeps every character.");
}

}  // namespace

ExportSession::~ExportSession() {
  IgnoreErrors([&] { ShowPointer(MousePointer::kDefault); });
  output_.reset();
  IgnoreErrors([&] { CloseRecordset(); });
  context_.blankRecordsBefore = 0;
}

void ExportSession::Hold(std::unique_ptr<Recordset> recordset) {
  recordset_ = std::move(recordset);
  context_.currentRecordset = recordset_.get();
}

Recordset& ExportSession::recordset() {
  if (!recordset_) Raise(RuntimeError::kObjectNotSet);
  return *recordset_;
}

void ExportSession::CloseRecordset() {
  if (!recordset_) return;
  context_.currentRecordset = nullptr;
  const std::unique_ptr<Recordset> closing = std::move(recordset_);
  closing->Close();
}

TextStream& ExportSession::OpenOutput(const Text& path, TextFormat format) {
  output_ = context_.platform.files.OpenTextFile(path, IoMode::kForWriting, /*create=*/true, format);
  outputPath_ = path;
  return *output_;
}

void ExportSession::CloseOutput() {
  output_->Close();
  WarnOfLostCharacters(context_, output_->LostCharacters());
  output_.reset();
  IgnoreErrors([&] { lock_ = context_.platform.files.LockFile(outputPath_); });
}

void ExportSession::Fail(TextView title, const Text& message) {
  IgnoreErrors([&] {
    context_.platform.userInterface.Show({.text = message, .title = Text(title), .icon = MessageIcon::kExclamation});
  });
  if (keepsOutput_ && output_) IgnoreErrors([&] { output_->Close(); });
  output_.reset();
  lock_.reset();
  if (keepsOutput_ || outputPath_.empty()) return;
  IgnoreErrors([&] { context_.platform.files.DeleteFile(outputPath_, /*force=*/true); });
}

Text OutputPathInWorkFolder(const ExportContext& context, const Text& path) {
  if (!GetParentFolderName(path).empty()) return path;
  FileSystem& files = context.platform.files;
  return BuildPath(files, context.workFolder, path.empty() ? files.GetTempName() : path);
}

}  // namespace zorkanca
