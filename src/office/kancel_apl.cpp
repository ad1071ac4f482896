#include "office/kancel_apl.h"

#include "foundation/error_log.h"
#include "platform/excel/excel_application.h"
#include "platform/word/word_application.h"
#include "runtime/error.h"

namespace zorkanca {

namespace {

bool IsClassRegistered(const RegistryAccess& registry, TextView name) {
  return !registry.ReadValue(RegistryHive::kClassesRoot, Text(name).append(u"\\CLSID"), {}, {}).empty();
}

// `GetObject` with its failure written to the log. @return whether the object is there
template <typename Reference, typename Activate>
bool ActivateFile(const Platform& platform, TextView operation, const Text& path, Reference& object,
                  Activate activate) {
  object = nullptr;
  ErrData failure;
  try {
    object = activate(path);
  } catch (...) {
    failure.FillWithCurrentErr();
  }
  if (object) return true;
  LogErrorWithContext(platform, failure, Text(operation).append(u": pokus o GetObject(").append(path).append(u")"));
  return false;
}

// Runs what follows the activation; its failure is written to the log.
template <typename Body>
bool LoggedUnder(const Platform& platform, TextView operation, Body body) {
  try {
    body();
    return true;
  } catch (...) {
    LogErrorWithContext(platform, ErrData(), operation);
    return false;
  }
}

// Word 97 opens a document that is activated by its file without a window; only opening it once more gives it one.
void GiveWindow(WordDocumentReference& document, const Text& path) {
  const std::shared_ptr<WordApplication> word = document->Application();
  word->Visible(true);
  word->ScreenUpdating(false);
  word->Activate();
  document->Activate();
  document->Close(/*SaveChanges=*/false);
  document = word->OpenDocument({.FileName = path});
  word->Activate();
  word->ScreenUpdating(true);
  word->ScreenRefresh();
}

bool IsWord97(WordApplication& word) {
  return word.Version().starts_with(u"8.0");
}

void BringToFront(WordDocument& document) {
  const std::shared_ptr<WordApplication> word = document.Application();
  word->Visible(true);
  word->Activate();
  document.Activate();
  if (document.WindowState() == WordWindowState::kMinimize) document.WindowState(WordWindowState::kNormal);
  if (word->WindowState() == WordWindowState::kMinimize) word->WindowState(WordWindowState::kNormal);
}

void BringToFront(ExcelWorkbook& workbook) {
  const std::shared_ptr<ExcelApplication> excel = workbook.Application();
  workbook.Activate();
  excel->Visible(true);
  excel->WindowVisible(workbook.Name(), true);
  if (excel->WindowState() == ExcelWindowState::kMinimized) excel->WindowState(ExcelWindowState::kNormal);
  if (excel->ActiveWindowState() == ExcelWindowState::kMinimized) excel->ActiveWindowState(ExcelWindowState::kNormal);
}

}  // namespace

cKancelApl::cKancelApl(const Platform& platform) : platform_(platform) {
  if (!sf_ZakladStart(platform_, services_)) sf_ZakladKonec(services_);
  KancelAplInstalled();
}

void cKancelApl::KancelAplInstalled() {
  LoggedUnder(platform_, u"KancelAplInstalled", [&] {
    if (!services_) Raise(RuntimeError::kObjectNotSet);
    const RegistryAccess& registry = services_->registryAccess();
    docEditorInstalled_ = IsClassRegistered(registry, u"Word.Application");
    xlsEditorInstalled_ = IsClassRegistered(registry, u"Excel.Application");
  });
}

bool cKancelApl::OtevriDoc(const Text& strSoubor, WordDocumentReference& objDoc) {
  const auto activate = [&](const Text& path) { return platform_.office.GetDocument(path); };
  if (!ActivateFile(platform_, u"OtevriDoc", strSoubor, objDoc, activate)) return false;
  return LoggedUnder(platform_, u"OtevriDoc", [&] {
    if (IsWord97(*objDoc->Application()) && objDoc->WindowCount() == 0) GiveWindow(objDoc, strSoubor);
    BringToFront(*objDoc);
  });
}

bool cKancelApl::OtevriXls(const Text& strSoubor, ExcelWorkbookReference& objXls) {
  const auto activate = [&](const Text& path) { return platform_.office.GetWorkbook(path); };
  if (!ActivateFile(platform_, u"OtevriXls", strSoubor, objXls, activate)) return false;
  return LoggedUnder(platform_, u"OtevriXls", [&] { BringToFront(*objXls); });
}

}  // namespace zorkanca
