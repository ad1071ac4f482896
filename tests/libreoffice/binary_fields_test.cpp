// Fields of binary documents made marks, and what is refused. The documents are made byte by byte.
#include "libreoffice/fields/binary_fields.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "libreoffice/fields/binary_text.h"
#include "support/binary_word.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

// The text with its characters of fields as "{|}", the markers as "<", "L", "#", ">".
std::string TextOf(std::string bytes, const MarkedFields& fields) {
  const BinaryText text(bytes);
  std::uint32_t length = 0;
  for (const BinaryStory& story : text.stories()) length = std::max(length, story.start + story.length);
  Text shown;
  for (std::uint32_t at = 0; at < length; ++at) {
    char16_t unit = text.Character(at);
    for (std::size_t i = 0; i < 4; ++i) {
      if (unit == fields.markers.All()[i]) unit = u"<L#>"[i];
    }
    shown += unit == 0x13 ? u'{' : unit == 0x14 ? u'|' : unit == 0x15 ? u'}' : unit;
  }
  return ToUtf8(shown);
}

std::string MarkersOf(const MarkedFields& fields) {
  std::string all;
  for (const char16_t marker : fields.markers.All()) all += ToUtf8(TextView(&marker, 1));
  return all;
}

TEST(BinaryFields, WhatLibreOfficeWouldSpoilBecomesText) {
  const struct {
    const char* what;
    BinaryWord word;
    const char* text;
    std::size_t inBody;
    std::size_t left;  // entries in the main text's table
  } kRows[] = {
      {"one", {{{u"a{ M \\# 0|1}b"}}}, "a< M \\# 0#1>b", 1, 0},
      {"no result", {{{u"{ NEXT }"}}, {}, {41}}, "< NEXT >", 1, 0},
      {"nested in the code", {{{u"{ IF { M |1}=1|x}"}}, {}, {7, 59}}, "< IF < M #1>=1#x>", 2, 0},
      {"page number beside", {{{u"{PAGE|1}{ M |2}{PAGE|3}"}}, {}, {33, 59, 33}}, "{PAGE|1}< M #2>{PAGE|3}", 1, 6},
      {"page number inside", {{{u"{ IF {PAGE|1}=1|x}"}}, {}, {7, 33}}, "< IF {PAGE|1}=1#x>", 1, 3},
      {"inside a link", {{{u"{LINK|{ M |x}}"}}, {}, {88, 59}}, "<LINK#< M #x>>", 2, 0},
      {"inside a form field",
       {{{u"{FORMTEXT|{DATE|x}}{ M |y}"}}, {}, {70, 31, 59}},
       "{FORMTEXT|{DATE|x}}< M #y>",
       1,
       6},
      {"locked", {{{u"{ M |x}"}}, {}, {}, 0x90}, "L M #x>", 1, 0},
      {"two widths", {{{u"{ M "}, {u"|č}", false}}}, "< M #č>", 1, 0},
      {"stories", {{{u"a{ M |x}{ N |y}{ O |z}"}}, {{3, 8}, {4, 7}, {9, 7}}}, "a< M #x>< N #y>< O #z>", 1, 0},
  };
  for (const auto& row : kRows) {
    std::string bytes = BinaryWordBytes(row.word);
    const std::size_t size = bytes.size();
    const std::optional<MarkedFields> marked = MarkBinaryFields(bytes);
    ASSERT_TRUE(marked) << row.what;
    EXPECT_EQ(TextOf(bytes, *marked), row.text) << row.what;
    EXPECT_EQ(marked->inBody, row.inBody) << row.what;
    EXPECT_EQ(bytes.size(), size) << row.what;
    std::string again = bytes;
    EXPECT_EQ(BinaryText(again).Table(16).size, row.left == 0 ? 0 : 4 + 6 * row.left) << row.what;
    const std::optional<MarkedFields> second = MarkBinaryFields(again);  // the smaller table is sound
    EXPECT_TRUE(!second || second->count == 0) << row.what;
    EXPECT_EQ(marked->spoiled, std::string(row.what) == "inside a form field" ? 1U : 0U);
  }
  std::string nothing = BinaryWordBytes({{{u"{PAGE|1}"}}, {}, {33}});
  const std::string before = nothing;
  EXPECT_FALSE(MarkBinaryFields(nothing));
  EXPECT_EQ(nothing, before);
}

