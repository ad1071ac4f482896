// The markers of a spreadsheet-XML template, for whoever wants to know what it asks for.
#pragma once

#include <vector>

#include "platform/template_fields.h"
#include "runtime/text.h"

namespace zorkanca {

/// The symbols of all markers without the "#" round them ("worksheet_begin", "GD-C1-c[***]-R2-r[***]-"), in the order
/// of their first places.
std::vector<TemplateField> MarkersOf(TextView text);

}  // namespace zorkanca
