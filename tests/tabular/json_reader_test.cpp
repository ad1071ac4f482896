// JSON files as text in, table and types out; faults as text in, line and column out.
#include "tabular/json_reader.h"

#include <gtest/gtest.h>

#include "tabular/tabular_support.h"

namespace zorkanca::testing {
namespace {

TEST(JsonReader, Records) {
  struct Row {
    std::string text;
    std::string shown;
  };
  const Row rows[] = {
      {R"([{"a":1,"b":"x"},{"a":2,"b":"y"}])", "a integer, b text\n1|x\n2|y"},
      {" [\r\n{ \"a\" : 1 } ,\t{\"a\":2}\n]\n", "a integer\n1\n2"},
      {"{\"a\":1}\n{\"a\":2}\r\n\n{\"a\":3}", "a integer\n1\n2\n3"},
      {"{\"a\":\n1}{\"a\":2}", "a integer\n1\n2"},
      {"\xEF\xBB\xBF[{\"ž\":\"€\"}]", "ž text\n€"},
      // columns are all names of all objects
      {R"([{"a":1},{"b":2,"a":3},{},{"c":null}])", "a integer, b integer, c text\n1|-|-\n3|2|-\n-|-|-\n-|-|-"},
      {R"([{"a":1,"A":2,"":3,"\u0062":4,"b\n":5}])",
       "a integer, A_2 integer, column3 integer, b integer, b\n integer\n1|2|3|4|5"},
      // values
      {R"([{"a":true,"b":false,"c":null,"d":""}])", "a boolean, b boolean, c text, d text\nTrue|False|-|''"},
      {R"([{"a":"\"\\\/\b\f\n\r\t\u010D\uD83D\uDE00"}])", "a text\n\"\\/\b\f\n\r\tč\U0001F600"},
      {R"([{"a":{ "x" : [ 1 , { } , [ ] , "a b\u0000" ] , "y" : null }, "b": [ ] }])",
       R"(a text, b text)"
       "\n"
       R"({"x":[1,{},[],"a b\u0000"],"y":null}|[])"},
      {R"([{"a":"}]","b":"\\"},{"a":"\"{"}])", "a text, b text\n}]|\\\n\"{|-"},
      // types
      {R"([{"a":1.5},{"a":2}])", "a decimal\n1,5\n2"},
      {R"([{"a":"1"},{"a":"2"}])", "a text\n1\n2"},
      {R"([{"a":"1"},{"a":2}])", "a text\n1\n2"},
      {R"([{"a":true},{"a":1}])", "a text\ntrue\n1"},
      {R"([{"a":[1]},{"a":"x"}])", "a text\n[1]\nx"},
      {R"([{"a":"true"}])", "a text\ntrue"},
      {R"([{"a":"2026-03-01"},{"a":null},{"a":"2026-03-02T10:00:00Z"}])", "a date\n1.3.2026\n-\n2.3.2026 10:00:00"},
      {R"([{"a":"2026-03-01"},{"a":"1.3.2026"}])", "a text\n2026-03-01\n1.3.2026"},
      {R"([{"a":"1.3.2026"}])", "a text\n1.3.2026"},
      {R"([{"a":1e3},{"a":2.5}])", "a double\n1000\n2,5"},
      {R"([{"a":1e999}])", "a text\n1e999"},
      {R"([{"a":-0.0},{"a":12345678901234567890.12345678}])", "a decimal\n0\n12345678901234567890,12345678"},
      {R"([{"a":12345678901234567890123456789}])", "a text\n12345678901234567890123456789"},
      {R"([{"a":1e-400},{"a":5}])", "a double\n0\n5"},
  };
  for (const Row& row : rows) EXPECT_EQ(LoadedFile("t.json", row.text).Shown(), row.shown) << row.text;
}

