#include "win32/office/installed_office.h"

#include "win32/automation/busy_server.h"
#include "win32/automation/dispatch_error.h"
#include "win32/office/excel_objects.h"
#include "win32/office/word_objects.h"
#include "win32/wide_text.h"

namespace zorkanca::win32 {

namespace {

constexpr const wchar_t* kWord = L"Word.Application";
constexpr const wchar_t* kExcel = L"Excel.Application";

CLSID ClassOf(const wchar_t* name) {
  CLSID id{};
  Require(CLSIDFromProgID(name, &id));
  return id;
}

// The object that registered itself as the running one.
LateObject Running(const wchar_t* name) {
  const CLSID id = ClassOf(name);
  ComPointer<IUnknown> object;
  Require(CallWhileBusy([&] { return GetActiveObject(id, nullptr, object.Receive()); }));
  auto dispatch = object.As<IDispatch>();
  if (!dispatch) RaiseResult(E_NOINTERFACE);
  return LateObject(std::move(dispatch));
}

LateObject Started(const wchar_t* name) {
  const CLSID id = ClassOf(name);
  ComPointer<IDispatch> object;
  Require(
      CallWhileBusy([&] { return CoCreateInstance(id, nullptr, CLSCTX_SERVER, IID_IDispatch, object.ReceiveAny()); }));
  return LateObject(std::move(object));
}

LateObject OfFile(TextView path) {
  const Text name(path);
  ComPointer<IDispatch> object;
  Require(CallWhileBusy([&] { return CoGetObject(Wide(name), nullptr, IID_IDispatch, object.ReceiveAny()); }));
  return LateObject(std::move(object));
}

}  // namespace

WordApplicationReference InstalledOffice::AttachWord() {
  return std::make_shared<LateWordApplication>(Running(kWord));
}

WordApplicationReference InstalledOffice::StartWord() {
  return std::make_shared<LateWordApplication>(Started(kWord));
}

WordDocumentReference InstalledOffice::GetDocument(TextView path) {
  return std::make_shared<LateWordDocument>(OfFile(path));
}

ExcelApplicationReference InstalledOffice::AttachExcel() {
  return std::make_shared<LateExcelApplication>(Running(kExcel));
}

ExcelApplicationReference InstalledOffice::StartExcel() {
  return std::make_shared<LateExcelApplication>(Started(kExcel));
}

ExcelWorkbookReference InstalledOffice::GetWorkbook(TextView path) {
  return std::make_shared<LateExcelWorkbook>(OfFile(path));
}

}  // namespace zorkanca::win32
