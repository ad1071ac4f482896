#include "com/public_classes.h"
#include "com/xml_objects.h"
#include "runtime/error.h"

namespace zorkanca::com {

namespace {

// By this our own factory is known, in its own thread: no other object and no proxy answers to it.
constexpr IID kOwnFactory = {0x5c0f3bd5, 0x8d27, 0x4e0c, {0x9d, 0x51, 0x0c, 0x63, 0x1e, 0x2a, 0x77, 0xb4}};

}  // namespace

XmlFactoryReference XmlFactoryObject::Of(IUnknown* object) {
  XmlFactoryReference factory;
  if (object && FAILED(object->QueryInterface(kOwnFactory, factory.ReceiveAny()))) {
    factory.Detach();
    Raise(RuntimeError::kTypeMismatch);
  }
  return factory;
}

void* XmlFactoryObject::Interface(REFIID id) {
  return id == kOwnFactory ? this : AutomationObject::Interface(id);
}

HRESULT XmlFactoryObject::ReadTemplateFile(BSTR* sFileName, VARIANT_BOOL* result) {
  return Guard([&] { BooleanResult(result, workbook_->factory().ReadTemplateFile(TextIn(sFileName))); });
}

HRESULT XmlFactoryObject::AddWorksheet(BSTR sWorksheetName, BSTR sWorksheetKey, ::_cExcel2003XmlWorksheet** result) {
  return Guard([&] {
    const WorksheetReference worksheet =
        workbook_->factory().AddWorksheet(TextOf(sWorksheetName), TextOf(sWorksheetKey));
    if (result) *result = WorksheetObject(worksheet, XmlFactoryReference(this));
  });
}

HRESULT XmlFactoryObject::get_Worksheets(::_cExcel2003XmlWorksheets** result) {
  return Guard([&] {
    if (result) *result = WorksheetsObject(XmlFactoryReference(this));
  });
}

HRESULT XmlFactoryObject::SaveWorkbook(BSTR* fileName, VARIANT_BOOL* result) {
  return Guard([&] { BooleanResult(result, workbook_->factory().SaveWorkbook(TextIn(fileName))); });
}

IDispatch* NewXmlTemplateFactory() {
  return new XmlFactoryObject;
}

}  // namespace zorkanca::com