TEST(JsonReader, Faults) {
  struct Row {
    std::string text;
    std::string fault;
  };
  const std::string expected =
      "a value is expected: a text in quotation marks, a number, true, false, null, an array or an object";
  const std::string nested = std::string(101, '[') + std::string(101, ']');
  const Row rows[] = {
      {"", "line 1, column 1: an array of objects, or objects one a line, are expected"},
      {"\n \"a\"", "line 2, column 2: an array of objects, or objects one a line, are expected"},
      {"[]", "line 1, column 3: there is no object with a value, so that the table would have no columns"},
      {"{}", "line 1, column 3: there is no object with a value, so that the table would have no columns"},
      {"[{\"a\":1}\n,2]", "line 2, column 2: an object is expected, for every item of the array is a record"},
      {"[{\"a\":1},]", "line 1, column 10: an object is expected, for every item of the array is a record"},
      {"[{\"a\":1} {\"a\":2}]", "line 1, column 10: \",\" or \"]\" is expected"},
      {"[{\"a\":1}", "line 1, column 9: the file ends inside the array"},
      {"[", "line 1, column 2: an object is expected, for every item of the array is a record"},
      {"[{\"a\":1}]\n}", "line 2, column 1: something follows the array"},
      {"{\"a\":1},{\"a\":2}", "line 1, column 8: an object is expected"},
      {"{\"ž\":1,\n\"a\" 2}", "line 2, column 5: \":\" is expected"},
      {"{\"ž\":1,\"ž\":2}", "line 1, column 12: the object has this name twice"},
      {"{\"a\":1,\"\\u0061\":2}", "line 1, column 17: the object has this name twice"},
      {"{\"a\":1,}", "line 1, column 8: a name in quotation marks is expected"},
      {"{a:1}", "line 1, column 2: a name in quotation marks is expected"},
      {"{\"a\":1 \"b\":2}", "line 1, column 8: \",\" or \"}\" is expected"},
      {"{\"a\":1", "line 1, column 7: the file ends inside an object"},
      {"{\"a\":", "line 1, column 6: the file ends inside an object"},
      {"{\"a\":\"x\n",
       "line 1, column 8: a control character stands in a text; there it is written \\n, \\t or \\u and four digits"},
      {"{\"a\":\"x", "line 1, column 8: the file ends inside a text"},
      {"{\"a\":}", "line 1, column 6: " + expected},
      {"{\"a\":nul}", "line 1, column 6: " + expected},
      {"{\"a\":.5}", "line 1, column 6: " + expected},
      {"{\"a\":01}", "line 1, column 7: a number has no 0 before its digits"},
      {"{\"a\":1.}", "line 1, column 8: a digit is expected"},
      {"{\"a\":1e+}", "line 1, column 9: a digit is expected"},
      {"{\"a\":-}", "line 1, column 7: a digit is expected"},
      {"{\"a\":[1,]}", "line 1, column 9: " + expected},
      {"{\"a\":[1 2]}", "line 1, column 9: \",\" or \"]\" is expected"},
      {"{\"a\":{\"b\" 1}}", "line 1, column 11: \":\" is expected"},
      {"{\"a\":\"\\x\"}", "line 1, column 7: no character is written so; \"\\\" itself is \"\\\\\""},
      {"{\"a\":\"\\u12g4\"}", "line 1, column 11: four hexadecimal digits are expected after \\u"},
      {"{\"a\":\"\\uD83D\"}", "line 1, column 7: half of a character stands alone: a surrogate without the other one"},
      {"{\"a\":\"\\uD83D\\n\"}",
       "line 1, column 7: half of a character stands alone: a surrogate without the other one"},
      {"{\"a\":[\"\\uDE00\"]}",
       "line 1, column 8: half of a character stands alone: a surrogate without the other one"},
      {"{\"a\":\"\\u0000\"}", "line 1, column 6: a NUL character stands in the text"},
      {"{\"a\":\"\xE9\"}",
       "line 1, column 7: the text is not valid UTF-8; that of the ANSI page is read with --encoding ansi"},
      {"{\"a\":" + nested + "}", "line 1, column 106: more than 100 arrays and objects stand within each other"},
      {"{\"" + std::string(256, 'n') + "\":1}", "line 1, column 261: the name of a column is longer than 255 bytes"},
  };
  for (const Row& row : rows) {
    LoadedFile file("t.json", row.text);
    EXPECT_EQ(file.Fault(), "t.json, " + row.fault) << row.text;
    EXPECT_EQ(file.number(), 3274);
  }
}

TEST(JsonReader, ManyColumnsAndDeepNesting) {
  std::string columns = "{";
  for (int column = 0; column < 2000; ++column) columns += (column ? ",\"c" : "\"c") + std::to_string(column) + "\":1";
  EXPECT_NO_THROW(LoadedFile("t.json", columns + "}").Shown());
  EXPECT_NE(LoadedFile("t.json", columns + ",\"x\":1}").Fault().find("there are more than 2000 columns"),
            std::string::npos);
  const std::string nested = std::string(100, '[') + std::string(100, ']');
  EXPECT_EQ(LoadedFile("t.json", "{\"a\":" + nested + "}").Shown(), "a text\n" + nested);
}

TEST(JsonReader, RecordsAcrossThePieces) {
  constexpr std::size_t kPiece = 256 * 1024;
  for (std::size_t shift = 0; shift < 12; ++shift) {
    const std::string longText(kPiece - 20 + shift, 'x');
    LoadedFile file("t.json",
                    "{\"a\":\"" + longText + "\"}\n{\"a\":\"ž\\\"}\"}\n{\"a\":\"" + longText + longText + "\"}");
    EXPECT_EQ(file.Shown("SELECT length(a) FROM t"),
              "a text\n" + std::to_string(longText.size()) + "\n3\n" + std::to_string(2 * longText.size()))
        << shift;
  }
  LoadedFile endless("t.json", "{\"a\":\"");
  std::filesystem::resize_file(endless.table().path, std::uint64_t{1} << 30);
  EXPECT_EQ(endless.Fault(), "t.json, line 1, column 1: the record is longer than 64 MiB");
}

}  // namespace
}  // namespace zorkanca::testing
