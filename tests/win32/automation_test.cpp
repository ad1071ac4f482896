// Variants there and back, calls by name, and what becomes of their failures.
#include "win32/automation/automation_object.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/excel/cell_grid.h"
#include "support/text_support.h"
#include "win32/automation/busy_server.h"
#include "win32/automation/dispatch_error.h"
#include "win32/fake_automation.h"
#include "win32/office/cell_arrays.h"

namespace zorkanca::testing {
namespace {

using win32::AsBoolean;
using win32::AsLong;
using win32::AsText;
using win32::ErrorNumberOf;
using win32::GridToVariant;
using win32::ToGrid;
using win32::ToValue;

TEST(Variants, ValuesComeBackAsTheyWere) {
  struct Row {
    Value value;
    VARTYPE type;
  };
  const Row rows[] = {
      {Empty(), VT_EMPTY},
      {Null(), VT_NULL},
      {true, VT_BOOL},
      {false, VT_BOOL},
      {std::uint8_t{255}, VT_UI1},
      {std::int16_t{-32768}, VT_I2},
      {std::int32_t{-5}, VT_I4},
      {std::int64_t{1} << 40, VT_I8},
      {1.5F, VT_R4},
      {-0.1, VT_R8},
      {Currency{-12345678}, VT_CY},
      {Decimal{.high = 7, .low = 9, .scale = 28, .negative = true}, VT_DECIMAL},
      {Date{46000.25}, VT_DATE},
      {Text(u"Žluťoučký\0kůň", 13), VT_BSTR},
      {Text(), VT_BSTR},
      {Binary{std::byte{0}, std::byte{200}}, VT_ARRAY | VT_UI1},
      {Binary(), VT_ARRAY | VT_UI1},
      {ObjectReference(), VT_DISPATCH},
  };
  for (const Row& row : rows) {
    const Variant variant = ToVariant(row.value);
    EXPECT_EQ(variant.type(), row.type);
    EXPECT_TRUE(ToValue(variant) == row.value) << row.type;
  }
  const Variant error = ToVariant(Value(ObjectReference(std::make_shared<CellError>(2042))));
  EXPECT_EQ(error.get().scode, static_cast<SCODE>(0x800A07FA));
  const Value back = ToValue(error);
  EXPECT_EQ(dynamic_cast<const CellError&>(*std::get<ObjectReference>(back)).number, 2042);
  EXPECT_TRUE(IsEmptyValue(ToValue(Variant::Missing())));
  EXPECT_EQ(ErrorOf([] { ToVariant(Value(ObjectReference(std::make_shared<Object>()))); }).number(), 13);
}

template <typename Fill>
Value ValueOf(VARTYPE type, Fill fill) {
  VARIANT variant{};
  fill(variant);
  variant.vt = type;
  return ToValue(variant);
}

TEST(Variants, OtherTypesOfTheSystemWiden) {
  EXPECT_EQ(ValueOf(VT_I1, [](VARIANT& v) { v.cVal = -3; }), Value(std::int16_t{-3}));
  EXPECT_EQ(ValueOf(VT_UI2, [](VARIANT& v) { v.uiVal = 65535; }), Value(std::int32_t{65535}));
  EXPECT_EQ(ValueOf(VT_UI4, [](VARIANT& v) { v.ulVal = 4294967295U; }), Value(std::int64_t{4294967295}));
  EXPECT_EQ(ValueOf(VT_INT, [](VARIANT& v) { v.intVal = -1; }), Value(std::int32_t{-1}));
  EXPECT_EQ(ValueOf(VT_UI8, [](VARIANT& v) { v.ullVal = 5; }), Value(std::int64_t{5}));
  EXPECT_EQ(ValueOf(VT_UI8, [](VARIANT& v) { v.ullVal = ~0ULL; }), Value(Decimal{.low = ~0ULL}));
  EXPECT_EQ(ValueOf(VT_BSTR, [](VARIANT& v) { v.bstrVal = nullptr; }), Value(Text()));
  LONG number = 7;
  EXPECT_EQ(ValueOf(VT_BYREF | VT_I4, [&](VARIANT& v) { v.plVal = &number; }), Value(std::int32_t{7}));
  Variant inner = ToVariant(Value(Text(u"x")));
  EXPECT_EQ(ValueOf(VT_BYREF | VT_VARIANT, [&](VARIANT& v) { v.pvarVal = const_cast<VARIANT*>(&inner.get()); }),
            Value(Text(u"x")));
  EXPECT_EQ(ErrorOf([] { ValueOf(VT_RECORD, [](VARIANT&) {}); }).number(), 13);
}

TEST(Variants, ConversionsFailWithTheUsualNumbers) {
  EXPECT_EQ(AsLong(ToVariant(u"12")), 12);
  EXPECT_TRUE(AsBoolean(ToVariant(std::int16_t{-1})));
  EXPECT_EQ(AsText(ToVariant(1.5)), u"1.5") << "English wherever the program runs";
  EXPECT_EQ(AsText(ToVariant(Value(Null()))), u"");
  EXPECT_EQ(ErrorOf([] { AsLong(ToVariant(u"a")); }).number(), 13);
  EXPECT_EQ(ErrorOf([] { AsLong(ToVariant(1e20)); }).number(), 6);
}

// An array whose cells are their own positions, at any bounds.
Variant ArrayAt(LONG firstRow, LONG firstColumn, VARTYPE type) {
  SAFEARRAYBOUND bounds[] = {{2, firstRow}, {3, firstColumn}};
  SAFEARRAY* const array = SafeArrayCreate(type, 2, bounds);
  for (LONG row = 0; row < 2; ++row) {
    for (LONG column = 0; column < 3; ++column) {
      LONG place[] = {firstRow + row, firstColumn + column};
      Variant element = type == VT_BSTR ? ToVariant(DecimalText(row * 10 + column)) : ToVariant(row * 10.0 + column);
      const VARIANT& held = element.get();
      const void* data = &held;
      if (type == VT_R8) data = &held.dblVal;
      if (type == VT_BSTR) data = held.bstrVal;
      EXPECT_EQ(SafeArrayPutElement(array, place, const_cast<void*>(data)), S_OK);
    }
  }
  VARIANT variant{};
  variant.vt = static_cast<VARTYPE>(VT_ARRAY | type);
  variant.parray = array;
  return Variant::Owning(variant);
}

TEST(CellArrays, AnyBoundsAndTypesAreRead) {
  for (const VARTYPE type : {VT_VARIANT, VT_R8, VT_BSTR}) {
    for (const LONG first : {-5, 0, 1, 7}) {
      const CellGrid grid = ToGrid(ArrayAt(first, first + 1, type));
      ASSERT_EQ(grid.rows(), 2);
      ASSERT_EQ(grid.columns(), 3);
      for (std::int32_t row = 0; row < 2; ++row) {
        for (std::int32_t column = 0; column < 3; ++column) {
          const Value expected = type == VT_BSTR ? Value(DecimalText(row * 10 + column)) : Value(row * 10.0 + column);
          EXPECT_EQ(grid.At(row, column), expected) << type << " at " << row << "," << column;
        }
      }
    }
  }
  EXPECT_EQ(ToGrid(ToVariant(5)).At(0, 0), Value(5));
  SAFEARRAYBOUND row{4, 3};
  VARIANT variant{};
  variant.vt = VT_ARRAY | VT_VARIANT;
  variant.parray = SafeArrayCreate(VT_VARIANT, 1, &row);
  EXPECT_EQ(ToGrid(Variant::Owning(variant)).columns(), 4);
  SAFEARRAYBOUND cube[] = {{1, 0}, {1, 0}, {1, 0}};
  variant.parray = SafeArrayCreate(VT_VARIANT, 3, cube);
  EXPECT_EQ(ErrorOf([held = Variant::Owning(variant)] { ToGrid(held); }).number(), 13);
}

TEST(CellArrays, CellsGoOutCountedFromOne) {
  CellGrid grid(2, 2);
  grid.At(0, 0) = Text(u"a");
  grid.At(0, 1) = 1.5;
  grid.At(1, 0) = Null();
  grid.At(1, 1) = true;
  EXPECT_EQ(FakeObject::Shown(GridToVariant(grid).get()), "{1 to 2, 1 to 2; \"a\"; Empty; 1.5#; True}");
  EXPECT_EQ(ToGrid(GridToVariant(grid)).At(0, 1), Value(1.5));
}

TEST(AutomationErrors, ResultsHaveTheNumbersThatProgramsKnow) {
  const std::pair<std::uint32_t, std::int32_t> rows[] = {
      {0x80020006, 438},         {0x80020003, 438},  {0x80004002, 438},  {0x80020005, 13},   {0x8002000A, 6},
      {0x8002000B, 9},           {0x8002000E, 450},  {0x8002000F, 449},  {0x80020007, 446},  {0x80020004, 448},
      {0x80070057, 5},           {0x8007000E, 7},    {0x80070005, 70},   {0x800706BA, 462},  {0x800706BE, 462},
      {0x80010108, 462},         {0x80010007, 462},  {0x80040154, 429},  {0x800401E3, 429},  {0x80080005, 429},
      {0x800401EA, 432},         {0x800A03EC, 1004}, {0x800A1436, 5174}, {0x800A0CC1, 3265}, {0x80010001, -2147418111},
      {0x80004005, -2147467259},
  };
  for (const auto& [result, number] : rows) {
    EXPECT_EQ(ErrorNumberOf(static_cast<HRESULT>(result)), number) << std::hex << result;
    EXPECT_FALSE(win32::DescriptionOfResult(static_cast<HRESULT>(result)).empty());
  }
  EXPECT_EQ(win32::ResultOf(1004), static_cast<HRESULT>(0x800A03EC));
  EXPECT_EQ(win32::ResultOf(-5), -5);
}

class LateObjects : public ::testing::Test {
 protected:
  ~LateObjects() override { EXPECT_EQ(world_.living, 0) << "a reference was not given back"; }

