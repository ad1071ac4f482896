// The steps that fill a spreadsheet-XML template, as JSON:
//
//   [["AddWorksheet", "Faktury", "faktura", [
//       ["SetRowsOfTaggedGrid", 1, 3],
//       ["SetDataIntoTaggedCell", "první", 9, 1, 1, 1],
//       ["AddWorksheetSection", 2, [["SetDataIntoTaggedCell", "x", 7, 7]]]]]]
//
// A step is an operation's published name and its arguments in published order; those with a default may be left out at
// the end. The steps of a worksheet or of a section are the array that closes its own step.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/text.h"

namespace zorkanca::cli {

enum class FillOperationId {
  kAddWorksheet,
  kAddWorksheetSection,
  kSetDataIntoTaggedCell,
  kRemoveDataFromTaggedCell,
  kSetAttributeValueToTaggedCell,
  kGetAttributeValueFromTaggedCell,
  kSetAttributeValueToTable,
  kGetAttributeValueFromTable,
  kSetColsOfTaggedGrid,
  kSetRowsOfTaggedGrid,
  kSetColumnWidth,
};

struct FillOperation;

/// A step whose arguments fit its operation. Arguments of one type are kept in their order, defaults filled in.
struct FillStep {
  const FillOperation* operation = nullptr;
  Text texts[2];
  std::int16_t numbers[4] = {0, 0, 1, 1};
  float single = 0;
  bool boolean = false;
  bool hasSteps = false;
  std::vector<FillStep> steps;

  FillOperationId id() const;
};

/// Reads the steps. Errors: `UsageError` that names the step by its path ("step 3.2" is the second step in the third
/// one) for bad JSON, an unknown operation, or arguments that do not fit.
std::vector<FillStep> ReadFillSteps(std::string_view json);

}  // namespace zorkanca::cli
