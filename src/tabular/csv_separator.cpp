#include "tabular/csv_separator.h"

#include <compare>
#include <cstddef>

#include "tabular/csv_scanner.h"

namespace zorkanca {

namespace {

constexpr std::size_t kRecords = 50;

struct Fitness {
  std::size_t records = 0;  // that have as many fields as the first one
  std::size_t fields = 0;
  friend auto operator<=>(const Fitness&, const Fitness&) = default;
};

// None for a separator that the first record does not hold, or with which the records break a rule.
Fitness FitnessOf(char separator, std::string_view text, bool isComplete) {
  CsvScanner scanner(separator);
  Fitness fitness;
  for (std::size_t record = 0; record < kRecords && !text.empty(); ++record) {
    const CsvScan scan = scanner.Scan(text, isComplete);
    if (scan == CsvScan::kFault) return {};
    if (scan == CsvScan::kIncomplete) break;
    const std::size_t fields = scanner.fields().size();
    if (record == 0) fitness.fields = fields;
    if (fitness.fields < 2 || fields > fitness.fields) return {};
    fitness.records += fields == fitness.fields;
    text.remove_prefix(scanner.length());
  }
  return fitness;
}

}  // namespace

char FindCsvSeparator(std::string_view start, bool isComplete) {
  char best = ',';
  Fitness bestFitness;
  for (const char separator : {',', ';', '\t', '|'}) {
    const Fitness fitness = FitnessOf(separator, start, isComplete);
    if (fitness <= bestFitness) continue;
    best = separator;
    bestFitness = fitness;
  }
  return best;
}

}  // namespace zorkanca
