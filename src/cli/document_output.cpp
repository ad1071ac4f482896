#include "cli/document_output.h"

#include "cli/host_platform.h"
#include "cli/output_check.h"
#include "platform/paths.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

void AddOutputOptions(CLI::App& command, OutputOptions& options) {
  command.add_option("-o,--output", options.output,
                     ".docx or .pdf file; - writes a document to standard output; for several documents a folder, DIR/ "
                     "(default: the template's name in the current folder)");
  command.add_option("--name", options.name,
                     "names of the documents of a folder, {COLUMN} stands for its value: 'FAKTURA {cislo}' (default: "
                     "0001, 0002, ...)");
  command.add_flag("--pdf", options.pdf, "documents of a folder become PDF");
  command.add_flag("--no-open", options.noOpen, "do not open the result in its associated program");
}

DocumentOutput::DocumentOutput(const CommandContext& context, const OutputOptions& options, Count count,
                               const Text& rsTemplate, const QueryDatabase* query)
    : context_(context),
      options_(options),
      template_(rsTemplate),
      query_(query),
      isFolder_(count == Count::kSeveral),
      names_(options.name),
      pdfs_(context.platform.locale, {.cancelled = [&context] { return context.interrupted.load(); },
                                      .made = [&context](TextView path) { context.report.File(path); }}) {
  FileSystem& files = context.platform.files;
  if (count == Count::kOne && !options.name.empty()) throw UsageError("--name is for several documents: --multi");
  if (options.output.empty()) {
    RequireWritableFolder(context, files.GetAbsolutePathName(u"."));
    if (count == Count::kOne && !template_.empty()) RequireNew(context, DefaultName() + Ending());
    return;
  }
  const bool folder = options.output != "-" && NamesFolder(context, options.output);
  if (count != Count::kUnknown && folder != isFolder_) {
    throw UsageError(folder ? "one document asks for a file, not a folder: " + options.output
                            : "several documents ask for a folder, DIR/, not a file: " + options.output);
  }
  isFolder_ = folder;
  if (!folder && !options.name.empty()) throw UsageError("--name names documents of a folder; -o names one: DIR/");
  if (folder) {
    path_ = files.GetAbsolutePathName(FromUtf8(options.output));
    RequireWritableFolder(context, path_);
  } else {
    file_.emplace(context, options.output, Extensions());
  }
}

std::vector<Text> DocumentOutput::Extensions() const {
  if (options_.pdf) return {u"pdf"};
  return {u"docx", u"pdf"};
}

Text DocumentOutput::Ending() const {
  return options_.pdf ? u".pdf" : u".docx";
}

Text DocumentOutput::DefaultName() const {
  return context_.platform.files.GetAbsolutePathName(GetBaseName(template_));
}

void DocumentOutput::Add(const FinishedDocument& finished) {
  if (isFolder_) return AddToFolder(finished);
  if (!only_) {
    only_ = finished.document;
    // Its record is gone when the next document tells that this one belongs into a folder.
    if (finished.valueOf && !file_) nameOfOnly_ = NameOfNext(finished);
    return;
  }
  if (file_) Raise(RuntimeError::kInvalidCall, u"There are several documents; -o must name a folder: DIR/");
  isFolder_ = true;
  SaveInFolder(*std::exchange(only_, nullptr), *nameOfOnly_);
  AddToFolder(finished);
}

Text DocumentOutput::NameOfNext(const FinishedDocument& finished) {
  const std::int64_t number = ++count_ + (query_ ? query_->RecordsBefore() : 0);
  return names_.NameOf(number, finished.valueOf, Ending());
}

void DocumentOutput::AddToFolder(const FinishedDocument& finished) {
  SaveInFolder(*finished.document, NameOfNext(finished));
}

void DocumentOutput::SaveInFolder(WordDocument& document, const Text& name) {
  FileSystem& files = context_.platform.files;
  if (path_.empty()) path_ = DefaultName();
  if (!files.FolderExists(path_)) files.CreateFolder(path_);
  const Text path = BuildPath(files, path_, name);
  RequireNew(context_, path);
  if (options_.pdf) {
    pdfs_.Add(document, path);
  } else {
    document.SaveAs(path, WordSaveFormat::kDocumentXml);
    context_.report.File(path);
  }
  document.Close(/*SaveChanges=*/false);
}

void DocumentOutput::SaveOnly() {
  if (file_) {
    const bool pdf = LowerCase(GetExtensionName(file_->path())) == u"pdf";
    only_->SaveAs(file_->path(), pdf ? WordSaveFormat::kPdf : WordSaveFormat::kDocumentXml);
    return file_->Written(file_->path());
  }
  const bool named = !options_.name.empty() && nameOfOnly_;
  path_ = named ? context_.platform.files.GetAbsolutePathName(*nameOfOnly_) : DefaultName() + Ending();
  RequireNew(context_, path_);
  only_->SaveAs(path_, options_.pdf ? WordSaveFormat::kPdf : WordSaveFormat::kDocumentXml);
  context_.report.File(path_);
}

void DocumentOutput::Finish(bool done) {
  if (!context_.interrupted) pdfs_.Convert();
  if (!done) return;
  if (only_) SaveOnly();
  const bool opens = options_.output.empty() && !options_.noOpen && HasDisplay();
  if (opens && !path_.empty()) context_.platform.shell.OpenDocument(path_);
}

}  // namespace zorkanca::cli
