// Anchored objects of repeated rows, one line each.
#include <gtest/gtest.h>

#include "excel/drawing/drawing_repeats.h"
#include "opc/part_sink.h"

namespace zorkanca::excel {
namespace {

const std::string kRoot =
    "<xdr:wsDr xmlns:xdr=\"http://schemas.openxmlformats.org/drawingml/2006/spreadsheetDrawing\" "
    "xmlns:a16=\"http://schemas.microsoft.com/office/drawing/2014/main\">";

struct DrawingCase {
  const char* anchors;
  std::vector<RowRepeat> repeats;
  const char* added;  // behind the anchors
};

TEST(DrawingTest, CopiesOfAnchors) {
  const RowRepeat twice{.top = 1, .rows = 2, .first = 3, .copies = 2};  // rows 1 and 2 over 3 to 6
  const DrawingCase rows[] = {
      {"<xdr:oneCellAnchor><xdr:from><xdr:row>0</xdr:row></xdr:from><xdr:cNvPr id=\"4\" name=\"Logo 7\"/>"
       "</xdr:oneCellAnchor>",
       {twice},
       "<xdr:oneCellAnchor><xdr:from><xdr:row>2</xdr:row></xdr:from><xdr:cNvPr id=\"5\" name=\"Logo 5\"/>"
       "</xdr:oneCellAnchor><xdr:oneCellAnchor><xdr:from><xdr:row>4</xdr:row></xdr:from><xdr:cNvPr id=\"6\" "
       "name=\"Logo "
       "6\"/></xdr:oneCellAnchor>"},
      // Both corners move; ids go on behind the greatest.
      {"<xdr:twoCellAnchor editAs=\"oneCell\"><xdr:from><xdr:row>1</xdr:row></xdr:from><xdr:to><xdr:row>9</xdr:row>"
       "</xdr:to><xdr:cNvPr id=\"30\" name=\"\"/></xdr:twoCellAnchor>",
       {{.top = 2, .rows = 1, .first = 5, .copies = 1}},
       "<xdr:twoCellAnchor editAs=\"oneCell\"><xdr:from><xdr:row>4</xdr:row></xdr:from><xdr:to><xdr:row>12</xdr:row>"
       "</xdr:to><xdr:cNvPr id=\"31\" name=\" 31\"/></xdr:twoCellAnchor>"},
      // Shapes of a group, and the ends of their connections, keep belonging together.
      {"<xdr:twoCellAnchor><xdr:from><xdr:row>0</xdr:row></xdr:from><xdr:cNvPr id=\"2\" name=\"A\"/><xdr:cNvPr "
       "id=\"3\" "
       "name=\"B\"/><a:stCxn xmlns:a=\"a\" id=\"3\"/></xdr:twoCellAnchor>",
       {{.top = 1, .rows = 1, .first = 2, .copies = 1}},
       "<xdr:twoCellAnchor><xdr:from><xdr:row>1</xdr:row></xdr:from><xdr:cNvPr id=\"4\" name=\"A 4\"/><xdr:cNvPr "
       "id=\"5\" "
       "name=\"B 5\"/><a:stCxn xmlns:a=\"a\" id=\"5\"/></xdr:twoCellAnchor>"},
      {"<xdr:oneCellAnchor><xdr:from><xdr:row>0</xdr:row></xdr:from><xdr:cNvPr id=\"2\" name=\"A\"><a16:creationId "
       "id=\"{0000ABCD-1234}\"/></xdr:cNvPr></xdr:oneCellAnchor>",
       {{.top = 1, .rows = 1, .first = 2, .copies = 1}},
       "<xdr:oneCellAnchor><xdr:from><xdr:row>1</xdr:row></xdr:from><xdr:cNvPr id=\"3\" name=\"A 3\"><a16:creationId "
       "id=\"{00000003-1234}\"/></xdr:cNvPr></xdr:oneCellAnchor>"},
      // A copy is copied by the next repeat.
      {"<xdr:oneCellAnchor><xdr:from><xdr:row>0</xdr:row></xdr:from></xdr:oneCellAnchor>",
       {{.top = 1, .rows = 1, .first = 2, .copies = 1}, {.top = 1, .rows = 2, .first = 3, .copies = 1}},
       "<xdr:oneCellAnchor><xdr:from><xdr:row>1</xdr:row></xdr:from></xdr:oneCellAnchor><xdr:oneCellAnchor><xdr:from>"
       "<xdr:row>2</xdr:row></xdr:from></xdr:oneCellAnchor><xdr:oneCellAnchor><xdr:from><xdr:row>3</xdr:row></xdr:from>"
       "</xdr:oneCellAnchor>"},
      // Below the rows, fixed to the page, charts, choices between versions, rows that are none.
      {"<xdr:oneCellAnchor><xdr:from><xdr:row>2</xdr:row></xdr:from></xdr:oneCellAnchor>", {twice}, ""},
      {"<xdr:absoluteAnchor><xdr:pos/></xdr:absoluteAnchor>", {twice}, ""},
      {"<xdr:twoCellAnchor editAs=\"absolute\"><xdr:from><xdr:row>0</xdr:row></xdr:from></xdr:twoCellAnchor>",
       {twice},
       ""},
      {"<xdr:twoCellAnchor><xdr:from><xdr:row>0</xdr:row></xdr:from><xdr:graphicFrame/></xdr:twoCellAnchor>",
       {twice},
       ""},
      {"<mc:AlternateContent xmlns:mc=\"mc\"><xdr:oneCellAnchor><xdr:from><xdr:row>0</xdr:row></xdr:from>"
       "</xdr:oneCellAnchor></mc:AlternateContent>",
       {twice},
       ""},
      {"<xdr:oneCellAnchor><xdr:from><xdr:row>x</xdr:row></xdr:from></xdr:oneCellAnchor>", {twice}, ""},
  };
  for (const DrawingCase& row : rows) {
    const DrawingPart drawing(kRoot + row.anchors + "</xdr:wsDr>", {});
    EXPECT_EQ(drawing.shapeCount(), 1U);
    EXPECT_EQ(drawing.IsRepeated(row.repeats), std::string(row.added) != "") << row.anchors;
    StringSink sink;
    drawing.Write(sink, row.repeats, {});
    EXPECT_EQ(sink.bytes(), kRoot + row.anchors + row.added + "</xdr:wsDr>");
  }
}

}  // namespace
}  // namespace zorkanca::excel
