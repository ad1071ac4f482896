// The product against the plainly written rules: generated templates, most of them broken in some way, and random
// sequences of operations whose data break them further. After each step both texts must be the same.
#include <gtest/gtest.h>

#include <functional>
#include <random>

#include "support/memory_platform.h"
#include "support/text_support.h"
#include "xmltemplate/naive_template.h"
#include "xmltemplate/template_factory.h"

namespace zorkanca::testing {
namespace {

constexpr std::size_t kLarge = 5'000;  // the rules take their time: the grids of longer texts are not multiplied

class Comparison {
 public:
  Comparison(unsigned seed, int fragments) : random_(seed) {
    product_.XmlProcessFactory(&factory_);
    const Text sheet = Fragments(fragments);
    naive_.text = sheet;
    Both([&] { product_.Load(sheet); }, [&] { naive::ExtractSections(naive_, platform_.locale); });
    Compare("sections");
  }

  void Run(int steps) {
    for (int step = 0; step < steps && !::testing::Test::HasFailure(); ++step) Step();
    Text ours;
    Text rules;
    Both([&] { ours = product_.Compose(); }, [&] { rules = naive::Compose(naive_); });
    EXPECT_EQ(Shown(ours), Shown(rules));
  }

 private:
  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  std::int16_t Sign() { return static_cast<std::int16_t>(Below(3) - (Below(30) == 0 ? 2 : 0)); }
  std::int16_t Index() { return static_cast<std::int16_t>(Below(20) == 0 ? 1000 : Below(4)); }

  Text Number(std::int16_t number) { return DecimalText(number); }
  Text CellMarker() {
    Text text = Below(9) == 0 ? u"<? zrx_XLS #GD-C" : u"<?zrx_xls #gd-C";
    text += Number(Sign()) + u"-c[" + (Below(2) ? Text(u"***") : naive::Index(Index())) + u"]-R" + Number(Sign());
    return text + u"-r[" + (Below(2) ? Text(u"***") : naive::Index(Index())) + u"]-# ?>";
  }
  Text GridMarker() {
    const Text name = Below(2) ? u"cols" : u"ROWS";
    return u"<?zrx_xls #grid_" + name + u"_(" + Number(Sign()) + (Below(2) ? u")_begin# ?>" : u")_end# ?>");
  }
  Text SectionMarker() {
    const TextView names[] = {u"_begin", u"_end", u"_begin", u""};
    const Text number = Below(9) == 0 ? Text(u"1x") : Number(Sign());
    return Text(u"<?zrx_xls ") + (Below(6) ? u"" : u" ") + u"#worksheet_section" + Text(names[Below(4)]) + u"(" +
           number + u")# ?>";
  }
  Text WholeCell() {
    return u"<Cell" + Text(Below(2) ? u" ss:StyleID=\"s1\"" : u"") + u"><Data ss:Type=\"String\">" + CellMarker() +
           u"</Data></Cell>\r\n";
  }

  Text Fragment() {
    static const std::vector<TextView> plain = {
        u"<",
        u">",
        u"<?",
        u"?>",
        u" ?>",
        u"?",
        u"<?zrx_xls ",
        u"zrx_xls ",
        u"zr",
        u"<Cell",
        u"<cell ",
        u"<Cell>",
        u"</Cell>",
        u"<Data",
        u"<DATA>",
        u"</Da",
        u"ta>",
        u"</Data>",
        u"<Table",
        u"<Table ",
        u"<!--",
        u"-->",
        u"<Column ",
        u"<Column/>",
        u"<Column>",
        u"/>",
        u" ss:StyleID",
        u"=",
        u"\"",
        u"=\"x\"",
        u" ",
        u"\t",
        u"\u00A0",
        u"\r",
        u"\n",
        u"\r\n",
        u"\r\n",
        u"   \r\n",
        u"***",
        u"#GD-C1-c[",
        u"]-R1-r[***]-#",
        u"#",
        u"x",
        u"]-R1-r[",
        u"]-#",
        u"<Worksheet ss:Name=\"a\"><Table>",
        u"<?xml other?>",
        u"#worksheet_section(1)#",
        u"        ",
    };
    const int kind = Below(20);
    if (kind < 4) return CellMarker();
    if (kind < 7) return WholeCell();
    if (kind < 9) return GridMarker();
    if (kind < 10) return SectionMarker();
    return Text(plain[random_() % plain.size()]);
  }
  Text Fragments(int count) {
    Text text;
    for (int index = 0; index < count; ++index) text += Fragment();
    return text;
  }
  Text Data() { return Below(2) ? Text(u"žluť 12") : Fragments(Below(4)); }

