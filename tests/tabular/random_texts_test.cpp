// Random texts: the readers against slow and obvious ones, and against another reader of JSON.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "tabular/csv_scanner.h"
#include "tabular/tabular_support.h"

namespace zorkanca::testing {
namespace {

using Records = std::vector<std::vector<std::string>>;

// The whole text, character by character; nothing when it breaks a rule. Quoted fields begin with "Q", others with "P".
std::optional<Records> ObviousRecords(const std::string& text) {
  Records records;
  std::size_t at = 0;
  while (at < text.size()) {
    std::vector<std::string> record;
    for (bool more = true; more;) {
      const bool isQuoted = at < text.size() && text[at] == '"';
      std::string field = isQuoted ? "Q" : "P";
      if (isQuoted) {
        for (++at;; ++at) {
          if (at >= text.size()) return std::nullopt;
          if (text[at] != '"') {
            field += text[at];
          } else if (text.compare(at, 2, "\"\"") == 0) {
            field += "\"\"";
            ++at;
          } else {
            break;
          }
        }
        ++at;
      } else {
        for (; at < text.size() && std::string(",\r\n\"").find(text[at]) == std::string::npos; ++at) field += text[at];
      }
      record.push_back(field);
      more = text.compare(at, 1, ",") == 0 && at < text.size();
      const bool isCrLf = text.compare(at, 2, "\r\n") == 0;
      if (!more && !isCrLf && at < text.size() && text[at] != '\n') return std::nullopt;
      at += isCrLf ? 2 : 1;
    }
    records.push_back(record);
  }
  return records;
}

// The same by the scanner, which first sees nothing and then a few bytes more each time.
std::optional<Records> ScannedRecords(const std::string& text, std::mt19937& chance) {
  Records records;
  CsvScanner scanner(',');
  std::size_t start = 0;
  std::size_t known = 0;
  while (start < text.size()) {
    known = std::max(known, start + 1);
    const CsvScan scan = scanner.Scan(std::string_view(text).substr(start, known - start), known == text.size());
    if (scan == CsvScan::kFault) return std::nullopt;
    if (scan == CsvScan::kIncomplete) {
      if (known == text.size()) return std::nullopt;
      known = std::min(text.size(), known + 1 + chance() % 3);
      continue;
    }
    std::vector<std::string> record;
    for (const CsvField& field : scanner.fields()) {
      record.push_back((field.isQuoted ? "Q" : "P") + std::string(field.raw));
      EXPECT_EQ(field.hasDoubled, field.isQuoted && field.raw.find('"') != std::string_view::npos);
    }
    records.push_back(record);
    start += scanner.length();
  }
  return records;
}

TEST(RandomTexts, CsvIsScannedAsTheObviousReaderReadsIt) {
  std::mt19937 chance(1);
  int valid = 0;
  for (int round = 0; round < 30000; ++round) {
    std::string text;
    for (std::size_t length = chance() % 12; text.size() < length;) text += ",,\"\"\"\n\r\nab"[chance() % 10];
    const std::optional<Records> expected = ObviousRecords(text);
    EXPECT_EQ(ScannedRecords(text, chance), expected) << ::testing::PrintToString(text);
    valid += expected.has_value();
  }
  EXPECT_GT(valid, 3000);
}

// Whether another reader takes the text for an array of objects, none of which has a name twice, and all texts of which
// are without NUL.
bool IsTable(const std::string& text) {
  std::vector<std::vector<std::string>> names;  // of the objects that are open
  bool isTable = text.find("\\u0000") == std::string::npos;
  const auto look = [&](int depth, nlohmann::json::parse_event_t event, nlohmann::json& parsed) {
    using Event = nlohmann::json::parse_event_t;
    if (event == Event::object_start) names.emplace_back();
    if (event == Event::object_end) names.pop_back();
    if (event == Event::key && names.size() == 1) {
      for (const std::string& name : names.back()) isTable = isTable && name != parsed.get<std::string>();
      names.back().push_back(parsed.get<std::string>());
    }
    (void)depth;
    return true;
  };
  const nlohmann::json parsed = nlohmann::json::parse(text, look, /*allow_exceptions=*/false);
  if (parsed.is_discarded() || !parsed.is_array()) return false;
  bool hasColumns = false;
  for (const nlohmann::json& item : parsed) {
    isTable = isTable && item.is_object();
    hasColumns = hasColumns || (item.is_object() && !item.empty());
  }
  return isTable && hasColumns;
}

TEST(RandomTexts, JsonIsTakenAsAnotherReaderTakesIt) {
  const std::string seeds[] = {R"([{"a":1,"b":"x"},{"a":-2.5e+3,"b":null}])",
                               R"([ {"a" : [1, {"x" : "y"}, []], "b":true} , {"ž":"\u010d\uD83D\uDE00\n"} ])",
                               R"([{"":"","a\"b":0,"c":{"d":{}}}])"};
  const std::string letters = "[]{}\":,\\u0019aeE+-. \ntrfnl\xC5\xBE\xFF";
  std::mt19937 chance(2);
  int valid = 0;
  for (int round = 0; round < 2000; ++round) {
    std::string text = seeds[chance() % 3];
    for (std::size_t changes = chance() % 3; changes > 0; --changes) {
      const std::size_t at = 1 + chance() % (text.size() - 1);
      const char letter = letters[chance() % letters.size()];
      switch (chance() % 3) {
        case 0:
          text[at] = letter;
          break;
        case 1:
          text.insert(at, 1, letter);
          break;
        default:
          text.erase(at, 1);
      }
    }
    const bool isTable = IsTable(text);
    valid += isTable;
    try {
      LoadedFile("t.json", text).Shown();
      EXPECT_TRUE(isTable) << text;
    } catch (const Error& error) {
      EXPECT_FALSE(isTable) << text << "\n" << error.what();
    }
  }
  EXPECT_GT(valid, 400);
}

}  // namespace
}  // namespace zorkanca::testing
