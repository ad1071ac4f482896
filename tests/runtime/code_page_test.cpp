#include "runtime/code_page.h"

#include <gtest/gtest.h>

#include "runtime/locale.h"
#include "support/case_table.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

/// The text of a cell such as "U+20AC".
Text TextOf(const std::string& cell) {
  auto character = static_cast<char32_t>(std::stoul(cell.substr(2), nullptr, 16));
  if (character < 0x10000) return Text(1, static_cast<char16_t>(character));
  character -= 0x10000;
  return {static_cast<char16_t>(0xD800 + (character >> 10)), static_cast<char16_t>(0xDC00 + (character & 0x3FF))};
}

/// The bytes of a cell such as "3F3F".
std::string BytesOf(const std::string& cell) {
  std::string bytes;
  for (std::size_t index = 0; index < cell.size(); index += 2) {
    bytes.push_back(static_cast<char>(std::stoul(cell.substr(index, 2), nullptr, 16)));
  }
  return bytes;
}

TEST(CodePage, EachCaseOfTheTable) {
  for (const CaseRow& row : ReadCaseTable("runtime/data/code_page.tsv")) {
    const CodePage& page = CodePage::Get(std::stoi(row.Cell(1)));
    if (row.Cell(0) == "decode") {
      Text text;
      page.AppendDecoded(text, BytesOf(row.Cell(2)));
      EXPECT_EQ(text, TextOf(row.Cell(3))) << "line " << row.line;
    } else {
      std::string bytes;
      page.AppendEncoded(bytes, TextOf(row.Cell(2)));
      EXPECT_EQ(bytes, BytesOf(row.Cell(3))) << "line " << row.line;
    }
  }
}

TEST(CodePage, EveryByteSurvivesTheWayInAndOut) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all.push_back(static_cast<char>(byte));
  for (const int number : {1250, 1251, 1252}) {
    Text text = u"before ";
    CodePage::Get(number).AppendDecoded(text, all);
    std::string bytes;
    CodePage::Get(number).AppendEncoded(bytes, text);
    EXPECT_EQ(bytes, "before " + all) << number;
  }
}

// How many characters outside a page have a substitute; a lost or a superfluous one shows here.
TEST(CodePage, SubstitutesAreComplete) {
  const auto countSubstitutes = [](int number) {
    const CodePage& page = CodePage::Get(number);
    int count = 0;
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
      const std::uint8_t byte = page.Encode(static_cast<char16_t>(unit));
      if (byte != '?' && page.Decode(byte) != unit) ++count;
    }
    return count;
  };
  EXPECT_EQ(countSubstitutes(1250), 435);
  EXPECT_EQ(countSubstitutes(1251), 383) << "and the full-width question mark, which is written as ? like any other";
  EXPECT_EQ(countSubstitutes(1252), 441);
}

TEST(CodePage, OtherNumbersAreRefused) {
  EXPECT_EQ(ErrorOf([] { CodePage::Get(65001); }).number(), 5);
}

}  // namespace
}  // namespace zorkanca::testing
