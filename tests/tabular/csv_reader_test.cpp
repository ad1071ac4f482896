// CSV files as text in, table and types out; faults as text in, line and field out.
#include "tabular/csv_reader.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"
#include "support/text_support.h"
#include "tabular/csv_separator.h"
#include "tabular/tabular_support.h"

namespace zorkanca::testing {
namespace {

TEST(CsvReader, Records) {
  struct Row {
    std::string text;
    std::string shown;
  };
  const Row rows[] = {
      {"a,b\n1,2\n", "a integer, b integer\n1|2"},
      {"a,b\r\n1,2\r\n3,4", "a integer, b integer\n1|2\n3|4"},
      {"a,b\n1,2", "a integer, b integer\n1|2"},
      {"a,b\n", "a text, b text"},
      {"a", "a text"},
      {"a,b,c\n,\"\",x\n", "a text, b text, c text\n-|''|x"},
      {"a,b,c\nx\ny,\n,,\n", "a text, b text, c text\nx|-|-\ny|-|-\n-|-|-"},
      {"a,b\n\n1,2\n\r\n3,4\n\n", "a integer, b integer\n1|2\n3|4"},
      {"\n\na\n1\n\n2\n", "a integer\n1\n-\n2"},
      {"a\n\"\"\n", "a text\n''"},
      {"a,b\n\"x\"\"y\"\"\",\"p,q\r\nr\"\n", "a text, b text\nx\"y\"|p,q\r\nr"},
      {"a,b\n\"\"\"\",\"\"\"\"\"\"\n", "a text, b text\n\"|\"\""},
      {"a,b\n x ,y \n", "a text, b text\n x |y "},
      {"\xEF\xBB\xBF"
       "a,b\nž,€\n",
       "a text, b text\nž|€"},
      // names
      {",a,A,a_2, \n1,2,3,4,5\n", "column1 integer, a integer, A_3 integer, a_2 integer, column5 integer\n1|2|3|4|5"},
      {"\"a \"\"b\"\"\",\"c\nd\"\n1,2\n", "a \"b\" integer, c\nd integer\n1|2"},
      {"ž,Ž\n1,2\n", "ž integer, Ž_2 integer\n1|2"},
      // separators
      {"a;b\n1,5;2,5\n", "a decimal, b decimal\n1,5|2,5"},
      {"a\tb\n1,5\t2\n", "a decimal, b integer\n1,5|2"},
      {"a|b\n1|2\n", "a integer, b integer\n1|2"},
      {"\"a,b\";\"c\"\n\"1,2\";\"x\"\n", "a,b decimal, c text\n1,2|x"},
      {"jméno, příjmení\n1\n", "jméno integer,  příjmení text\n1|-"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(LoadedFile("t.csv", row.text).Shown(), row.shown) << row.text;
  }
}

TEST(CsvReader, Faults) {
  struct Row {
    std::string text;
    std::string fault;
  };
  const std::string quoteInside =
      "a quotation mark stands inside a field that does not begin with one; such a field is written in quotation "
      "marks, "
      "those inside it twice";
  const std::string notUtf8 = "the text is not valid UTF-8; that of the ANSI page is read with --encoding ansi";
  const Row rows[] = {
      {"", "line 1: the file is empty: its first line names the columns"},
      {"\n\n", "line 1: the file is empty: its first line names the columns"},
      {"a,b\n1,2\n1,2,3\n", "line 3, field 3: the record has more fields than the first line, which names 2"},
      {"a,b\n1,2,\n", "line 2, field 3: the record has more fields than the first line, which names 2"},
      {"a,b\n\"1\n2\",3\n\"x\n\ny\",4,5\n",
       "line 4, field 3: the record has more fields than the first line, which names 2"},
      {"a,b\n1,\"2\n3\n", "line 2, field 2: the quotation mark that opens the field is never closed"},
      {"a,b\n\"1\n\n\",\"2\n3\n", "line 4, field 2: the quotation mark that opens the field is never closed"},
      {"a,b\n1,\"2\"\"\n", "line 2, field 2: the quotation mark that opens the field is never closed"},
      {"a,b\n1,\"2\"x\n", "line 2, field 2: text follows the closing quotation mark"},
      {"a,b\n\"1\" ,2\n", "line 2, field 1: text follows the closing quotation mark"},
      {"a,b\n1,2\"\n", "line 2, field 2: " + quoteInside},
      {"a,b\n1, \"2\"\n", "line 2, field 2: " + quoteInside},
      {"a\"b,c\n1,2\n", "line 1, field 1: " + quoteInside},
      {"a,b\n1,2\rx,3\n", "line 2, field 2: a carriage return stands without a line feed outside of quotation marks"},
      {"a,b\n1,2\r", "line 2, field 2: a carriage return stands without a line feed outside of quotation marks"},
      {std::string("a,b\n1,x\0y\n", 10),
       "line 2, field 2: a NUL character stands in the text; UTF-16 without a byte-order mark is read with --encoding "
       "utf-16"},
      {"a,b\n1,ž\xE9\n", "line 2, field 2: " + notUtf8},
      {"a,\xE9\n1,2\n", "line 1, field 2: " + notUtf8},
      {"a,b\n1,\xED\xA0\x80\n", "line 2, field 2: " + notUtf8},
      {std::string(1999, ',') + "x\n1\n", ""},
      {std::string(2000, ',') + "\n1\n", "line 1, field 2001: there are more than 2000 columns"},
      {"a," + std::string(256, 'n') + "\n1\n", "line 1, field 2: the name of a column is longer than 255 bytes"},
  };
  for (const Row& row : rows) {
    LoadedFile file("t.csv", row.text);
    file.table().separator = ',';
    if (row.fault.empty()) {
      EXPECT_NO_THROW(file.Shown()) << row.text.size();
      continue;
    }
    EXPECT_EQ(file.Fault(), "t.csv, " + row.fault) << row.text.substr(0, 100);
    EXPECT_EQ(file.number(), 3274);
  }
}

TEST(CsvReader, Encodings) {
  const Text text = u"jméno;€\r\nŽofie;1\r\n\xD83D\xDE00;2\r\n";
  std::string little = "\xFF\xFE";
  std::string big = "\xFE\xFF";
  for (const char16_t unit : text) {
    little += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    big += {static_cast<char>(unit >> 8), static_cast<char>(unit & 0xFF)};
  }
  const std::string shown = "jméno text, € integer\nŽofie|1\n\U0001F600|2";
  struct Row {
    std::string bytes;
    TextEncoding withoutMark;
    std::string shown;
  };
  const Row rows[] = {
      {ToUtf8(text), TextEncoding::kUtf8, shown},
      {"\xEF\xBB\xBF" + ToUtf8(text), TextEncoding::kAnsi, shown},
      {little, TextEncoding::kAnsi, shown},
      {big, TextEncoding::kUtf8, shown},
      {little.substr(2), TextEncoding::kUtf16LittleEndian, shown},
      {"jm\xE9no;\x80\n\x8Eofie;1\n", TextEncoding::kAnsi, "jméno text, € integer\nŽofie|1"},
  };
  for (const Row& row : rows) {
    LoadedFile file("t.csv", row.bytes);
    file.reading().withoutMark = row.withoutMark;
    EXPECT_EQ(file.Shown(), row.shown) << row.bytes;
  }
  const std::string faults[] = {std::string("\xFF\xFE"
                                            "a\0;\0b\0\n\0\0\xD8;\0",
                                            14),  // half of a character
                                std::string("\xFF\xFE"
                                            "a\0;\0b\0\n\0\0\xDC",
                                            12),
                                std::string("\xFF\xFE"
                                            "a\0\n\0x",
                                            7),
                                std::string("\xFF\xFE"
                                            "a\0\n\0\0\xD8",
                                            8)};
  for (const std::string& bytes : faults) {
    EXPECT_EQ(LoadedFile("t.csv", bytes).Fault(), "t.csv, line 2, field 1: the text is not valid UTF-16") << bytes;
  }
}

// Records, quotation marks and characters lie across every border of the pieces in which a file is read.
TEST(CsvReader, RecordsAcrossThePieces) {
  constexpr std::size_t kPiece = 256 * 1024;
  for (std::size_t shift = 0; shift < 12; ++shift) {
    const std::string longText(kPiece - 20 + shift, 'x');
    const std::string text = "a,b\n1,\"" + longText + "\"\r\n2,\"ž\"\"\r\n\"\n3,\"" + longText + longText + "\"";
    LoadedFile file("t.csv", text);
    EXPECT_EQ(file.Shown("SELECT a, length(b) FROM t"), "a integer, b text\n1|" + std::to_string(longText.size()) +
                                                            "\n2|4\n3|" + std::to_string(2 * longText.size()))
        << shift;
  }
}

// What never ends is refused long before the memory is full.
TEST(CsvReader, EndlessRecords) {
  for (const bool isQuoted : {true, false}) {
    LoadedFile file("t.csv", isQuoted ? "a,b\n1,2\n3,\"" : "a,b\n1,2\n3,x");
    std::filesystem::resize_file(file.table().path, std::uint64_t{1} << 30);  // takes no room on the disk
    EXPECT_EQ(file.Fault(), "t.csv, line 3, field 2: the record is longer than 64 MiB");
  }
}

TEST(CsvReader, FindsTheSeparator) {
  struct Row {
    std::string start;
    char separator;
  };
  const Row rows[] = {
      {"", ','},
      {"a\n1\n", ','},
      {"a,b\n1,2\n", ','},
      {"a;b\n1;2\n", ';'},
      {"a\tb\n1\t2\n", '\t'},
      {"a|b\n1|2\n", '|'},
      {"a;b;c\n1,5;2,5;3,5\n", ';'},
      {"a,x;b\n1;2\n3;4\n", ';'},               // one record of all is no better than three
      {"a;b,c;d\n1;2;3\n", ';'},                // more fields
      {"\"a;b\",c\n\"1;2\",3\n", ','},          // inside of marks there is no separator
      {"\"a\";\"b,c\"\n\"1\";\"2,3\"\n", ';'},  // marks out of place
      {"a;b\n1;2;3\n", ','},                    // no record is longer than the first
      {"a,b\n1;2;3\n1;2;3\n", ','},
      {"a;b\n1;2\n3;\"4", ';'},  // what is cut off is not looked at
  };
  for (const Row& row : rows) EXPECT_EQ(FindCsvSeparator(row.start, /*isComplete=*/false), row.separator) << row.start;
}

}  // namespace
}  // namespace zorkanca::testing
