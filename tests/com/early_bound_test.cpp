// A client compiled against the type library: calls through the table of virtual functions, with all that such a client
// can do wrong.
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <thread>

#include "com/server_under_test.h"
#include "com/stand_in_database.h"

namespace zorkanca::testing {
namespace {

using win32::ComPointer;

class String {
 public:
  String(const wchar_t* text = nullptr) : text_(SysAllocString(text)) {}
  String(const std::wstring& text) : String(text.c_str()) {}
  ~String() { SysFreeString(text_); }
  String(const String&) = delete;
  String& operator=(const String&) = delete;
  BSTR get() const { return text_; }
  BSTR* operator&() { return &text_; }
  std::string utf8() const { return Utf8(text_); }

 private:
  BSTR text_;
};

// Keeps a journal of the events, and does what a test wants at each of them.
class Sink final : public NamedObject {
 public:
  Sink() : NamedObject({}) { AnswerTo(__uuidof(::__cZorOffice)); }
  std::vector<std::string> journal;
  std::function<void(VARIANT_BOOL* cancel)> onPercent = [](VARIANT_BOOL*) {};

 private:
  HRESULT Call(DISPID event, DISPPARAMS& parameters, VARIANT&, EXCEPINFO*) override {
    const VARIANT& first = Argument(parameters, 0);
    const VARIANT& second = Argument(parameters, 1);
    if (event == 1) {
      if (first.vt != (VT_BYREF | VT_I4) || second.vt != (VT_BYREF | VT_BSTR)) return DISP_E_TYPEMISMATCH;
      journal.push_back(std::to_string(*first.plVal) + " " + Utf8(*second.pbstrVal));
      return S_OK;
    }
    if (first.vt != (VT_BYREF | VT_R4) || second.vt != (VT_BYREF | VT_BOOL)) return DISP_E_TYPEMISMATCH;
    journal.push_back(std::to_string(static_cast<int>(*first.pfltVal)));
    onPercent(second.pboolVal);
    return S_OK;
  }
};

struct Connection {
  ComPointer<IConnectionPoint> point;
  DWORD cookie = 0;
};

Connection Connect(IUnknown& object, IUnknown* sink) {
  Connection connection;
  ComPointer<IConnectionPointContainer> container = ComPointer<IUnknown>(&object).As<IConnectionPointContainer>();
  container->FindConnectionPoint(__uuidof(::__cZorOffice), connection.point.Receive());
  connection.point->Advise(sink, &connection.cookie);
  return connection;
}

// An export of four records into a file of its own.
class EarlyBound : public ::testing::Test {
 protected:
  EarlyBound() {
    table_.columns.push_back({L"A", 10, win32::ToVariant(u"x")});
    database_ = ComPointer<IDispatch>(new StandInDatabase(table_));
  }
  ~EarlyBound() override {
    TheDesktop().Messages();
    TheDesktop().Opened();
  }

  VARIANT_BOOL Export(::_cZorOffice* office) {
    IDispatch* database = database_.get();
    String select(L"SELECT * FROM t");
    String path(folder_.File(L"tabulka.html"));
    VARIANT_BOOL done = 7;
    result_ =
        office->HTMLExport(&database, &select, nullptr, nullptr, &path, nullptr, nullptr, nullptr, nullptr, &done);
    return done;
  }

