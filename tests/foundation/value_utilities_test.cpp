#include "foundation/array_routines.h"

#include <gtest/gtest.h>
#include "foundation/collection_routines.h"
#include "foundation/error_codes.h"
#include "foundation/math_routines.h"
#include "foundation/string_routines.h"
#include "foundation/text_builder.h"
#include "foundation/value_array.h"
#include "foundation/variant_convertor.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

const Locale& Czech() {
  return *FindLocale(u"cs-CZ");
}

Value ArrayValue(ArrayElements elements, std::vector<Value> items, std::int32_t dimensions = 1) {
  return std::make_shared<ValueArray>(elements, std::move(items), dimensions);
}

/// The collection as one text, texts in quotes.
std::string ShownList(const Collection& values) {
  Text list;
  for (const Value& value : values) list.append(StringRoutines::FormatNameValue({}, value, Czech())).append(u";");
  return Shown(list);
}

TEST(VariantConvertor, ToStringShowsEveryKindOfValue) {
  const std::pair<Value, const char16_t*> cases[] = {
      {Empty(), u"Empty"},
      {Null(), u"Null"},
      {true, u"True"},
      {std::int16_t{-5}, u"-5"},
      {1.5, u"1,5"},
      {Currency{125000}, u"12,5"},
      {Text(u"a b"), u"a b"},
      {ObjectReference(), u"Nothing"},
      {std::make_shared<Object>(), u"Object"},
      {Binary(2), u"Array"},
      {ArrayValue(ArrayElements::kVariant, {}), u"Array"},
  };
  for (const auto& [value, expected] : cases) {
    EXPECT_EQ(Shown(VariantConvertor::ToString(value, Czech())), Shown(expected)) << value.index();
  }
  EXPECT_EQ(VariantConvertor::WordForType(10), u"Error");
  EXPECT_EQ(VariantConvertor::WordForType(12), u"Array of Variants");
  EXPECT_EQ(VariantConvertor::WordForType(8192 + 12), u"Array");
  EXPECT_EQ(Shown(ErrorOf([] { VariantConvertor::WordForType(99); }).description()),
            "Neočekávaná hodnota \"99\" pro \"VarType(value)\".");
  EXPECT_EQ(Shown(StringRoutines::FormatNameValue(u"n", Text(u"a"), Czech())), "n = \"a\"");
  EXPECT_EQ(Shown(StringRoutines::FormatNameValue(u"n", Null(), Czech())), "n = Null");
}

TEST(VariantConvertor, NullableNumbersAndDates) {
  EXPECT_EQ(VariantConvertor::ToNullableLong(Null(), Czech()), std::nullopt);
  EXPECT_EQ(VariantConvertor::ToNullableLong(2.5, Czech()), 2);
  EXPECT_EQ(VariantConvertor::ToNullableLong(Text(u"12"), Czech()), 12);
  const Error word = ErrorOf([] { VariantConvertor::ToNullableLong(Text(u"abc"), Czech()); });
  EXPECT_EQ(word.number(), ArgumentErrorCode);
  EXPECT_EQ(Shown(word.description()),
            "Neočekávaná hodnota \"abc\" pro \"value\". [Detaily: Očekáváno číslo nebo Null]");
  EXPECT_EQ(ErrorOf([] { VariantConvertor::ToNullableLong(3e9, Czech()); }).number(), UnexpectedErrorCode);
  EXPECT_EQ(VariantConvertor::ToNullableDate(Null(), Czech()), std::nullopt);
  EXPECT_EQ(VariantConvertor::ToNullableDate(Date{2.5}, Czech()), Date{2.5});
  EXPECT_EQ(Shown(ErrorOf([] { VariantConvertor::ToNullableDate(std::int32_t{5}, Czech()); }).description()),
            "Neočekávaná hodnota \"5\" pro \"value\". [Detaily: Očekáváno datum nebo Null]");
}

TEST(MathRoutines, ComparesNumbersOfAnyType) {
  EXPECT_EQ(MathRoutines::Min(Text(u"2,5"), std::int16_t{2}, Czech()), Value(std::int16_t{2}));
  EXPECT_EQ(MathRoutines::Max(Text(u"2,5"), std::int16_t{2}, Czech()), Value(Text(u"2,5")));
  EXPECT_EQ(MathRoutines::Max(1.0, std::int16_t{1}, Czech()), Value(1.0));
  EXPECT_TRUE(MathRoutines::IsNear(1.0, 1.25, 0.25, Czech()));
  EXPECT_FALSE(MathRoutines::IsNear(1.0, 1.5, 0.25, Czech()));
  const Error word = ErrorOf([] { MathRoutines::Max(1.0, Text(u"x"), Czech()); });
  EXPECT_EQ(word.number(), ArgumentErrorCode);
  EXPECT_EQ(Shown(word.description()),
            "Neočekávaná hodnota \"x\" pro \"value2\".\\r\\n[Očekáváno: [IsNumeric]]"
            "\\r\\n\\r\\nMathRoutines.Max");
  EXPECT_NE(Shown(ErrorOf([] { MathRoutines::IsNear(1.0, 1.0, -0.5, Czech()); }).description())
                .find("\"-0,5\" pro \"delta\".\\r\\n[Očekáváno: Nezáporné číslo]"),
            std::string::npos);
}

