// cKancelApl: whether Word and Excel are installed, and documents brought before the user's eyes in them.
#pragma once

#include <memory>

#include "foundation/base_services.h"
#include "platform/excel/excel_workbook.h"
#include "platform/platform.h"
#include "platform/word/word_document.h"
#include "runtime/text.h"

namespace zorkanca {

/// Raises nothing: failures are written to the error log.
class cKancelApl {
 public:
  /// Starts the base services, which end with this object, and looks for the applications once.
  explicit cKancelApl(const Platform& platform);

  /// True when the class of Word (Excel) was registered as this object was made.
  bool DocEditorInstalovan() const { return docEditorInstalled_; }
  bool XlsEditorInstalovan() const { return xlsEditorInstalled_; }

  /// Opens a file in its application, or finds it open there, and brings it to the front. A minimised window, of the
  /// document or of the application, becomes a normal one.
  /// @param objDoc, objXls  receive the document; null when the file could not be opened
  /// @return                true when it is in front
  bool OtevriDoc(const Text& strSoubor, WordDocumentReference& objDoc);
  bool OtevriXls(const Text& strSoubor, ExcelWorkbookReference& objXls);

 private:
  void KancelAplInstalled();

  Platform platform_;
  std::unique_ptr<BaseServices> services_;  // null when they could not be started
  bool docEditorInstalled_ = false;
  bool xlsEditorInstalled_ = false;
};

}  // namespace zorkanca
