#include "win32/automation/safe_array.h"

#include <utility>
#include <vector>

#include "runtime/error.h"

namespace zorkanca::win32 {

SafeArrayAccess::SafeArrayAccess(SAFEARRAY* array) : array_(array) {
  if (!array || FAILED(SafeArrayAccessData(array, &data_))) Raise(RuntimeError::kTypeMismatch);
  for (USHORT dimension = 0; dimension < array->cDims; ++dimension) elements_ *= array->rgsabound[dimension].cElements;
}

SafeArray::SafeArray(VARTYPE elementType, std::initializer_list<SAFEARRAYBOUND> bounds) : elementType_(elementType) {
  std::vector<SAFEARRAYBOUND> copied(bounds);
  array_ = SafeArrayCreate(elementType, static_cast<UINT>(copied.size()), copied.data());
  if (!array_) Raise(RuntimeError::kOutOfMemory);
}

Variant SafeArray::Detach() {
  VARIANT variant{};
  variant.vt = static_cast<VARTYPE>(VT_ARRAY | elementType_);
  variant.parray = std::exchange(array_, nullptr);
  return Variant::Owning(variant);
}

}  // namespace zorkanca::win32
