// Text files becoming cells.
#include <gtest/gtest.h>

#include "excel/text/general_reader.h"
#include "excel/text/imported_text.h"
#include "runtime/code_page.h"
#include "support/excel_parts.h"

namespace zorkanca::testing {
namespace {

using excel::CellKind;
using excel::Content;
using excel::ContentFormat;
using excel::GeneralReader;

std::string Read(const GeneralReader& reader, const Locale& locale, const char* utf8) {
  std::string bytes;
  locale.codePage->AppendEncoded(bytes, FromUtf8(utf8));
  char buffer[GeneralReader::kLongestValue];
  const Content content = reader.Read(bytes, buffer);
  if (content.kind == CellKind::kText) return "text";
  const char* const kinds[] = {"", "", "", "", "", "", "bool ", "error "};
  return kinds[static_cast<int>(content.kind)] + std::string(content.text) + "/" +
         std::to_string(static_cast<int>(content.format));
}

TEST(ExcelImportTest, GeneralColumnsAreReadByTheLocale) {
  Locale czech = *FindLocale(u"cs-CZ");
  czech.currentYear = 2026;
  const GeneralReader reader(czech, czech.decimalSeparator, czech.groupSeparator);
  const auto format = [](ContentFormat which) { return "/" + std::to_string(static_cast<int>(which)); };
  const std::string general = format(ContentFormat::kGeneral);
  const std::pair<const char*, std::string> rows[] = {
      {"5", "5" + general},
      {"007", "7" + general},
      {"-1,50", "-1.5" + general},
      {" 12 ", "12" + general},
      {",5", "0.5" + general},
      {"5,", "5" + general},
      {"0,000001", "1E-6" + format(ContentFormat::kGeneral)},
      {"1\u00A0234", "1234" + format(ContentFormat::kGrouped)},
      {"1 234 567,50", "1234567.5" + format(ContentFormat::kGroupedDecimals)},
      {"12 34", "text"},
      {"1234 567", "text"},
      {"12345678901234567", "12345678901234500" + general},
      {"0,1234567890123456", "0.123456789012345" + general},
      {"12E3", "12000" + format(ContentFormat::kScientific)},
      {"1e400", "text"},
      {"(5)", "-5" + general},
      {"5-", "text"},
      {"+5-", "text"},
      {"+5", "5" + general},
      {"50 %", "0.5" + format(ContentFormat::kPercent)},
      {"12,5%", "0.125" + format(ContentFormat::kPercentDecimals)},
      {"1 234,50 Kč", "1234.5" + format(ContentFormat::kAmountDecimals)},
      {"1.5", "46143" + format(ContentFormat::kDayMonth)},
      {"24.12.", "46380" + format(ContentFormat::kDayMonth)},
      {"5.3.2024", "45356" + format(ContentFormat::kDate)},
      {"5. 3. 2024", "45356" + format(ContentFormat::kDate)},
      {"05.03.24", "45356" + format(ContentFormat::kDate)},
      {"2024-03-05", "45356" + format(ContentFormat::kDate)},
      {"31.4.2024", "text"},
      {"1.13.2024", "text"},
      {"29.2.1900", "60" + format(ContentFormat::kDate)},
      {"1.1.1900", "1" + format(ContentFormat::kDate)},
      {"31.12.1899", "text"},
      {"3/2024", "45352" + format(ContentFormat::kMonthYear)},
      {"5.3.2024 18:00", "45356.75" + format(ContentFormat::kDateTime)},
      {"6:00", "0.25" + format(ContentFormat::kTime)},
      {"6:00:36", "0.2504166666666667" + format(ContentFormat::kTimeSeconds)},
      {"6:00 PM", "0.75" + format(ContentFormat::kTime)},
      {"12:30 AM", "0.020833333333333332" + format(ContentFormat::kTime)},
      {"12:30 pm", "0.5208333333333334" + format(ContentFormat::kTime)},
      {"0:30 AM", "text"},
      {"13:00 PM", "text"},
      {"36:00", "1.5" + format(ContentFormat::kElapsed)},
      {"6:60", "text"},
      {"True", "bool 1" + general},
      {"nepravda", "bool 0" + general},
      {"#N/A", "error #N/A" + general},
      {"#Neco", "text"},
      {"=1+1", "text"},
      {"-", "text"},
      {"1.2.3.4", "text"},
      {"2024-13-01", "text"},
      {"Šroub 5", "text"},
  };
  for (const auto& [text, expected] : rows) EXPECT_EQ(Read(reader, czech, text), expected) << text;

  const Locale& english = *FindLocale(u"en-US");
  const GeneralReader other(english, english.decimalSeparator, english.groupSeparator);
  EXPECT_EQ(Read(other, english, "1,234.50"), "1234.5" + format(ContentFormat::kGroupedDecimals));
  EXPECT_EQ(Read(other, english, "3/5/2024"), "45356" + format(ContentFormat::kDate));
  EXPECT_EQ(Read(other, english, "5.3.2024"), "text");
  const std::pair<const char*, std::string> englishRows[] = {
      {"$5", "5" + format(ContentFormat::kAmount)},
      {"-$5.50", "-5.5" + format(ContentFormat::kAmountDecimals)},
      {"($1,234)", "-1234" + format(ContentFormat::kAmount)},
      {"$ 5", "5" + format(ContentFormat::kAmount)},
      {"1,23", "text"},
      {"1234,567", "text"},
      {"1,234,567", "1234567" + format(ContentFormat::kGrouped)},
      {"12/31/24", "45657" + format(ContentFormat::kDate)},
      {"12-31-2024", "45657" + format(ContentFormat::kDate)},
      {"31/12/2024", "text"},
      {"1/1/30", "10959" + format(ContentFormat::kDate)},
      {"1/1/29", "47119" + format(ContentFormat::kDate)},
      {"12/31/2024 6:30 PM", "45657.770833333336" + format(ContentFormat::kDateTime)},
      {"12/31/2024 24:30", "text"},
      {"PRAVDA", "text"},
      {"FALSE", "bool 0" + general},
      {"1.5E+3", "1500" + format(ContentFormat::kScientific)},
      {"1E", "text"},
      {"1E+", "text"},
      {"1E+-3", "text"},
      {".", "text"},
      {"+", "text"},
      {"(5", "text"},
      {"5)", "text"},
      {"9.99e307", "9.99E307" + format(ContentFormat::kScientific)},
      {"1e308", "text"},  // more than the program's greatest number
      {"#DIV/0!", "error #DIV/0!" + general},
  };
  for (const auto& [text, expected] : englishRows) EXPECT_EQ(Read(other, english, text), expected) << text;
  const Locale& german = *FindLocale(u"de-DE");
  const GeneralReader third(german, german.decimalSeparator, german.groupSeparator);
  EXPECT_EQ(Read(third, german, "1.234,50"), "1234.5" + format(ContentFormat::kGroupedDecimals));
  EXPECT_EQ(Read(third, german, "05.03.2024"), "45356" + format(ContentFormat::kDate));
  EXPECT_EQ(Read(third, german, "wahr"), "bool 1" + general);
}

// A column is as wide as what its cells show, however their fields spelled it.
TEST(ExcelImportTest, ColumnsFitWhatIsShown) {
  ExcelFixture fixture;
  const auto widthOf = [&](const std::string& field, const char* type) {
    const ExcelWorkbookReference import = fixture.Import(field + "\r\n", type);
    import->Sheets(1)->Range(u"A1")->AutoFitColumns();
    const std::string xml = fixture.SavedSheet(*import);
    import->Close(false);
    const std::string_view start = "<col min=\"1\" max=\"1\" width=\"";
    const std::size_t at = xml.find(start);
    EXPECT_NE(at, xml.npos) << xml;
    return std::atof(xml.c_str() + at + start.size());
  };
  const std::pair<const char*, const char*> rows[] = {
      {"True", "PRAVDA"},
      {"nepravda", "NEPRAVDA"},
      {"007", "7"},
      {"12E3", "1,20E+04"},
      {"36:00", "36:00:00"},
      {"12,5%", "12,50%"},
      {"1\u00A0234,5", "1 234,50"},
      {"1\u00A0234", "1 234"},
      {"1\u00A0234,50", "1 234,50"},
      {"5. 3. 24", "5.3.2024"},
      {"2024-03-05", "5.3.2024"},
      {"5.3.2024", "5.3.2024"},
      {"#N/A", "#N/A"},
      {"24.12.", "24-pro"},
      {"5,5 Kč", "5,50 Kč"},
  };
  for (const auto& [field, shown] : rows) EXPECT_EQ(widthOf(field, "g"), widthOf(shown, "t")) << field;
}

TEST(ExcelImportTest, FieldsOfRecords) {
  ExcelFixture bench;
  const auto shown = [&](const std::string& text) {
    const ExcelWorkbookReference import = bench.Import(text, "ttt");
    const std::string values = ShownValues(*import->Sheets(1)->Range(u"A1")->CurrentRegion());
    import->Close(false);
    return values;
  };
  EXPECT_EQ(shown("a;b\r\nc;d\r\n"), "'a|'b / 'c|'d");
  EXPECT_EQ(shown("00123;=A1;-5\r\n"), "'00123|'=A1|'-5");
  EXPECT_EQ(shown("\"x;\"\"y\"\"\";b\"c\"\r\n\"1\"2;\"\"\r\n"), "'x;\"y\"|'b\"c\" / '12|");
  EXPECT_EQ(shown("\"dva\r\nřádky\";b\r\n"), "'dva\\nřádky|'b");
  EXPECT_EQ(shown("\"dva\rřádky\r\";b\r\n"), "'dva\\nřádky\\n|'b");
  EXPECT_EQ(shown("a;;c\r\n\r\n;;\r\nd"), "'a||'c / ~|~|~ / || / 'd|~|~");
  EXPECT_EQ(shown(" ;;\r\nx;y;z\r\n"), "' || / 'x|'y|'z");
  EXPECT_EQ(shown("a\nb\rc;d\re\r\n\"x\"\ry\r\nz\r"), "'a\\nb\\nc|'d\\ne / 'x\\ny|~ / 'z\\n|~");
  EXPECT_EQ(shown("\"unclosed;b\r\nc"), "'unclosed;b\\nc");
  EXPECT_EQ(shown("\r\n"), "~");
}

// Records are read over a window of the file: wherever its edges fall, fields are the same.
TEST(ExcelImportTest, RecordsCrossTheEdgesOfTheWindow) {
  ExcelFixture fixture;
  const std::string odd = "\"a;\"\"b\r\nc\"d;e\rf;\"\";\"x\"\r\n";
  const std::string shown = "'a;\"b\\ncd|'e\\nf||'x";
  constexpr std::size_t kWindow = 256 * 1024;
  for (std::size_t before = 0; before <= odd.size(); ++before) {
    std::string data;
    while (data.size() + 1002 < kWindow - before) data += std::string(1000, '.') + "\r\n";
    const std::size_t left = kWindow - before - data.size();
    if (left > 2) data += std::string(left - 2, '-') + "\r\n";
    const auto rows = static_cast<std::int32_t>(std::count(data.begin(), data.end(), '\n'));
    const ExcelWorkbookReference import = fixture.Import(data + odd + "konec", "tttt");
    EXPECT_EQ(ShownValues(*import->Sheets(1)->Range(u"A1")->Offset(rows, 0)->Resize(2, 4)), shown + " / 'konec|~|~|~")
        << before;
    import->Close(false);
  }
}

TEST(ExcelImportTest, TheWholeImportHangsTogether) {
  ExcelFixture bench;
  const ExcelWorkbookReference import = bench.Import("a;b\r\n;\r\n\r\nc;\r\n", "tt");
  const auto region = import->Sheets(1)->Range(u"A1")->CurrentRegion();
  EXPECT_EQ(region->RowCount(), 4);
  EXPECT_EQ(region->ColumnCount(), 2);
  EXPECT_EQ(Shown(import->Name()), "data.txt");
  import->Close(false);
  // Anywhere in a long file, in any order.
  std::string many;
  for (int row = 0; row < 30000; ++row) many += std::to_string(row) + ";\"příliš žluťoučký kůň\"\r\n";
  const ExcelWorkbookReference large = bench.Import(many, "gt");
  const auto first = large->Sheets(1)->Range(u"A1");
  for (const int row : {29999, 5, 12345, 12346, 0}) {
    EXPECT_EQ(ShownValues(*first->Offset(row, 0)->Resize(1, 2)), std::to_string(row) + "|'příliš žluťoučký kůň");
  }
}

TEST(ExcelImportTest, RefusesWhatASheetCannotHold) {
  ExcelFixture bench;
  const auto refused = [&](const std::string& text) {
    const Error error = ErrorOf([&] { bench.Import(text, "t"); });
    EXPECT_EQ(error.number(), 1004);
    return Shown(error.description());
  };
  EXPECT_NE(refused(std::string(32768, 'x')).find("32767"), std::string::npos);
  EXPECT_NE(refused(std::string(16384, ';')).find("16384"), std::string::npos);
  std::string rows;
  for (int row = 0; row <= 1048576; ++row) rows += "\r\n";
  EXPECT_NE(refused(rows).find("1048576"), std::string::npos);
  EXPECT_EQ(ErrorOf([&] {
              bench.Application()->OpenText({.Filename = u"/none/such.txt", .Other = true, .OtherChar = u";"});
            }).number(),
            1004);
  EXPECT_EQ(ErrorOf([&] { bench.Application()->OpenText({.Filename = u"/none/such.txt", .DataType = 2}); }).number(),
            438);
  // The longest that fits.
  const ExcelWorkbookReference import =
      bench.Import(std::string(32767, 'x') + ";\"" + std::string(32767, 'y') + "\"", "tt");
  EXPECT_EQ(import->Sheets(1)->Range(u"A1")->CurrentRegion()->ColumnCount(), 2);
}

TEST(ExcelImportTest, ACellHoldsCharactersNotBytes) {
  ExcelFixture bench;
  const struct {
    std::string character;
    std::size_t count;
    bool fits;
  } kRows[] = {{"ž", 32767, true}, {"ž", 32768, false}, {"☺", 32767, true}, {"😀", 16383, true}, {"😀", 16384, false}};
  for (const auto& row : kRows) {
    std::string text;
    for (std::size_t count = 0; count < row.count; ++count) text += row.character;
    bench.folder.Write("u.txt", text + "\r\n");
    const auto open = [&] {
      bench.Application()->OpenText(
          {.Filename = bench.folder.TextPath("u.txt"), .Origin = 65001, .Other = true, .OtherChar = u";"});
      bench.Application()->Workbooks(u"u.txt")->Close(false);
    };
    if (row.fits) {
      EXPECT_NO_THROW(open()) << row.character;
    } else {
      EXPECT_EQ(ErrorOf(open).number(), 1004) << row.character;
    }
  }
}

TEST(ExcelImportTest, AFileThatChangesMeanwhileIsAnError) {
  ExcelFixture bench;
  std::string many(3000, ';');
  for (int i = 0; i < 200; ++i) many += "\r\n" + std::string(3000, 'x');
  const ExcelWorkbookReference second = bench.Import(many, "t");
  std::filesystem::resize_file(bench.folder.Path("data.txt"), 10);
  EXPECT_EQ(ErrorOf([&] { second->Sheets(1)->Range(u"A1")->Offset(150, 0)->Value2(); }).number(), 57);
}

}  // namespace
}  // namespace zorkanca::testing