  // Runs both sides; both must raise the same error, or none.
  void Both(const std::function<void()>& product, const std::function<void()>& rules) {
    const auto numberOf = [](const std::function<void()>& body) {
      try {
        body();
        return 0;
      } catch (const Error& error) {
        return error.number();
      }
    };
    EXPECT_EQ(numberOf(product), numberOf(rules));
  }

  void Compare(const std::string& operation) {
    EXPECT_EQ(Shown(product_.XmlCode()), Shown(naive_.text)) << operation;
    ASSERT_EQ(static_cast<std::size_t>(product_.Sections().Count()), naive_.sections.size()) << operation;
    std::size_t index = 0;
    for (const auto& section : product_.Sections()) {
      EXPECT_EQ(Shown(section->XmlCode()), Shown(naive_.sections[index++].second)) << operation;
    }
  }

  void Step() {
    const int operation = Below(20);
    if (operation == 0) {
      const auto index = static_cast<std::int16_t>(Below(5));
      const bool autoFit = Below(2) == 0;
      Both([&] { product_.SetColumnWidth(index, 12.5f, autoFit); },
           [&] { naive::SetColumnWidth(naive_, index, u"12.5", autoFit); });
    } else if (operation == 1) {
      AddSection();
    } else if (operation == 2) {
      const Text name = Below(3) ? u"ss:X" : Fragment();
      EXPECT_EQ(Shown(product_.GetAttributeValueFromTable(name)),
                Shown(naive::GetTagAttribute(naive_.text, naive::TableTag(naive_.text), name)));
      const Text value = Data();
      product_.SetAttributeValueToTable(name, value);
      naive_.text = naive::SetTagAttribute(naive_.text, naive::TableTag(naive_.text), name, value);
    } else if (naive_.sections.empty() || Below(2)) {
      StepOn(product_, naive_.text);
    } else {
      const std::size_t index = random_() % naive_.sections.size();
      StepOn(**(product_.Sections().begin() + static_cast<std::ptrdiff_t>(index)), naive_.sections[index].second);
    }
    Compare("operation " + std::to_string(operation));
  }

  void AddSection() {
    const std::int16_t number = Sign();
    const bool isAdded = product_.AddWorksheetSection(number) != nullptr;
    const auto found = std::find_if(naive_.templates.begin(), naive_.templates.end(),
                                    [&](const auto& section) { return section.first == number; });
    EXPECT_EQ(isAdded, found != naive_.templates.end());
    if (isAdded) naive_.sections.push_back(*found);
  }

  // An operation that worksheets and sections have both.
  template <typename Product>
  void StepOn(Product& product, Text& rules) {
    const TaggedCell cell{.ColSign = Sign(), .RowSign = Sign(), .ColIndex = Index(), .RowIndex = Index()};
    const naive::Cell same{cell.ColSign, cell.RowSign, cell.ColIndex, cell.RowIndex};
    const int operation = Below(16);
    const Text name = Below(3) ? u"ss:StyleID" : u"ss:X";
    const Text value = Data();
    if (operation < 7) {
      product.SetDataIntoTaggedCell(value, cell);
      rules = naive::SetCellData(rules, value, same, *platform_.locale.codePage);
    } else if (operation < 8) {
      product.RemoveDataFromTaggedCell(cell);
      rules = naive::RemoveCellData(rules, same);
    } else if (operation < 11) {
      product.SetAttributeValueToTaggedCell(name, value, cell);
      rules = naive::SetCellAttribute(rules, name, value, same);
    } else if (operation < 12) {
      EXPECT_EQ(Shown(product.GetAttributeValueFromTaggedCell(name, cell)),
                Shown(naive::GetTagAttribute(rules, naive::CellTag(rules, same), name)));
    } else {
      const int count = Below(rules.size() < kLarge ? 4 : 2);
      if (operation < 14) {
        product.SetColsOfTaggedGrid(cell.ColSign, static_cast<std::int16_t>(count));
      } else {
        product.SetRowsOfTaggedGrid(cell.ColSign, static_cast<std::int16_t>(count));
      }
      rules = naive::ExpandGrid(rules, operation < 14, cell.ColSign, count);
    }
  }

  std::mt19937 random_;
  MemoryPlatform platform_;
  cExcel2003XmlTemplateFactory factory_{platform_.platform};
  cExcel2003XmlWorksheet product_{u"List", platform_.locale};
  naive::Worksheet naive_;
};

TEST(SpreadsheetXml, DoesWhatTheRulesSay) {
  for (unsigned seed = 0; seed < 1000 && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Comparison(seed, 5 + static_cast<int>(seed % 60)).Run(20);
  }
}

TEST(SpreadsheetXml, DoesWhatTheRulesSayInLargeTexts) {
  for (unsigned seed = 0; seed < 4 && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Comparison(100'000 + seed, 1500).Run(40);
  }
}

}  // namespace
}  // namespace zorkanca::testing
