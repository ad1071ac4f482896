// cFormat for clients, who can set a format and have it checked.
#include "com/arguments.h"
#include "com/object.h"
#include "com/public_classes.h"
#include "formats/format.h"
#include "win32/computer/win32_platform.h"

namespace zorkanca::com {

namespace {

class FormatObject final : public AutomationObject<::_cFormat, ::cFormat> {
 public:
  FormatObject() : AutomationObject(u"cFormat"), format_(computer_.platform().locale) {}

  HRESULT STDMETHODCALLTYPE get_format(BSTR* result) override {
    return Guard([&] { TextResult(result, format_.format()); });
  }
  HRESULT STDMETHODCALLTYPE put_format(BSTR value) override {
    return Guard([&] { format_.format(TextOf(value)); });
  }

 private:
  ~FormatObject() override = default;

  win32::Win32Platform computer_;
  zorkanca::cFormat format_;
};

}  // namespace

IDispatch* NewFormat() {
  return new FormatObject;
}

}  // namespace zorkanca::com
