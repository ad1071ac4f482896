#include "cli/document_output.h"

#include "cli/host_platform.h"
#include "cli/output_check.h"
#include "cli/query_arguments.h"
#include "platform/paths.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

WordSaveFormat FormatOf(TextView path) {
  const Text extension = LowerCase(GetExtensionName(path));
  if (extension == u"docx") return WordSaveFormat::kDocumentXml;
  if (extension == u"pdf") return WordSaveFormat::kPdf;
  throw UsageError("-o takes a .docx or .pdf file, or a folder: DIR/");
}

// What is wrong is told before any work.
void CheckFile(FileSystem& files, TextView path, bool pdf) {
  if (FormatOf(path) != WordSaveFormat::kPdf && pdf) throw UsageError("--pdf asks for a .pdf file, or a folder: DIR/");
  RequireWritable(files, Text(path));
}

}  // namespace

void AddOutputOptions(CLI::App& command, OutputOptions& options) {
  command.add_option(
      "-o,--output", options.output,
      ".docx or .pdf file; for several documents a folder, DIR/ (default: the template's name in the current folder)");
  command.add_flag("--pdf", options.pdf, "documents of a folder become PDF");
  command.add_flag("--no-open", options.noOpen, "do not open the result in its associated program");
}

DocumentOutput::DocumentOutput(const CommandContext& context, const OutputOptions& options, Count count,
                               const Text& rsTemplate)
    : context_(context),
      options_(options),
      template_(rsTemplate),
      isFolder_(count == Count::kSeveral),
      pdfs_(context.platform.locale, {.cancelled = [&context] { return context.interrupted.load(); },
                                      .made = [&context](TextView path) { context.report.File(path); }}) {
  FileSystem& files = context.platform.files;
  if (options.output.empty()) {
    RequireWritableFolder(files, files.GetAbsolutePathName(u"."));
    return;
  }
  path_ = files.GetAbsolutePathName(FromUtf8(options.output));
  const bool folder = options.output.ends_with('/') || files.FolderExists(path_);
  if (count != Count::kUnknown && folder != isFolder_) {
    throw UsageError(folder ? "one document asks for a file, not a folder: " + options.output
                            : "several documents ask for a folder, DIR/, not a file: " + options.output);
  }
  isFolder_ = folder;
  if (folder) {
    RequireWritableFolder(files, path_);
  } else {
    CheckFile(files, path_, options.pdf);
  }
}

Text DocumentOutput::DefaultName() const {
  return context_.platform.files.GetAbsolutePathName(GetBaseName(template_));
}

void DocumentOutput::Add(const WordDocumentReference& document) {
  if (isFolder_) return AddToFolder(*document);
  if (!only_) {
    only_ = document;
    return;
  }
  if (!options_.output.empty()) {
    Raise(RuntimeError::kInvalidCall, u"There are several documents; -o must name a folder: DIR/");
  }
  isFolder_ = true;
  AddToFolder(*std::exchange(only_, nullptr));
  AddToFolder(*document);
}

void DocumentOutput::AddToFolder(WordDocument& document) {
  FileSystem& files = context_.platform.files;
  if (path_.empty()) path_ = DefaultName();
  if (!files.FolderExists(path_)) files.CreateFolder(path_);
  const Text path = BuildPath(files, path_, NumberedName(++number_, options_.pdf ? u".pdf" : u".docx"));
  if (options_.pdf) {
    pdfs_.Add(document, path);
  } else {
    document.SaveAs(path, WordSaveFormat::kDocumentXml);
    context_.report.File(path);
  }
  document.Close(/*SaveChanges=*/false);
}

void DocumentOutput::Finish(bool done) {
  if (!context_.interrupted) pdfs_.Convert();
  if (!done) return;
  if (only_) {
    if (path_.empty()) path_ = DefaultName() + (options_.pdf ? u".pdf" : u".docx");
    only_->SaveAs(path_, FormatOf(path_));
    context_.report.File(path_);
  }
  const bool opens = options_.output.empty() && !options_.noOpen && HasDisplay();
  if (opens && !path_.empty()) context_.platform.shell.OpenDocument(path_);
}

}  // namespace zorkanca::cli
