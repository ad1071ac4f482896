#include "export/word_form_export.h"

#include "export/column_names.h"
#include "export/export_failure.h"
#include "export/progress.h"
#include "export/template_check.h"
#include "export/word_export.h"
#include "export/word_opening.h"
#include "foundation/ignore_errors.h"
#include "runtime/convert.h"
#include "runtime/utf8.h"

namespace zorkanca {

namespace {

constexpr std::int32_t kFormFieldsOnly = 2;
constexpr double kPointsPerCentimetre = 28.34646;

// One margin of the document, or of its two sections apart.
void SetMargin(WordDocument& document, void (WordPageSetup::*set)(float), float first, float second) {
  if (first == kUnchangedMargin) return;
  const auto points = [](float centimetres) {
    return static_cast<float>(static_cast<double>(centimetres) * kPointsPerCentimetre);
  };
  if (second == kUnchangedMargin) {
    IgnoreErrors([&] { (*document.PageSetup().*set)(points(first)); });
    return;
  }
  IgnoreErrors([&] { (*document.SectionPageSetup(1).*set)(points(first)); });
  IgnoreErrors([&] { (*document.SectionPageSetup(2).*set)(points(second)); });
}

// Units of the character at that place: two of one beyond the basic plane.
std::size_t CharacterLength(TextView text, std::size_t at) {
  const bool high = IsHighSurrogate(text[at]);
  return high && at + 1 < text.size() ? 2 : 1;
}

}  // namespace

WordFormExport::WordFormExport(ExportContext& context, Database& database, TextView select,
                               WdExportFormArguments& arguments)
    : context_(context),
      database_(database),
      select_(select),
      arguments_(arguments),
      session_(context),
      reader_(session_) {}

bool WordFormExport::Run() {
  const bool done = RunToEdge(session_, kWordExportTitle, [&] { return Export(); });
  context_.withinDataProcess = false;
  word_.Leave(arguments_.rbSetAppVisible);
  arguments_.roRetDoc = document_;
  return done;
}

bool WordFormExport::Export() {
  TemplateChoice choice(context_, ApplOffice::MSWord, arguments_);
  if (!choice.Settle()) return false;
  session_.ShowPointer(MousePointer::kHourglass);
  reader_.Open(database_, select_, arguments_.ri_rsOptions);
  if (!IsBlank(arguments_.rsBarCodeParam)) {
    barCode_ = std::make_unique<cBarCode>(context_.platform.locale);
    barCode_->ParseParameters(Trim(arguments_.rsBarCodeParam));
    barCode_->SetRecordset(session_.recordset());
  }
  columns_ = reader_.Columns();
  TemplateCheck(context_, TemplateUse::kForm).Before(arguments_, FieldNames(session_.recordset()));
  FillDocuments();
  return true;
}

void WordFormExport::FillDocuments() {
  ColumnFormats formats(arguments_.rvFormat, reader_.FieldCount(), context_.platform.locale);
  Recordset& recordset = session_.recordset();
  Progress progress(context_, reader_.RecordCount());
  context_.withinDataProcess = true;
  for (bool first = true; !recordset.Eof(); recordset.MoveNext(), first = false) {
    OpenDocument(/*screenUpdating=*/!first, first ? kWordNotOpened : kDocumentNotOpened);
    if (first) word_.Take(document_->Application());
    session_.ShowPointer(MousePointer::kHourglass);
    FillDocument(formats);
    session_.ShowPointer(MousePointer::kDefault);
    if (context_.documentFinished) {
      context_.documentFinished({document_, [&](TextView column) { return ValueOf(column, formats); }});
    }
    context_.NoteRecords(1);
    progress.RecordDone();
  }
  progress.Finish();
}

void WordFormExport::OpenDocument(bool screenUpdating, TextView failure) {
  GetOpenDocArguments opening{
      .rsTemplate = arguments_.rsTemplate, .rAppVisible = AppVisible::avFalse, .rbScreenUpdating = screenUpdating};
  const bool opened = OpenWordDocument(context_, opening);
  document_ = opening.roRetDoc;
  if (!opened) StopExport(failure);
  SetMargins();
}

void WordFormExport::SetMargins() {
  IgnoreErrors([&] { document_->Unprotect(); });
  SetMargin(*document_, &WordPageSetup::LeftMargin, arguments_.LeftMargin, arguments_.LeftMarginP2);
  SetMargin(*document_, &WordPageSetup::TopMargin, arguments_.TopMargin, arguments_.TopMarginP2);
  IgnoreErrors([&] { document_->Protect(kFormFieldsOnly); });
}

void WordFormExport::FillDocument(ColumnFormats& formats) {
  for (std::size_t index = 0; index < columns_.size(); ++index) {
    const QueryColumn& column = columns_[index];
    const Text text = TextOf(column, formats, static_cast<std::int32_t>(index));
    WriteField(column.field->Name(), text, IsOneChar(index));
  }
}

std::optional<Text> WordFormExport::ValueOf(TextView name, ColumnFormats& formats) {
  for (std::size_t index = 0; index < columns_.size(); ++index) {
    const QueryColumn& column = columns_[index];
    if (!EqualsIgnoringCase(column.field->Name(), name)) continue;
    return TextOf(column, formats, static_cast<std::int32_t>(index));
  }
  return std::nullopt;
}

Text WordFormExport::TextOf(const QueryColumn& column, ColumnFormats& formats, std::int32_t index) {
  const Value& value = column.field->Value();
  if (IsNull(value)) return Text();
  if (barCode_ && column.field->Name() == barCode_->BarCodeField()) return barCode_->EncodeRecord();
  const cFormat* format = formats.Of(index);
  return format ? format->Apply(value) : ToText(value, context_.platform.locale);
}

// A field that the template lacks, or that refuses the text, is passed over.
void WordFormExport::WriteField(const Text& name, TextView text, bool oneCharacterEach) {
  if (!oneCharacterEach) {
    IgnoreErrors([&] { document_->FormFieldResult(name, text); });
    return;
  }
  std::int64_t number = 1;
  for (std::size_t at = 0, length = 0; at < text.size(); at += length, ++number) {
    length = CharacterLength(text, at);
    const TextView character = text.substr(at, length);
    IgnoreErrors([&] { document_->FormFieldResult(name + u"_" + DecimalText(number), character); });
  }
}

}  // namespace zorkanca
