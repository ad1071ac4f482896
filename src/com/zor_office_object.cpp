// cZorOffice for clients.
#include "com/arguments.h"
#include "com/events.h"
#include "com/object.h"
#include "com/public_classes.h"
#include "export/zor_office.h"
#include "win32/computer/win32_platform.h"
#include "win32/database/dao_database.h"

namespace zorkanca::com {

namespace {

win32::DaoDatabase DatabaseIn(IDispatch** database) {
  return win32::DaoDatabase(win32::LateObject(win32::ComPointer<IDispatch>(database ? *database : nullptr)));
}

// What is the same in all exports with a template, in and out.
void TakeTemplate(TemplateArguments& arguments, const BSTR* application, const BSTR* templatePath,
                  const VARIANT_BOOL* admin, const BSTR* listCaption, const VARIANT_BOOL* supply) {
  arguments.rsZorApl = TextIn(application);
  arguments.rsTemplate = TextIn(templatePath);
  arguments.rbAdmin = BooleanIn(admin);
  arguments.rsListCaption = TextIn(listCaption);
  arguments.rbSupply = BooleanIn(supply);
}

void GiveTemplate(const TemplateArguments& arguments, BSTR* application, BSTR* templatePath, BSTR* listCaption) {
  TextOut(application, arguments.rsZorApl);
  TextOut(templatePath, arguments.rsTemplate);
  TextOut(listCaption, arguments.rsListCaption);
}

class ZorOfficeObject final : public AutomationObject<::_cZorOffice, ::cZorOffice, ::__cZorOffice>,
                              public IConnectionPointContainer {
 public:
  ZorOfficeObject() : AutomationObject(u"cZorOffice"), office_(computer_.platform()) {
    events_ = win32::ComPointer<EventSource>::Owning(new EventSource(this));
    office_.Advise(events_.get());
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    return AutomationObject::QueryInterface(id, object);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return AutomationObject::AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return AutomationObject::Release(); }

  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override {
    return EnumerateConnectionPoints(events_.get(), points);
  }
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override {
    if (!point) return E_POINTER;
    *point = nullptr;
    if (id != __uuidof(::__cZorOffice)) return CONNECT_E_NOCONNECTION;
    *point = win32::ComPointer<IConnectionPoint>(events_.get()).Detach();
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE WdExport(IDispatch** DB, BSTR* rsSELECT, BSTR* rsZorApl, BSTR* rsTemplate,
                                     BSTR* rsFieldNames, short* ri_rsOptions, VARIANT_BOOL* rbAdmin,
                                     BSTR* rsListCaption, VARIANT_BOOL* rbSupply, BSTR* rsSourceFile,
                                     VARIANT_BOOL* MultiDocument, VARIANT* rvFormat, IDispatch** roRetDoc,
                                     VARIANT_BOOL* rbSetAppVisible, VARIANT_BOOL* result) override {
    return Guard([&] {
      auto database = DatabaseIn(DB);
      WdExportArguments arguments;
      TakeTemplate(arguments, rsZorApl, rsTemplate, rbAdmin, rsListCaption, rbSupply);
      TakeWord(arguments, rsSourceFile, MultiDocument, rvFormat, rbSetAppVisible);
      arguments.rsFieldNames = TextIn(rsFieldNames);
      arguments.ri_rsOptions = IntegerIn(ri_rsOptions);
      BooleanResult(result, office_.WdExport(database, TextIn(rsSELECT), arguments));
      GiveTemplate(arguments, rsZorApl, rsTemplate, rsListCaption);
      TextOut(rsFieldNames, arguments.rsFieldNames);
      TextOut(rsSourceFile, arguments.rsSourceFile);
      ObjectOut(roRetDoc, arguments.roRetDoc);
    });
  }

  HRESULT STDMETHODCALLTYPE WdExportForm(IDispatch** DB, BSTR* rsSELECT, BSTR* rsZorApl, BSTR* rsTemplate,
                                         short* ri_rsOptions, VARIANT_BOOL* rbAdmin, BSTR* rsListCaption,
                                         BSTR* rsBarCodeParam, VARIANT_BOOL* rbSupply, VARIANT* rvFormat,
                                         VARIANT* rvOneChar, float* LeftMargin, float* TopMargin, float* LeftMarginP2,
                                         float* TopMarginP2, IDispatch** roRetDoc, VARIANT_BOOL* rbSetAppVisible,
                                         VARIANT_BOOL* result) override {
    return Guard([&] {
      auto database = DatabaseIn(DB);
      WdExportFormArguments arguments;
      TakeTemplate(arguments, rsZorApl, rsTemplate, rbAdmin, rsListCaption, rbSupply);
      arguments.ri_rsOptions = IntegerIn(ri_rsOptions);
      arguments.rsBarCodeParam = TextIn(rsBarCodeParam);
      arguments.rvFormat = TextsIn(rvFormat);
      arguments.rvOneChar = BooleansIn(rvOneChar);
      arguments.LeftMargin = SingleIn(LeftMargin, kUnchangedMargin);
      arguments.TopMargin = SingleIn(TopMargin, kUnchangedMargin);
      arguments.LeftMarginP2 = SingleIn(LeftMarginP2, kUnchangedMargin);
      arguments.TopMarginP2 = SingleIn(TopMarginP2, kUnchangedMargin);
      arguments.rbSetAppVisible = BooleanIn(rbSetAppVisible, true);
      BooleanResult(result, office_.WdExportForm(database, TextIn(rsSELECT), arguments));
      GiveTemplate(arguments, rsZorApl, rsTemplate, rsListCaption);
      TextOut(rsBarCodeParam, arguments.rsBarCodeParam);
      ObjectOut(roRetDoc, arguments.roRetDoc);
    });
  }

  HRESULT STDMETHODCALLTYPE XlExport(IDispatch** DB, BSTR* rsSELECT, BSTR* rsFieldNames, short* ri_rsOptions,
                                     BSTR* rsSourceFile, IDispatch** roRetXls, VARIANT_BOOL* rbSetAppVisible,
                                     VARIANT_BOOL* result) override {
    return Guard([&] {
      auto database = DatabaseIn(DB);
      XlExportArguments arguments{.rsFieldNames = TextIn(rsFieldNames),
                                  .ri_rsOptions = IntegerIn(ri_rsOptions),
                                  .rsSourceFile = TextIn(rsSourceFile),
                                  .rbSetAppVisible = BooleanIn(rbSetAppVisible, true)};
      BooleanResult(result, office_.XlExport(database, TextIn(rsSELECT), arguments));
      TextOut(rsFieldNames, arguments.rsFieldNames);
      TextOut(rsSourceFile, arguments.rsSourceFile);
      ObjectOut(roRetXls, arguments.roRetXls);
    });
  }

  HRESULT STDMETHODCALLTYPE XlExport_sab(IDispatch** DB, BSTR* rsSELECT, BSTR* rsZorApl, BSTR* rsTemplate,
                                         BSTR* rsFieldNames, short* ri_rsOptions, VARIANT_BOOL* rbAdmin,
                                         BSTR* rsListCaption, VARIANT_BOOL* rbSupply, BSTR* rsSourceFile,
                                         IDispatch** roRetXls, VARIANT_BOOL* rbSetAppVisible,
                                         VARIANT_BOOL* result) override {
    return Guard([&] {
      auto database = DatabaseIn(DB);
      XlSabArguments arguments;
      TakeTemplate(arguments, rsZorApl, rsTemplate, rbAdmin, rsListCaption, rbSupply);
      TakeExcel(arguments, rsSourceFile, rbSetAppVisible);
      arguments.rsFieldNames = TextIn(rsFieldNames);
      arguments.ri_rsOptions = IntegerIn(ri_rsOptions);
      BooleanResult(result, office_.XlExport_sab(database, TextIn(rsSELECT), arguments));
      GiveTemplate(arguments, rsZorApl, rsTemplate, rsListCaption);
      TextOut(rsFieldNames, arguments.rsFieldNames);
      TextOut(rsSourceFile, arguments.rsSourceFile);
      ObjectOut(roRetXls, arguments.roRetXls);
    });
  }

  HRESULT STDMETHODCALLTYPE HTMLExport(IDispatch** DB, BSTR* rsSELECT, BSTR* rsFieldNames, short* ri_rsOptions,
                                       BSTR* rsSourceFile, BSTR* rsTitle, short* riTblBorder, short* riTblCellPadding,
                                       short* riTblCellSpacing, VARIANT_BOOL* result) override {
    return Guard([&] {
      auto database = DatabaseIn(DB);
      HtmlExportArguments arguments{.rsFieldNames = TextIn(rsFieldNames),
                                    .ri_rsOptions = IntegerIn(ri_rsOptions),
                                    .rsSourceFile = TextIn(rsSourceFile),
                                    .rsTitle = TextIn(rsTitle),
                                    .riTblBorder = IntegerIn(riTblBorder, 1),
                                    .riTblCellPadding = IntegerIn(riTblCellPadding, 1),
                                    .riTblCellSpacing = IntegerIn(riTblCellSpacing)};
      BooleanResult(result, office_.HTMLExport(database, TextIn(rsSELECT), arguments));
      TextOut(rsFieldNames, arguments.rsFieldNames);
      TextOut(rsSourceFile, arguments.rsSourceFile);
      TextOut(rsTitle, arguments.rsTitle);
    });
  }

  HRESULT STDMETHODCALLTYPE MakeMailDocument(BSTR* rsTemplate, BSTR* rsDataSourceFile, VARIANT_BOOL* MultiDocument,
                                             IDispatch** roRetDoc, VARIANT_BOOL* rbSetAppVisible,
                                             VARIANT_BOOL* result) override {
    return Guard([&] {
      MakeMailDocumentArguments arguments{.rsTemplate = TextIn(rsTemplate),
                                          .rsDataSourceFile = TextIn(rsDataSourceFile),
                                          .MultiDocument = BooleanIn(MultiDocument),
                                          .rbSetAppVisible = BooleanIn(rbSetAppVisible, true)};
      BooleanResult(result, office_.MakeMailDocument(arguments));
      TextOut(rsTemplate, arguments.rsTemplate);
      TextOut(rsDataSourceFile, arguments.rsDataSourceFile);
      ObjectOut(roRetDoc, arguments.roRetDoc);
    });
  }

  HRESULT STDMETHODCALLTYPE GetOpenDoc(BSTR* rsTemplate, IDispatch** roRetDoc, ::AppVisible* rAppVisible,
                                       VARIANT_BOOL* rbScreenUpdating, VARIANT_BOOL* result) override {
    return Guard([&] {
      GetOpenDocArguments arguments{.rsTemplate = TextIn(rsTemplate),
                                    .rAppVisible = EnumerationIn(rAppVisible, zorkanca::AppVisible::avTrue),
                                    .rbScreenUpdating = BooleanIn(rbScreenUpdating, true)};
      BooleanResult(result, office_.GetOpenDoc(arguments));
      TextOut(rsTemplate, arguments.rsTemplate);
      ObjectOut(roRetDoc, arguments.roRetDoc);
    });
  }

  HRESULT STDMETHODCALLTYPE GetOpenXls(BSTR* rsTemplate, IDispatch** roRetXls, ::AppVisible* rVisible,
                                       VARIANT_BOOL* rbScreenUpdating, VARIANT_BOOL* result) override {
    return Guard([&] {
      GetOpenXlsArguments arguments{.rsTemplate = TextIn(rsTemplate),
                                    .rVisible = EnumerationIn(rVisible, zorkanca::AppVisible::avTrue),
                                    .rbScreenUpdating = BooleanIn(rbScreenUpdating, true)};
      BooleanResult(result, office_.GetOpenXls(arguments));
      TextOut(rsTemplate, arguments.rsTemplate);
      ObjectOut(roRetXls, arguments.roRetXls);
    });
  }

  HRESULT STDMETHODCALLTYPE TemplateList(BSTR* rsZorApl, ::ApplOffice* TypeOfApplOffice, VARIANT_BOOL* rbAdmin,
                                         BSTR* rsListName, BSTR* rsCaption, VARIANT_BOOL* Supply,
                                         BSTR* result) override {
    return Guard([&] {
      TemplateListArguments arguments{.rsZorApl = TextIn(rsZorApl),
                                      .TypeOfApplOffice = EnumerationIn<zorkanca::ApplOffice>(TypeOfApplOffice),
                                      .rbAdmin = BooleanIn(rbAdmin),
                                      .rsListName = TextIn(rsListName),
                                      .rsCaption = TextIn(rsCaption),
                                      .Supply = BooleanIn(Supply)};
      TextResult(result, office_.TemplateList(arguments));
      TextOut(rsZorApl, arguments.rsZorApl);
      TextOut(rsListName, arguments.rsListName);
      TextOut(rsCaption, arguments.rsCaption);
    });
  }

  HRESULT STDMETHODCALLTYPE SupplyTemplateList(BSTR* rsZorApl, ::ApplOffice* TypeOfApplOffice, BSTR* rsListName,
                                               VARIANT_BOOL* result) override {
    return Guard([&] {
      Text application = TextIn(rsZorApl);
      Text listName = TextIn(rsListName);
      const auto kind = EnumerationIn<zorkanca::ApplOffice>(TypeOfApplOffice);
      BooleanResult(result, office_.SupplyTemplateList(application, kind, listName));
      TextOut(rsZorApl, application);
      TextOut(rsListName, listName);
    });
  }

  HRESULT STDMETHODCALLTYPE get_PercentInterval(float* result) override {
    return Guard([&] { NumberResult(result, office_.PercentInterval()); });
  }
  HRESULT STDMETHODCALLTYPE put_PercentInterval(float value) override {
    return Guard([&] { office_.PercentInterval(value); });
  }
  HRESULT STDMETHODCALLTYPE get_Multiplier(BSTR* result) override {
    return Guard([&] { TextResult(result, office_.Multiplier()); });
  }
  HRESULT STDMETHODCALLTYPE put_Multiplier(BSTR value) override {
    return Guard([&] { office_.Multiplier(TextOf(value)); });
  }
  HRESULT STDMETHODCALLTYPE get_BlankRecordsBefore(short* result) override {
    return Guard([&] { NumberResult(result, short{office_.BlankRecordsBefore()}); });
  }
  HRESULT STDMETHODCALLTYPE put_BlankRecordsBefore(short value) override {
    return Guard([&] { office_.BlankRecordsBefore(value); });
  }

  HRESULT STDMETHODCALLTYPE WdExport_file(BSTR vsHeadersFileName, BSTR vsDataFileName, BSTR* rsZorApl, BSTR* rsTemplate,
                                          VARIANT_BOOL* rbAdmin, BSTR* rsListCaption, VARIANT_BOOL* rbSupply,
                                          BSTR* rsSourceFile, VARIANT_BOOL* MultiDocument, VARIANT* rvFormat,
                                          IDispatch** roRetDoc, VARIANT_BOOL* rbSetAppVisible,
                                          VARIANT_BOOL* result) override {
    return Guard([&] {
      WordExportArguments arguments;
      TakeTemplate(arguments, rsZorApl, rsTemplate, rbAdmin, rsListCaption, rbSupply);
      TakeWord(arguments, rsSourceFile, MultiDocument, rvFormat, rbSetAppVisible);
      BooleanResult(result, office_.WdExport_file(TextOf(vsHeadersFileName), TextOf(vsDataFileName), arguments));
      GiveTemplate(arguments, rsZorApl, rsTemplate, rsListCaption);
      TextOut(rsSourceFile, arguments.rsSourceFile);
      ObjectOut(roRetDoc, arguments.roRetDoc);
    });
  }

  HRESULT STDMETHODCALLTYPE XlExport_sab_file(BSTR vsHeadersFileName, BSTR vsDataFileName, BSTR* rsZorApl,
                                              BSTR* rsTemplate, VARIANT_BOOL* rbAdmin, BSTR* rsListCaption,
                                              VARIANT_BOOL* rbSupply, BSTR* rsSourceFile, IDispatch** roRetXls,
                                              VARIANT_BOOL* rbSetAppVisible, VARIANT_BOOL* result) override {
    return Guard([&] {
      XlTemplateArguments arguments;
      TakeTemplate(arguments, rsZorApl, rsTemplate, rbAdmin, rsListCaption, rbSupply);
      TakeExcel(arguments, rsSourceFile, rbSetAppVisible);
      BooleanResult(result, office_.XlExport_sab_file(TextOf(vsHeadersFileName), TextOf(vsDataFileName), arguments));
      GiveTemplate(arguments, rsZorApl, rsTemplate, rsListCaption);
      TextOut(rsSourceFile, arguments.rsSourceFile);
      ObjectOut(roRetXls, arguments.roRetXls);
    });
  }

  HRESULT STDMETHODCALLTYPE up_SplitColumnsFromDataRow(BSTR vsSource, SAFEARRAY** RetVal) override {
    return Guard([&] {
      std::vector<Text> columns;
      office_.up_SplitColumnsFromDataRow(TextOf(vsSource), columns);
      TextsOut(RetVal, columns);
    });
  }

 private:
  ~ZorOfficeObject() override { events_->Leave(); }

  void* Interface(REFIID id) override {
    if (id == IID_IConnectionPointContainer) return static_cast<IConnectionPointContainer*>(this);
    return AutomationObject::Interface(id);
  }

  static void TakeWord(WordExportArguments& arguments, const BSTR* sourceFile, const VARIANT_BOOL* multiDocument,
                       const VARIANT* formats, const VARIANT_BOOL* setAppVisible) {
    arguments.rsSourceFile = TextIn(sourceFile);
    arguments.MultiDocument = BooleanIn(multiDocument);
    arguments.rvFormat = TextsIn(formats);
    arguments.rbSetAppVisible = BooleanIn(setAppVisible, true);
  }
  static void TakeExcel(XlTemplateArguments& arguments, const BSTR* sourceFile, const VARIANT_BOOL* setAppVisible) {
    arguments.rsSourceFile = TextIn(sourceFile);
    arguments.rbSetAppVisible = BooleanIn(setAppVisible, true);
  }

  win32::Win32Platform computer_;
  zorkanca::cZorOffice office_;
  win32::ComPointer<EventSource> events_;
};

}  // namespace

IDispatch* NewZorOffice() {
  return new ZorOfficeObject;
}

}  // namespace zorkanca::com
