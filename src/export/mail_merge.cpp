#include "export/mail_merge.h"

#include <algorithm>
#include <array>
#include <utility>

#include "export/data_encoding.h"
#include "export/export_failure.h"
#include "export/merge_data_file.h"
#include "export/prepared_file.h"
#include "export/progress.h"
#include "export/suspended_screen.h"
#include "export/text_markup.h"
#include "export/word_opening.h"
#include "foundation/error_log_writer.h"
#include "foundation/ignore_errors.h"
#include "platform/paths.h"

namespace zorkanca {

namespace {

constexpr TextView kMerging = u"Hromadná korespondence zpracovává přijatá data ...";
constexpr TextView kMerged = u"Dokončeno zpracování dat nástrojem hromadné korespondence";
constexpr TextView kMergeFailed = u"Chyba ve zpracování dat nástrojem hromadné korespondence: ";

// From this version on the kind of the main document is lost when its data source is opened.
constexpr std::int32_t kFirstVersionThatForgetsTheKind = 10;
constexpr std::int32_t kToggleFieldCodes = 9999998;

struct MergeKind {
  TextView marker;
  MainDocumentType type;
};

// In the order in which they are looked for.
constexpr std::array<MergeKind, 5> kMergeKinds = {{
    {u"{<A>}", MainDocumentType::kCatalog},
    {u"{<S>}", MainDocumentType::kMailingLabels},
    {u"{<D>}", MainDocumentType::kFormLetters},
    {u"{<O>}", MainDocumentType::kEnvelopes},
    {kHeadingStart, MainDocumentType::kCatalog},
}};

std::optional<MainDocumentType> FindMergeKind(WordDocument& document, WordApplication& word) {
  const SuspendedScreen suspended(word);
  for (const MergeKind& kind : kMergeKinds) {
    if (FindMarker(document, kind.marker)) return kind.type;
  }
  return std::nullopt;
}

void SetMainDocumentType(const ExportContext& context, WordMailMerge& merge, MainDocumentType type) {
  try {
    merge.MainDocumentType(type);
  } catch (...) {
    Text details = u"type = ";
    AppendDecimal(details, static_cast<std::int32_t>(type));
    IgnoreErrors([&] {  // a log writer of the client may fail
      ErrorLogWriter(context.platform).WriteCurrentError(u"setMainDocumentTypeIfNotMergeModule", details);
    });
  }
}

void ChooseSource(WordMailMerge& merge, const Text& dataFile) {
  merge.OpenDataSource({.Name = dataFile, .ConfirmConversions = false, .AddToRecentFiles = false});
  merge.Destination(0);
  merge.MailAsAttachment(false);
  merge.MailAddressFieldName({});
  merge.MailSubject({});
  merge.SuppressBlankLines(true);
  merge.FirstRecord(1);
  merge.LastRecord(kLastRecordOfSource);
  IgnoreErrors([&] { merge.ViewMailMergeFieldCodes(kToggleFieldCodes); });
}

// A file of one record, locked while it is needed and gone afterwards, however the merge ends.
class RecordFile {
 public:
  RecordFile(const ExportContext& context, TextView header, TextView record) : files_(context.platform.files) {
    path_ = BuildPath(files_, context.workFolder, files_.GetTempName());
    const auto stream = files_.OpenTextFile(path_, IoMode::kForWriting, /*create=*/true, TextFormat::kUnicode);
    stream->WriteLine(header);
    stream->WriteLine(record);
    stream->Close();
    IgnoreErrors([&] { lock_ = files_.LockFile(path_); });
  }
  ~RecordFile() {
    if (!path_.empty()) IgnoreErrors([&] { Delete(); });
  }
  RecordFile(const RecordFile&) = delete;
  RecordFile& operator=(const RecordFile&) = delete;

  const Text& path() const { return path_; }
  /// Errors: 70 when it cannot be deleted.
  void Delete() {
    lock_.reset();
    const Text path = std::exchange(path_, Text());
    files_.DeleteFile(path, /*force=*/true);
  }

