// What one value costs: number and date formats, plain conversions, encoding into the ANSI page.
#include <benchmark/benchmark.h>

#include <vector>

#include "runtime/code_page.h"
#include "runtime/convert.h"
#include "runtime/format.h"

namespace zorkanca {
namespace {

const Locale& Czech() {
  return *FindLocale(u"cs-CZ");
}

// Values as they come in tables: prices, quantities, results of divisions.
std::vector<Value> Doubles() {
  std::vector<Value> values;
  for (int index = 0; index < 1000; ++index) {
    values.emplace_back(index * 12.5);
    values.emplace_back(index * 3.333);
    values.emplace_back(index / 7.0);
  }
  return values;
}

std::vector<Value> Amounts() {
  std::vector<Value> values;
  for (int index = 0; index < 1000; ++index) values.emplace_back(Currency{index * 333300});
  return values;
}

std::vector<Value> Dates() {
  std::vector<Value> values;
  for (int index = 0; index < 1000; ++index) values.emplace_back(Date{40000.0 + index});
  return values;
}

std::vector<Value> Longs() {
  std::vector<Value> values;
  for (std::int32_t index = 0; index < 1000; ++index) values.emplace_back(index * 977);
  return values;
}

void FormatAll(benchmark::State& state, const std::vector<Value>& values, TextView pattern) {
  const FormatPattern compiled(pattern);
  Text text;
  for (auto _ : state) {
    for (const Value& value : values) {
      text.clear();
      compiled.Append(text, value, Czech());
      benchmark::DoNotOptimize(text.data());
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}

void ConvertAll(benchmark::State& state, const std::vector<Value>& values) {
  Text text;
  for (auto _ : state) {
    for (const Value& value : values) {
      text.clear();
      AppendText(text, value, Czech());
      benchmark::DoNotOptimize(text.data());
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}

void FormatDouble(benchmark::State& state) {
  FormatAll(state, Doubles(), u"###,##0.00####");
}
void FormatCurrency(benchmark::State& state) {
  FormatAll(state, Amounts(), u"###,##0.00####");
}
void FormatDate(benchmark::State& state) {
  FormatAll(state, Dates(), u"dd.mm.yyyy");
}
void TextOfDouble(benchmark::State& state) {
  ConvertAll(state, Doubles());
}
void TextOfDate(benchmark::State& state) {
  ConvertAll(state, Dates());
}
void TextOfLong(benchmark::State& state) {
  ConvertAll(state, Longs());
}

void EncodeCzech(benchmark::State& state) {
  Text text;
  while (text.size() < 65536) text += u"        <TD align=\"left\">Žluťoučký kůň</TD>\r\n";
  std::string bytes;
  for (auto _ : state) {
    bytes.clear();
    Czech().codePage->AppendEncoded(bytes, text);
    benchmark::DoNotOptimize(bytes.data());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

BENCHMARK(FormatDouble);
BENCHMARK(FormatCurrency);
BENCHMARK(FormatDate);
BENCHMARK(TextOfDouble);
BENCHMARK(TextOfDate);
BENCHMARK(TextOfLong);
BENCHMARK(EncodeCzech);

}  // namespace
}  // namespace zorkanca
