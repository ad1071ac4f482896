// A spreadsheet-XML workbook that clients work on through several objects: its factory, the collection of its
// worksheets, worksheets, sections.
//
// All of them share the workbook, which ends with the last. The published reference of a worksheet or section to its
// factory is one to the factory's object, so that this lives as long as a client holds one of them. What a client asks
// for twice is the same object twice: the workbook knows the objects that live; they leave it when they end.
#pragma once

#include <memory>
#include <unordered_map>

#include "com/arguments.h"
#include "com/object.h"
#include "runtime/value.h"
#include "win32/computer/win32_platform.h"
#include "xmltemplate/template_factory.h"

namespace zorkanca::com {

class XmlWorkbook {
 public:
  XmlWorkbook() : factory_(computer_.platform()) {}

  zorkanca::cExcel2003XmlTemplateFactory& factory() { return factory_; }

  /// The object that clients have for one of the logic, counted for the caller: the living one, else the new one.
  template <typename Interface, typename Make>
  Interface* ObjectOf(const Object& logic, const Make& make) {
    IDispatch*& living = living_[&logic];
    if (living) {
      living->AddRef();
    } else {
      living = make();
    }
    return static_cast<Interface*>(living);
  }
  void Leave(const Object& logic) { living_.erase(&logic); }

 private:
  win32::Win32Platform computer_;
  zorkanca::cExcel2003XmlTemplateFactory factory_;
  std::unordered_map<const Object*, IDispatch*> living_;  // not counted
};

using XmlWorkbookReference = std::shared_ptr<XmlWorkbook>;

class XmlFactoryObject final
    : public AutomationObject<::_cExcel2003XmlTemplateFactory, ::cExcel2003XmlTemplateFactory> {
 public:
  XmlFactoryObject() : AutomationObject(u"cExcel2003XmlTemplateFactory"), workbook_(std::make_shared<XmlWorkbook>()) {}

  /// The object of ours behind an interface that a client hands over; null for none.
  /// Errors: 13 for an object of another program or thread.
  static win32::ComPointer<XmlFactoryObject> Of(IUnknown* object);

  const XmlWorkbookReference& workbook() const { return workbook_; }

  HRESULT STDMETHODCALLTYPE ReadTemplateFile(BSTR* sFileName, VARIANT_BOOL* result) override;
  HRESULT STDMETHODCALLTYPE AddWorksheet(BSTR sWorksheetName, BSTR sWorksheetKey,
                                         ::_cExcel2003XmlWorksheet** result) override;
  HRESULT STDMETHODCALLTYPE get_Worksheets(::_cExcel2003XmlWorksheets** result) override;
  HRESULT STDMETHODCALLTYPE SaveWorkbook(BSTR* fileName, VARIANT_BOOL* result) override;

 private:
  ~XmlFactoryObject() override = default;
  void* Interface(REFIID id) override;

  XmlWorkbookReference workbook_;
};

using XmlFactoryReference = win32::ComPointer<XmlFactoryObject>;

/// Counted for the caller; null for null.
::_cExcel2003XmlWorksheet* WorksheetObject(const WorksheetReference& worksheet, const XmlFactoryReference& factory);
::_cExcel2003XmlWorksheets* WorksheetsObject(const XmlFactoryReference& factory);

}  // namespace zorkanca::com
