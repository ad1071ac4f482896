#include "platform/detail_query.h"

#include "runtime/error.h"

namespace zorkanca {

BoundDetail::BoundDetail(DetailQuery& query, const FindColumn& find) : query_(query) {
  for (const Text& name : query.Parameters()) {
    fields_.push_back(find(name));
    if (fields_.back() == nullptr) {
      Raise(RuntimeError::kItemNotFound, u"The parameter \":" + name + u"\" names no column of the enclosing record");
    }
  }
  values_.resize(fields_.size());
}

void BoundDetail::Run() {
  for (std::size_t index = 0; index < fields_.size(); ++index) values_[index] = &fields_[index]->Value();
  query_.Run(values_);
}

}  // namespace zorkanca