  FakeWorld world_;
};

TEST_F(LateObjects, CallsArriveInOrderAndByName) {
  world_.values["Version"] = ToVariant(u"16.0");
  const LateObject root = world_.Root();
  EXPECT_EQ(AsText(root.Get(u"Version")), u"16.0");
  root.Put(u"Visible", true);
  root.Call(u"Run", u"macro", 1, std::int16_t{2}, 1.5F, root.Child(u"Place"));
  root.Item(u"Windows", u"b").Child(u"Range", 1, 2).Call(u"Select");
  EXPECT_EQ(world_.Lines(),
            "Version | Visible = True | Run(\"macro\", 1, 2%, 1.5!, [Place]) | Windows(\"b\").Range(1, 2).Select()");
  world_.values["Open"] = ToVariant(5);
  const auto open = [&] { return root.CallNamed(u"Open", {{u"Name", ToVariant(u"x")}, {u"Format", ToVariant(0)}}); };
  EXPECT_EQ(AsLong(open()), 5);
  EXPECT_EQ(world_.Lines(), "Open(Name:=\"x\", Format:=0)");
  world_.knowsArgumentNames = false;
  open();
  EXPECT_EQ(world_.Lines(), "Open(\"x\", 0)");
  world_.knowsArgumentNames = true;
  world_.missing = {"Format"};
  EXPECT_EQ(ErrorOf(open).number(), 448) << "the values would land in wrong places";
  world_.isScript = true;
  open();
  EXPECT_EQ(world_.Lines(), "Open(\"x\", 0)");
}

TEST_F(LateObjects, FailuresKeepNumberSourceAndDescription) {
  world_.missing = {"Gone"};
  world_.failures = {{"Wrong", DISP_E_TYPEMISMATCH}, {"Dead", static_cast<HRESULT>(0x800706BA)}};
  world_.nothing = {"Empty"};
  world_.values["Number"] = ToVariant(1);
  world_.reports["Own"] = {.wCode = 1004, .source = L"Excel", .description = L"Popis"};
  world_.reports["Coded"] = {.scode = static_cast<SCODE>(0x800A0CC1), .source = L"DAO.Fields"};
  world_.reports["Late"] = {.scode = static_cast<SCODE>(0x800A1436), .description = L"", .deferred = true};
  world_.reports["Full"] = {.scode = DISP_E_OVERFLOW};
  const LateObject root = world_.Root();
  struct Row {
    TextView member;
    int number;
    const char* source;
    const char* description;
  };
  const Row rows[] = {
      {u"Gone", 438, "", "Object doesn't support this property or method: Gone"},
      {u"Wrong", 13, "", "Type mismatch: Wrong"},
      {u"Dead", 462, "", "The remote server machine does not exist or is unavailable: Dead"},
      {u"Own", 1004, "Excel", "Popis"},
      {u"Coded", 3265, "DAO.Fields", "Item not found in this collection."},
      {u"Late", 5174, "", "filled in"},
      {u"Full", 6, "", "Overflow"},
  };
  for (const Row& row : rows) {
    for (const bool puts : {false, true}) {
      const Error error = ErrorOf([&] { puts ? root.Put(row.member, 1) : root.Call(row.member); });
      EXPECT_EQ(error.number(), row.number) << ToUtf8(row.member);
      EXPECT_EQ(Shown(error.source()), row.source);
      EXPECT_EQ(Shown(error.description()), row.description);
    }
  }
  EXPECT_EQ(ErrorOf([&] { root.Child(u"Empty"); }).number(), 91);
  EXPECT_EQ(ErrorOf([&] { root.Child(u"Number"); }).number(), 424);
  const LateObject nothing;
  EXPECT_EQ(ErrorOf([&] { nothing.Get(u"A"); }).number(), 91);
  EXPECT_EQ(ErrorOf([&] { nothing.CallNamed(u"A", {}); }).number(), 91);
}

TEST_F(LateObjects, BusyServersAreAskedAgain) {
  const LateObject root = world_.Root();
  for (const std::uint32_t busy : {0x80010001U, 0x8001010AU, 0x800AC472U}) {
    world_.rejection = static_cast<HRESULT>(busy);
    world_.rejections = 2;
    root.Call(u"Activate");
    EXPECT_EQ(world_.Lines(), "Activate()") << "once, and not lost";
  }
  int calls = 0;
  const auto refuse = [&] { return ++calls, RPC_E_CALL_REJECTED; };
  EXPECT_EQ(win32::CallWhileBusy(refuse, {.pause = 1, .atMost = 20}), RPC_E_CALL_REJECTED);
  EXPECT_GT(calls, 1);
}

TEST_F(LateObjects, ObjectsOfScriptsAreKnownByTheirOtherInterface) {
  world_.isScript = true;
  world_.missing = {"Gone"};
  const LateObject root = world_.Root();
  root.Call(u"Run", 1);
  EXPECT_EQ(world_.Lines(), "Run(1)");
  EXPECT_EQ(ErrorOf([&] { root.Call(u"Gone"); }).number(), 438);
}

TEST_F(LateObjects, ValuesThatAreObjectsStayThemselves) {
  const LateObject root = world_.Root();
  const Value value = ToValue(ToVariant(root));
  const auto& reference = std::get<ObjectReference>(value);
  EXPECT_EQ(win32::AutomationObjectOf(reference.get()), root.dispatch());
  EXPECT_EQ(ToVariant(value).get().pdispVal, root.dispatch());
  const Object other;
  EXPECT_EQ(win32::AutomationObjectOf(&other), nullptr);
  EXPECT_EQ(win32::AutomationObjectOf(nullptr), nullptr);
}

}  // namespace
}  // namespace zorkanca::testing
