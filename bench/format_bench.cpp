// What one value of a formatted column costs.
#include <benchmark/benchmark.h>

#include "formats/format.h"

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

BENCHMARK(CaseTableOfTexts);
BENCHMARK(CaseTableOfNumbers);
BENCHMARK(NamedConversion);
BENCHMARK(NumberPattern);

}  // namespace
}  // namespace zorkanca
