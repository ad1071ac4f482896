// The office applications of a test's computer.
#pragma once

#include "platform/office_applications.h"
#include "runtime/error.h"
#include "support/fake_word.h"

namespace zorkanca::testing {

/// Word is the fake one; Excel is not installed.
class FakeOffice final : public OfficeApplications {
 public:
  explicit FakeOffice(FakeWord& word) : word_(word) {}

  WordApplicationReference AttachWord() override { return word_.AttachWord(); }
  WordApplicationReference StartWord() override { return word_.StartWord(); }
  WordDocumentReference GetDocument(TextView path) override { return word_.GetDocument(path); }
  ExcelApplicationReference AttachExcel() override { Raise(RuntimeError::kCannotCreateObject); }
  ExcelApplicationReference StartExcel() override { Raise(RuntimeError::kCannotCreateObject); }
  ExcelWorkbookReference GetWorkbook(TextView) override { Raise(RuntimeError::kCannotCreateObject); }

 private:
  FakeWord& word_;
};

}  // namespace zorkanca::testing
