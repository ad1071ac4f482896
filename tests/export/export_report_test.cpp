// What cZorOffice tells beside its events and message boxes: causes and warnings.
#include "export/export_report.h"

#include <gtest/gtest.h>

#include "export/template_check.h"
#include "export/zor_office.h"
#include "support/memory_database.h"
#include "support/memory_platform.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

class Told final : public ExportListener {
 public:
  void Cause(const Error& cause) override { lines += std::string("cause ") + cause.what() + "\n"; }
  void Warning(TextView text) override { lines += "warning " + ToUtf8(text) + "\n"; }
  void Written(std::int64_t count) override { records = count; }

  std::string lines;
  std::int64_t records = -1;  // of the last operation that was done
};

class ExportReportTest : public ::testing::Test {
 protected:
  ExportReportTest() {
    office.Listen(&told);
    database.columns = {{u"cislo", FieldType::kLong}, {u"a;b", FieldType::kText}};
    database.rows = {{std::int32_t{1}, Text(u"x")}};
  }

  std::string Taken() { return std::exchange(told.lines, {}); }
  Text Log() {
    Text text;
    for (const Text& path : computer.files.Paths()) {
      const auto bytes = computer.files.Bytes(path);
      if (path.starts_with(computer.environment.logFolder)) computer.locale.codePage->AppendDecoded(text, *bytes);
    }
    return text;
  }

  MemoryPlatform computer;
  MemoryDatabase database;
  cZorOffice office{computer.platform};
  Told told;
};

TEST_F(ExportReportTest, CausesOfWhatAMessageBoxHides) {
  HtmlExportArguments html;
  database.failsToOpen = true;
  EXPECT_FALSE(office.HTMLExport(database, u"SELECT cislo FROM t", html));
  const std::string cause = Taken();
  EXPECT_TRUE(cause.starts_with("cause 3078 - ")) << cause;
  EXPECT_NE(Log().find(u"[cZorOffice.HTMLExport] Neočekávaná chyba -> 3078 - "), Text::npos) << Shown(Log());
  database.failsToOpen = false;

  database.rows = {{std::int32_t{1}, Binary{}}};
  html = {};
  EXPECT_FALSE(office.HTMLExport(database, u"SELECT * FROM t", html));
  const std::string binary = Taken();
  EXPECT_NE(binary.find("cause 13 - The column \"a;b\" holds binary data (BLOB)"), std::string::npos) << binary;

  database.rows = {{std::int32_t{1}, Text(u"x")}};
  WdExportArguments word;
  word.rsTemplate = u"C:\\Temp\\none.dot";
  EXPECT_FALSE(office.WdExport(database, u"SELECT cislo FROM t", word));
  EXPECT_EQ(Taken(),
            "warning There is 1 column name for 2 columns.\n"
            "cause 53 - The template was not found: C:\\Temp\\none.dot\n");
  WordExportArguments prepared;
  EXPECT_FALSE(office.WdExport_file(u"C:\\Temp\\h.txt", u"C:\\Temp\\d.txt", prepared));
  EXPECT_EQ(Taken(), "cause 53 - File not found: C:\\Temp\\h.txt\n");

  EXPECT_TRUE(office.HTMLExport(database, u"SELECT * FROM t", html));
  EXPECT_EQ(Taken(), "") << "nothing is left over from an operation before";
}

TEST_F(ExportReportTest, RecordsThatWereWritten) {
  database.columns.push_back({u"krát", FieldType::kLong});
  for (const std::int32_t copies : {2, 0, 1}) database.rows.push_back({copies, Text(u"y"), copies});
  database.rows[0].push_back(std::int32_t{1});
  computer.files.Put(u"C:\\Temp\\h.txt", "a;b");
  computer.files.Put(u"C:\\Temp\\d.txt", "1;2\r\n3;4\r\n");
  computer.files.Put(u"C:\\Temp\\t.dot", "");
  office.Multiplier(u"krát");
  HtmlExportArguments html;
  EXPECT_TRUE(office.HTMLExport(database, u"SELECT * FROM t", html));
  EXPECT_EQ(told.records, 3) << "a record that is written twice is one, one that is not written is none";
  WordExportArguments prepared{};
  prepared.rsTemplate = u"C:\\Temp\\t.dot";
  EXPECT_TRUE(office.WdExport_file(u"C:\\Temp\\h.txt", u"C:\\Temp\\d.txt", prepared));
  EXPECT_EQ(told.records, 2);
  told.records = -1;
  EXPECT_FALSE(office.WdExport_file(u"C:\\Temp\\none.txt", u"C:\\Temp\\d.txt", prepared));
  EXPECT_EQ(told.records, -1) << "nothing of an operation that failed";
}

