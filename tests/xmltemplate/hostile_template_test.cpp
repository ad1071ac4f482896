// Templates that would keep a careless program busy for hours: each would cost the square of its size if some operation
// searched or copied the text anew. What the results must be is settled by the comparison with the rules.
#include "support/memory_platform.h"

#include <gtest/gtest.h>
#include "support/text_support.h"
#include "xmltemplate/template_factory.h"

namespace zorkanca::testing {
namespace {

constexpr int kMany = 50'000;

class HostileTemplate : public ::testing::Test {
 protected:
  HostileTemplate() { sheet_.XmlProcessFactory(&factory_); }

  static Text Times(int count, TextView text) {
    Text repeated;
    for (int index = 0; index < count; ++index) repeated += text;
    return repeated;
  }

  // Of texts as large as these the framework would look for their differences all night.
  static void ExpectSame(const Text& text, const Text& expected) {
    const auto [left, right] = std::mismatch(text.begin(), text.end(), expected.begin(), expected.end());
    if (left == text.end() && right == expected.end()) return;
    const auto place = static_cast<std::size_t>(left - text.begin());
    ADD_FAILURE() << "at " << place << ": " << Shown(text.substr(place, 80)) << "\n but "
                  << Shown(Text(right, expected.end()).substr(0, 80));
  }

  MemoryPlatform platform_;
  cExcel2003XmlTemplateFactory factory_{platform_.platform};
  cExcel2003XmlWorksheet sheet_{u"List", platform_.locale};
  static constexpr TaggedCell kCell{.ColSign = 1, .RowSign = 1};
};

constexpr TextView kMarker = u"<?zrx_xls #GD-C1-c[***]-R1-r[***]-# ?>";
constexpr TextView kBegin = u"<?zrx_xls #grid_rows_(1)_begin# ?>";
constexpr TextView kEnd = u"<?zrx_xls #grid_rows_(1)_end# ?>";

TEST_F(HostileTemplate, MarkersWithoutEnd) {
  const Text text = Times(kMany, kMarker) + Times(kMany, u"<?zrx_xls <Cell ") + Times(kMany, u"<?  \t ");
  sheet_.Load(text);
  for (int index = 0; index < kMany; ++index) sheet_.SetDataIntoTaggedCell(u"x", kCell);
  ExpectSame(sheet_.XmlCode(), Times(kMany, u"x") + text.substr(kMarker.size() * kMany));
  ExpectSame(sheet_.Compose(), sheet_.XmlCode());
}

TEST_F(HostileTemplate, CellsOutsideOfElements) {
  sheet_.Load(Times(kMany, kMarker) + u"<Cell>" + Times(kMany, kMarker));
  for (int index = 0; index < kMany; ++index) {
    sheet_.RemoveDataFromTaggedCell(kCell);
    sheet_.SetAttributeValueToTaggedCell(u"ss:X", u"1", kCell);
    sheet_.SetAttributeValueToTable(u"ss:X", u"1");
    sheet_.SetDataIntoTaggedCell(u"x", kCell);
  }
  for (int index = 0; index < kMany; ++index) {
    sheet_.SetAttributeValueToTaggedCell(u"ss:X", DecimalText(index), kCell);
    sheet_.SetDataIntoTaggedCell(u"x > 1", kCell);
  }
  ExpectSame(sheet_.XmlCode(), Times(kMany, u"x") + u"<Cell ss:X=\"49999\">" + Times(kMany, u"x > 1"));
}

TEST_F(HostileTemplate, GridsInGrids) {
  sheet_.Load(Times(kMany, kBegin) + kMarker.data() + Times(kMany, kEnd));
  sheet_.SetRowsOfTaggedGrid(1, 1);
  const Text text = sheet_.XmlCode();
  EXPECT_EQ(text.find(u"grid"), Text::npos);
  EXPECT_NE(text.find(u"-r[001]-"), Text::npos);

  sheet_.Load(Times(kMany, kBegin) + Times(kMany, kEnd) + u"behind");
  const Error error = ErrorOf([&] { sheet_.SetRowsOfTaggedGrid(1, 10); });
  EXPECT_EQ(error.number(), 7);
  EXPECT_TRUE(sheet_.XmlCode().ends_with(u"behind"));
}

TEST_F(HostileTemplate, ManyGrids) {
  const Text grid = Text(kBegin) + u"<Cell>" + Text(kMarker) + Text(kEnd);
  sheet_.Load(Text(kEnd) + Times(kMany, grid));
  sheet_.SetRowsOfTaggedGrid(1, 3);
  for (int index = 0; index < kMany; ++index) {
    for (const std::int16_t row : {std::int16_t{3}, std::int16_t{1}, std::int16_t{2}}) {
      sheet_.SetDataIntoTaggedCell(DecimalText(row), {.ColSign = 1, .RowSign = 1, .RowIndex = row});
    }
  }
  ExpectSame(sheet_.Compose(), Times(kMany, u"   <Cell>1\r\n   <Cell>2\r\n   <Cell>3\r\n"));
}

TEST_F(HostileTemplate, ManySections) {
  const Text begin = u"<?zrx_xls #worksheet_section_begin(1)# ?>";
  const Text end = u"<?zrx_xls #worksheet_section_end(1)# ?>";
  sheet_.Load(Times(kMany, begin + u"x" + end) + Times(kMany, begin));
  EXPECT_EQ(sheet_.TemplateSections().Count(), kMany);
  for (int index = 0; index < kMany; ++index) sheet_.AddWorksheetSection(1);
  ExpectSame(sheet_.Compose(), Times(kMany, u"x\r\n").substr(0, 3 * kMany - 2));

  // Each number's section holds the place of the next one.
  Text nested;
  for (int number = 1; number <= 20'000; ++number) {
    const Text digits = DecimalText(number);
    nested += u"<?zrx_xls #worksheet_section_begin(" + digits + u")# ?>x<?zrx_xls #worksheet_section(" +
              DecimalText(number + 1) + u")# ?><?zrx_xls #worksheet_section_end(" + digits + u")# ?>";
  }
  cExcel2003XmlWorksheet sheet{u"List", platform_.locale};
  sheet.XmlProcessFactory(&factory_);
  sheet.Load(nested);
  for (std::int16_t number = 1; number <= 20'000; ++number) sheet.AddWorksheetSection(number);
  ExpectSame(sheet.Compose(), Times(20'000, u"x"));
}

TEST_F(HostileTemplate, CommentsAndBlanks) {
  sheet_.Load(Times(kMany, u"<!") + Times(kMany, u"<!---->--") + Times(kMany, u" \t\r\n") + Times(kMany, u"-->") +
              Times(kMany, u"        ") + Text(kMarker) + Text(kMarker));
  sheet_.SetDataIntoTaggedCell(u"", kCell);
  sheet_.SetDataIntoTaggedCell(u"x", kCell);
  EXPECT_TRUE(sheet_.Compose().ends_with(u" x"));
}

}  // namespace
}  // namespace zorkanca::testing
