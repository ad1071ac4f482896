// cZorOffice: the class that client programs create to move data out of their database into office documents.
// A thin face: it holds the settings and properties, raises the events, and has one method for each published
// operation.
#pragma once

#include <cstdint>

#include "export/excel_export.h"
#include "export/excel_opening.h"
#include "export/excel_template_export.h"
#include "export/export_context.h"
#include "export/html_export.h"
#include "export/mail_merge.h"
#include "export/prepared_file.h"
#include "export/word_file_export.h"
#include "export/word_form_export.h"
#include "export/word_opening.h"
#include "export/word_query_export.h"
#include "platform/database.h"
#include "platform/platform.h"
#include "templates/template_lists.h"

namespace zorkanca {

class cZorOffice {
 public:
  /// Makes the work folder, clears away data files that earlier exports left there, and reads the settings.
  /// Errors: when the temporary folder cannot be read or the work folder cannot be made.
  explicit cZorOffice(const Platform& platform);

  /// Sends the events to a client, or to nobody (null). The client outlives the exports that it listens to.
  void Advise(ZorOfficeEvents* events) { context_.events = events; }

  /// Tells causes and warnings, which events and message boxes do not, to a client, or to nobody (null). The client
  /// outlives the operations that it listens to.
  void Listen(ExportListener* listener) { report_.Listen(listener); }
  /// What following operations do otherwise than clients have always got.
  void Prefer(const ExportPreferences& preferences) { context_.preferences = preferences; }

  /// Step of PercentDone in percent, 1 at first. Any number is stored; one that is not positive acts as 1.
  float PercentInterval() const { return context_.percentInterval; }
  void PercentInterval(float interval) { context_.percentInterval = interval; }

  /// Name of the query column that tells how many times a record is written; empty: once.
  const Text& Multiplier() const { return context_.multiplier; }
  void Multiplier(Text columnName) { context_.multiplier = std::move(columnName); }

  /// Number of empty records that the next export writes before its data; 0 again after it.
  std::int16_t BlankRecordsBefore() const { return context_.blankRecordsBefore; }
  void BlankRecordsBefore(std::int16_t count) { context_.blankRecordsBefore = count; }

  /// Hands each document of an export that makes several to a host that has no windows in which they could stay open,
  /// once it is finished; the host may close it. An error that it raises ends the export.
  void WhenDocumentIsFinished(std::function<void(const FinishedDocument&)> handler) {
    context_.documentFinished = std::move(handler);
  }

  /// Folder of intermediate files.
  const Text& WorkFolder() const { return context_.workFolder; }

  /// Writes the rows of the SELECT as an HTML table and opens the file; see `HtmlExport`.
  /// @return true when done; failures are shown to the user, nothing is raised
  bool HTMLExport(Database& DB, const Text& rsSELECT, HtmlExportArguments& arguments);

  /// Merges the rows of the SELECT into a Word template; see `WordQueryExport`. Failures are shown to the user.
  bool WdExport(Database& DB, const Text& rsSELECT, WdExportArguments& arguments) {
    return Ended(u"WdExport", WordQueryExport(context_, DB, rsSELECT, arguments).Run());
  }
  /// Merges prepared files into a Word template; see `WordFileExport`. Failures are shown to the user.
  bool WdExport_file(const Text& vsHeadersFileName, const Text& vsDataFileName, WordExportArguments& arguments) {
    return Ended(u"WdExport_file", WordFileExport(context_, vsHeadersFileName, vsDataFileName, arguments).Run());
  }
  /// Fills a Word form once per row of the SELECT; see `WordFormExport`. Failures are shown to the user.
  bool WdExportForm(Database& DB, const Text& rsSELECT, WdExportFormArguments& arguments) {
    return Ended(u"WdExportForm", WordFormExport(context_, DB, rsSELECT, arguments).Run());
  }
  /// Splits a line of a prepared data file; see `SplitColumnsFromDataRow`.
  void up_SplitColumnsFromDataRow(const Text& vsSource, std::vector<Text>& RetVal) const {
    SplitColumnsFromDataRow(vsSource, RetVal);
  }

  /// Merges a template with a data file; see `MailMergeRun`. Failures are told by ExportState.
  bool MakeMailDocument(MakeMailDocumentArguments& arguments) {
    MailMergeRun run(context_, arguments);
    const bool done = run.Run();
    report_.NoteRecords(run.RecordCount());
    return Ended(u"MakeMailDocument", done);
  }
  /// Opens a document in Word; see `OpenWordDocument`.
  bool GetOpenDoc(GetOpenDocArguments& arguments) {
    return Ended(u"GetOpenDoc", OpenWordDocument(context_, arguments));
  }

  /// Lets the user choose a template of a list; see `TemplateLists`.
  Text TemplateList(TemplateListArguments& arguments) { return templateLists_.TemplateList(arguments); }
  /// Registers the templates of the supply file; see `TemplateLists`.
  bool SupplyTemplateList(Text& rsZorApl, ApplOffice TypeOfApplOffice, Text& rsListName) {
    return templateLists_.SupplyTemplateList(rsZorApl, TypeOfApplOffice, rsListName);
  }
  /// Puts the rows of the SELECT into a new Excel workbook as a plain table; see `ExcelExport`.
  bool XlExport(Database& DB, const Text& rsSELECT, XlExportArguments& arguments) {
    return Ended(u"XlExport", ExcelExport(context_, DB, rsSELECT, arguments).Run());
  }
  /// Fills an Excel template with the rows of the SELECT, or with those of prepared files; see `ExportIntoTemplate`.
  bool XlExport_sab(Database& DB, const Text& rsSELECT, XlSabArguments& arguments) {
    return Ended(u"XlExport_sab", ExportIntoTemplate(context_, DB, rsSELECT, arguments));
  }
  bool XlExport_sab_file(const Text& vsHeadersFileName, const Text& vsDataFileName, XlTemplateArguments& arguments) {
    return Ended(u"XlExport_sab_file", ExportIntoTemplate(context_, vsHeadersFileName, vsDataFileName, arguments));
  }
  /// Opens a workbook in Excel; see `OpenExcelWorkbook`.
  bool GetOpenXls(GetOpenXlsArguments& arguments) {
    return Ended(u"GetOpenXls", OpenExcelWorkbook(context_, arguments));
  }

 private:
  // The report of an operation ends with it.
  bool Ended(TextView operation, bool done) {
    report_.EndOperation(operation, done);
    return done;
  }

  TemplateLists templateLists_;
  ExportReport report_;
  ExportContext context_;
};

}  // namespace zorkanca
