// The specification of a bar code that callers put behind the column names of an export, in braces:
//
//   kod;nazev,{Code39;kod,trim;BC;0}       the comma before the brace does not belong to the names
#pragma once

#include <memory>
#include <optional>

#include "barcode/bar_code.h"
#include "runtime/locale.h"
#include "runtime/text.h"

namespace zorkanca {

/// Takes the specification off the names; the names are trimmed then, without a comma at their end.
/// @return what stands in the first pair of braces, trimmed (a brace that nothing closes takes the rest); nothing when
///         there is none, and the names stay as they are
std::optional<Text> TakeBarCodeSpecification(Text& names);

/// The same as a bar code with these parameters; null without a specification. Errors: those of
/// `cBarCode::ParseParameters`.
/// @param locale  outlives the result
std::unique_ptr<cBarCode> TakeBarCode(Text& names, const Locale& locale);

}  // namespace zorkanca
