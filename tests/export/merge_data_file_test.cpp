#include "export/merge_data_file.h"

#include <gtest/gtest.h>

#include "export/query_merge_data.h"
#include "support/memory_database.h"
#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

class MergeDataTest : public ::testing::Test {
 protected:
  MergeDataTest() {
    computer.files.CreateFolder(u"C:\\Temp\\Zorix");
    context.workFolder = u"C:\\Temp\\Zorix";
  }

  // Writes the data of the database and gives the file as text, its byte-order mark checked and taken off.
  Text Written(const QueryMergeDataOptions& options = {}) {
    ExportSession session(context);
    QueryReader reader(session);
    reader.Open(database, u"SELECT * FROM t", 0);
    if (options.barCode) options.barCode->SetRecordset(session.recordset());
    WriteQueryMergeData(session, reader, ColumnNameSource::kFieldNames, names, path, options);
    const std::string bytes = computer.files.Bytes(path).value_or("");
    EXPECT_TRUE(bytes.starts_with("\xFF\xFE"));
    return computer.files.OpenTextFile(path, IoMode::kForReading, false, TextFormat::kUnicode)->ReadAll();
  }

  MemoryPlatform computer;
  ExportContext context{.platform = computer.platform};
  MemoryDatabase database;
  Text names;
  Text path;
};

TEST_F(MergeDataTest, ValuesAreQuotedWhereWordNeedsIt) {
  const struct {
    TextView value;
    TextView kept;
    TextView placeholders;
  } kRows[] = {
      {u"Ab;c", u"\"Ab;c\"", u"\"Ab;c\""},
      {u"disk 12\"", u"\"disk 12\"\"\"", u"\"disk 12\"\"\""},
      {u"\"x\"", u"\"\"\"x\"\"\"", u"\"\"\"x\"\"\""},
      {u"a\r\nb\r\n", u"\"a\r\nb\r\n\"", u"\"a×¶b×¶\""},
      {u"\"\r\n", u"\"\"\"\r\n\"", u"\"\"\"×¶\""},
      {u"a\rb\nc\td ", u"a\rb\nc\td ", u"a\rb\nc\td "},
      {u"", u"", u""},
  };
  database.columns = {{u"a;b", FieldType::kText}, {u"c", FieldType::kText}};
  for (const auto& row : kRows) {
    database.rows = {{Text(row.value), Null()}};
    EXPECT_EQ(Shown(Written()), Shown(u"a;b;c\r\n" + Text(row.kept) + u";\r\n"));
    EXPECT_EQ(Shown(Written({.multiDocument = true})), Shown(u"a;b;c\r\n" + Text(row.placeholders) + u";\r\n"));
  }
  EXPECT_EQ(path, u"C:\\Temp\\Zorix\\rad00001.tmp");
}

TEST_F(MergeDataTest, BlankRecordsCopiesAndFormats) {
  database.columns = {{u"n", FieldType::kLong}, {u"cena", FieldType::kCurrency}, {u"d", FieldType::kDate}};
  database.rows = {{std::int32_t{2}, Currency{12345000}, Date{46342}},
                   {std::int32_t{0}, Null(), Null()},
                   {std::int32_t{1}, Null(), Date{1}}};
  context.blankRecordsBefore = 2;
  context.multiplier = u"n";
  const Text formats[] = {u"", u"  #,##0.00 ", u"case null: nikdy case else: @;yyyy"};
  EXPECT_EQ(Shown(Written({.formats = formats})),
            Shown(u"n;cena;d\r\n;;\r\n;;\r\n1;1\u00A0234,50;2026\r\n1;1\u00A0234,50;2026\r\n1;;1899\r\n"));
  EXPECT_EQ(Shown(names), "n;cena;d");

  context.multiplier = u"cena";  // the first record's 1234.5 is a number of copies, the second's Null is none
  database.rows[0][1] = Text(u"x");
  Written();
  EXPECT_EQ(context.multiplier, u"") << "a multiplier that gives no number is dropped";
}

TEST_F(MergeDataTest, LinesEndAsTheHeaderDoes) {
  const auto linesOf = [&](const Text& text) {
    const auto file = computer.files.OpenTextFile(u"C:\\Temp\\x", IoMode::kForWriting, true, TextFormat::kUnicode);
    file->Write(text);
    file->Close();
    MergeDataLines lines(computer.files, u"C:\\Temp\\x");
    std::vector<Text> all;
    for (Text line; lines.Next(line);) all.push_back(line);
    return all;
  };
  using Lines = std::vector<Text>;
  EXPECT_EQ(linesOf(u"a\r\nb\nc\rd\r\n\r\ne\r"), (Lines{u"a", u"b\nc\rd", u"", u"e\r"}));
  EXPECT_EQ(linesOf(u"a\nb\r\nc"), (Lines{u"a", u"b\r", u"c"}));
  EXPECT_EQ(linesOf(u""), Lines{});
  // A line longer than what is read at once, its end on the border of two pieces.
  const Text longLine(64 * 1024 - 3, u'x');
  EXPECT_EQ(linesOf(u"a\r\n" + longLine.substr(1) + u"\r\nb\r\n"), (Lines{u"a", longLine.substr(1), u"b"}));
}

TEST_F(MergeDataTest, BarCodeIsTheLastColumn) {
  database.columns = {{u"kod", FieldType::kText}};
  database.rows = {{Text(u"a;b")}, {Text(u"7\"8\"")}, {Null()}};
  cBarCode barCode(computer.locale);
  barCode.ParseParameters(u"Code128B;kod,trim;BC;0");
  context.blankRecordsBefore = 1;
  EXPECT_EQ(Shown(Written({.barCode = &barCode})),
            Shown(u"kod;BC\r\n;\r\n\"a;b\";\"a;b\"\r\n\"7\"\"8\"\"\";7\"\"8\"\r\n;\r\n"));
}

}  // namespace
}  // namespace zorkanca::testing