TEST(BinaryFields, MarkersAreCharactersThatOccurNowhere) {
  const struct {
    BinaryWord word;
    const char* markers;
  } kRows[] = {
      {{{{u"{ M |x}"}}}, "ƒˆ˜‡"},
      {{{{u"ƒ{ M |˜}"}}}, "ˆ‡¤¦"},
      {{{{u"{ M |x}"}, {u"ˆč", false}}}, "ƒ˜‡¤"},
      {{{{u"{ M |x}", false}}}, "\uE013\uE014\uE015\uE016"},
      {{{{u"{ M |\uE014\uE013ƒ}", false}}}, "\uE015\uE016\uE017\uE018"},
  };
  for (const auto& row : kRows) {
    std::string bytes = BinaryWordBytes(row.word);
    EXPECT_EQ(MarkersOf(MarkBinaryFields(bytes).value()), row.markers);
  }
}

TEST(BinaryFields, LocalNamesOfTypesAreKnownByTheirNumbers) {
  std::string bytes =
      BinaryWordBytes({{{u"{ Datum \\@ d|x}{ZÁLOŽKA|y}{INCLUDETEXT z|}{= 1|1}{ Pole |x}"}}, {}, {31, 3, 36, 34, 59}});
  const MarkedFields marked = MarkBinaryFields(bytes).value();
  std::string names;
  for (const auto& [word, name] : marked.englishNames) names += ToUtf8(word) + "=" + ToUtf8(name) + " ";
  EXPECT_EQ(names, "DATUM=DATE POLE=MERGEFIELD ");
}

TEST(BinaryFields, WhatCannotBeReadIsRefusedUnchanged) {
  using namespace binary;
  const std::size_t fields = kTables + 7 + 4 + 16;  // behind the table of the one piece
  const struct {
    const char* what;
    std::size_t at;
    std::uint64_t value;
    int width;
    const char* reason;
  } kRows[] = {
      {"Word 95", kMain, 0xA5DC, 2, "before 1997"},
      {"early number", kMain + 2, 0x65, 2, "before 1997"},
      {"other mark", kMain, 0x1234, 2, "no text of Word"},
      {"encrypted", kMain + 10, 0x0300, 2, "encrypted"},
      {"other tables", kMain + 10, 0x0000, 2, "no text of Word"},
      {"no stream of that name", 1024 + 128, 'X', 1, "no text of Word"},
      {"sector size", 30, 40, 2, "damaged"},
      {"FAT outside", 76, 5000, 4, "damaged"},
      {"FAT nowhere", 76, 0xFFFFFFFF, 4, "damaged"},
      {"directory in a circle", 512 + 4, 1, 4, "damaged"},
      {"stream in a circle", 512 + 4 * 9, 2, 4, "damaged"},
      {"stream ends early", 512 + 4 * 4, 0xFFFFFFFE, 4, "damaged"},
      {"entry is its own child", 1024 + 128 + 72, 1, 4, "damaged"},
      {"child outside", 1024 + 76, 77, 4, "damaged"},
      {"stream too long", 1024 + 128 + 120, 0x7FFFFFFF, 4, "damaged"},
      {"pieces outside", kMain + 154 + 8 * 33, 0xFFFFFF00, 4, "contradict"},
      {"pieces too long", kMain + 154 + 8 * 33 + 4, 0xFFFFFFFF, 4, "contradict"},
      {"changes without end", kTables + 1, 0xFFFF, 2, "contradict"},
      {"piece outside", kTables + 7 + 4 + 8 + 2, 0x3FFFFFF0, 4, "contradict"},
      {"piece of gigabytes", kTables + 7 + 4 + 4, 0x7FFFFFFF, 4, "contradict"},
      {"story longer than the text", kMain + 64 + 12, 900, 4, "contradict"},
      {"sum of stories overflows", kMain + 64 + 16, 0xFFFFFFFF, 4, "contradict"},
      {"field beyond the text", fields, 7000, 4, "contradicts"},
      {"fields not ascending", fields + 4, 0, 4, "contradicts"},
      {"no character of a field", kMain + kTextAt, 'x', 1, "contradicts"},
      {"end before the beginning", fields + 16, 0x15, 1, "contradicts"},
      {"half a table", kMain + 154 + 8 * 16 + 4, 21, 4, "contradicts"},
  };
  const std::string sound = BinaryWordBytes({{{u"{ M |x}"}}});
  for (const auto& row : kRows) {
    std::string bytes = sound;
    Put(bytes, row.at, row.value, row.width);
    const std::string before = bytes;
    const Error error = ErrorOf([&] { MarkBinaryFields(bytes); });
    EXPECT_NE(Shown(error.description()).find(row.reason), std::string::npos) << row.what << ": " << error.what();
    EXPECT_TRUE(bytes == before) << row.what;
  }
  std::string deep = BinaryWordBytes({{{Text(65, u'{') + Text(65, u'}')}}});
  EXPECT_NE(std::string(ErrorOf([&] { MarkBinaryFields(deep); }).what()).find("too deeply"), std::string::npos);
  Text everything;
  for (char16_t byte = 0xA1; byte <= 0xFF; ++byte) everything += byte;
  for (const char16_t unit : TextView(u"ƒˆ˜‡‹›†‰Ÿ™œŒ")) everything += unit;
  std::string full = BinaryWordBytes({{{u"{ M |x}" + everything}}});
  EXPECT_NE(std::string(ErrorOf([&] { MarkBinaryFields(full); }).what()).find("no characters"), std::string::npos);
}

