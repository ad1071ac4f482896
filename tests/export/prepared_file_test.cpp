#include "export/prepared_file.h"

#include <gtest/gtest.h>

#include "export/bar_code_specification.h"
#include "export/export_failure.h"
#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

TEST(PreparedFile, RowsAreSplitAtSeparatorsOutsideQuotes) {
  using Values = std::vector<Text>;
  const struct {
    TextView row;
    Values values;
  } kRows[] = {
      {u"a;b;c", {u"a", u"b", u"c"}},
      {u"a;;c;", {u"a", u"", u"c", u""}},
      {u"", {u""}},
      {u"\"x;y\";z", {u"x;y", u"z"}},
      {u"ab\"c;d\"e", {u"abc;de"}},
      {u"\"a\"\"b\"", {u"a\"b"}},
      {u"\"\"", {u""}},
      {u"\"\"\"\"", {u"\""}},
      {u"\"a;b", {u"a;b"}},
      {u"a\"\"b;\"c\"\"", {u"ab", u"c\""}},
      {u" a ;\t", {u" a ", u"\t"}},
  };
  Values values = {u"left", u"over", u"from", u"an", u"earlier", u"row"};
  for (const auto& row : kRows) {
    SplitColumnsFromDataRow(row.row, values);
    EXPECT_EQ(values, row.values) << Shown(row.row);
  }
}

TEST(PreparedFile, LinesAndMessages) {
  MemoryPlatform computer;
  const ExportContext context{.platform = computer.platform};
  const auto message = [](auto read) { return StopMessage(ErrorOf(read)).value_or(u"unforeseen"); };
  const auto linesOf = [&](const char* bytes) {
    computer.files.Put(u"C:\\Temp\\d.txt", bytes);
    const PreparedData data(context, u"C:\\Temp\\d.txt");
    return std::vector<Text>(data.lines().begin(), data.lines().end());
  };
  using Lines = std::vector<Text>;
  EXPECT_EQ(linesOf("1;\x9E\r\n2\r\n"), (Lines{u"1;ž", u"2"}));
  EXPECT_EQ(linesOf("1\n2\r3\r\n  "), (Lines{u"1\n2\r3"}));
  EXPECT_EQ(linesOf("1\r\n\r\n"), (Lines{u"1", u""})) << "only one blank line at the end is no record";
  EXPECT_EQ(linesOf("\r\n"), Lines{u""});
  EXPECT_EQ(message([&] { linesOf("  "); }), kNoRecords);
  EXPECT_EQ(message([&] { linesOf(""); }), kNoRecords);
  EXPECT_EQ(message([&] { PreparedData(context, u"C:\\Temp\\no.txt"); }), u"Datový soubor nebyl nalezen !");
  computer.files.FailFromCall(1);
  EXPECT_EQ(message([&] { PreparedData(context, u"C:\\Temp\\d.txt"); }), u"Chyba při přístupu k datům !");
  computer.files.FailFromCall(0);

  const auto headerOf = [&](const char* bytes) {
    computer.files.Put(u"C:\\Temp\\h.txt", bytes);
    return ReadPreparedHeader(context, u"C:\\Temp\\h.txt");
  };
  EXPECT_EQ(headerOf(" k\xF3"
                     "d;cena \r\n"),
            u"kód;cena \r\n")
      << "only blanks are trimmed";
  EXPECT_EQ(message([&] { headerOf("   "); }), u"Hlavičkový soubor je prázdný !");
  EXPECT_EQ(message([&] { ReadPreparedHeader(context, u"C:\\Temp\\no.txt"); }), u"Hlavičkový soubor nebyl nalezen !");
}

TEST(BarCodeSpecification, IsTakenOffTheNames) {
  const struct {
    TextView given;
    TextView names;
    TextView specification;
  } kRows[] = {
      {u"kod;nazev , { Code39;kod,trim;BC;0 } x", u"kod;nazev ", u"Code39;kod,trim;BC;0"},
      {u"kod,,{a", u"kod,", u"a"},
      {u"{a}{b}", u"", u"a"},
      {u"}kod;{a}", u"}kod;", u"a"},
      {u" kod ", u" kod ", u"none"},
  };
  for (const auto& row : kRows) {
    Text names(row.given);
    EXPECT_EQ(TakeBarCodeSpecification(names).value_or(u"none"), row.specification);
    EXPECT_EQ(names, row.names);
  }
  Text names = u"kod,{Code39;kod,trim;BC;0}";
  const Locale& locale = *FindLocale(u"cs-CZ");
  EXPECT_EQ(TakeBarCode(names, locale)->BarCodeField(), u"BC");
  EXPECT_FALSE(TakeBarCode(names, locale));
  names = u"kod{}";
  EXPECT_EQ(ErrorOf([&] { TakeBarCode(names, locale); }).number(), 9);
}

}  // namespace
}  // namespace zorkanca::testing
