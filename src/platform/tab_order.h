// How a person reads a form: the order of its controls, the labels that name them, captions without their marks.
#pragma once

#include <vector>

#include "platform/forms.h"

namespace zorkanca {

/// The controls that have a place in the tab order, labels too, first to last.
std::vector<Control*> InTabOrder(const Form& form);
/// The control that the label's access key goes to: the next one in the tab order that is no label. Null at the end.
Control* NamedBy(const Label& label);
/// The label just before the control in the tab order. Null when there is none.
Label* LabelOf(const Control& control);
/// "Přid&at" as "Přidat"; "&&" as "&".
Text WithoutAccessKey(TextView caption);

}  // namespace zorkanca
