#include "com/passed_argument.h"

#include <cstring>
#include <utility>

namespace zorkanca::com {

namespace {

// The variable that a variant stands for: variants by reference may stand for one another.
VARIANTARG* VariableOf(VARIANTARG* argument) {
  constexpr int kDeepest = 8;
  for (int depth = 0; depth < kDeepest && argument && argument->vt == (VT_BYREF | VT_VARIANT); ++depth) {
    argument = argument->pvarVal;
  }
  return argument;
}

bool IsMissing(const VARIANT* argument) {
  if (!argument || ((argument->vt & VT_BYREF) && !argument->byref)) return true;
  return argument->vt == VT_ERROR && argument->scode == DISP_E_PARAMNOTFOUND;
}

std::size_t SizeOf(VARTYPE type) {
  switch (type) {
    case VT_I1:
    case VT_UI1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
      return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
      return 8;
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return sizeof(void*);
    default:
      return (type & VT_ARRAY) ? sizeof(void*) : 0;
  }
}

HRESULT Converted(VARIANT& target, const VARIANT& source, LCID language, VARTYPE type) {
  const HRESULT result = VariantChangeTypeEx(&target, const_cast<VARIANT*>(&source), language, 0, type);
  return SUCCEEDED(result) || result == DISP_E_OVERFLOW || result == E_OUTOFMEMORY ? result : DISP_E_TYPEMISMATCH;
}

// Into a variable that stands alone, not in a variant: what it held is released.
HRESULT PutAt(void* place, VARTYPE type, VARIANT& value) {
  const std::size_t size = SizeOf(type);
  if (size == 0 || !place) return DISP_E_TYPEMISMATCH;
  VARIANT held{};
  held.vt = type;
  std::memcpy(&held.llVal, place, size);
  std::memcpy(place, &value.llVal, size);
  value.vt = VT_EMPTY;
  return VariantClear(&held);
}

// Scripts can look into arrays of Variants alone.
HRESULT ToVariants(const VARIANT& texts, VARIANT& variants) {
  BSTR* from = nullptr;
  HRESULT result = SafeArrayAccessData(texts.parray, reinterpret_cast<void**>(&from));
  if (FAILED(result)) return result;
  const ULONG count = texts.parray->rgsabound[0].cElements;
  variants.parray = SafeArrayCreateVector(VT_VARIANT, texts.parray->rgsabound[0].lLbound, count);
  variants.vt = VT_ARRAY | VT_VARIANT;
  VARIANT* to = nullptr;
  result = variants.parray ? SafeArrayAccessData(variants.parray, reinterpret_cast<void**>(&to)) : E_OUTOFMEMORY;
  for (ULONG index = 0; SUCCEEDED(result) && index < count; ++index) {
    to[index].bstrVal = SysAllocStringLen(from[index], SysStringLen(from[index]));
    if (to[index].bstrVal)
      to[index].vt = VT_BSTR;
    else
      result = E_OUTOFMEMORY;
  }
  if (to) SafeArrayUnaccessData(variants.parray);
  SafeArrayUnaccessData(texts.parray);
  return result;
}

}  // namespace

VARTYPE PassedArgument::pushedType() const {
  return parameter_.byReference ? static_cast<VARTYPE>(VT_BYREF | parameter_.type) : parameter_.type;
}

void PassedArgument::TakeNothing() {
  VariantClear(&value_);
  if (parameter_.type != VT_VARIANT) value_.vt = parameter_.type;
  reference_.vt = static_cast<VARTYPE>(VT_BYREF | parameter_.type);
  // All members of the union begin at one place; a whole Variant begins before it.
  reference_.byref = parameter_.type == VT_VARIANT ? static_cast<void*>(&value_) : &value_.llVal;
}

HRESULT PassedArgument::Take(VARIANTARG* source, LCID language) {
  TakeNothing();
  VARIANTARG* const variable = VariableOf(source);
  if (IsMissing(variable)) {
    if (source && !parameter_.optional) return DISP_E_PARAMNOTOPTIONAL;
    if (parameter_.type == VT_VARIANT) {
      value_.vt = VT_ERROR;
      value_.scode = DISP_E_PARAMNOTFOUND;
      return S_OK;
    }
    if (parameter_.omitted.type() == VT_EMPTY) return S_OK;
    return VariantCopy(&value_, const_cast<VARIANT*>(&parameter_.omitted.get()));
  }
  VARIANT given{};
  HRESULT result = VariantCopyInd(&given, variable);
  if (SUCCEEDED(result)) {
    if (parameter_.type == VT_VARIANT) {
      VariantClear(&value_);
      value_ = std::exchange(given, VARIANT{});
    } else if (parameter_.type == VT_DISPATCH) {
      result = TakeObject(given);
    } else if (parameter_.type & VT_ARRAY) {
      result = TakeArray(given);
    } else {
      result = Converted(value_, given, language, parameter_.type);
    }
  }
  VariantClear(&given);
  const bool goesBack = parameter_.byReference && parameter_.type != VT_VARIANT &&
                        (source->vt == (VT_BYREF | VT_VARIANT) || (variable->vt & VT_BYREF));
  if (FAILED(result) || !goesBack) return result;
  source_ = variable;
  return VariantCopy(&before_, &value_);
}

// A variable that was never set counts as one that holds nothing: it is there to receive an object.
HRESULT PassedArgument::TakeObject(const VARIANT& given) {
  if (given.vt == VT_EMPTY) return S_OK;
  if (given.vt != VT_DISPATCH && given.vt != VT_UNKNOWN) return DISP_E_TYPEMISMATCH;
  if (!given.punkVal) return S_OK;
  const HRESULT result =
      given.punkVal->QueryInterface(parameter_.interfaceId, reinterpret_cast<void**>(&value_.pdispVal));
  return SUCCEEDED(result) ? S_OK : DISP_E_TYPEMISMATCH;
}

// Arrays are outputs: what the client's held is of no interest.
HRESULT PassedArgument::TakeArray(const VARIANT& given) {
  return given.vt == VT_EMPTY || (given.vt & VT_ARRAY) ? S_OK : DISP_E_TYPEMISMATCH;
}

bool PassedArgument::Changed() const {
  if (parameter_.type == VT_BSTR) {
    const UINT bytes = SysStringByteLen(value_.bstrVal);
    return bytes != SysStringByteLen(before_.bstrVal) ||
           (bytes != 0 && std::memcmp(value_.bstrVal, before_.bstrVal, bytes) != 0);
  }
  return std::memcmp(&value_.llVal, &before_.llVal, SizeOf(parameter_.type)) != 0;
}

HRESULT PassedArgument::GiveBack(LCID language) {
  if (!source_ || !Changed()) return S_OK;
  if (source_->vt & VT_BYREF) {
    const auto type = static_cast<VARTYPE>(source_->vt & ~VT_BYREF);
    VARIANT turned{};
    HRESULT result = S_OK;
    if (type == parameter_.type)
      turned = std::exchange(value_, VARIANT{});
    else if (type == (VT_ARRAY | VT_VARIANT) && (parameter_.type & VT_ARRAY))
      result = ToVariants(value_, turned);
    else
      result = Converted(turned, value_, language, type);
    if (SUCCEEDED(result)) result = PutAt(source_->byref, type, turned);
    VariantClear(&turned);
    return result;
  }
  VARIANT turned{};
  if ((parameter_.type & VT_ARRAY) && source_->vt != parameter_.type) {
    const HRESULT result = ToVariants(value_, turned);
    if (FAILED(result)) {
      VariantClear(&turned);
      return result;
    }
  } else {
    turned = std::exchange(value_, VARIANT{});
  }
  VariantClear(source_);
  *source_ = turned;
  return S_OK;
}

VARIANT PassedArgument::Detach() {
  return std::exchange(value_, VARIANT{});
}

}  // namespace zorkanca::com
