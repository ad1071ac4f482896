// What a template asks for, whichever application it is for.
#pragma once

#include <vector>

#include "platform/platform.h"
#include "platform/template_fields.h"
#include "templates/appl_office.h"

namespace zorkanca {

/// The fields of a template in the order of their first places: of a Word template its merge fields, form fields and
/// placeholders, of an Excel template the placeholders of the block that is repeated for each record.
/// Errors: what opening the template raises; 438 when the office applications cannot tell; 5 for a brace that nothing
/// closes.
std::vector<TemplateField> ReadTemplateFields(const Platform& platform, ApplOffice kind, const Text& path);

}  // namespace zorkanca
