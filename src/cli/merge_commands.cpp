// The command that merges a template with a data file.
#include <cstdio>
#include <memory>
#include <vector>

#include "cli/command_line.h"
#include "cli/host_platform.h"
#include "cli/progress_display.h"
#include "cli/query_arguments.h"
#include "export/zor_office.h"
#include "platform/paths.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::cli {

namespace {

struct MergeOptions {
  std::string templateFile;
  std::string dataFile;
  std::string output;
  bool multi = false;
  bool noOpen = false;
  float step = 1.0f;
};

// Shows the events, and keeps what the merge tells of failures: a state that ends no step well.
class MergeEvents final : public ZorOfficeEvents {
 public:
  explicit MergeEvents(const CommandContext& context)
      : display_(context.options.events, !context.options.quiet, true, context.interrupted) {}

  void ExportState(ExportStateValue state, TextView DefaultMessage) override {
    if (state == ExportStateValue::esStill && !DefaultMessage.starts_with(u"Dokončeno"))
      failures_.emplace_back(DefaultMessage);
    display_.ExportState(state, DefaultMessage);
  }
  void PercentDone(float Percent, bool& Cancel) override { display_.PercentDone(Percent, Cancel); }

  const std::vector<Text>& failures() const { return failures_; }

 private:
  ProgressDisplay display_;
  std::vector<Text> failures_;
};

WordSaveFormat FormatOf(TextView path) {
  const Text extension = LowerCase(GetExtensionName(path));
  if (extension == u"docx") return WordSaveFormat::kDocumentXml;
  if (extension == u"pdf") return WordSaveFormat::kPdf;
  throw UsageError("-o takes a .docx or .pdf file");
}

void Save(WordDocument& document, const Text& path) {
  document.SaveAs(path, FormatOf(path));
  PrintLine(path);
}

// Results as 0001.docx, 0002.docx, ...; the documents are the application's, the last one first.
void SaveAll(WordApplication& word, FileSystem& files, const Text& folder) {
  if (!files.FolderExists(folder)) files.CreateFolder(folder);
  const std::int32_t count = word.DocumentCount();
  std::vector<WordDocumentReference> documents;
  for (std::int32_t index = count; index >= 1; --index) documents.push_back(word.Documents(index));
  for (std::size_t index = 0; index < documents.size(); ++index) {
    const Text name = NumberedName(static_cast<std::int64_t>(index) + 1, u".docx");
    Save(*documents[index], BuildPath(files, folder, name));
  }
}

Text DefaultOutput(FileSystem& files, const MergeOptions& options) {
  const Text name(GetBaseName(FromUtf8(options.templateFile)));
  return files.GetAbsolutePathName(name + u".docx");
}

int RunMerge(const CommandContext& context, const MergeOptions& options) {
  const Platform& platform = context.platform;
  FileSystem& files = platform.files;
  const bool folder = options.output.ends_with('/');
  if (options.multi != folder) throw UsageError("--multi asks for a folder, -o DIR/, and one document for a file");
  const Text output =
      options.output.empty() ? DefaultOutput(files, options) : files.GetAbsolutePathName(FromUtf8(options.output));
  if (!folder) FormatOf(output);  // wrong usage is told before any work

  MergeEvents events(context);
  cZorOffice office(platform);
  office.Advise(&events);
  office.PercentInterval(options.step);
  MakeMailDocumentArguments arguments{
      .rsTemplate = files.GetAbsolutePathName(FromUtf8(options.templateFile)),
      .rsDataSourceFile = files.GetAbsolutePathName(FromUtf8(options.dataFile)),
      .MultiDocument = options.multi,
      .rbSetAppVisible = false,
  };
  if (!office.MakeMailDocument(arguments)) {
    for (const Text& failure : events.failures())
      std::fprintf(stderr, "MakeMailDocument: %s\n", ToUtf8(failure).c_str());
    return context.interrupted ? kInterrupted : kFailed;
  }
  if (folder) {
    SaveAll(*platform.office.AttachWord(), files, output);
    return kDone;
  }
  Save(*arguments.roRetDoc, output);
  if (options.output.empty() && !options.noOpen && HasDisplay()) platform.shell.OpenDocument(output);
  return kDone;
}

}  // namespace

void AddMergeCommands(CLI::App& app, Command& chosen) {
  CLI::App* command = app.add_subcommand("merge", "Merge a Word template with a data file");
  const auto options = std::make_shared<MergeOptions>();
  command->add_option("--template", options->templateFile, "Word template or document")->required();
  command->add_option("--data-file", options->dataFile, "data file: names in the first line, ';' between values")
      ->required();
  command->add_flag("--multi", options->multi, "one document for each record");
  command->add_option("-o,--output", options->output, ".docx or .pdf file; with --multi a folder, DIR/");
  command->add_option("--step", options->step, "percent between two progress events")->capture_default_str();
  command->add_flag("--no-open", options->noOpen, "do not open the result in its associated program");
  command->callback([&chosen, options] {
    chosen = [options](const CommandContext& context) { return RunMerge(context, *options); };
  });
}

}  // namespace zorkanca::cli