  const Apartment apartment_{};
  TestFolder folder_;
  StandInTable table_{.records = 4};
  ComPointer<IDispatch> database_;
  HRESULT result_ = S_OK;
};

TEST_F(EarlyBound, NullPointersAreOmittedArguments) {
  auto office = New<::_cZorOffice>(__uuidof(::cZorOffice));
  ASSERT_TRUE(office);
  EXPECT_EQ(Export(office.get()), VARIANT_TRUE);
  const std::string page = BytesOf(folder_.File(L"tabulka.html"));
  EXPECT_NE(page.find("border=1 cellPadding=1 cellSpacing=0"), std::string::npos) << page;

  VARIANT_BOOL done = VARIANT_TRUE;
  EXPECT_EQ(office->HTMLExport(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &done),
            S_OK);
  EXPECT_EQ(done, VARIANT_FALSE);
  EXPECT_EQ(office->XlExport(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), S_OK);
  EXPECT_EQ(office->WdExport(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                             nullptr, nullptr, nullptr, nullptr, nullptr),
            S_OK);
  EXPECT_EQ(office->WdExportForm(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                 nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
            S_OK);
  EXPECT_EQ(office->XlExport_sab_file(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                      nullptr, nullptr),
            S_OK);
  EXPECT_EQ(office->MakeMailDocument(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), S_OK);
  EXPECT_EQ(office->GetOpenXls(nullptr, nullptr, nullptr, nullptr, nullptr), S_OK);
  EXPECT_EQ(office->up_SplitColumnsFromDataRow(nullptr, nullptr), S_OK);
  EXPECT_EQ(office->get_PercentInterval(nullptr), S_OK);
  EXPECT_EQ(office->get_Multiplier(nullptr), S_OK);
  EXPECT_EQ(office->put_Multiplier(nullptr), S_OK);
  EXPECT_EQ(office->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(office->GetTypeInfo(0, 0, nullptr), E_POINTER);
  EXPECT_EQ(office->GetIDsOfNames(IID_NULL, nullptr, 1, 0, nullptr), E_POINTER);

  auto format = New<::_cFormat>(__uuidof(::cFormat));
  EXPECT_EQ(format->put_format(nullptr), S_OK);
  EXPECT_EQ(format->get_format(nullptr), S_OK);
  auto manager = New<::_cAlternativeOfficeManager>(__uuidof(::cAlternativeOfficeManager));
  EXPECT_EQ(manager->GetTableEditorStoreFolder(nullptr, nullptr), S_OK);
  EXPECT_TRUE(FAILED(manager->OpenFileInTableEditor(nullptr)));
  auto convert = New<::_cOfficePdfConvert>(__uuidof(::cOfficePdfConvert));
  EXPECT_EQ(convert->XlExportToPdfFormat(nullptr, nullptr, &done), S_OK);
  EXPECT_EQ(done, VARIANT_FALSE);
  auto applications = New<::_cKancelApl>(__uuidof(::cKancelApl));
  EXPECT_EQ(applications->OtevriDoc(nullptr, nullptr, nullptr), S_OK);
  EXPECT_EQ(applications->get_DocEditorInstalovan(nullptr), S_OK);
}

TEST_F(EarlyBound, EventsComeInOrderAndCancelStops) {
  auto office = New<::_cZorOffice>(__uuidof(::cZorOffice));
  ASSERT_TRUE(office);
  office->put_PercentInterval(25);
  ComPointer<Sink> sink(new Sink);
  const Connection connection = Connect(*office.get(), sink.get());
  ASSERT_NE(connection.cookie, 0U);
  EXPECT_EQ(Export(office.get()), VARIANT_TRUE);
  const std::vector<std::string> expected{"25",
                                          "25",
                                          "50",
                                          "75",
                                          "100",
                                          "1 Otvírá se prohlížeč formátu HTML ...",
                                          "0 Dokončeno otvírání prohlížeče formátu HTML"};
  EXPECT_EQ(sink->journal, expected);

  sink->journal.clear();
  sink->onPercent = [&](VARIANT_BOOL* cancel) { *cancel = sink->journal.size() == 2 ? VARIANT_TRUE : VARIANT_FALSE; };
  EXPECT_EQ(Export(office.get()), VARIANT_FALSE);
  EXPECT_EQ(sink->journal, (std::vector<std::string>{"25", "25"}));
  EXPECT_NE(TheDesktop().Messages().find("Výstup byl přerušen uživatelem !"), std::string::npos);

  // What a listener throws is its own business; whom it goes through is told no more.
  sink->journal.clear();
  sink->onPercent = [](VARIANT_BOOL*) { throw std::runtime_error("of the listener"); };
  EXPECT_EQ(Export(office.get()), VARIANT_TRUE);
  EXPECT_EQ(sink->journal.size(), 7U);
  EXPECT_EQ(connection.point->Unadvise(connection.cookie), S_OK);
  EXPECT_EQ(connection.point->Unadvise(connection.cookie), CONNECT_E_NOCONNECTION);
  sink->journal.clear();
  EXPECT_EQ(Export(office.get()), VARIANT_TRUE);
  EXPECT_TRUE(sink->journal.empty());
}

TEST_F(EarlyBound, AHandlerMayEndListeningAndReleaseTheObject) {
  auto office = New<::_cZorOffice>(__uuidof(::cZorOffice));
  ASSERT_TRUE(office);
  ::_cZorOffice* const caller = office.get();
  ComPointer<Sink> first(new Sink);
  ComPointer<Sink> second(new Sink);
  const Connection connection = Connect(*office.get(), first.get());
  Connect(*office.get(), second.get());
  first->onPercent = [&](VARIANT_BOOL*) {
    connection.point->Unadvise(connection.cookie);
    office.Reset();  // the last reference of the client
  };
  EXPECT_EQ(Export(caller), VARIANT_TRUE);
  EXPECT_FALSE(office);
  EXPECT_EQ(first->journal.size(), 1U);
  EXPECT_EQ(second->journal.size(), 7U);
  EXPECT_EQ(table_.openRecordsets, 0);
}

TEST_F(EarlyBound, ConnectionPointsCanBeLookedThrough) {
  auto office = New<::_cZorOffice>(__uuidof(::cZorOffice));
  ASSERT_TRUE(office);
  const auto container = office.As<IConnectionPointContainer>();
  ComPointer<IEnumConnectionPoints> points;
  ASSERT_EQ(container->EnumConnectionPoints(points.Receive()), S_OK);
  IConnectionPoint* found[2] = {};
  ULONG count = 0;
  EXPECT_EQ(points->Next(2, found, &count), S_FALSE);
  ASSERT_EQ(count, 1U);
  const auto point = ComPointer<IConnectionPoint>::Owning(found[0]);
  IID id{};
  point->GetConnectionInterface(&id);
  EXPECT_EQ(id, __uuidof(::__cZorOffice));
  DWORD cookie = 0;
  EXPECT_EQ(point->Advise(nullptr, &cookie), E_POINTER);
  EXPECT_EQ(point->Advise(point.get(), &cookie), CONNECT_E_CANNOTCONNECT);
  ComPointer<Sink> sink(new Sink);
  ASSERT_EQ(point->Advise(sink.get(), &cookie), S_OK);
  ComPointer<IEnumConnections> connections;
  ASSERT_EQ(point->EnumConnections(connections.Receive()), S_OK);
  CONNECTDATA data{};
  ASSERT_EQ(connections->Next(1, &data, nullptr), S_OK);
  EXPECT_EQ(data.dwCookie, cookie);
  data.pUnk->Release();
  EXPECT_EQ(connections->Next(1, &data, nullptr), S_FALSE);
  ComPointer<IConnectionPoint> none;
  EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, none.Receive()), CONNECT_E_NOCONNECTION);

  ComPointer<IProvideClassInfo2> provider = office.As<IProvideClassInfo2>();
  EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id), S_OK);
  EXPECT_EQ(id, __uuidof(::__cZorOffice));
  ComPointer<ITypeInfo> typeInfo;
  ASSERT_EQ(provider->GetClassInfo(typeInfo.Receive()), S_OK);
  EXPECT_EQ(office.As<ISupportErrorInfo>()->InterfaceSupportsErrorInfo(__uuidof(::_cZorOffice)), S_OK);
}

