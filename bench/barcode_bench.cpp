// What one bar code costs: the font text of a value in each symbology, of a record, and the picture.
#include <benchmark/benchmark.h>

#include "barcode/bar_code.h"
#include "barcode/bar_code_drawing.h"
#include "support/memory_database.h"

namespace zorkanca {
namespace {

const Locale& Czech() {
  return *FindLocale(u"cs-CZ");
}

void EncodeValue(benchmark::State& state, TextView parameters, const Value& value) {
  cBarCode barCode(Czech());
  barCode.ParseParameters(parameters);
  for (auto _ : state) benchmark::DoNotOptimize(barCode.EncodeValue(value));
  state.SetItemsProcessed(state.iterations());
}

BENCHMARK_CAPTURE(EncodeValue, Code39, u"Code39;F,trim;;1", u"FA-2026 000123");
BENCHMARK_CAPTURE(EncodeValue, Code128B, u"Code128B;F,trim;;1", u"FA-2026 000123");
BENCHMARK_CAPTURE(EncodeValue, Code_128B_TTF, u"Code_128B_TTF;F,trim;;1", u"FA-2026 000123");
BENCHMARK_CAPTURE(EncodeValue, Code128C, u"Code128C;F,trim;;0", u"8594001234567");
BENCHMARK_CAPTURE(EncodeValue, Code_128C_TTF, u"Code_128C_TTF;F,trim;;0", u"8594001234567");
BENCHMARK_CAPTURE(EncodeValue, Long, u"Code_128C_TTF;F,trim;;0", std::int32_t{1234567});

void EncodeRecord(benchmark::State& state) {
  testing::MemoryDatabase database;
  database.columns = {{.name = u"Rada"}, {.name = u"Cislo", .type = FieldType::kLong}, {.name = u"Stat"}};
  database.rows = {{u"FA", std::int32_t{123}, u"cz"}};
  const auto recordset = database.OpenRecordset(u"", RecordsetType::kDynaset, 0);
  cBarCode barCode(Czech());
  barCode.ParseParameters(u"Code39;Rada,trim|'-'|Cislo,6|Stat,[+A]|Rada,[->0]4;OUT;1");
  barCode.SetRecordset(*recordset);
  for (auto _ : state) benchmark::DoNotOptimize(barCode.EncodeRecord());
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(EncodeRecord);

void DrawSvg(benchmark::State& state) {
  const CodePage& codePage = *Czech().codePage;
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        BarCodeSvg(DrawBarCode(BarCodeSymbology::kCode128BTtf, u"FA-2026 000123", true, codePage)));
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(DrawSvg);

}  // namespace
}  // namespace zorkanca
