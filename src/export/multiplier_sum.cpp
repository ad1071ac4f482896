#include "export/multiplier_sum.h"

#include <algorithm>

#include "runtime/error.h"

namespace zorkanca {

namespace {

TextView SummedExpression(TextView select, TextView lowerSelect, TextView multiplier) {
  constexpr TextView kAs = u"as";
  const std::size_t at = lowerSelect.find(multiplier);
  if (at == TextView::npos) return multiplier;
  TextView head = Trim(select.substr(0, at));
  if (!EqualsIgnoringCase(head.substr(head.size() - std::min(head.size(), kAs.size())), kAs)) return multiplier;
  head = Trim(head.substr(0, head.size() - kAs.size()));
  return head.substr(head.find_last_of(u" ,") + 1);  // all of it when there is none
}

}  // namespace

Text MultiplierSumStatement(TextView select, TextView multiplier) {
  const Text lower = LowerCase(select);
  const std::size_t from = lower.find(u"from");
  if (from == Text::npos) Raise(RuntimeError::kInvalidCall);
  Text statement = u"SELECT SUM(";
  statement.append(SummedExpression(select, lower, multiplier)).append(u") ").append(select.substr(from));
  return statement.substr(0, statement.find(u"ORDER BY"));
}

}  // namespace zorkanca
