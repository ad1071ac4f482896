#include "excel/display/number_format.h"

#include <gtest/gtest.h>

#include "excel/display/text_width.h"
#include "support/text_support.h"

namespace zorkanca::excel {
namespace {

using testing::Shown;

std::string Show(const char* pattern, const CellValue& value, const char* tag = "cs-CZ") {
  const Locale& locale = *FindLocale(FromUtf8(tag));
  const Text text = NumberFormat({.pattern = pattern}, locale, false).Show(value);
  const std::string shown = Shown(Replace(text, u"\u00A0", u"~"));
  return shown;
}

struct Row {
  const char* pattern;
  double value;
  const char* shown;
};

TEST(NumberFormatTest, Numbers) {
  const Row rows[] = {
      {"General", 0, "0"},
      {"General", 1234.5, "1234,5"},
      {"General", 0.1234567890123, "0,123456789"},
      {"General", 12345678901, "12345678901"},
      {"General", 123456789012, "1,23457E+11"},
      {"General", -0.5, "-0,5"},
      {"General\" ks\"", 5, "5 ks"},
      {"0", 2.5, "3"},
      {"0.00", 1.005, "1,01"},
      {"#,##0.00", 1234567.891, "1~234~567,89"},
      {"#,##0", -1234, "-1~234"},
      {"#", 0, ""},
      {"0.##", 2, "2,"},
      {"000", 7, "007"},
      {"000\\-000", 123456, "123-456"},
      {"??0", 5, "  5"},
      {"0.0?", 1.5, "1,5 "},
      {"0%", 0.125, "13%"},
      {"0.00E+00", 12000, "1,20E+04"},
      {"0.0E-0", 0.00012, "1,2E-4"},
      {"0.00E+00", 9.996, "1,00E+01"},
      {"0.00E+00", -99.96, "-1,00E+02"},
      {"0.0E+0", 0.0996, "1,0E-1"},
      {"0.00E+00", 9.994, "9,99E+00"},
      {"0.00E+00", 0, "0,00E+00"},
      {"##0.0E+0", 12345, "12,3E+3"},
      {"##0.0E+0", -123456, "-123,5E+3"},
      {"##0.0E+0", 999.96, "1,0E+3"},
      {"##0.0E+0", 0.00012, "120,0E-6"},
      {"##0.0E+0", 0.0123, "12,3E-3"},
      {"##0.0E+0", 1, "1,0E+0"},
      {"#,##0,", 1234567, "1~235"},
      {"0.0,,\" mil.\"", 1250000, "1,3 mil."},
      {"#,##0.00\\ \"Kč\"", 5, "5,00 Kč"},
      {"#,##0.00\\ [$Kč-405]", 5, "5,00 Kč"},
      {"_-* #,##0_-", 5, " 5 "},
      {"0;(0)", -5, "(5)"},
      {"0;[Red]-0;\"nic\"", 0, "nic"},
      {"[<100]\"málo\";0", 5, "málo"},
      {"[<100]\"málo\";0", 500, "500"},
      {"0;;", -5, ""},
      {".00", 12.5, "12,50"},
      {"0.00;-0.00;;@", 0, ""},
      {"[>=1000]#,##0,\" tis.\";[<0]\"-\";0", 1234, "1 tis."},
      {"[>=1000]#,##0,\" tis.\";[<0]\"-\";0", -1, "-"},
      {"[>=1000]#,##0,\" tis.\";[<0]\"-\";0", 7, "7"},
      {"[>5]0", 3, "#"},
      {"[<>0]0", 3, "3"},
      {"[=3]\"tři\";0", 3, "tři"},
      {"[<=3]\"málo\";0", 3, "málo"},
      {"[>3]\"moc\";0", 3, "3"},
      {"#,##0.00", 0, "0,00"},
      {"#,##0.00", -0.001, "0,00"},
      {"#,###", 1000000, "1~000~000"},
      {"0000000.0", -12.34, "-0000012,3"},
      {"0.0%", -0.1234, "-12,3%"},
      {"0\"%\"", 5, "5%"},
      {"\\#0", 5, "#5"},
      {"# ?/?", 0.5, "0,5"},
      {"# ?/?;[Red]# ?/?", -1.25, "1,25"},
      {"@", 5, "5"},
      {"\"Celkem: \"0", 5, "Celkem: 5"},
      {"0.000", 1e15, "1000000000000000,000"},
      {"General", 1e-10, "1E-10"},
      {"General", 99999999999.5, "1E+11"},
      {"General", 0.00001234, "0,00001234"},
      {"General;[Red]General", -5, "5"},
  };
  for (const Row& row : rows) EXPECT_EQ(Show(row.pattern, row.value), row.shown) << row.pattern << " of " << row.value;
}

TEST(NumberFormatTest, Dates) {
  const Row rows[] = {
      {"d.m.yyyy", 45356, "5.3.2024"},
      {"dd/mm/yy", 45356, "05.03.24"},
      {"d. mmmm yyyy", 45356, "5. března 2024"},
      {"mmmm yyyy", 45356, "březen 2024"},
      {"ddd dddd", 45356, "út úterý"},
      {"[$-409]mmmm d, yyyy", 45356, "March 5, 2024"},
      {"h:mm", 0.75, "18:00"},
      {"hh:mm:ss", 45356.250011574, "06:00:01"},
      {"h:mm AM/PM", 0.75, "6:00 PM"},
      {"mm:ss", 0.000706, "01:01"},
      {"mm:ss.0", 0.00001794, "00:01,5"},
      {"[h]:mm", 1.5, "36:00"},
      {"[mm]", 0.25, "360"},
      {"d.m.yyyy", 60, "29.2.1900"},
      {"d.m.yyyy", 1, "1.1.1900"},
      {"d.m.yyyy", -1, "#"},
      {"m", 45356, "3"},
      {"yyyy-mm-dd\\Thh:mm", 45356.5, "2024-03-05T12:00"},
      {"h:mm:ss a/p", 0.25, "6:00:00 A"},
      {"h AM/PM", 0, "12 AM"},
      {"h AM/PM", 0.5, "12 PM"},
      {"hh:mm", 0.999999, "00:00"},
      {"mmm yy", 45356, "bře 24"},
      {"mmmmm", 45356, "b"},
      {"[$-405]d. mmmm", 45356, "5. března"},
      {"[$-407]mmmm", 45356, "März"},
      {"[s]", 0.001, "86"},
      {"[hh]:mm:ss", 2.5, "60:00:00"},
      {"d.m.yyyy", 61, "1.3.1900"},
      {"d.m.yyyy", 59, "28.2.1900"},
      {"d.m.yyyy", 2958465, "31.12.9999"},
      {"d.m.yyyy", 2958466, "#"},
      {"d.m.yyyy;@", 45356, "5.3.2024"},
  };
  for (const Row& row : rows) EXPECT_EQ(Show(row.pattern, row.value), row.shown) << row.pattern;
  const Locale& czech = *FindLocale(u"cs-CZ");
  EXPECT_EQ(Shown(NumberFormat({.id = 14}, czech, false).Show(45356.0)), "5.3.2024");
  EXPECT_EQ(Shown(NumberFormat({.id = 22}, czech, true).Show(43894.5)), "5.3.2024 12:00");
}

TEST(NumberFormatTest, OtherValues) {
  EXPECT_EQ(Show("0.00", std::string("text")), "text");
  EXPECT_EQ(Show("@", std::string("text")), "text");
  EXPECT_EQ(Show("0;0;0;\"<\"@\">\"", std::string("text")), "<text>");
  EXPECT_EQ(Show("0.00", true), "PRAVDA");
  EXPECT_EQ(Show("0.00", ErrorValue{"#N/A"}), "#N/A");
  EXPECT_EQ(Show("0.00", std::monostate()), "");
  EXPECT_EQ(Show("\"unclosed", 5.0), "unclosed");
  EXPECT_EQ(Show("[", 5.0), "");
}

TEST(TextWidthsTest, ColumnsFitTheirTexts) {
  const TextWidths calibri(CellFont{});
  EXPECT_EQ(calibri.DigitPixels(), 7);
  EXPECT_NEAR(calibri.PixelsOf("12345"), 37.2, 0.1);
  EXPECT_NEAR(calibri.PixelsOf("Příliš"), calibri.PixelsOf("Prilis"), 0.01);
  EXPECT_GT(calibri.PixelsOf("漢字"), calibri.PixelsOf("ab"));
  EXPECT_NEAR(calibri.PixelsOfLines("a\nlonger\nbb"), calibri.PixelsOf("longer"), 0.01);
  EXPECT_GT(TextWidths(CellFont{.bold = true}).PixelsOf("Cena"), calibri.PixelsOf("Cena"));
  EXPECT_GT(TextWidths(CellFont{.name = "Neznámé"}).PixelsOf("Cena"), calibri.PixelsOf("Cena"));
  // Five digits of seven pixels and margins of five: 40 pixels, which are 5.71 digits.
  EXPECT_EQ(ColumnWidthFor(35, 7), 5.7109375);
  EXPECT_EQ(ColumnWidthFor(36, 7), 6);
  EXPECT_EQ(ColumnWidthFor(1e9, 7), 255);
}

}  // namespace
}  // namespace zorkanca::excel
