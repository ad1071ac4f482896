// Takes the pattern of a number format apart.
#pragma once

#include "excel/display/number_format.h"

namespace zorkanca::excel {

class NumberFormatReader {
 public:
  NumberFormatReader(TextView pattern, const Locale& locale) : rest_(pattern), locale_(locale) {}

  std::vector<NumberFormat::Section> Read();

 private:
  using Section = NumberFormat::Section;
  using Step = NumberFormat::Step;
  using StepKind = NumberFormat::StepKind;

  Section ReadSection();
  void ReadStep(Section& section);
  void ReadBracket(Section& section);
  bool ReadDateStep(Section& section);
  bool ReadNumberStep(Section& section);
  std::size_t Run(char16_t letter) const;
  static void AddLiteral(Section& section, TextView text);
  static void SettleMinutes(Section& section);
  static void SettleThousands(Section& section);

  TextView rest_;
  const Locale& locale_;
};

}  // namespace zorkanca::excel
