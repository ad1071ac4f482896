#include "barcode/bar_code_drawing.h"

#include <gtest/gtest.h>

#include "runtime/locale.h"
#include "support/text_support.h"

namespace zorkanca::testing {
namespace {

const CodePage& Page() {
  return *FindLocale(u"cs-CZ")->codePage;
}

Text SvgOf(BarCodeSymbology symbology, TextView content) {
  return BarCodeSvg(DrawBarCode(symbology, content, false, Page()));
}

// That readers understand the bars is checked by svg_test.py.
TEST(BarCodeDrawing, Picture) {
  EXPECT_EQ(SvgOf(BarCodeSymbology::kCode128C, u"00"),
            u"<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 66 40\" width=\"132\" height=\"80\""
            u" shape-rendering=\"crispEdges\">\n"
            u"<title>00</title>\n"
            u"<rect width=\"66\" height=\"40\" fill=\"#fff\"/>\n"
            u"<path d=\""
            u"M10 0h2v40h-2zM13 0h1v40h-1zM16 0h3v40h-3z"  // start C
            u"M21 0h2v40h-2zM24 0h2v40h-2zM28 0h2v40h-2z"  // 00
            u"M32 0h2v40h-2zM36 0h2v40h-2zM40 0h2v40h-2z"  // check 2
            u"M43 0h2v40h-2zM48 0h3v40h-3zM52 0h1v40h-1zM54 0h2v40h-2z\"/>\n"
            u"</svg>\n");
  EXPECT_NE(SvgOf(BarCodeSymbology::kCode128B, u"<&>\x7F¦").find(u"<title>&#60;&#38;&#62;&#127;&#166;</title>"),
            Text::npos);
}

TEST(BarCodeDrawing, WhatCannotBeDrawn) {
  const struct {
    BarCodeSymbology symbology;
    TextView content;
    TextView description;
  } kCases[] = {
      {BarCodeSymbology::kCode39, u"", u"There is nothing to draw: the bar code is empty"},
      {BarCodeSymbology::kNone, u"A", u"There is nothing to draw: the bar code's symbology is unknown"},
      {BarCodeSymbology::kCode39, u"a", u"Code 39 cannot carry the content \"a\""},
      {BarCodeSymbology::kCode128B, u"á", u"Code 128 set B cannot carry the content \"á\""},
      {BarCodeSymbology::kCode128CTtf, u"a¶", u"Code 128 set B cannot carry the content \"a¶\""},
      {BarCodeSymbology::kCode128C, u"01,5", u"Code 128 set C cannot carry the content \"01,5\""},
  };
  for (const auto& row : kCases) {
    const Error error = ErrorOf([&] { DrawBarCode(row.symbology, row.content, true, Page()); });
    EXPECT_EQ(error.number(), 5);
    EXPECT_EQ(error.description(), row.description);
  }
}

}  // namespace
}  // namespace zorkanca::testing
