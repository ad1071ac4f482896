// cKancelApl for clients.
#include "com/arguments.h"
#include "com/object.h"
#include "com/public_classes.h"
#include "office/kancel_apl.h"
#include "win32/computer/win32_platform.h"

namespace zorkanca::com {

namespace {

class KancelAplObject final : public AutomationObject<::_cKancelApl, ::cKancelApl> {
 public:
  KancelAplObject() : AutomationObject(u"cKancelApl"), applications_(computer_.platform()) {}

  HRESULT STDMETHODCALLTYPE OtevriDoc(BSTR* strSoubor, IDispatch** objDoc, VARIANT_BOOL* result) override {
    return Guard([&] {
      WordDocumentReference document;
      BooleanResult(result, applications_.OtevriDoc(TextIn(strSoubor), document));
      ObjectOut(objDoc, document);
    });
  }
  HRESULT STDMETHODCALLTYPE OtevriXls(BSTR* strSoubor, IDispatch** objXls, VARIANT_BOOL* result) override {
    return Guard([&] {
      ExcelWorkbookReference workbook;
      BooleanResult(result, applications_.OtevriXls(TextIn(strSoubor), workbook));
      ObjectOut(objXls, workbook);
    });
  }
  HRESULT STDMETHODCALLTYPE get_DocEditorInstalovan(VARIANT_BOOL* result) override {
    return Guard([&] { BooleanResult(result, applications_.DocEditorInstalovan()); });
  }
  HRESULT STDMETHODCALLTYPE get_XlsEditorInstalovan(VARIANT_BOOL* result) override {
    return Guard([&] { BooleanResult(result, applications_.XlsEditorInstalovan()); });
  }

 private:
  ~KancelAplObject() override = default;

  win32::Win32Platform computer_;
  zorkanca::cKancelApl applications_;
};

}  // namespace

IDispatch* NewKancelApl() {
  return new KancelAplObject;
}

}  // namespace zorkanca::com
