// Our own engines in the places of the office applications.
#pragma once

#include "excel/excel_engine.h"
#include "libreoffice/libreoffice_converter.h"
#include "platform/office_applications.h"
#include "word/word_engine.h"

namespace zorkanca {

/// The converter that works for a user of that locale.
/// @param cancelled  asked now and then; true ends a conversion with error 18; may be empty
/// @param warn       told in English of what a document lost on the way; may be empty
LibreOfficeConverter ConverterFor(const Locale& locale, std::function<bool()> cancelled,
                                  std::function<void(TextView)> warn = {});

class OfficeEngines final : public OfficeApplications {
 public:
  /// @param locale     of numbers, dates and ANSI files; outlives the engines
  /// @param warn       told in English of what an engine left as it was
  /// @param cancelled  asked now and then during long work, which ends with error 18 then; may be empty
  /// @param working    told meanwhile how far workbooks are; may be empty
  explicit OfficeEngines(const Locale& locale, WordEngine::Warn warn = {}, std::function<bool()> cancelled = {},
                         std::function<void(ExcelWork, double percent)> working = {});

  WordApplicationReference AttachWord() override { return word_.AttachWord(); }
  WordApplicationReference StartWord() override { return word_.StartWord(); }
  WordDocumentReference GetDocument(TextView path) override { return word_.GetDocument(path); }
  ExcelApplicationReference AttachExcel() override { return excel_.AttachExcel(); }
  ExcelApplicationReference StartExcel() override { return excel_.StartExcel(); }
  ExcelWorkbookReference GetWorkbook(TextView path) override { return excel_.GetWorkbook(path); }
  std::vector<TemplateField> WordTemplateFields(TextView path) override { return word_.TemplateFields(path); }

 private:
  WordEngine word_;
  ExcelEngine excel_;
};

}  // namespace zorkanca