TEST_F(EarlyBound, ArraysReturnByReference) {
  auto office = New<::_cZorOffice>(__uuidof(::cZorOffice));
  ASSERT_TRUE(office);
  SAFEARRAY* columns = nullptr;
  String row(L"1;\"a;\"\"b\";;");
  ASSERT_EQ(office->up_SplitColumnsFromDataRow(row.get(), &columns), S_OK);
  ASSERT_TRUE(columns);
  EXPECT_EQ(columns->rgsabound[0].cElements, 4U);
  EXPECT_EQ(Utf8(static_cast<BSTR*>(columns->pvData)[1]), "a;\"b");
  String other(L"2;");
  ASSERT_EQ(office->up_SplitColumnsFromDataRow(other.get(), &columns), S_OK);
  EXPECT_EQ(columns->rgsabound[0].cElements, 2U);
  SafeArrayDestroy(columns);
}

// A template of two sheets with a cell, a grid and a section each.
constexpr const char* kXmlTemplate =
    "<?xml version=\"1.0\"?><Workbook>\r\n"
    "<?zrx_xls #worksheet_begin# ?><Worksheet ss:Name=\"#worksheet_name#(prvni)\"><Table>\r\n"
    "<Row><Cell><Data><?zrx_xls #GD-C1-c[***]-R1-r[***]-# ?></Data></Cell></Row>\r\n"
    "<?zrx_xls #worksheet_section_begin(7)# ?><Row><Cell><Data><?zrx_xls #GD-C2-c[***]-R2-r[***]-# "
    "?></Data></Cell></Row>"
    "<?zrx_xls #worksheet_section_end(7)# ?>\r\n"
    "</Table></Worksheet><?zrx_xls #worksheet_end# ?>\r\n</Workbook>";