TEST(ArrayRoutines, TestsAndCollections) {
  const Value texts = ArrayValue(ArrayElements::kText, {Text(u"a"), Text(u"b")});
  EXPECT_TRUE(ArrayRoutines::IsArray(texts) && ArrayRoutines::IsArray(Binary()));
  EXPECT_TRUE(ArrayRoutines::IsStringArray(texts) && !ArrayRoutines::IsLongArray(texts));
  EXPECT_FALSE(ArrayRoutines::IsArray(Text(u"a")) || ArrayRoutines::IsArray(ObjectReference()));
  EXPECT_TRUE(ArrayRoutines::IsEmpty(Binary()) && ArrayRoutines::IsNotEmpty(texts));
  EXPECT_EQ(ShownList(ArrayRoutines::ToCollection(texts)), " = \"a\"; = \"b\";");
  EXPECT_EQ(ShownList(ArrayRoutines::ToCollection(Binary{std::byte{7}})), " = 7;");
  EXPECT_EQ(ShownList(ArrayRoutines::ToCollectionFromSeparatedString(u"a, , b,", u", ")),
            " = \"a\"; = \"\"; = \"b,\";");
  EXPECT_TRUE(ArrayRoutines::ToCollectionFromSeparatedString(u"", u";").empty());
  const Value handedOn = ArrayValue(ArrayElements::kVariant, {ArrayValue(ArrayElements::kVariant, {texts})});
  EXPECT_EQ(ArrayRoutines::ExtractLastLevelArrayFromNestedParamarrays(handedOn), texts);
  EXPECT_EQ(ShownList(ArrayRoutines::ToCollectionFromValues({handedOn})), " = \"a\"; = \"b\";");

  const Error matrix = ErrorOf([] { ArrayRoutines::ToCollection(ArrayValue(ArrayElements::kLong, {}, 2)); });
  EXPECT_EQ(matrix.number(), InvalidOperationErrorCode);
  EXPECT_EQ(Shown(matrix.source()), "[zorKancA].checkIsVector");
  EXPECT_EQ(Shown(matrix.description()), "Neplatný počet dimenzí pole values(): 2. Podporovány jsou pouze vektory.");
  EXPECT_EQ(Shown(ErrorOf([] { ArrayRoutines::ToCollection(Null()); }).source()), "Convert.ToCollection");
}

TEST(CollectionRoutines, CopiesAndSplits) {
  Collection values{Text(u"a"), Text(u"b")};
  CollectionRoutines::AddTo(values, values);
  EXPECT_EQ(ShownList(values), " = \"a\"; = \"b\"; = \"a\"; = \"b\";");
  EXPECT_EQ(ShownList(CollectionRoutines::CopyFrom(values, 4)), " = \"b\";");
  EXPECT_TRUE(CollectionRoutines::CopyFrom(values, 5).empty());
  EXPECT_EQ(ShownList(CollectionRoutines::CopyFromWithLength(values, 2, 2)), " = \"b\"; = \"a\";");
  EXPECT_EQ(ErrorOf([&] { CollectionRoutines::CopyFrom(values, 6); }).number(), UnexpectedErrorCode);
  const std::vector<Collection> parts = CollectionRoutines::Split(values, 3);
  ASSERT_EQ(parts.size(), 2u);
  EXPECT_EQ(ShownList(parts[1]), " = \"b\";");
}

TEST(TextBuilder, NamesAndListsOfValues) {
  TextBuilder builder;
  builder.AppendNameValueLine(u"a", std::int32_t{5}, Czech());
  builder.AppendNameValueLine(u"b", Text(u"x"), Czech(), 1);
  builder.AppendSeparatedValuesLine({Null(), 1.5}, u"; ", Czech());
  builder.AppendSeparatedArrayValues(ArrayValue(ArrayElements::kText, {Text(u"p"), Text(u"q")}), u"+", Czech(), 1);
  EXPECT_EQ(Shown(builder.ToString()), "a = 5\\r\\n\\tb = \"x\"\\r\\nNull; 1,5\\tp+q");
}

}  // namespace
}  // namespace zorkanca::testing
