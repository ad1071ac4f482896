// The office applications that are installed on this computer.
#pragma once

#include "platform/office_applications.h"

namespace zorkanca::win32 {

/// Finds them by their names in the registry. The thread is a client's, which has started COM on it.
class InstalledOffice final : public OfficeApplications {
 public:
  WordApplicationReference AttachWord() override;
  WordApplicationReference StartWord() override;
  WordDocumentReference GetDocument(TextView path) override;
  ExcelApplicationReference AttachExcel() override;
  ExcelApplicationReference StartExcel() override;
  ExcelWorkbookReference GetWorkbook(TextView path) override;
};

}  // namespace zorkanca::win32
