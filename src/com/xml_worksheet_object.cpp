// Worksheets and their sections for clients.
#include "com/xml_objects.h"

namespace zorkanca::com {

namespace {

TaggedCell CellIn(const short* ColSign, const short* RowSign, const short* ColIndex, const short* RowIndex) {
  return {.ColSign = IntegerIn(ColSign),
          .RowSign = IntegerIn(RowSign),
          .ColIndex = IntegerIn(ColIndex, 1),
          .RowIndex = IntegerIn(RowIndex, 1)};
}

/// What worksheets and sections have in common.
template <typename Dual, typename Class, typename Logic>
class TaggedObject : public AutomationObject<Dual, Class> {
 public:
  HRESULT STDMETHODCALLTYPE get_XmlProcessFactory(::_cExcel2003XmlTemplateFactory** result) override {
    return this->Guard([&] {
      if (result) *result = XmlFactoryReference(factory_).Detach();
    });
  }
  HRESULT STDMETHODCALLTYPE putref_XmlProcessFactory(::_cExcel2003XmlTemplateFactory* value) override {
    return this->Guard([&] {
      factory_ = XmlFactoryObject::Of(value);
      logic_->XmlProcessFactory(factory_ ? &factory_->workbook()->factory() : nullptr);
    });
  }
  HRESULT STDMETHODCALLTYPE SetDataIntoTaggedCell(BSTR data, short* ColSign, short* RowSign, short* ColIndex,
                                                  short* RowIndex) override {
    return this->Guard(
        [&] { logic_->SetDataIntoTaggedCell(TextOf(data), CellIn(ColSign, RowSign, ColIndex, RowIndex)); });
  }
  HRESULT STDMETHODCALLTYPE RemoveDataFromTaggedCell(short* ColSign, short* RowSign, short* ColIndex,
                                                     short* RowIndex) override {
    return this->Guard([&] { logic_->RemoveDataFromTaggedCell(CellIn(ColSign, RowSign, ColIndex, RowIndex)); });
  }
  HRESULT STDMETHODCALLTYPE SetAttributeValueToTaggedCell(BSTR* AttributeName, BSTR* AttributeValue, short* ColSign,
                                                          short* RowSign, short* ColIndex, short* RowIndex) override {
    return this->Guard([&] {
      logic_->SetAttributeValueToTaggedCell(TextIn(AttributeName), TextIn(AttributeValue),
                                            CellIn(ColSign, RowSign, ColIndex, RowIndex));
    });
  }
  HRESULT STDMETHODCALLTYPE GetAttributeValueFromTaggedCell(BSTR* AttributeName, short* ColSign, short* RowSign,
                                                            short* ColIndex, short* RowIndex, BSTR* result) override {
    return this->Guard([&] {
      TextResult(result, logic_->GetAttributeValueFromTaggedCell(TextIn(AttributeName),
                                                                 CellIn(ColSign, RowSign, ColIndex, RowIndex)));
    });
  }
  HRESULT STDMETHODCALLTYPE SetColsOfTaggedGrid(short* iColSign, short* iNumberOfCols) override {
    return this->Guard([&] { logic_->SetColsOfTaggedGrid(IntegerIn(iColSign), IntegerIn(iNumberOfCols)); });
  }
  HRESULT STDMETHODCALLTYPE SetRowsOfTaggedGrid(short* iRowSign, short* iNumberOfRows) override {
    return this->Guard([&] { logic_->SetRowsOfTaggedGrid(IntegerIn(iRowSign), IntegerIn(iNumberOfRows)); });
  }

 protected:
  TaggedObject(TextView className, XmlWorkbookReference workbook, std::shared_ptr<Logic> logic,
               const XmlFactoryReference& factory)
      : AutomationObject<Dual, Class>(className), workbook_(std::move(workbook)), logic_(std::move(logic)) {
    if (logic_->XmlProcessFactory()) factory_ = factory;
  }
  // The logic's object goes on without a client; another workbook's factory, which only this object kept alive, does
  // not.
  ~TaggedObject() override {
    if (factory_ && factory_->workbook() != workbook_) logic_->XmlProcessFactory(&workbook_->factory());
    workbook_->Leave(*logic_);
  }

  XmlWorkbookReference workbook_;
  std::shared_ptr<Logic> logic_;
  XmlFactoryReference factory_;  // none once the client has set it to nothing
};

class WorksheetSection final : public TaggedObject<::_cExcel2003XmlWorksheetSection, ::cExcel2003XmlWorksheetSection,
                                                   zorkanca::cExcel2003XmlWorksheetSection> {
 public:
  WorksheetSection(const XmlWorkbookReference& workbook, const WorksheetSectionReference& section,
                   const XmlFactoryReference& factory)
      : TaggedObject(u"cExcel2003XmlWorksheetSection", workbook, section, factory) {}

 private:
  ~WorksheetSection() override = default;
};

class Worksheet final
    : public TaggedObject<::_cExcel2003XmlWorksheet, ::cExcel2003XmlWorksheet, zorkanca::cExcel2003XmlWorksheet> {
 public:
  Worksheet(const WorksheetReference& worksheet, const XmlFactoryReference& factory)
      : TaggedObject(u"cExcel2003XmlWorksheet", factory->workbook(), worksheet, factory) {}

  HRESULT STDMETHODCALLTYPE get_WorksheetName(BSTR* result) override {
    return Guard([&] { TextResult(result, logic_->WorksheetName()); });
  }
  HRESULT STDMETHODCALLTYPE SetAttributeValueToTable(BSTR* AttributeName, BSTR* AttributeValue) override {
    return Guard([&] { logic_->SetAttributeValueToTable(TextIn(AttributeName), TextIn(AttributeValue)); });
  }
  HRESULT STDMETHODCALLTYPE GetAttributeValueFromTable(BSTR* AttributeName, BSTR* result) override {
    return Guard([&] { TextResult(result, logic_->GetAttributeValueFromTable(TextIn(AttributeName))); });
  }
  HRESULT STDMETHODCALLTYPE AddWorksheetSection(short* SectionNumber,
                                                ::_cExcel2003XmlWorksheetSection** result) override {
    return Guard([&] {
      const WorksheetSectionReference section = logic_->AddWorksheetSection(IntegerIn(SectionNumber));
      if (!result) return;
      *result = section ? workbook_->ObjectOf<::_cExcel2003XmlWorksheetSection>(
                              *section, [&] { return new WorksheetSection(workbook_, section, factory_); })
                        : nullptr;
    });
  }
  HRESULT STDMETHODCALLTYPE SetColumnWidth(short ColIndex, float ColWidth, VARIANT_BOOL AutoFitWidth) override {
    return Guard([&] { logic_->SetColumnWidth(ColIndex, ColWidth, AutoFitWidth != VARIANT_FALSE); });
  }

 private:
  ~Worksheet() override = default;
};

}  // namespace

::_cExcel2003XmlWorksheet* WorksheetObject(const WorksheetReference& worksheet, const XmlFactoryReference& factory) {
  if (!worksheet) return nullptr;
  return factory->workbook()->ObjectOf<::_cExcel2003XmlWorksheet>(*worksheet,
                                                                  [&] { return new Worksheet(worksheet, factory); });
}

}  // namespace zorkanca::com
