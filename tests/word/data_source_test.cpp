// The data file of a merge: what is read, and what is refused.
#include "word/merge/data_source.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

using word::DataSource;
using word::RecordStore;
using word::RecordValues;

const CodePage& Page() {
  return CodePage::Get(1250);
}

std::string Utf16(const std::string& utf8) {
  std::string bytes = "\xFF\xFE";
  for (const char16_t unit : FromUtf8(utf8)) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return bytes;
}

// Columns and records with "|" between values and "/" behind each line.
std::string Read(const std::string& bytes) {
  const TemporaryFolder folder;
  folder.Write("d", bytes);
  const DataSource source(folder.Path("d"), Page());
  std::string shown;
  for (const Text& column : source.columns()) shown += Shown(column) + "|";
  shown += "/";
  RecordValues values;
  for (std::size_t record = 0; record < source.records().count(); ++record) {
    source.records().Read(record, values);
    for (std::size_t column = 0; column < source.columns().size(); ++column) {
      shown += Shown(FromUtf8(values[column])) + "|";
    }
    shown += "/";
  }
  return shown;
}

TEST(WordDataSource, ReadsWhatTheExportsWrite) {
  struct Row {
    const char* file;
    const char* shown;
  };
  const Row rows[] = {
      {"A;B\r\n1;2\r\n3;4\r\n", "A|B|/1|2|/3|4|/"},
      {"A;B\r\n1;2", "A|B|/1|2|/"},
      {"A;B", "A|B|/"},
      {"A;\"B\r\n1;2\r\n", "A|\"B|/1|2|/"},                                      // names are not quoted
      {"A;\"B\"\r\n1;2\r\n", "A|B|/1|2|/"},                                      // unless somebody else did
      {"A;B;C\r\n;;\r\n;;\r\n1\r\n1;2;3;4\r\n", "A|B|C|/|||/|||/1|||/1|2|3|/"},  // blank, short and long records
      {"A\r\n\r\nx\r\n", "A|/|/x|/"},
      {"A;B\r\n\"a;b\";\"12\"\" sign\"\r\n\"\"\"q\"\"\";\"\"\r\n", "A|B|/a;b|12\" sign|/\"q\"||/"},
      {"A;B\r\n\"a\r\nb\";a\nb\rc\r\n", "A|B|/a\\r\\nb|a\\nb\\rc|/"},  // quoted CR LF, lone CR and LF
      {"A;B\r\n\"a\rb\";\"c\"\rd\";\"e\"\r\nf\r\n",
       "A|B|/a\\rb|c\"\\rd|/f||/"},  // CR in quotes, behind a lone quote, at the end
      {"A;B\r\na\"\"b;c\"d\r\n\"\"x;y\r\n", "A|B|/a\"b|c\"d|/\"x|y|/"},  // doubled quotes in plain text
      {"A;B\r\n\"a\"b\"\"c;d\";2\r\n", "A|B|/a\"b\"c;d|2|/"},            // a lone quote inside a quoted value
      {"A;B\n1;2\n\"x\ny\";3\n", "A|B|/1|2|/x\\ny|3|/"},                 // lines of another system
      {"A\r\nžluť \xF0\x9F\x98\x80\r\n", "A|/žluť \xF0\x9F\x98\x80|/"},
      {"A\r\nab\"", "A|/ab\"|/"},          // ends behind a lone quote,
      {"A\r\nab\r", "A|/ab\\r|/"},         // a lone CR,
      {"A;B\r\n1;", "A|B|/1||/"},          // a separator,
      {"A\r", "A|/"},                      // the CR of a header
      {"A\r\na\x01\x02z\r\n", "A|/az|/"},  // what XML forbids
  };
  for (const Row& row : rows) EXPECT_EQ(Read(Utf16(row.file)), row.shown) << row.file;
  EXPECT_EQ(Read("J\xE9no;B\r\n\xBElu\x9D;\r\n"), "Jéno|B|/ľluť||/");  // ANSI
  EXPECT_EQ(Read("\xEF\xBB\xBF"
                 "A\r\nžluť\r\n"),
            "A|/žluť|/");
  std::string lone = Utf16("A\r\nx");
  EXPECT_EQ(Read(lone + std::string("\x00\xD8", 2)), "A|/x\xEF\xBF\xBD|/");
}

TEST(WordDataSource, RefusesWhatIsNone) {
  const TemporaryFolder folder;
  const auto number = [&](const std::string& bytes) {
    folder.Write("d", bytes);
    return ErrorOf([&] { DataSource(folder.Path("d"), Page()); }).number();
  };
  EXPECT_EQ(number(""), 5);
  EXPECT_EQ(number("A;B\r\n1;\"nikdy nekončí\r\n2;3\r\n"), 5);
  EXPECT_EQ(ErrorOf([&] { DataSource(folder.Path("chybí"), Page()); }).number(), 5174);
  EXPECT_EQ(ErrorOf([&] { DataSource(folder.path(), Page()); }).number(), 75);
}

TEST(WordDataSource, KeepsRecordsThatDoNotFitInMemory) {
  RecordStore store(1000);
  for (int record = 0; record < 3000; ++record) {
    store.AddValue(std::string(static_cast<std::size_t>(record % 700), 'x'));
    store.AddValue(std::to_string(record));
    store.EndRecord();
  }
  RecordValues values;
  for (const std::size_t record : {2999u, 0u, 1u, 1500u, 1499u, 2998u}) {
    store.Read(record, values);
    EXPECT_EQ(values[0].size(), record % 700);
    EXPECT_EQ(values[1], std::to_string(record));
    EXPECT_EQ(values[2], "");
  }
}

}  // namespace
}  // namespace zorkanca::testing
