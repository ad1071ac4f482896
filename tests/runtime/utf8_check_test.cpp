#include "runtime/utf8_check.h"

#include <gtest/gtest.h>

#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

TEST(Utf8Check, TellsWhatIsValid) {
  struct Row {
    std::string bytes;
    std::size_t valid;
    std::size_t units;
  };
  const Row rows[] = {{"", 0, 0},
                      {"abc", 3, 3},
                      {"Žluť €", 10, 6},
                      {"\U0001F600x", 5, 3},
                      {"a\x80z", 1, 0},
                      {"ž\xC4", 2, 0},
                      {"a\xE2\x82", 1, 0},
                      {"\xC0\x80", 0, 0},
                      {"\xED\xA0\x80", 0, 0},
                      {"\xF4\x90\x80\x80", 0, 0},
                      {"abcdefgh\xFF", 8, 0}};
  for (const Row& row : rows) {
    EXPECT_EQ(ValidUtf8Length(row.bytes), row.valid) << row.bytes;
    if (row.valid < row.bytes.size()) continue;
    EXPECT_EQ(Utf16Length(row.bytes), row.units) << row.bytes;
    EXPECT_EQ(FromUtf8(row.bytes).size(), row.units) << row.bytes;
  }
}

// The reader works in blocks; a sequence may begin, end or break anywhere in one.
TEST(Utf8Check, SequencesAnywhereAmongPlainBytes) {
  for (std::size_t before = 0; before <= 17; ++before) {
    for (std::size_t after = 0; after <= 17; ++after) {
      const std::string start(before, 'a');
      const std::string end(after, 'z');
      for (const std::string valid : {"ž", "€", "\U0001F600", "žč€"}) {
        EXPECT_EQ(ValidUtf8Length(start + valid + end), before + valid.size() + after) << before << " " << after;
      }
      for (const std::string invalid : {"\xFF", "\xE2\x82", "\x80", "\xC0\x80"}) {
        EXPECT_EQ(ValidUtf8Length(start + invalid + end), before) << before << " " << after;
        EXPECT_EQ(ValidUtf8Length(start + "ž" + invalid + end), before + 2) << before << " " << after;
      }
    }
  }
}

TEST(Utf8Check, FindsTheByteBeyondAsciiWhereverItIs) {
  for (std::size_t length = 0; length < 20; ++length) {
    std::string bytes(length, '\x7F');
    EXPECT_TRUE(IsAscii(bytes)) << length;
    for (char& byte : bytes) {
      byte = '\x80';
      EXPECT_FALSE(IsAscii(bytes)) << length;
      byte = 'a';
    }
  }
}

}  // namespace
}  // namespace zorkanca::testing
