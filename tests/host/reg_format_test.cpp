#include "host/registry/reg_format.h"

#include <gtest/gtest.h>

#include "support/text_support.h"
#include "textfiles/utf16.h"

namespace zorkanca::testing {
namespace {

constexpr std::string_view kStart = "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\K]\r\n";

RegistryValue Raw(std::uint32_t type, std::initializer_list<int> bytes) {
  RawRegistryValue raw{.type = type, .bytes = {}};
  for (const int byte : bytes) raw.bytes.push_back(static_cast<std::byte>(byte));
  return raw;
}

std::string InUtf16(std::string_view utf8) {
  std::string bytes(kByteOrderMark);
  AppendUtf16(bytes, FromUtf8(utf8));
  return bytes;
}

TEST(RegFormat, ReadsEveryForm) {
  struct Row {
    std::string_view lines;
    Text name;
    std::optional<RegistryValue> value;
  };
  const Row rows[] = {
      {R"("a"="b")", u"a", Text(u"b")},
      {R"(@="b")", u"", Text(u"b")},
      {R"(  "a" = "" ; comment)", u"a", Text()},
      {R"("C:\\x \"y\"=]"="\\\"\\")", u"C:\\x \"y\"=]", Text(u"\\\"\\")},
      {"\"a\"=\"žluť\t;\"", u"a", Text(u"žluť\t;")},
      {R"("a"=dword:0000002A)", u"a", 42},
      {R"("a"=dword:ffffffff)", u"a", -1},
      {R"("a"=-)", u"a", std::nullopt},
      {R"("a"=hex:)", u"a", Raw(3, {})},
      {R"("a"=hex:01,fF,0)", u"a", Raw(3, {1, 255, 0})},
      {"\"a\"=hex(2):25,00,\\\r\n  41,00,\\  \r\n00 ; end", u"a", Raw(2, {0x25, 0, 0x41, 0, 0})},
      {R"("a"=hex(b):01,00)", u"a", Raw(11, {1, 0})},
      {R"("a"=hex(1):41,00,0d,00,0a,00,00,00)", u"a", Text(u"A\r\n")},
      {R"("a"=hex(1):41,00)", u"a", Text(u"A")},
      {R"("a"=hex(1):41)", u"a", Raw(1, {0x41})},
      {R"("a"=hex(4):fe,ff,ff,ff)", u"a", -2},
      {R"("a"=hex(4):fe)", u"a", Raw(4, {0xFE})},
  };
  for (const Row& row : rows) {
    const std::vector<RegSection> sections = ParseReg(std::string(kStart).append(row.lines), u"f");
    ASSERT_EQ(sections.size(), 1u);
    ASSERT_EQ(sections[0].lines.size(), 1u) << row.lines;
    EXPECT_EQ(Shown(sections[0].lines[0].name), Shown(row.name)) << row.lines;
    EXPECT_TRUE(sections[0].lines[0].value == row.value) << row.lines;
  }
}

TEST(RegFormat, ReadsEncodingsKeysAndComments) {
  const std::string text =
      "Windows Registry Editor Version 5.00\n; comment [x]\n\n[HKEY_CURRENT_USER\\ž [a]]\n\"x\"=\"1\"\n"
      "[-hkey_local_machine\\B] ; gone\n[HKEY_CLASSES_ROOT]";
  for (const std::string& bytes : {text, "\xEF\xBB\xBF" + text, InUtf16(text)}) {
    const std::vector<RegSection> sections = ParseReg(bytes, u"f");
    ASSERT_EQ(sections.size(), 3u);
    EXPECT_EQ(sections[0].path, u"HKEY_CURRENT_USER\\ž [a]");
    EXPECT_EQ(sections[0].lineNumber, 4);
    EXPECT_TRUE(sections[1].deleted);
    EXPECT_EQ(SplitRegPath(sections[1].path)->first, RegistryHive::kLocalMachine);
    EXPECT_EQ(SplitRegPath(sections[1].path)->second, u"B");
    EXPECT_EQ(SplitRegPath(sections[2].path)->second, u"");
  }
  EXPECT_FALSE(SplitRegPath(u"HKEY_USERS\\a"));
}

TEST(RegFormat, BadLinesAreNamed) {
  const std::string start(kStart);
  const std::pair<std::string, TextView> rows[] = {
      {"", u"line 1: this is no registry file; it has to begin with \"Windows Registry Editor Version 5.00\""},
      {"REGEDIT4\n",
       u"line 1: this is no registry file; it has to begin with \"Windows Registry Editor Version 5.00\""},
      {"Windows Registry Editor Version 5.00\n\"a\"=\"b\"", u"line 2: a value stands before the first key"},
      {start + "\n\n[HKEY_CURRENT_USER", u"line 6: \"]\" is missing"},
      {start + "[-HKEY_CURRENT_USER\\a]\n\"a\"=\"b\"", u"line 5: a value stands under a deleted key"},
      {start + "[HKEY_CURRENT_USER\\a] x", u"line 4: more stands on the line than its value"},
      {start + "rubbish", u"line 4: neither a key nor a value"},
      {start + "\"a", u"line 4: the closing quotation mark is missing"},
      {start + "\"a\" \"b\"", u"line 4: \"=\" is missing after the name"},
      {start + "\"a\"=\"b", u"line 4: the closing quotation mark is missing"},
      {start + "\"a\"=\"b\" c", u"line 4: more stands on the line than its value"},
      {start + "\"a\"=\"\\n\"", u"line 4: \"\\\" stands only before \"\\\" and quotation marks"},
      {start + "\"a\"=qword:1", u"line 4: a value of an unknown form"},
      {start + "\"a\"=dword:", u"line 4: \"dword:\" needs one to eight hexadecimal digits"},
      {start + "\"a\"=dword:123456789", u"line 4: \"dword:\" needs one to eight hexadecimal digits"},
      {start + "\"a\"=hex(x):00", u"line 4: the kind in \"hex( )\" is no hexadecimal number"},
      {start + "\"a\"=hex(2:00", u"line 4: the kind in \"hex( )\" is no hexadecimal number"},
      {start + "\"a\"=hex 00", u"line 4: \":\" is missing after \"hex\""},
      {start + "\"a\"=hex:00,\\\n 0g", u"line 5: a byte needs one or two hexadecimal digits"},
      {start + "\"a\"=hex:00 01", u"line 4: \",\" is missing between bytes"},
      {start + "\"a\"=hex:00,,01", u"line 4: a byte needs one or two hexadecimal digits"},
      {start + "\"a\"=hex:00,\\", u"line 4: the file ends within a value"},
      {start + "\"a\"=hex:00,\\ 01", u"line 4: \"\\\" is not the end of the line"},
      {start + "\"a\"=\"\xFF\"", u"line 4: neither UTF-16 nor UTF-8"},
      {"\xFF\xFEx", u"line 1: the file ends within a character"},
  };
  for (const auto& [bytes, message] : rows) {
    const Error error = ErrorOf([&] { ParseReg(bytes, u"f"); });
    EXPECT_EQ(error.number(), 75) << bytes;
    EXPECT_EQ(Shown(error.description()), Shown(u"f, " + Text(message)));
  }
}

TEST(RegFormat, WritesWhatOthersRead) {
  RegWriter writer;
  writer.AddKey(RegistryHive::kCurrentUser, u"Software\\Ž");
  writer.AddValue(u"", Text(u"C:\\a \"b\""));
  writer.AddValue(u"number", -2);
  writer.AddValue(u"gone", std::nullopt);
  writer.AddValue(u"lines", Text(u"a\r\nb"));
  writer.AddValue(u"end", Text(u"\0", 1));
  RawRegistryValue raw{.type = 3, .bytes = {}};
  for (int byte = 0; byte < 50; ++byte) raw.bytes.push_back(static_cast<std::byte>(byte * 5));
  writer.AddValue(u"raw", raw);
  writer.AddValue(u"big", Raw(0x1000B, {1}));
  writer.AddValue(u"none", Raw(0, {}));
  writer.AddDeletedKey(RegistryHive::kLocalMachine, u"Old");
  const std::string expected =
      "Windows Registry Editor Version 5.00\r\n"
      "\r\n"
      "[HKEY_CURRENT_USER\\Software\\Ž]\r\n"
      "@=\"C:\\\\a \\\"b\\\"\"\r\n"
      "\"number\"=dword:fffffffe\r\n"
      "\"gone\"=-\r\n"
      "\"lines\"=hex(1):61,00,0d,00,0a,00,62,00,00,00\r\n"
      "\"end\"=hex(1):00,00,00,00\r\n"
      "\"raw\"=hex:00,05,0a,0f,14,19,1e,23,28,2d,32,37,3c,41,46,4b,50,55,5a,5f,64,69,6e,\\\r\n"
      "  73,78,7d,82,87,8c,91,96,9b,a0,a5,aa,af,b4,b9,be,c3,c8,cd,d2,d7,dc,e1,e6,eb,\\\r\n"
      "  f0,f5\r\n"
      "\"big\"=hex(1000b):01\r\n"
      "\"none\"=hex(0):\r\n"
      "\r\n"
      "[-HKEY_LOCAL_MACHINE\\Old]\r\n";
  EXPECT_EQ(writer.Bytes(), InUtf16(expected));

  const std::vector<RegSection> sections = ParseReg(writer.Bytes(), u"f");
  ASSERT_EQ(sections.size(), 2u);
  EXPECT_TRUE(sections[0].lines[4].value == RegistryValue(Text(u"\0", 1)));
  EXPECT_TRUE(sections[0].lines[5].value == RegistryValue(raw));
  EXPECT_TRUE(sections[0].lines[6].value == Raw(0x1000B, {1}));
}

}  // namespace
}  // namespace zorkanca::testing