class XmlObjects : public EarlyBound {
 protected:
  XmlObjects() : factory_(New<::_cExcel2003XmlTemplateFactory>(__uuidof(::cExcel2003XmlTemplateFactory))) {
    WriteBytes(folder_.File(L"sablona.xml"), kXmlTemplate);
    String path(folder_.File(L"sablona.xml"));
    VARIANT_BOOL done = VARIANT_FALSE;
    factory_->ReadTemplateFile(&path, &done);
    read_ = done != VARIANT_FALSE;
  }

  ComPointer<::_cExcel2003XmlWorksheet> Add(const wchar_t* name) {
    String text(name);
    ComPointer<::_cExcel2003XmlWorksheet> worksheet;
    factory_->AddWorksheet(text.get(), nullptr, worksheet.Receive());
    return worksheet;
  }
  ComPointer<::_cExcel2003XmlWorksheet> Item(long position) {
    ComPointer<::_cExcel2003XmlWorksheets> worksheets;
    factory_->get_Worksheets(worksheets.Receive());
    VARIANT key{};
    key.vt = VT_I4;
    key.lVal = position;
    ComPointer<::_cExcel2003XmlWorksheet> worksheet;
    result_ = worksheets->get_Item(key, worksheet.Receive());
    return worksheet;
  }

  ComPointer<::_cExcel2003XmlTemplateFactory> factory_;
  bool read_ = false;
};

TEST_F(XmlObjects, TheSameThingIsTheSameObject) {
  ASSERT_TRUE(read_) << TheDesktop().Messages();
  ComPointer<::_cExcel2003XmlWorksheets> once;
  ComPointer<::_cExcel2003XmlWorksheets> twice;
  factory_->get_Worksheets(once.Receive());
  factory_->get_Worksheets(twice.Receive());
  EXPECT_EQ(once.get(), twice.get());
  auto first = Add(L"První");
  ASSERT_TRUE(first);
  EXPECT_EQ(Item(1).get(), first.get());
  ComPointer<::_cExcel2003XmlTemplateFactory> maker;
  first->get_XmlProcessFactory(maker.Receive());
  EXPECT_EQ(maker.get(), factory_.get());
  first.Reset();
  String name;
  ASSERT_TRUE(Item(1));
  Item(1)->get_WorksheetName(&name);
  EXPECT_EQ(name.utf8(), "První");
  EXPECT_FALSE(Item(2));
  EXPECT_EQ(result_, static_cast<HRESULT>(0x800A0009));
}

TEST_F(XmlObjects, WorksheetsAreEnumeratedAndRemoved) {
  ASSERT_TRUE(read_);
  Add(L"A");
  Add(L"B");
  ComPointer<::_cExcel2003XmlWorksheets> worksheets;
  factory_->get_Worksheets(worksheets.Receive());
  ComPointer<IUnknown> unknown;
  ASSERT_EQ(worksheets->get_NewEnum(unknown.Receive()), S_OK);
  auto each = unknown.As<IEnumVARIANT>();
  VARIANT key{};
  key.vt = VT_I4;
  key.lVal = 1;
  EXPECT_EQ(worksheets->Remove(key), S_OK);  // the list that is being enumerated stays
  std::string names;
  for (win32::Variant sheet; each->Next(1, sheet.Receive(), nullptr) == S_OK;) {
    String name;
    ComPointer<IDispatch>(sheet.get().pdispVal).As<::_cExcel2003XmlWorksheet>()->get_WorksheetName(&name);
    names += name.utf8();
  }
  EXPECT_EQ(names, "AB");
  EXPECT_EQ(each->Reset(), S_OK);
  EXPECT_EQ(each->Skip(1), S_OK);
  ComPointer<IEnumVARIANT> copy;
  ASSERT_EQ(each->Clone(copy.Receive()), S_OK);
  EXPECT_EQ(copy->Skip(1), S_OK);
  EXPECT_EQ(copy->Skip(1), S_FALSE);
  long count = 0;
  worksheets->get_Count(&count);
  EXPECT_EQ(count, 1);
}

