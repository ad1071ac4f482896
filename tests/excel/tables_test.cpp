// The parts that cells refer to: cell formats, columns, shared texts.
#include <gtest/gtest.h>

#include "excel/sheet/column_table.h"
#include "excel/tables/shared_strings.h"
#include "excel/tables/style_book.h"
#include "opc/xml_document.h"
#include "support/excel_parts.h"

namespace zorkanca::excel {
namespace {

using testing::kSheetXml;

StyleBook Styles(const std::string& inside) {
  return StyleBook(ParseXml("<styleSheet xmlns=\"" + kSheetXml + "\">" + inside + "</styleSheet>", {}), "test.xlsx");
}

std::string InsideOf(const StyleBook& styles) {
  std::string xml;
  for (const pugi::xml_node child : styles.document().document_element().children()) xml += XmlBytes(child);
  return xml;
}

struct FormatCase {
  const char* before;
  CellFormatChange change;
  const char* after;
};

TEST(StyleBookTest, AChangedFormatIsACopyBehindTheOthers) {
  const FormatCase rows[] = {
      {"<cellXfs count=\"1\"><xf numFmtId=\"2\"/></cellXfs>",
       {.alignment = ExcelAlignment::kCenter},
       "<cellXfs count=\"2\"><xf numFmtId=\"2\"/><xf numFmtId=\"2\" applyAlignment=\"1\"><alignment "
       "horizontal=\"center\"/></xf></cellXfs>"},
      {"<cellXfs><xf><alignment vertical=\"top\" horizontal=\"left\"/><protection locked=\"0\"/></xf></cellXfs>",
       {.alignment = ExcelAlignment::kRight, .wrap = true},
       "<cellXfs count=\"2\"><xf><alignment vertical=\"top\" horizontal=\"left\"/><protection locked=\"0\"/></xf>"
       "<xf applyAlignment=\"1\"><alignment vertical=\"top\" horizontal=\"right\" wrapText=\"1\"/><protection "
       "locked=\"0\"/></xf></cellXfs>"},
      {"<cellXfs><xf><protection locked=\"0\"/></xf></cellXfs>",
       {.wrap = false},
       "<cellXfs count=\"2\"><xf><protection locked=\"0\"/></xf><xf applyAlignment=\"1\"><alignment wrapText=\"0\"/>"
       "<protection locked=\"0\"/></xf></cellXfs>"},
      {"<cellXfs><xf/></cellXfs>",
       {.quotePrefix = true, .numberFormat = NumberFormatCode{.id = 49}},
       "<cellXfs count=\"2\"><xf/><xf numFmtId=\"49\" applyNumberFormat=\"1\" quotePrefix=\"1\"/></cellXfs>"},
      // Own number formats: a pattern that is there is used again, others get the next number.
      {"<numFmts count=\"1\"><numFmt numFmtId=\"170\" formatCode=\"0.0\"/></numFmts><cellXfs><xf/></cellXfs>",
       {.numberFormat = NumberFormatCode{.pattern = "0.0"}},
       "<numFmts count=\"1\"><numFmt numFmtId=\"170\" formatCode=\"0.0\"/></numFmts><cellXfs count=\"2\"><xf/><xf "
       "numFmtId=\"170\" applyNumberFormat=\"1\"/></cellXfs>"},
      {"<numFmts count=\"1\"><numFmt numFmtId=\"170\" formatCode=\"0.0\"/></numFmts><cellXfs><xf/></cellXfs>",
       {.numberFormat = NumberFormatCode{.pattern = "0 \"ks\""}},
       "<numFmts count=\"2\"><numFmt numFmtId=\"170\" formatCode=\"0.0\"/><numFmt numFmtId=\"171\" formatCode=\"0 "
       "&quot;ks&quot;\"/></numFmts><cellXfs count=\"2\"><xf/><xf numFmtId=\"171\" "
       "applyNumberFormat=\"1\"/></cellXfs>"},
      {"<fonts><font/></fonts><cellXfs><xf/></cellXfs>",
       {.numberFormat = NumberFormatCode{.pattern = "0.0"}},
       "<numFmts count=\"1\"><numFmt numFmtId=\"164\" formatCode=\"0.0\"/></numFmts><fonts><font/></fonts><cellXfs "
       "count=\"2\"><xf/><xf numFmtId=\"164\" applyNumberFormat=\"1\"/></cellXfs>"},
      // A bold font is a copy of the font.
      {"<fonts count=\"2\"><font><sz val=\"8\"/></font><font><i/><sz val=\"9\"/></font></fonts><cellXfs><xf "
       "fontId=\"1\"/></cellXfs>",
       {.bold = true},
       "<fonts count=\"3\"><font><sz val=\"8\"/></font><font><i/><sz val=\"9\"/></font><font><b/><i/><sz val=\"9\"/>"
       "</font></fonts><cellXfs count=\"2\"><xf fontId=\"1\"/><xf fontId=\"2\" applyFont=\"1\"/></cellXfs>"},
      {"<fonts><font><b/></font></fonts><cellXfs><xf fontId=\"0\"/></cellXfs>",
       {.bold = true},
       "<fonts><font><b/></font></fonts><cellXfs count=\"2\"><xf fontId=\"0\"/><xf fontId=\"0\" applyFont=\"1\"/>"
       "</cellXfs>"},
      {"<fonts><font><b val=\"1\"/></font></fonts><cellXfs><xf fontId=\"0\"/></cellXfs>",
       {.bold = false},
       "<fonts count=\"2\"><font><b val=\"1\"/></font><font/></fonts><cellXfs count=\"2\"><xf fontId=\"0\"/><xf "
       "fontId=\"1\" applyFont=\"1\"/></cellXfs>"},
      {"<cellXfs><xf/></cellXfs><dxfs/>",
       {.bold = true},
       "<fonts><font><b/></font></fonts><cellXfs count=\"2\"><xf/><xf fontId=\"0\" applyFont=\"1\"/></cellXfs><dxfs/>"},
  };
  for (const FormatCase& row : rows) {
    StyleBook styles = Styles(row.before);
    const auto index = static_cast<std::uint32_t>(styles.size() - 1);
    EXPECT_EQ(styles.Changed(index, row.change), index + 1);
    EXPECT_EQ(InsideOf(styles), row.after);
    EXPECT_EQ(styles.Changed(index, row.change), index + 1);  // made once
    EXPECT_EQ(styles.size(), index + 2U);
  }
}

TEST(StyleBookTest, WhatCountsOfAFormat) {
  const StyleBook styles = Styles(
      "<numFmts><numFmt numFmtId=\"165\" formatCode=\"0.0\"/><numFmt numFmtId=\"14\" formatCode=\"yyyy\"/></numFmts>"
      "<fonts><font><sz val=\"8\"/><name val=\"Arial\"/></font><font><b val=\"false\"/></font></fonts>"
      "<cellStyleXfs><xf fontId=\"1\"/></cellStyleXfs><cellXfs><xf numFmtId=\"165\" fontId=\"0\"/><xf numFmtId=\"14\" "
      "fontId=\"1\"/><xf numFmtId=\"4\" fontId=\"9\"/><mc:AlternateContent "
      "xmlns:mc=\"http://schemas.openxmlformats.org/markup-compatibility/2006\"><mc:Choice Requires=\"x\"><xf "
      "numFmtId=\"1\"/></mc:Choice><mc:Fallback><xf numFmtId=\"2\"/></mc:Fallback></mc:AlternateContent></cellXfs>");
  ASSERT_EQ(styles.size(), 4U);
  const char* const patterns[] = {"0.0", "yyyy", "#,##0.00", "0.00"};
  for (std::uint32_t i = 0; i < 4; ++i) EXPECT_EQ(styles.NumberFormatOf(i).pattern, patterns[i]);
  EXPECT_EQ(styles.FontOf(0).name, "Arial");
  EXPECT_EQ(styles.FontOf(0).size, 8);
  EXPECT_FALSE(styles.FontOf(1).bold);
  EXPECT_EQ(styles.FontOf(2).name, "Calibri");  // no such font
  EXPECT_EQ(styles.StandardFont().name, "Calibri");
  EXPECT_FALSE(styles.changed());
}

TEST(ColumnTableTest, ColumnsAreCutOutOfRanges) {
  struct Row {
    std::function<void(ColumnTable&)> change;
    const char* xml;
  };
  const Row rows[] = {
      {[](ColumnTable&) {}, "<col min=\"2\" max=\"5\" style=\"7\" width=\"9\" hidden=\"1\"/>"},
      {[](ColumnTable& table) { table.SetStyle(1, 3); },
       "<col min=\"1\" max=\"1\" width=\"9.140625\" style=\"3\"/><col min=\"2\" max=\"5\" style=\"7\" width=\"9\" "
       "hidden=\"1\"/>"},
      {[](ColumnTable& table) { table.SetStyle(2, 3); },
       "<col min=\"2\" max=\"2\" style=\"3\" width=\"9\" hidden=\"1\"/><col min=\"3\" max=\"5\" style=\"7\" "
       "width=\"9\" "
       "hidden=\"1\"/>"},
      {[](ColumnTable& table) { table.SetStyle(4, 0); },
       "<col min=\"2\" max=\"3\" style=\"7\" width=\"9\" hidden=\"1\"/><col min=\"4\" max=\"4\" width=\"9\" "
       "hidden=\"1\"/><col min=\"5\" max=\"5\" style=\"7\" width=\"9\" hidden=\"1\"/>"},
      {[](ColumnTable& table) { table.SetStyle(5, 3); },
       "<col min=\"2\" max=\"4\" style=\"7\" width=\"9\" hidden=\"1\"/><col min=\"5\" max=\"5\" style=\"3\" "
       "width=\"9\" "
       "hidden=\"1\"/>"},
      {[](ColumnTable& table) { table.SetFittedWidth(5, 12.5); },
       "<col min=\"2\" max=\"4\" style=\"7\" width=\"9\" hidden=\"1\"/><col min=\"5\" max=\"5\" style=\"7\" "
       "width=\"12.5\" bestFit=\"1\" customWidth=\"1\" hidden=\"1\"/>"},
      {[](ColumnTable& table) {
         table.SetFittedWidth(6, 3);
         table.SetFittedWidth(6, 4);
         table.SetStyle(6, 1);
       },
       "<col min=\"2\" max=\"5\" style=\"7\" width=\"9\" hidden=\"1\"/><col min=\"6\" max=\"6\" style=\"1\" "
       "width=\"4\" "
       "bestFit=\"1\" customWidth=\"1\"/>"},
  };
  for (const Row& row : rows) {
    ColumnTable table;
    table.Add(2, 5, 7, " min=\"2\" max=\"5\" width=\"9\" style=\"7\" hidden=\"1\"");
    row.change(table);
    EXPECT_EQ(table.ToXml(""), row.xml);
  }
  ColumnTable table;
  EXPECT_TRUE(table.empty());
  table.Add(2, 5, 7, " width=\"9.5\"");
  table.Add(8, 8, 1, " hidden=\"1\"");
  EXPECT_EQ(table.WidthOf(1), std::nullopt);
  EXPECT_EQ(table.WidthOf(2), 9.5);
  EXPECT_EQ(table.WidthOf(5), 9.5);
  EXPECT_EQ(table.WidthOf(6), std::nullopt);
  EXPECT_EQ(table.WidthOf(8), std::nullopt);
  EXPECT_EQ(table.StyleOf(5), 7U);
  EXPECT_EQ(table.StyleOf(6), 0U);
}

TEST(SharedStringsTest, NewTextsComeBehindTheOld) {
  struct Row {
    std::string before;
    std::vector<const char*> added;
    std::string after;
  };
  const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n";
  const std::string root = "<sst xmlns=\"" + kSheetXml + "\"";
  const Row rows[] = {
      {"", {"a", "b", "a"}, root + " count=\"9\" uniqueCount=\"2\"><si><t>a</t></si><si><t>b</t></si></sst>"},
      {root + " count=\"7\" uniqueCount=\"7\"/>",
       {"a"},
       root + " count=\"9\" uniqueCount=\"1\"><si><t>a</t></si></sst>"},
      {root + "><si><r><t>x</t></r></si></sst>",
       {" x"},
       root + " count=\"9\" uniqueCount=\"2\"><si><r><t>x</t></r></si><si><t xml:space=\"preserve\"> x</t></si></sst>"},
      {root + " x=\"y\"><!--c--><si><t>x</t></si><extLst><ext/></extLst></sst>",
       {"<"},
       root + " x=\"y\" count=\"9\" uniqueCount=\"2\"><!--c--><si><t>x</t></si><si><t>&lt;</t></si><extLst><ext/>"
              "</extLst></sst>"},
      {"<x:sst xmlns:x=\"" + kSheetXml + "\"><x:si><x:t>x</x:t></x:si></x:sst>",
       {"y"},
       "<x:sst xmlns:x=\"" + kSheetXml +
           "\" count=\"9\" uniqueCount=\"2\"><x:si><x:t>x</x:t></x:si><x:si><x:t>y</x:t></x:si></x:sst>"},
  };
  for (const Row& row : rows) {
    const SharedStrings existing = row.before.empty() ? SharedStrings() : SharedStrings(row.before, {});
    TextTable table(existing);
    for (const char* text : row.added) EXPECT_GE(table.Share(1, text).value(), existing.size());
    StringSink sink;
    table.Write(sink, 9, kSheetXml);
    EXPECT_EQ(sink.bytes(), declaration + row.after) << row.before;
    const SharedStrings again(sink.bytes(), {});
    EXPECT_EQ(again.count(), 9U);
    EXPECT_EQ(again.TextOf(again.size() - 1), std::string(row.added.size() == 3 ? "b" : row.added.back()));
  }
}

}  // namespace
}  // namespace zorkanca::excel
