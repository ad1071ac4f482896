#include "excel/grid/formula.h"

#include <gtest/gtest.h>

namespace zorkanca::excel {
namespace {

struct Moved {
  const char* formula;  // in C3
  const char* r1c1;
  const char* below;  // in C5
};

TEST(FormulaTest, OnlyReferencesMoveAndOnlyTheirRelativeParts) {
  const Moved rows[] = {
      {"B3*2", "RC[-1]*2", "B5*2"},
      {"$B3+B$3+$B$3", "RC2+R3C[-1]+R3C2", "$B5+B$3+$B$3"},
      {"SUM(A1:B3)", "SUM(R[-2]C[-2]:RC[-1])", "SUM(A3:B5)"},
      {"SUM(A:A,$B:C)", "SUM(C[-2],C2:C)", "SUM(A:A,$B:C)"},
      {"SUM(3:$4)", "SUM(R:R4)", "SUM(5:$4)"},
      {"'List 2'!B3&Data!$A1", "'List 2'!RC[-1]&Data!R[-2]C1", "'List 2'!B5&Data!$A3"},
      {"Jan:Dec!B3+[1]Sheet!B3", "Jan:Dec!RC[-1]+[1]Sheet!RC[-1]", "Jan:Dec!B5+[1]Sheet!B5"},
      {"'It''s B3'!B3", "'It''s B3'!RC[-1]", "'It''s B3'!B5"},
      {"\"B3 \"\"B3\"\"\"&B3", "\"B3 \"\"B3\"\"\"&RC[-1]", "\"B3 \"\"B3\"\"\"&B5"},
      {"LOG10(B3)+ATAN2(1,B3)", "LOG10(RC[-1])+ATAN2(1,RC[-1])", "LOG10(B5)+ATAN2(1,B5)"},
      {"T1[[#This Row],[B3]]*B3", "T1[[#This Row],[B3]]*RC[-1]", "T1[[#This Row],[B3]]*B5"},
      {"T1[Cena'] B3]+B3", "T1[Cena'] B3]+RC[-1]", "T1[Cena'] B3]+B5"},
      {"T1['[]*B3", "T1['[]*RC[-1]", "T1['[]*B5"},
      {"1E5+2.5e-3+B3+DPH_1+A1B", "1E5+2.5e-3+RC[-1]+DPH_1+A1B", "1E5+2.5e-3+B5+DPH_1+A1B"},
      {"IF(B3=TRUE,#N/A,#REF!)", "IF(RC[-1]=TRUE,#N/A,#REF!)", "IF(B5=TRUE,#N/A,#REF!)"},
      {"_xlfn.ANCHORARRAY(B3)+B3#", "_xlfn.ANCHORARRAY(RC[-1])+RC[-1]#", "_xlfn.ANCHORARRAY(B5)+B5#"},
      {"XFD1048576+XFE1+A1048577", "R[1048573]C[16381]+XFE1+A1048577", "#REF!+XFE1+A1048577"},
      {"b3", "RC[-1]", "B5"},
      {"A1:XFD1048575", "R[-2]C[-2]:R[1048572]C[16381]", "#REF!"},
  };
  for (const Moved& row : rows) {
    const Formula formula = Formula::FromA1(row.formula, {3, 3});
    std::string r1c1;
    formula.AppendR1C1(r1c1);
    EXPECT_EQ(r1c1, row.r1c1) << row.formula;
    std::string below;
    formula.AppendA1(below, {5, 3});
    EXPECT_EQ(below, row.below) << row.formula;
  }
}

TEST(FormulaTest, ReadsR1C1Notation) {
  const std::pair<const char*, const char*> rows[] = {
      {"RC[-1]*2", "B3*2"},
      {"R1C1+R[1]C[1]", "$A$1+D4"},
      {"SUM(R1C:R[-1]C)", "SUM(C$1:C2)"},
      {"SUM(C1,R2)", "SUM($A:$A,$2:$2)"},
      {"RC-1", "C3-1"},
      {"ROUND(RC2,2)&\"R1C1\"", "ROUND($B3,2)&\"R1C1\""},
      {"Rabat+Cena", "Rabat+Cena"},
      {"R[-5]C", "#REF!"},
  };
  for (const auto& [r1c1, a1] : rows) {
    std::string text;
    Formula::FromR1C1(r1c1).AppendA1(text, {3, 3});
    EXPECT_EQ(text, a1) << r1c1;
  }
}

}  // namespace
}  // namespace zorkanca::excel
