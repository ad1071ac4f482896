// cOfficePdfConvert for clients.
#include "com/arguments.h"
#include "com/object.h"
#include "com/public_classes.h"
#include "export/office_pdf_convert.h"
#include "win32/computer/win32_platform.h"

namespace zorkanca::com {

namespace {

class PdfConvertObject final : public AutomationObject<::_cOfficePdfConvert, ::cOfficePdfConvert> {
 public:
  PdfConvertObject() : AutomationObject(u"cOfficePdfConvert"), convert_(computer_.platform()) {}

  HRESULT STDMETHODCALLTYPE WdExportToPdfFormat(BSTR sSourceFilePath, BSTR sDestinationFilePath,
                                                ::WdExportCreateBookmarks CreateBookmarks, VARIANT_BOOL* bUseISO19005_1,
                                                VARIANT_BOOL* result) override {
    return Guard([&] {
      BooleanResult(result,
                    convert_.WdExportToPdfFormat(TextOf(sSourceFilePath), TextOf(sDestinationFilePath),
                                                 EnumerationIn<zorkanca::WdExportCreateBookmarks>(&CreateBookmarks),
                                                 BooleanIn(bUseISO19005_1)));
    });
  }
  HRESULT STDMETHODCALLTYPE XlExportToPdfFormat(BSTR sSourceFilePath, BSTR sDestinationFilePath,
                                                VARIANT_BOOL* result) override {
    return Guard([&] {
      BooleanResult(result, convert_.XlExportToPdfFormat(TextOf(sSourceFilePath), TextOf(sDestinationFilePath)));
    });
  }

 private:
  ~PdfConvertObject() override = default;

  win32::Win32Platform computer_;
  zorkanca::cOfficePdfConvert convert_;
};

}  // namespace

IDispatch* NewOfficePdfConvert() {
  return new PdfConvertObject;
}

}  // namespace zorkanca::com
