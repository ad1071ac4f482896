#include "platform/tab_order.h"

#include <algorithm>

namespace zorkanca {

std::vector<Control*> InTabOrder(const Form& form) {
  std::vector<Control*> order;
  for (Control* control : form.controls()) {
    if (control->tabIndex()) order.push_back(control);
  }
  std::stable_sort(order.begin(), order.end(),
                   [](const Control* left, const Control* right) { return *left->tabIndex() < *right->tabIndex(); });
  return order;
}

Control* NamedBy(const Label& label) {
  const std::vector<Control*> order = InTabOrder(label.form());
  const auto self = std::find(order.begin(), order.end(), &label);
  const auto next = std::find_if(self, order.end(),
                                 [](const Control* control) { return dynamic_cast<const Label*>(control) == nullptr; });
  return next == order.end() ? nullptr : *next;
}

Label* LabelOf(const Control& control) {
  const std::vector<Control*> order = InTabOrder(control.form());
  const auto self = std::find(order.begin(), order.end(), &control);
  return self == order.end() || self == order.begin() ? nullptr : dynamic_cast<Label*>(*(self - 1));
}

Text WithoutAccessKey(TextView caption) {
  Text plain;
  for (std::size_t index = 0; index < caption.size(); ++index) {
    if (caption[index] == u'&' && ++index == caption.size()) break;
    plain.push_back(caption[index]);
  }
  return plain;
}

}  // namespace zorkanca