TEST(BinaryFields, PartsOfTheFileMayLieElsewhere) {
  using namespace binary;
  const auto marks = [](std::string bytes) {
    const MarkedFields fields = MarkBinaryFields(bytes).value();
    return TextOf(bytes, fields);
  };
  // The number of the FAT's sector in a further list, as files of more than seven megabytes have it.
  std::string far =
      BinaryWordBytes({{{u"{ M |x}"}}}) + LittleEndian(0, 4) + std::string(504, '\xFF') + "\xFE\xFF\xFF\xFF";
  Put(far, 76, 0xFFFFFFFF, 4);
  Put(far, 68, 18, 4);
  EXPECT_EQ(marks(far), "< M #x>");
  // A small stream of tables inside the root's.
  std::string small = BinaryWordBytes({{{u"{ M |x}"}}});
  for (std::uint32_t sector = 1; sector <= 128; ++sector) small += LittleEndian(sector == 32 ? 0xFFFFFFFE : sector, 4);
  Put(small, 60, 18, 4);
  Put(small, 1024 + 116, 10, 4);
  Put(small, 1024 + 256 + 116, 0, 4);
  Put(small, 1024 + 256 + 120, 2048, 4);
  Put(small, 512 + 4 * 18, 0xFFFFFFFE, 4);
  EXPECT_EQ(marks(small), "< M #x>");
}

TEST(BinaryFields, DamagedFilesAreMarkedOrRefused) {
  const std::string sound = BinaryWordBytes({{{u"{ IF { M |1}=1|x}"}, {u"č{ N |y}", false}}, {}, {7}});
  const auto survives = [](std::string bytes) {
    const std::size_t size = bytes.size();
    try {
      MarkBinaryFields(bytes);
    } catch (const Error&) {
      return bytes.size() == size;
    }
    return bytes.size() == size;
  };
  for (std::size_t size = 0; size < sound.size(); size += 64) EXPECT_TRUE(survives(sound.substr(0, size))) << size;
  std::mt19937 random(4);
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(500);
  for (int round = 0; round < 20000 && std::chrono::steady_clock::now() < end; ++round) {
    std::string bytes = sound;
    for (int changes = 1 + static_cast<int>(random() % 3); changes > 0; --changes) {
      // Where numbers are: the header, the FAT, the directory, the document's header, the tables.
      const std::size_t starts[] = {0, 512, 1024, binary::kMain, binary::kTables};
      bytes[starts[random() % 5] + random() % 512] = static_cast<char>(random() % 2 ? 0xFF : random());
    }
    ASSERT_TRUE(survives(bytes)) << round;
  }
}

}  // namespace
}  // namespace zorkanca::testing