 private:
  FileSystem& files_;
  Text path_;
  std::unique_ptr<FileLock> lock_;
};

std::int32_t CountLines(FileSystem& files, const Text& path) {
  MergeDataLines lines(files, path);
  std::int32_t count = 0;
  for (Text line; lines.Next(line);) ++count;
  return count;
}

// Reads the record only when somebody asks for a value.
std::function<std::optional<Text>(TextView)> ValuesOf(const Text& header, const Text& record) {
  return [&header, &record](TextView column) -> std::optional<Text> {
    std::vector<Text> names;
    std::vector<Text> values;
    SplitColumnsFromDataRow(header, names);
    SplitColumnsFromDataRow(record, values);
    for (std::size_t index = 0; index < names.size(); ++index) {
      if (EqualsIgnoringCase(names[index], column)) return index < values.size() ? values[index] : Text();
    }
    return std::nullopt;
  };
}

Text FailureText(const Error& error) {
  const std::optional<Text> stop = StopMessage(error);
  return stop ? *stop : Text(kMergeFailed).append(error.description());
}

}  // namespace

WordDocumentReference RunMailMerge(const ExportContext& context, WordDocument& document, const Text& dataFile,
                                   WordApplication& word, std::int64_t& recordCount) {
  const std::optional<MainDocumentType> type = FindMergeKind(document, word);
  const bool forgetsKind = MajorVersion(word) >= kFirstVersionThatForgetsTheKind;
  WordMailMerge& merge = document.MailMerge();
  if (type && !forgetsKind) SetMainDocumentType(context, merge, *type);
  ChooseSource(merge, dataFile);
  if (type && forgetsKind) SetMainDocumentType(context, merge, *type);
  merge.Execute(/*Pause=*/false);
  recordCount += std::max(merge.RecordCount(), 0);
  document.Close(/*SaveChanges=*/false);

  word.Documents(1)->Activate();
  WordDocumentReference merged = word.ActiveDocument();
  ApplyBlockMarkup(*merged);
  FillHeaderFooterPlaceholders(context, *merged);
  word.ActiveWindowState(WordWindowState::kMaximize);
  return merged;
}

bool MailMergeRun::Run() {
  std::optional<Text> failure;
  arguments_.roRetDoc = nullptr;
  context_.withinDataProcess = arguments_.MultiDocument;
  try {
    Make();
  } catch (...) {
    const Error error = *ErrorBeingHandled();
    if (!StopMessage(error)) context_.NoteCause(error);
    failure = FailureText(error);
  }
  Finish(failure);
  return !failure;
}

void MailMergeRun::Make() {
  // The clean-up of another program leaves a locked file alone.
  std::unique_ptr<FileLock> lock;
  IgnoreErrors([&] { lock = context_.platform.files.LockFile(arguments_.rsDataSourceFile); });

  OpenTemplate(kWordNotOpened);
  word_.Take(document_->Application());
  dataFile_ = MergeableFile(context_, arguments_.rsDataSourceFile, arguments_.MultiDocument);
  context_.RaiseExportState(ExportStateValue::esWaitForApp, kMerging);
  if (arguments_.MultiDocument) return MakeOneDocumentPerRecord();
  context_.platform.userInterface.SetMousePointer(MousePointer::kHourglass);
  MergeInto(dataFile_);
}

void MailMergeRun::OpenTemplate(TextView failure) {
  GetOpenDocArguments opening{
      .rsTemplate = arguments_.rsTemplate, .rAppVisible = AppVisible::avFalse, .rbScreenUpdating = false};
  const bool opened = OpenWordDocument(context_, opening);
  document_ = opening.roRetDoc;
  if (opened) return;
  arguments_.roRetDoc = nullptr;
  StopExport(failure);
}

void MailMergeRun::MergeInto(const Text& dataFile) {
  document_ = RunMailMerge(context_, *document_, dataFile, *word_.application(), recordCount_);
  arguments_.roRetDoc = document_;
}

void MailMergeRun::MakeOneDocumentPerRecord() {
  FileSystem& files = context_.platform.files;
  RequireUnicode(context_.platform, dataFile_);
  const std::int32_t records = CountLines(files, dataFile_) - 1;
  MergeDataLines lines(files, dataFile_);
  Text header;
  Text line;
  lines.Next(header);
  Progress progress(context_, records);
  for (std::int32_t record = 1; lines.Next(line); ++record) {
    if (record > 1) OpenTemplate(kDocumentNotOpened);
    MakeDocumentOf(header, line);
    if (context_.documentFinished) context_.documentFinished({document_, ValuesOf(header, line)});
    progress.RecordDone();
  }
  // Without records the document of the template is no result.
  if (!arguments_.roRetDoc) document_->Close(/*SaveChanges=*/false);
  progress.Finish();
}

void MailMergeRun::MakeDocumentOf(TextView header, TextView record) {
  const Text placeholder = LineBreakPlaceholder(*context_.platform.locale.codePage);
  RecordFile file(context_, header, Replace(record, placeholder, kCrLf));
  MergeInto(file.path());
  file.Delete();
}

void MailMergeRun::Finish(const std::optional<Text>& failure) {
  if (failure) {
    ShowWord();
    Tell(*failure);
  }
  word_.Leave(arguments_.rbSetAppVisible);
  if (!dataFile_.empty() && dataFile_ != arguments_.rsDataSourceFile) {
    IgnoreErrors([&] { context_.platform.files.DeleteFile(dataFile_, /*force=*/true); });
  }
  if (!failure) Tell(kMerged);
  context_.withinDataProcess = false;
  context_.platform.userInterface.SetMousePointer(MousePointer::kDefault);
}

// An opening that failed may have hidden a Word that somebody works in.
void MailMergeRun::ShowWord() {
  WordApplicationReference word = word_.application();
  if (!word) IgnoreErrors([&] { word = context_.platform.office.AttachWord(); });
  if (!word) return;
  IgnoreErrors([&] { word->ScreenUpdating(true); });
  IgnoreErrors([&] { word->Visible(true); });
}

// The result stands; what the client's handler makes of it changes nothing.
void MailMergeRun::Tell(TextView result) {
  IgnoreErrors([&] { context_.RaiseExportState(ExportStateValue::esStill, result); });
}

}  // namespace zorkanca
