// The office applications of a test's computer.
#pragma once

#include "platform/office_applications.h"
#include "runtime/error.h"
#include "support/fake_excel.h"
#include "support/fake_word.h"

namespace zorkanca::testing {

class FakeOffice final : public OfficeApplications {
 public:
  FakeOffice(FakeWord& word, FakeExcel& excel) : word_(word), excel_(excel) {}

  WordApplicationReference AttachWord() override { return word_.AttachWord(); }
  WordApplicationReference StartWord() override { return word_.StartWord(); }
  WordDocumentReference GetDocument(TextView path) override { return word_.GetDocument(path); }
  ExcelApplicationReference AttachExcel() override { return excel_.AttachExcel(); }
  ExcelApplicationReference StartExcel() override { return excel_.StartExcel(); }
  ExcelWorkbookReference GetWorkbook(TextView path) override { return excel_.GetWorkbook(path); }

 private:
  FakeWord& word_;
  FakeExcel& excel_;
};

}  // namespace zorkanca::testing
