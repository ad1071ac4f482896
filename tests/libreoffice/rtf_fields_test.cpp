// Fields of documents in rich text format made marks.
#include "libreoffice/fields/rtf_fields.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

// The marked document with its markers as "<", "L", "#", ">"; the document itself when nothing is marked.
std::string Marked(const std::string& body, std::size_t* inBody = nullptr, std::size_t* spoiled = nullptr) {
  const std::string rtf = "{\\rtf1" + body + "}";
  const std::optional<MarkedText> marked = MarkRtfFields(rtf);
  std::string bytes = marked ? marked->bytes : rtf;
  for (std::size_t i = 0; marked && i < 4; ++i) {
    const std::string marker = "{\\uc1\\u" + std::to_string(marked->fields.markers.All()[i] - 0x10000) + "?}";
    for (std::size_t at; (at = bytes.find(marker)) != bytes.npos;) bytes.replace(at, marker.size(), 1, "<L#>"[i]);
  }
  if (inBody) *inBody = marked ? marked->fields.inBody : 0;
  if (spoiled) *spoiled = marked ? marked->fields.spoiled : 0;
  return bytes.substr(6, bytes.size() - 7);
}

TEST(RtfFields, WhatLibreOfficeWouldSpoilBecomesText) {
  const struct {
    const char* body;
    const char* marked;
    std::size_t inBody = 1;
    std::size_t spoiled = 0;
  } kRows[] = {
      {"a{\\field{\\*\\fldinst MERGEFIELD a \\\\# 0}{\\fldrslt 1}}b", "a{{<MERGEFIELD a \\\\# 0}{#1}>}b"},
      {"{\\field\\flddirty\\fldedit \\b{\\fldinst{ NEXT }}}", "{\\b{<{ NEXT }}>}"},
      {"{\\field\\fldlock{\\*\\fldinst DATE}{\\fldrslt 1}}", "{{LDATE}{#1}>}"},
      {"{\\field{\\*\\fldinst IF {\\field{\\*\\fldinst MERGEFIELD a}{\\fldrslt 1}}>5 x y}{\\fldrslt x}}",
       "{{<IF {{<MERGEFIELD a}{#1}>}>5 x y}{#x}>}", 2},
      {"{\\field{\\*\\fldinst IF {\\field{\\*\\fldinst PAGE}{\\fldrslt 1}}>5 x y}{\\fldrslt x}}",
       "{{<IF {\\field{\\*\\fldinst PAGE}{\\fldrslt 1}}>5 x y}{#x}>}"},
      {"{\\field{\\*\\fldinst{\\b hyper}{link \"x\"}}{\\fldrslt{\\field{\\*\\fldinst DATE}}}}",
       "{{<{\\b hyper}{link \"x\"}}{#{{<DATE}>}}>}", 2},
      {"{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt y}}", "{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt y}}",
       0},
      {"{\\field{\\*\\fldinst  MERGEFIELD a{\\*\\datafield 00PAGE}}}", "{{< MERGEFIELD a{\\*\\datafield 00PAGE}}>}"},
      {"{\\field{\\*\\fldinst FORMTEXT{\\*\\formfield x}}{\\fldrslt{\\field{\\*\\fldinst DATE}}}}",
       "{\\field{\\*\\fldinst FORMTEXT{\\*\\formfield x}}{\\fldrslt{\\field{\\*\\fldinst DATE}}}}", 0, 1},
      {"{\\header{\\field{\\*\\fldinst DATE}}}{\\*\\shpinst{\\field{\\*\\fldinst TIME}}}",
       "{\\header{{<DATE}>}}{\\*\\shpinst{{<TIME}>}}", 0},
      {"{\\pict\\bin7 {\\field}{\\field{\\*\\fldinst DATE}}", "{\\pict\\bin7 {\\field}{{<DATE}>}"},
      {"\\uc0{\\field{\\*\\fldinst \\u268 x}}\\{\\'7b\\\\", "\\uc0{{<\\u268 x}>}\\{\\'7b\\\\"},
      {"{\\field{\\fldrslt 1}{\\*\\fldinst DATE}}", "{\\field{\\fldrslt 1}{\\*\\fldinst DATE}}", 0},
      {"{\\field{\\*\\fldinst DATE", "{\\field{\\*\\fldinst DATE", 0},
      {"}{\\field{\\*\\fldinst DATE}}", "}{\\field{\\*\\fldinst DATE}}", 0},
  };
  for (const auto& row : kRows) {
    std::size_t inBody = 0;
    std::size_t spoiled = 0;
    EXPECT_EQ(Marked(row.body, &inBody, &spoiled), row.marked);
    EXPECT_EQ(inBody, row.inBody) << row.body;
    EXPECT_EQ(spoiled, row.spoiled) << row.body;
  }
  EXPECT_EQ(ToUtf8(TextView(&MarkRtfFields("{\\rtf1\\u-8173?{\\field{\\*\\fldinst DATE}}}")->fields.markers.begin, 1)),
            "\uE014");
}

TEST(RtfFields, HostileDocumentsAreMarkedOrRefused) {
  EXPECT_EQ(ErrorOf([] { MarkRtfFields("{\\rtf1" + std::string(5000, '{')); }).number(), 5);
  std::string fields = "{\\rtf1";
  for (int i = 0; i < 65; ++i) fields += "{\\field{\\*\\fldinst IF ";
  EXPECT_EQ(ErrorOf([&] { MarkRtfFields(fields); }).number(), 5);

  const std::string sound =
      "{\\rtf1 \\bin3 {}{ a{\\field\\fldlock{\\*\\fldinst IF \\'e1 {\\field{\\*\\fldinst MERGEFIELD \\u269 "
      "a}{\\fldrslt 1}}}"
      "{\\fldrslt 1}}{\\field{\\*\\fldinst PAGE}{\\fldrslt \\bin2147483647 1}}\\u-8173?}";
  for (std::size_t size = 0; size <= sound.size(); ++size) MarkRtfFields(sound.substr(0, size));
  std::mt19937 random(4);
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(300);
  for (int round = 0; round < 10000 && std::chrono::steady_clock::now() < end; ++round) {
    std::string bytes = sound;
    for (int change = 0; change < 3; ++change) bytes[random() % bytes.size()] = "{}\\*0 9ufb-"[random() % 11];
    const std::optional<MarkedText> marked = MarkRtfFields(bytes);
    const std::optional<MarkedText> again = marked ? MarkRtfFields(marked->bytes) : std::nullopt;
    EXPECT_TRUE(!again || again->fields.count == 0) << bytes;  // nothing is left to be marked
  }
}

}  // namespace
}  // namespace zorkanca::testing
