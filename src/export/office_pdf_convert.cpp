#include "export/office_pdf_convert.h"

#include <optional>
#include <vector>

#include "export/zor_office.h"
#include "foundation/err_data.h"
#include "foundation/error_log_writer.h"
#include "foundation/ignore_errors.h"
#include "platform/excel/excel_application.h"

namespace zorkanca {

namespace {

constexpr TextView kTitle = u"Quelma Zorix - vazba na kancelářské aplikace";

Text FailureText(const Text& source, const ErrData& error) {
  Text text(u"Došlo k chybě při konverzi souboru \"");
  text.append(source).append(u"\" do formátu *.pdf").append(kCrLf);
  AppendDecimal(text, error.number);
  return text.append(u" - ").append(error.description);
}

// A document (or a workbook) that was opened for a conversion. The destructor closes it and lets the screen be drawn
// again, whatever became of the conversion.
template <typename Document>
class Opened {
 public:
  explicit Opened(Document document) : document_(std::move(document)) {
    IgnoreErrors([&] { application_ = document_->Application(); });
  }
  ~Opened() {
    IgnoreErrors([&] { document_->Close(/*SaveChanges=*/false); });
    if (application_) IgnoreErrors([&] { application_->ScreenUpdating(true); });
  }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;

 private:
  Document document_;
  decltype(document_->Application()) application_;
};

// Keeps the causes that the opening of the source tells until the user has seen the message.
class KeptCauses final : public ExportListener {
 public:
  explicit KeptCauses(ExportListener* listener) : listener_(listener) {}
  void Cause(const Error& cause) override { causes_.push_back(cause); }
  void Warning(TextView text) override {
    if (listener_) listener_->Warning(text);
  }
  void Tell() const {
    for (const Error& cause : causes_) {
      if (listener_) listener_->Cause(cause);
    }
  }

 private:
  ExportListener* listener_;
  std::vector<Error> causes_;
};

void Log(const Platform& platform, TextView operation, const Error& cause) {
  ErrData data;
  data.number = cause.number();
  data.description = cause.description();
  data.source = cause.source();
  IgnoreErrors([&] { ErrorLogWriter(platform).WriteError(Text(u"cOfficePdfConvert.").append(operation), &data); });
}

// Runs one conversion. The user sees why it failed before the source is closed.
// @param operation      its published name
// @param open           opens the source; null when it could not
// @param couldNotOpen   the message for that
// @param exportTo       writes the opened source
template <typename Open, typename Export>
bool Convert(const Platform& platform, ExportListener* listener, TextView operation, const Text& source,
             TextView couldNotOpen, Open open, Export exportTo) {
  KeptCauses causes(listener);
  std::optional<cZorOffice> office;
  std::optional<Opened<decltype(open(*office))>> opened;
  Text message;
  try {
    office.emplace(platform);
    office->Listen(&causes);
    if (const auto document = open(*office)) {
      opened.emplace(document);
      exportTo(*document);
      return true;
    }
    message = Text(couldNotOpen).append(kCrLf).append(source);
  } catch (...) {
    message = FailureText(source, ErrData());
    causes.Cause(*ErrorBeingHandled());
    Log(platform, operation, *ErrorBeingHandled());
  }
  platform.userInterface.Show({.text = message, .title = Text(kTitle), .icon = MessageIcon::kExclamation});
  causes.Tell();
  return false;
}

}  // namespace

bool cOfficePdfConvert::WdExportToPdfFormat(const Text& sSourceFilePath, const Text& sDestinationFilePath,
                                            WdExportCreateBookmarks CreateBookmarks, bool bUseISO19005_1) {
  const auto open = [&](cZorOffice& office) {
    GetOpenDocArguments arguments{
        .rsTemplate = sSourceFilePath, .rAppVisible = AppVisible::avFalse, .rbScreenUpdating = false};
    office.GetOpenDoc(arguments);
    return arguments.roRetDoc;
  };
  return Convert(platform_, listener_, u"WdExportToPdfFormat", sSourceFilePath, u"Nepodařilo se otevřít dokument: ",
                 open, [&](WordDocument& document) {
                   document.ExportAsFixedFormat({.OutputFileName = sDestinationFilePath,
                                                 .ExportFormat = 17,
                                                 .OpenAfterExport = false,
                                                 .OptimizeFor = 0,
                                                 .Range = 0,
                                                 .Item = 0,
                                                 .IncludeDocProps = true,
                                                 .KeepIRM = true,
                                                 .CreateBookmarks = CreateBookmarks,
                                                 .DocStructureTags = true,
                                                 .BitmapMissingFonts = true,
                                                 .UseISO19005_1 = bUseISO19005_1});
                 });
}

bool cOfficePdfConvert::XlExportToPdfFormat(const Text& sSourceFilePath, const Text& sDestinationFilePath) {
  const auto open = [&](cZorOffice& office) {
    GetOpenXlsArguments arguments{
        .rsTemplate = sSourceFilePath, .rVisible = AppVisible::avFalse, .rbScreenUpdating = false};
    office.GetOpenXls(arguments);
    return arguments.roRetXls;
  };
  return Convert(platform_, listener_, u"XlExportToPdfFormat", sSourceFilePath, u"Nepodařilo se otevřít soubor: ", open,
                 [&](ExcelWorkbook& workbook) {
                   workbook.ExportAsFixedFormat({.Type = 0,
                                                 .fileName = sDestinationFilePath,
                                                 .Quality = 0,
                                                 .IncludeDocProperties = true,
                                                 .IgnorePrintAreas = false,
                                                 .OpenAfterPublish = false});
                 });
}

}  // namespace zorkanca
