// What one value of a formatted column or of a bar-code column costs.
#include <benchmark/benchmark.h>

#include "barcode/bar_code.h"
#include "office/format.h"

namespace zorkanca {
namespace {

const Locale& Czech() {
  return *FindLocale(u"cs-CZ");
}

void ApplyFormat(benchmark::State& state, TextView formatText, const Value& value) {
  cFormat format(Czech());
  format.format(formatText);
  for (auto _ : state) benchmark::DoNotOptimize(format.Apply(value));
}

void CaseTableOfTexts(benchmark::State& state) {
  ApplyFormat(state, u"case A: aktivní case N: zrušený case like x*: zvláštní case else: @", Text(u"xyz"));
}
void CaseTableOfNumbers(benchmark::State& state) {
  ApplyFormat(state, u"case <10: malé case <100: střední case else: velké", 250.5);
}
void NamedConversion(benchmark::State& state) {
  ApplyFormat(state, u"trim;katpoh", Text(u" 17 "));
}
void NumberPattern(benchmark::State& state) {
  ApplyFormat(state, u"#,##0.00", Currency{12345600});
}

void EncodeBarCode(benchmark::State& state, TextView parameters) {
  cBarCode barCode(Czech());
  barCode.ParseParameters(parameters);
  const Value value = Text(u"8594001020304");
  for (auto _ : state) benchmark::DoNotOptimize(barCode.EncodeValue(value));
}

void Code39(benchmark::State& state) {
  EncodeBarCode(state, u"Code39;kod,trim;BC;1");
}
void Code128B(benchmark::State& state) {
  EncodeBarCode(state, u"Code_128B_TTF;kod,trim;BC;1");
}
void Code128C(benchmark::State& state) {
  EncodeBarCode(state, u"Code_128C_TTF;kod,trim;BC;1");
}

BENCHMARK(CaseTableOfTexts);
BENCHMARK(CaseTableOfNumbers);
BENCHMARK(NamedConversion);
BENCHMARK(NumberPattern);
BENCHMARK(Code39);
BENCHMARK(Code128B);
BENCHMARK(Code128C);

}  // namespace
}  // namespace zorkanca