TEST_F(XmlObjects, AWorksheetKeepsItsFactoryUntilItIsTakenAway) {
  ASSERT_TRUE(read_);
  auto worksheet = Add(L"List");
  short number = 7;
  ComPointer<::_cExcel2003XmlWorksheetSection> section;
  ASSERT_EQ(worksheet->AddWorksheetSection(&number, section.Receive()), S_OK);
  ASSERT_TRUE(section);
  number = 8;
  ComPointer<::_cExcel2003XmlWorksheetSection> none;
  EXPECT_EQ(worksheet->AddWorksheetSection(&number, none.Receive()), S_OK);
  EXPECT_FALSE(none);
  factory_.Reset();  // the client's own reference
  short sign = 2;
  String data(L"7");
  EXPECT_EQ(section->SetDataIntoTaggedCell(data.get(), &sign, &sign, nullptr, nullptr), S_OK);
  worksheet->get_XmlProcessFactory(factory_.Receive());
  ASSERT_TRUE(factory_);
  String path(folder_.File(L"sesit.xml"));
  VARIANT_BOOL done = VARIANT_FALSE;
  EXPECT_EQ(factory_->SaveWorkbook(&path, &done), S_OK);
  EXPECT_EQ(done, VARIANT_TRUE);
  EXPECT_NE(BytesOf(folder_.File(L"sesit.xml")).find("<Data>7</Data>"), std::string::npos);

  EXPECT_EQ(worksheet->putref_XmlProcessFactory(nullptr), S_OK);
  sign = 1;
  EXPECT_EQ(worksheet->RemoveDataFromTaggedCell(&sign, &sign, nullptr, nullptr), static_cast<HRESULT>(0x800A005B));
  ComPointer<IErrorInfo> told;
  ASSERT_EQ(GetErrorInfo(0, told.Receive()), S_OK);
  String source;
  told->GetSource(&source);
  EXPECT_EQ(source.utf8(), "zorKancA.cExcel2003XmlWorksheet");
  ComPointer<::_cExcel2003XmlTemplateFactory> taken;
  worksheet->get_XmlProcessFactory(taken.Receive());
  EXPECT_FALSE(taken);

  // Another factory will do; it may go before the worksheet does.
  auto other = New<::_cExcel2003XmlTemplateFactory>(__uuidof(::cExcel2003XmlTemplateFactory));
  EXPECT_EQ(worksheet->putref_XmlProcessFactory(other.get()), S_OK);
  other.Reset();
  EXPECT_EQ(worksheet->RemoveDataFromTaggedCell(&sign, &sign, nullptr, nullptr), S_OK);
  EXPECT_EQ(worksheet->SetColumnWidth(0, 10, VARIANT_FALSE), static_cast<HRESULT>(-9999));
}

TEST_F(EarlyBound, TwoApartmentsShareAnObject) {
  const auto enter = EntryPoint<HRESULT(__stdcall*)()>("DllRegisterServer");
  const auto leave = EntryPoint<HRESULT(__stdcall*)()>("DllUnregisterServer");
  ASSERT_EQ(enter(), S_OK);  // calls between threads go by the registered type library
  {
    auto office = New<::_cZorOffice>(__uuidof(::cZorOffice));
    ASSERT_TRUE(office);
    IStream* stream = nullptr;
    ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(__uuidof(::_cZorOffice), office.get(), &stream), S_OK);
    HRESULT got = E_FAIL;
    HRESULT put = E_FAIL;
    std::string multiplier;
    HANDLE ended = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::thread other([&] {
      const Apartment apartment;
      {
        ComPointer<::_cZorOffice> proxy;
        got = CoGetInterfaceAndReleaseStream(stream, __uuidof(::_cZorOffice), proxy.ReceiveAny());
        if (SUCCEEDED(got)) {
          String name(L"kusů");
          put = proxy->put_Multiplier(name.get());
          String back;
          proxy->get_Multiplier(&back);
          multiplier = back.utf8();
        }
      }
      SetEvent(ended);
    });
    // The object's thread answers calls while it waits.
    for (DWORD index = 0; CoWaitForMultipleHandles(0, 10000, 1, &ended, &index) == RPC_S_CALLPENDING;) break;
    other.join();
    CloseHandle(ended);
    EXPECT_EQ(got, S_OK);
    EXPECT_EQ(put, S_OK);
    EXPECT_EQ(multiplier, "kusů");
  }
  EXPECT_EQ(leave(), S_OK);
}

}  // namespace
}  // namespace zorkanca::testing
