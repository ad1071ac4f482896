// What one cZorOffice instance gives to the exports that it runs: the computer, the caller's events and settings.
#pragma once

#include <cstdint>
#include <functional>

#include "export/export_preferences.h"
#include "export/export_report.h"
#include "export/finished_document.h"
#include "export/office_settings.h"
#include "export/zor_office_events.h"
#include "foundation/number_separators.h"
#include "platform/platform.h"
#include "templates/template_lists.h"

namespace zorkanca {

struct ExportContext {
  Platform platform;
  ZorOfficeEvents* events = nullptr;  ///< the caller's, may be null

  Text workFolder{};  ///< intermediate files go here, without a separator at its end
  NumberSeparators separators{};
  OfficeSettings settings{};
  ExportPreferences preferences{};
  ExportReport* report = nullptr;  ///< what the operation tells beside its events; null: nobody asks

  float percentInterval = 1.0f;           ///< step of PercentDone in percent
  Text multiplier{};                      ///< query column that tells how often a record is written; empty: once
  std::int16_t blankRecordsBefore = 0;    ///< empty records before the data of the next export
  Recordset* currentRecordset = nullptr;  ///< of the running export; null when none runs over a query
  bool withinDataProcess = false;         ///< an export itself drives Word, document after document

  /// Lets the user choose a template of a list: `TemplateLists::TemplateList`. @return its full path; empty: none
  std::function<Text(TemplateListArguments&)> templateList{};
  /// Gets each document of an export that makes several, once it is finished; may close it. An error stops the export.
  std::function<void(const FinishedDocument&)> documentFinished{};

  /// Keeps what a message box or a state will not say until the operation ends.
  void NoteCause(const Error& cause) const {
    if (report) report->NoteCause(cause);
  }
  /// Counts records of the query that are written.
  void NoteRecords(std::int64_t count) const {
    if (report) report->NoteRecords(count);
  }
  /// Tells what the result will suffer from.
  void Warn(const Text& text) const {
    if (report) report->Warn(text);
  }
  /// Raises ExportState when somebody listens.
  void RaiseExportState(ExportStateValue state, TextView message) const {
    if (events) events->ExportState(state, message);
  }
  /// Raises PercentDone when somebody listens. @return true when the handler asked to stop
  bool RaisePercentDone(float percent) const {
    bool cancel = false;
    if (events) events->PercentDone(percent, cancel);
    return cancel;
  }
};

}  // namespace zorkanca
