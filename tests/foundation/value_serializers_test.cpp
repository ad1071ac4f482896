#include "foundation/collection_to_string_serializer.h"

#include <gtest/gtest.h>
#include "foundation/error_codes.h"
#include "foundation/value_to_string_serializer.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

TEST(ValueToStringSerializer, WritesTypeAndValueWithoutAnyLocale) {
  const struct {
    Value value;
    TextView text;
  } kCases[] = {
      {std::int16_t{-32768}, u"%-32768"},
      {std::int32_t{0}, u"&0"},
      {std::int32_t{2147483647}, u"&2147483647"},
      {1.5F, u"!1.5"},
      {-0.25F, u"!-.25"},
      {99999.5F, u"!99999.5"},
      {1e20F, u"!1E+20"},
      {Text(), u"$"},
      {Text(u"a|b\\c\r\n\t124 ž"), u"$a\\124b\\\\c\\013\\010\\009124 ž"},
      {Text(u"\\124"), u"$\\\\124"},
  };
  for (const auto& [value, text] : kCases) {
    EXPECT_EQ(Shown(ValueToStringSerializer::Serialize(value)), Shown(text));
    EXPECT_EQ(ValueToStringSerializer::Deserialize(text), value) << Shown(text);
  }
  EXPECT_EQ(ValueToStringSerializer::Deserialize(u"% 7 "), Value(std::int16_t{7}));
  EXPECT_EQ(ValueToStringSerializer::Deserialize(u"!0.5"), Value(0.5F));
}

TEST(ValueToStringSerializer, RefusesWhatItDoesNotKnow) {
  for (const TextView text : {u"", u"5", u"#5", u" &5"}) {
    const Error error = ErrorOf([&] { ValueToStringSerializer::Deserialize(text); });
    EXPECT_EQ(error.number(), InvalidOperationErrorCode);
    EXPECT_EQ(error.description(), u"Hodnota \"" + Text(text) + u"\" neobsahuje značku pro podporovaný typ.");
  }
  for (const TextView text :
       {u"%", u"%32768", u"&x", u"&3000000000", u"!", u"!1,5", u"!1E39", u"$\\", u"$\\12", u"$\\12x4", u"$\\n124"}) {
    EXPECT_EQ(ErrorOf([&] { ValueToStringSerializer::Deserialize(text); }).number(), UnexpectedErrorCode)
        << Shown(text);
  }
  const Value kOthers[] = {Empty(),    Null(),    true,   std::uint8_t{1}, std::int64_t{1},  1.5,
                           Currency(), Decimal(), Date(), Binary(),        ObjectReference()};
  for (const Value& value : kOthers) {
    const Error error = ErrorOf([&] { ValueToStringSerializer::Serialize(value); });
    EXPECT_EQ(error.number(), ArgumentErrorCode) << value.index();
    EXPECT_NE(error.description().find(u"valueType"), Text::npos);
  }
  EXPECT_EQ(ValueToStringSerializer::GetSerializer(8).Tag(), u'$');
}

TEST(CollectionToStringSerializer, KeepsListsOfValues) {
  const CollectionToStringSerializer serializer;
  const Collection values{std::int32_t{2}, 1.5F, Text(u"|"), Text(), std::int16_t{1}};
  const Text data = serializer.Serialize(values);
  EXPECT_EQ(Shown(data), "&2|!1.5|$\\124|$|%1");
  EXPECT_EQ(serializer.Deserialize(data), values);
  EXPECT_EQ(serializer.SerializeValues({}), u"");
  EXPECT_EQ(serializer.Deserialize(u""), Collection());
  CollectionToStringSerializer other;
  other.ValuesSeparator = u';';
  EXPECT_EQ(other.Deserialize(other.SerializeValues({Text(u"a|b"), std::int32_t{1}})),
            (Collection{Text(u"a|b"), std::int32_t{1}}));
  const Error error = ErrorOf([&] { serializer.Deserialize(u"&1||&2"); });
  EXPECT_EQ(error.number(), UnexpectedErrorCode);
  EXPECT_NE(error.description().find(u"Hodnota \"\" neobsahuje značku"), Text::npos);
}

}  // namespace
}  // namespace zorkanca::testing
