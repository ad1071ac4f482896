// cOfficePdfConvert: Word documents and Excel workbooks written as PDF by their application.
#pragma once

#include "export/export_report.h"
#include "platform/platform.h"
#include "platform/word/word_document.h"
#include "runtime/text.h"

namespace zorkanca {

/// The source is opened out of sight, written, and closed again without saving; its application stays. Failures are
/// shown to the user, nothing is raised.
class cOfficePdfConvert {
 public:
  explicit cOfficePdfConvert(const Platform& platform) : platform_(platform) {}

  /// Tells causes of failures, after their message boxes, and warnings to a client, or to nobody (null). The client
  /// outlives the conversions.
  void Listen(ExportListener* listener) { listener_ = listener; }

  /// @param CreateBookmarks   what becomes a bookmark of the PDF
  /// @param bUseISO19005_1    write PDF/A, for keeping
  /// @return                  true when the PDF was written
  bool WdExportToPdfFormat(const Text& sSourceFilePath, const Text& sDestinationFilePath,
                           WdExportCreateBookmarks CreateBookmarks = WdExportCreateBookmarks::wdExportCreateNoBookmarks,
                           bool bUseISO19005_1 = false);
  /// @return  true when the PDF was written
  bool XlExportToPdfFormat(const Text& sSourceFilePath, const Text& sDestinationFilePath);

 private:
  Platform platform_;
  ExportListener* listener_ = nullptr;
};

}  // namespace zorkanca
