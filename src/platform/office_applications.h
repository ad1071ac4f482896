// How the product gets at the office applications of the computer.
#pragma once

#include "platform/excel/excel_application.h"
#include "platform/template_fields.h"
#include "platform/word/word_application.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace zorkanca {

class OfficeApplications {
 public:
  virtual ~OfficeApplications() = default;
  /// The running Word. Errors: 429 when none runs.
  virtual WordApplicationReference AttachWord() = 0;
  /// Starts Word; it stays running and invisible until it is shown. Errors: 429 when it cannot be started.
  virtual WordApplicationReference StartWord() = 0;
  /// `GetObject(path)`: the document of a file, from the running Word that has it open, else opened in Word.
  /// Errors: 429 when Word cannot be started; 5174 when the file is missing, 5 when it cannot be read.
  virtual WordDocumentReference GetDocument(TextView path) = 0;
  /// The running Excel. Errors: 429 when none runs.
  virtual ExcelApplicationReference AttachExcel() = 0;
  /// Starts Excel; it stays running and invisible until it is shown. Errors: 429 when it cannot be started.
  virtual ExcelApplicationReference StartExcel() = 0;
  /// `GetObject(path)`: the workbook of a file, from the running Excel that has it open, else opened in Excel.
  /// Errors: 429 when Excel cannot be started; 1004 when the file is missing, 5 when it cannot be read.
  virtual ExcelWorkbookReference GetWorkbook(TextView path) = 0;
  /// What a Word template asks for, in the order of the first places, as Word reads it.
  /// Errors: as `GetDocument`; 438 when these applications cannot tell.
  virtual std::vector<TemplateField> WordTemplateFields(TextView path) {
    Raise(RuntimeError::kNotSupported, Text(u"The office applications cannot tell the fields of ").append(path));
  }
};

}  // namespace zorkanca
