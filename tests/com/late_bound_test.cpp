// Calls by name: arguments of all kinds, gaps, names, outputs, and errors.
#include <gtest/gtest.h>

#include "com/server_under_test.h"
#include "com/stand_in_database.h"
#include "win32/automation/safe_array.h"

namespace zorkanca::testing {
namespace {

using win32::ComPointer;
using win32::LateObject;
using win32::ToVariant;
using win32::Variant;

constexpr HRESULT Runtime(int number) {
  return static_cast<HRESULT>(0x800A0000U | static_cast<unsigned>(number));
}

// A call as a client makes it: arguments in their usual order.
struct Outcome {
  HRESULT result = S_OK;
  HRESULT code = S_OK;  ///< of the exception
  std::string source;
  std::string description;
  int wrongArgument = -1;  ///< from the last one
  Variant value;
};

Outcome CallById(const LateObject& object, DISPID id, WORD flags, std::vector<VARIANT> arguments,
                 std::vector<DISPID> names = {}) {
  std::reverse(arguments.begin(), arguments.end());
  DISPPARAMS parameters{arguments.data(), names.data(), static_cast<UINT>(arguments.size()),
                        static_cast<UINT>(names.size())};
  Outcome outcome;
  EXCEPINFO failure{};
  UINT wrong = UINT_MAX;
  outcome.result =
      object.dispatch()->Invoke(id, IID_NULL, 0, flags, &parameters, outcome.value.Receive(), &failure, &wrong);
  outcome.code = failure.scode;
  outcome.source = Utf8(failure.bstrSource);
  outcome.description = Utf8(failure.bstrDescription);
  outcome.wrongArgument = static_cast<int>(wrong);
  SysFreeString(failure.bstrSource);
  SysFreeString(failure.bstrDescription);
  return outcome;
}

DISPID IdOf(const LateObject& object, const wchar_t* name) {
  std::wstring text = name;
  wchar_t* pointer = text.data();
  DISPID id = DISPID_UNKNOWN;
  object.dispatch()->GetIDsOfNames(IID_NULL, &pointer, 1, 0, &id);
  return id;
}

Outcome Call(const LateObject& object, const wchar_t* name, std::vector<VARIANT> arguments) {
  return CallById(object, IdOf(object, name), DISPATCH_METHOD | DISPATCH_PROPERTYGET, std::move(arguments));
}

VARIANT Plain(VARTYPE type, long long bits) {
  VARIANT variant{};
  variant.vt = type;
  variant.llVal = bits;
  return variant;
}
VARIANT ByReference(VARTYPE type, void* place) {
  VARIANT variant{};
  variant.vt = static_cast<VARTYPE>(VT_BYREF | type);
  variant.byref = place;
  return variant;
}
VARIANT Missing() {
  return Plain(VT_ERROR, DISP_E_PARAMNOTFOUND);
}
VARIANT Object(IDispatch* object) {
  VARIANT variant = Plain(VT_DISPATCH, 0);
  variant.pdispVal = object;
  return variant;
}

TEST(LateBound, PropertiesTakeWhateverTurnsIntoTheirType) {
  const Apartment apartment;
  const LateObject office = CreateByName(L"cZorOffice");
  ASSERT_TRUE(office);
  EXPECT_EQ(win32::AsText(office.Get(u"percentinterval")), u"1");
  const Variant text = ToVariant(u"2,5");
  const Variant tooBig = ToVariant(u"70000");
  const Variant none = ToVariant(u"žádný");
  struct Row {
    const wchar_t* property;
    VARIANT value;
    HRESULT result;
    TextView after;
  };
  Variant held = ToVariant(u"počet");
  VARIANT heldByReference{};
  heldByReference.vt = VT_BYREF | VT_VARIANT;
  heldByReference.pvarVal = const_cast<VARIANT*>(&held.get());
  const Row rows[] = {
      {L"BlankRecordsBefore", Plain(VT_I4, 7), S_OK, u"7"},
      {L"BlankRecordsBefore", Plain(VT_BOOL, 0xFFFF), S_OK, u"-1"},
      {L"BlankRecordsBefore", Plain(VT_EMPTY, 0), S_OK, u"0"},
      {L"BlankRecordsBefore", tooBig.get(), DISP_E_OVERFLOW, u"0"},
      {L"BlankRecordsBefore", none.get(), DISP_E_TYPEMISMATCH, u"0"},
      {L"BlankRecordsBefore", Plain(VT_NULL, 0), DISP_E_TYPEMISMATCH, u"0"},
      {L"Multiplier", heldByReference, S_OK, u"počet"},
      {L"Multiplier", Plain(VT_I2, 12), S_OK, u"12"},
      {L"PercentInterval", text.get(), S_OK, u"2.5"},
  };
  for (const Row& row : rows) {
    const Outcome outcome =
        CallById(office, IdOf(office, row.property), DISPATCH_PROPERTYPUT, {row.value}, {DISPID_PROPERTYPUT});
    EXPECT_EQ(outcome.result, row.result) << Utf8(row.property);
    EXPECT_EQ(outcome.wrongArgument, FAILED(row.result) ? 0 : -1);
    const std::u16string name(reinterpret_cast<const char16_t*>(row.property));
    EXPECT_EQ(win32::AsText(office.Get(name)), row.after);
  }
}

TEST(LateBound, NumbersOfArgumentsAndNamesAreChecked) {
  const Apartment apartment;
  const LateObject office = CreateByName(L"cZorOffice");
  ASSERT_TRUE(office);
  const Variant word = ToVariant(u"a;b");
  struct Row {
    const wchar_t* member;
    std::vector<VARIANT> arguments;
    HRESULT result;
  };
  const Row rows[] = {
      {L"up_SplitColumnsFromDataRow", {}, DISP_E_BADPARAMCOUNT},
      {L"up_SplitColumnsFromDataRow", {word.get()}, DISP_E_BADPARAMCOUNT},
      {L"up_SplitColumnsFromDataRow", {word.get(), word.get()}, DISP_E_TYPEMISMATCH},
      {L"up_SplitColumnsFromDataRow", {Missing(), word.get()}, DISP_E_PARAMNOTOPTIONAL},
      {L"up_SplitColumnsFromDataRow", {word.get(), word.get(), word.get()}, DISP_E_BADPARAMCOUNT},
      {L"HTMLExport", {word.get(), word.get()}, DISP_E_TYPEMISMATCH},
      {L"up_SplitColumnsFromDataRow", {word.get(), ByReference(VT_VARIANT, nullptr)}, DISP_E_PARAMNOTOPTIONAL},
      {L"up_SplitColumnsFromDataRow", {ByReference(VT_BSTR, nullptr), word.get()}, DISP_E_PARAMNOTOPTIONAL},
      {L"Multiplier", {word.get()}, DISP_E_BADPARAMCOUNT},
  };
  for (const Row& row : rows) EXPECT_EQ(Call(office, row.member, row.arguments).result, row.result) << Utf8(row.member);
  EXPECT_EQ(CallById(office, 12345, DISPATCH_METHOD, {}).result, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(CallById(office, IdOf(office, L"Multiplier"), DISPATCH_METHOD, {}).result, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(IdOf(office, L"Apply"), DISPID_UNKNOWN);
  EXPECT_EQ(
      office.dispatch()->Invoke(0x68030000, IID_IDispatch, 0, DISPATCH_PROPERTYGET, nullptr, nullptr, nullptr, nullptr),
      DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(
      office.dispatch()->Invoke(0x68030000, IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, nullptr, nullptr, nullptr),
      E_POINTER);
}

TEST(LateBound, ErrorsComeWithNumberSourceAndDescription) {
  const Apartment apartment;
  const LateObject format = CreateByName(L"cFormat");
  const LateObject factory = CreateByName(L"cExcel2003XmlTemplateFactory");
  ASSERT_TRUE(format && factory);
  const Variant bad = ToVariant(u"case 1 ano");
  const Outcome malformed =
      CallById(format, IdOf(format, L"format"), DISPATCH_PROPERTYPUT, {bad.get()}, {DISPID_PROPERTYPUT});
  EXPECT_EQ(malformed.result, DISP_E_EXCEPTION);
  EXPECT_EQ(malformed.code, Runtime(5));
  EXPECT_EQ(malformed.source, "zorKancA.cFormat");
  EXPECT_NE(malformed.description, "");
  const LateObject sheets = factory.Child(u"Worksheets");
  const Variant name = ToVariant(u"nikdo");
  EXPECT_EQ(Call(sheets, L"Item", {Plain(VT_I2, 1)}).code, Runtime(9));
  EXPECT_EQ(Call(sheets, L"Item", {name.get()}).code, Runtime(5));
  EXPECT_EQ(Call(sheets, L"Item", {Plain(VT_I4, 0)}).source, "zorKancA.cExcel2003XmlWorksheets");
}

TEST(LateBound, OutputsReturnIntoVariablesOfAnyKind) {
  const Apartment apartment;
  const LateObject office = CreateByName(L"cZorOffice");
  ASSERT_TRUE(office);
  const Variant row = ToVariant(u"a;\"b;c\";");
  // A script's variable that was never set gets Variants, which scripts can read.
  VARIANT variable{};
  ASSERT_EQ(Call(office, L"up_SplitColumnsFromDataRow", {row.get(), ByReference(VT_VARIANT, &variable)}).result, S_OK);
  ASSERT_EQ(variable.vt, VT_ARRAY | VT_VARIANT);
  {
    const win32::SafeArrayAccess access(variable.parray);
    ASSERT_EQ(access.elements(), 3U);
    EXPECT_EQ(Utf8(access.As<VARIANT>()[1].bstrVal), "b;c");
  }
  // What the array held before is replaced; a compiled client's array keeps its type.
  SAFEARRAY* texts = SafeArrayCreateVector(VT_BSTR, 3, 2);
  ASSERT_EQ(Call(office, L"up_SplitColumnsFromDataRow", {row.get(), ByReference(VT_ARRAY | VT_BSTR, &texts)}).result,
            S_OK);
  {
    const win32::SafeArrayAccess access(texts);
    ASSERT_EQ(access.elements(), 3U);
    EXPECT_EQ(Utf8(access.As<BSTR>()[0]), "a");
    EXPECT_EQ(texts->rgsabound[0].lLbound, 0);
  }
  SafeArrayDestroy(texts);
  VariantClear(&variable);
}

TEST(LateBound, AnExportTakesGapsAndNamesAndGivesTextsBack) {
  const Apartment apartment;
  const TestFolder folder;
  const LateObject office = CreateByName(L"cZorOffice");
  ASSERT_TRUE(office);
  StandInTable table{.records = 1};
  table.columns.push_back({L"Název", 10, ToVariant(u"Šroub")});
  const ComPointer<IDispatch> database(new StandInDatabase(table));
  const Variant select = ToVariant(u"SELECT * FROM t");
  Variant path = ToVariant(Text(reinterpret_cast<const char16_t*>(folder.File(L"ven").c_str())));
  BSTR written = SysAllocString(path.get().bstrVal);
  const Outcome outcome =
      Call(office, L"HTMLExport",
           {Object(database.get()), select.get(), Missing(), Missing(), ByReference(VT_BSTR, &written)});
  EXPECT_EQ(outcome.result, S_OK);
  EXPECT_EQ(outcome.value.get().boolVal, VARIANT_TRUE) << TheDesktop().Messages();
  EXPECT_EQ(Utf8(written), Utf8(folder.File(L"ven.htm").c_str()));
  const std::string page = BytesOf(folder.File(L"ven.htm"));
  EXPECT_NE(page.find("\x8Aroub"), std::string::npos) << page;  // in code page 1250
  EXPECT_NE(page.find("border=1 "), std::string::npos) << page;
  EXPECT_EQ(TheDesktop().Opened(), Utf8(written));
  EXPECT_EQ(table.openRecordsets, 0);
  EXPECT_EQ(Utf8(table.select.c_str()), "SELECT * FROM t");

  // The same with the title and the border by their names.
  const DISPID id = IdOf(office, L"HTMLExport");
  wchar_t member[] = L"HTMLExport";
  wchar_t title[] = L"rstitle";
  wchar_t border[] = L"riTblBorder";
  wchar_t* names[] = {member, title, border};
  DISPID ids[3] = {};
  ASSERT_EQ(office.dispatch()->GetIDsOfNames(IID_NULL, names, 3, 0, ids), S_OK);
  EXPECT_EQ(ids[1], 5);
  const Variant titleText = ToVariant(u"Nadpis");
  const Outcome named = CallById(office, id, DISPATCH_METHOD,
                                 {Object(database.get()), select.get(), Missing(), Missing(),
                                  ByReference(VT_BSTR, &written), Plain(VT_I2, 3), titleText.get()},
                                 {ids[1], ids[2]});
  EXPECT_EQ(named.result, S_OK);
  const std::string second = BytesOf(folder.File(L"ven.htm"));
  EXPECT_NE(second.find("Nadpis"), std::string::npos);
  EXPECT_NE(second.find("border=3 "), std::string::npos) << second;
  SysFreeString(written);
  TheDesktop().Opened();
}

TEST(LateBound, ABadDatabaseIsToldInAMessage) {
  const Apartment apartment;
  const TestFolder folder;
  const LateObject office = CreateByName(L"cZorOffice");
  ASSERT_TRUE(office);
  const Variant select = ToVariant(u"SELECT * FROM t");
  const Variant path = ToVariant(Text(reinterpret_cast<const char16_t*>(folder.File(L"nic.htm").c_str())));
  for (const wchar_t* lost :
       {L"OpenRecordset", L"EOF", L"MoveNext", L"Fields", L"Value", L"Name", L"Type", L"RecordCount", L""}) {
    StandInTable table{.records = 2, .lost = lost};
    table.columns.push_back({L"A", 10, ToVariant(u"x")});
    const ComPointer<IDispatch> database(*lost ? new StandInDatabase(table) : nullptr);
    const Outcome outcome =
        Call(office, L"HTMLExport", {Object(database.get()), select.get(), Missing(), Missing(), path.get()});
    EXPECT_EQ(outcome.result, S_OK) << Utf8(lost);
    EXPECT_EQ(outcome.value.get().boolVal, VARIANT_FALSE) << Utf8(lost);
    EXPECT_NE(TheDesktop().Messages().find("Export dat"), std::string::npos) << Utf8(lost);
    EXPECT_EQ(table.openRecordsets, 0) << Utf8(lost);
    EXPECT_EQ(BytesOf(folder.File(L"nic.htm")), "") << Utf8(lost);
  }
}

}  // namespace
}  // namespace zorkanca::testing
