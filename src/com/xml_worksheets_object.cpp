// The collection of a workbook's worksheets for clients.
#include "com/enumerator.h"
#include "com/xml_objects.h"
#include "win32/automation/variant.h"

namespace zorkanca::com {

namespace {

// A text is a name, anything else a position.
template <typename Use>
auto ByKey(const VARIANT& key, const Use& use) {
  win32::Variant plain;
  VariantCopyInd(plain.Receive(), const_cast<VARIANT*>(&key));
  if (plain.type() == VT_BSTR) return use(TextView(TextOf(plain.get().bstrVal)));
  return use(win32::AsLong(plain));
}

class WorksheetsCollection final : public AutomationObject<::_cExcel2003XmlWorksheets, ::cExcel2003XmlWorksheets> {
 public:
  explicit WorksheetsCollection(const XmlFactoryReference& factory)
      : AutomationObject(u"cExcel2003XmlWorksheets"), factory_(factory) {}

  HRESULT STDMETHODCALLTYPE get_Item(VARIANT vntIndexKey, ::_cExcel2003XmlWorksheet** result) override {
    return Guard([&] {
      const WorksheetReference worksheet = ByKey(vntIndexKey, [&](const auto& key) { return Worksheets().Item(key); });
      if (result) *result = WorksheetObject(worksheet, factory_);
    });
  }
  HRESULT STDMETHODCALLTYPE get_Count(long* result) override {
    return Guard([&] { NumberResult(result, long{Worksheets().Count()}); });
  }
  HRESULT STDMETHODCALLTYPE Remove(VARIANT vntIndexKey) override {
    return Guard([&] { ByKey(vntIndexKey, [&](const auto& key) { Worksheets().Remove(key); }); });
  }
  HRESULT STDMETHODCALLTYPE get_NewEnum(IUnknown** result) override {
    return Guard([&] {
      std::vector<win32::ComPointer<IDispatch>> objects;
      for (const WorksheetReference& worksheet : Worksheets()) {
        objects.push_back(win32::ComPointer<IDispatch>::Owning(WorksheetObject(worksheet, factory_)));
      }
      if (result) *result = new ObjectEnumerator(std::move(objects));
    });
  }

 private:
  ~WorksheetsCollection() override { factory_->workbook()->Leave(Worksheets()); }

  cExcel2003XmlWorksheets& Worksheets() const { return factory_->workbook()->factory().Worksheets(); }

  XmlFactoryReference factory_;
};

}  // namespace

::_cExcel2003XmlWorksheets* WorksheetsObject(const XmlFactoryReference& factory) {
  XmlWorkbook& workbook = *factory->workbook();
  return workbook.ObjectOf<::_cExcel2003XmlWorksheets>(workbook.factory().Worksheets(),
                                                       [&] { return new WorksheetsCollection(factory); });
}

}  // namespace zorkanca::com
