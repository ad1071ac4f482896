// Exports into applications that are busy, refuse, or are gone in the middle; arrays of formats with bounds of their
// own.
#include <gtest/gtest.h>

#include "com/served_program.h"
#include "com/server_under_test.h"
#include "com/stand_in_database.h"

namespace zorkanca::testing {
namespace {

class Exports : public ::testing::Test {
 protected:
  Exports() {
    table_.columns.push_back({L"nazev", 10, ToVariant(u"Šroub")});
    table_.columns.push_back({L"cena", 7, ToVariant(1234.5)});
    database_ = ComPointer<IDispatch>(new StandInDatabase(table_));
    office_ = New<::_cZorOffice>(__uuidof(::cZorOffice));
    WriteBytes(folder_.File(L"formular.dot"), "x");
  }
  ~Exports() override {
    SysFreeString(select_);
    TheDesktop().Messages();
  }

  // XlExport in the given world; false for the outcome of one that failed.
  bool Excel(ServedProgram& excel) {
    excel.world.values["Count"] = ToVariant(std::int32_t{2});
    excel.world.values["Visible"] = ToVariant(true);
    excel.world.values["WindowState"] = ToVariant(std::int32_t{-4143});
    excel.world.values["Name"] = ToVariant(u"data.tmp");
    IDispatch* database = database_.get();
    IDispatch* workbook = nullptr;
    BSTR path = SysAllocString(folder_.File(L"data.tmp").c_str());
    VARIANT_BOOL done = VARIANT_FALSE;
    EXPECT_EQ(office_->XlExport(&database, &select_, nullptr, nullptr, &path, &workbook, nullptr, &done), S_OK);
    SysFreeString(path);
    if (workbook) workbook->Release();
    return done == VARIANT_TRUE;
  }

  // WdExportForm with an array of formats; the journal of Word.
  std::string Form(VARIANT formats) {
    ServedProgram word(L"Word.Application");
    for (const char* number : {"Count", "WindowState"}) word.world.values[number] = ToVariant(std::int32_t{0});
    for (const char* truth : {"Visible", "ScreenUpdating", "CheckLanguage"}) word.world.values[truth] = ToVariant(true);
    word.world.values["Version"] = ToVariant(u"16.0");
    IDispatch* database = database_.get();
    BSTR application = SysAllocString(L"ZK");
    BSTR path = SysAllocString(folder_.File(L"formular.dot").c_str());
    VARIANT_BOOL done = VARIANT_FALSE;
    office_->WdExportForm(&database, &select_, &application, &path, nullptr, nullptr, nullptr, nullptr, nullptr,
                          &formats, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &done);
    SysFreeString(application);
    SysFreeString(path);
    EXPECT_EQ(done, VARIANT_TRUE) << TheDesktop().Messages();
    return word.world.Lines();
  }

  const Apartment apartment_{};
  TestFolder folder_;
  StandInTable table_{.records = 1};
  ComPointer<IDispatch> database_;
  ComPointer<::_cZorOffice> office_;
  BSTR select_ = SysAllocString(L"SELECT * FROM zbozi");
};

TEST_F(Exports, ABusyExcelIsAskedAgain) {
  ServedProgram excel(L"Excel.Application");
  excel.world.rejections = 2;
  EXPECT_TRUE(Excel(excel)) << TheDesktop().Messages();
}

TEST_F(Exports, AnExcelThatRefusesOrIsGoneIsToldInAMessage) {
  struct Row {
    const char* member;
    HRESULT result;
    const char* told;
  };
  const Row rows[] = {
      {"OpenText", RPC_E_DISCONNECTED, "462 - "},
      {"OpenText", static_cast<HRESULT>(0x800706BA), "462 - "},
      {"OpenText", E_ACCESSDENIED, "70 - "},
      {"Sheets", static_cast<HRESULT>(0x800A03EC), "1004 - "},
      {"Copy", DISP_E_EXCEPTION, ""},
      {"AutoFit", DISP_E_MEMBERNOTFOUND, "438 - "},
      {"Add", E_FAIL, ""},
  };
  for (const Row& row : rows) {
    ServedProgram excel(L"Excel.Application");
    excel.world.failures[row.member] = row.result;
    EXPECT_FALSE(Excel(excel)) << row.member;
    const std::string message = TheDesktop().Messages();
    EXPECT_EQ(message.find("Export dat do aplikace MS Excel: "), 0U) << row.member;
    EXPECT_NE(message.find(row.told), std::string::npos) << row.member << ": " << message;
    EXPECT_EQ(table_.openRecordsets, 0) << row.member;
    EXPECT_EQ(BytesOf(folder_.File(L"data.tmp")), "") << row.member;
    excel.Stop();
    EXPECT_EQ(excel.world.living, 0) << row.member;  // no object of Excel is held any more
  }
}

TEST_F(Exports, FormatsCountByTheIndexOfTheArray) {
  struct Row {
    VARTYPE type;
    LONG lowerBound;
    std::vector<const wchar_t*> formats;
    const char* price;
  };
  const Row rows[] = {
      {VT_BSTR, 0, {L"", L"0.0"}, "1234,5"},
      {VT_BSTR,
       1,
       {L"#,##0.00"},
       "1\xC2\xA0"
       "234,50"},
      {VT_VARIANT, 1, {L"0"}, "1235"},
      {VT_VARIANT, -1, {L"0.000", L"", L"0.00"}, "1234,50"},
      {VT_BSTR, 2, {L"0.00"}, "1234,5"},
      {VT_BSTR, 2'000'000'000, {L"0.00"}, "1234,5"},
  };
  for (const Row& row : rows) {
    SAFEARRAY* array = SafeArrayCreateVector(row.type, row.lowerBound, static_cast<ULONG>(row.formats.size()));
    ASSERT_TRUE(array);
    for (std::size_t index = 0; index < row.formats.size(); ++index) {
      if (row.type == VT_BSTR) {
        static_cast<BSTR*>(array->pvData)[index] = SysAllocString(row.formats[index]);
      } else {
        static_cast<VARIANT*>(array->pvData)[index].vt = VT_BSTR;
        static_cast<VARIANT*>(array->pvData)[index].bstrVal = SysAllocString(row.formats[index]);
      }
    }
    VARIANT formats{};
    formats.vt = static_cast<VARTYPE>(VT_BYREF | VT_ARRAY | row.type);
    formats.pparray = &array;
    const std::string journal = Form(formats);
    EXPECT_NE(journal.find("FormFields(\"cena\").Result = \"" + std::string(row.price) + "\""), std::string::npos)
        << row.lowerBound << ": " << journal;
    SafeArrayDestroy(array);
  }
  // What is no array of texts holds no formats.
  VARIANT number{};
  number.vt = VT_I4;
  EXPECT_NE(Form(number).find("\"1234,5\""), std::string::npos);
  SAFEARRAYBOUND bounds[2] = {{1, 0}, {1, 0}};
  VARIANT table{};
  table.vt = VT_ARRAY | VT_BSTR;
  table.parray = SafeArrayCreate(VT_BSTR, 2, bounds);
  EXPECT_NE(Form(table).find("\"1234,5\""), std::string::npos);
  VariantClear(&table);
}

}  // namespace
}  // namespace zorkanca::testing