TEST_F(ExportReportTest, NamesOfTheRecordset) {
  for (const bool preferred : {false, true}) {
    office.Prefer({.namesOfRecordset = preferred});
    XlExportArguments excel;
    office.XlExport(database, u"SELECT f(x, y) AS cislo, z FROM t", excel);
    EXPECT_EQ(Shown(excel.rsFieldNames), preferred ? "cislo;\"a;b\"" : "f(x;cislo;z");
  }
}

TEST_F(ExportReportTest, CharactersBeyondTheAnsiPage) {
  database.rows = {{std::int32_t{1}, Text(u"\x3B1 \x263A \xD83D\xDE00 \x158")}};
  HtmlExportArguments html;
  EXPECT_TRUE(office.HTMLExport(database, u"SELECT * FROM t", html));
  EXPECT_EQ(Taken(),
            "warning 3 characters are not in the ANSI page 1250 and became another one; "
            "--unicode keeps every character.\n");
  office.Prefer({.unicode = true});
  html = {};
  EXPECT_TRUE(office.HTMLExport(database, u"SELECT * FROM t", html));
  EXPECT_EQ(Taken(), "");
  EXPECT_NE(computer.files.Bytes(html.rsSourceFile)->find("\xCE\xB1 \xE2\x98\xBA \xF0\x9F\x98\x80 \xC5\x98"),
            std::string::npos);
}

TEST(TemplateCheck, Warnings) {
  using Fields = std::vector<TemplateField>;
  constexpr auto kField = TemplateFieldKind::kField;
  constexpr auto kForm = TemplateFieldKind::kForm;
  constexpr auto kCell = TemplateFieldKind::kCell;
  const std::vector<Text> columns = {u"cislo", u"Plné jméno", u"psc"};
  const struct {
    TemplateUse use;
    Fields fields;
    std::string warnings;
  } kRows[] = {
      {TemplateUse::kMerge, {}, "The template has no merge field, every record gives the same text: T\n"},
      {TemplateUse::kMerge,
       {{kForm, u"cislo"}},
       "The template has no merge field, every record gives the same text: T\n"},
      {TemplateUse::kMerge, {{kField, u"CISLO"}, {kField, u"plné_jméno"}, {kField, u"cislo faktury"}}, ""},
      {TemplateUse::kMerge, {{kField, u"cislo"}, {kField, u"x"}}, "There is no column for the merge field x.\n"},
      {TemplateUse::kMerge, {{TemplateFieldKind::kBarcode, u"k"}}, ""},
      {TemplateUse::kForm, {}, "The template has no form field, every record gives the same text: T\n"},
      {TemplateUse::kForm,
       {{kForm, u"psc_1"}, {kForm, u"psc_x"}, {kForm, u"psc_"}},
       "There is no column for the form field psc_x; the nearest is psc.\n"
       "There is no column for the form field psc_; the nearest is psc.\n"},
      {TemplateUse::kCells, {}, "The first block of the template has no placeholder, no record will be seen: T\n"},
      {TemplateUse::kCells, {{kCell, u"psc"}, {kCell, u"Psč"}}, "There is no column for the placeholder {Psč}.\n"},
  };
  for (const auto& row : kRows) {
    std::string warnings;
    for (const Text& warning : TemplateWarnings(row.use, row.fields, columns, u"T")) warnings += ToUtf8(warning) + "\n";
    EXPECT_EQ(warnings, row.warnings);
  }
}

}  // namespace
}  // namespace zorkanca::testing
