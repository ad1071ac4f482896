#include "win32/automation/variant.h"

#include <cstring>
#include <limits>
#include <memory>

#include "platform/excel/cell_grid.h"
#include "runtime/error.h"
#include "win32/automation/automation_object.h"
#include "win32/automation/dispatch_error.h"
#include "win32/automation/safe_array.h"
#include "win32/wide_text.h"

namespace zorkanca::win32 {

namespace {

// Fills a fresh variant, piece by piece of what a value can be.
class Filling {
 public:
  explicit Filling(VARIANT& variant) : variant_(variant) {}

  void operator()(Empty) const {}
  void operator()(Null) const { variant_.vt = VT_NULL; }
  void operator()(bool value) const {
    variant_.vt = VT_BOOL;
    variant_.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  }
  void operator()(std::uint8_t value) const {
    variant_.vt = VT_UI1;
    variant_.bVal = value;
  }
  void operator()(std::int16_t value) const {
    variant_.vt = VT_I2;
    variant_.iVal = value;
  }
  void operator()(std::int32_t value) const {
    variant_.vt = VT_I4;
    variant_.lVal = value;
  }
  void operator()(std::int64_t value) const {
    variant_.vt = VT_I8;
    variant_.llVal = value;
  }
  void operator()(float value) const {
    variant_.vt = VT_R4;
    variant_.fltVal = value;
  }
  void operator()(double value) const {
    variant_.vt = VT_R8;
    variant_.dblVal = value;
  }
  void operator()(Currency value) const {
    variant_.vt = VT_CY;
    variant_.cyVal.int64 = value.tenThousandths;
  }
  void operator()(const Decimal& value) const {
    variant_.decVal.scale = value.scale;
    variant_.decVal.sign = value.negative ? DECIMAL_NEG : 0;
    variant_.decVal.Hi32 = value.high;
    variant_.decVal.Lo64 = value.low;
    variant_.vt = VT_DECIMAL;  // last: it lies within the number's room
  }
  void operator()(Date value) const {
    variant_.vt = VT_DATE;
    variant_.date = value.serial;
  }
  void operator()(const Text& value) const { variant_ = TextToVariant(value).Detach(); }
  void operator()(const Binary& value) const {
    SafeArray array(VT_UI1, {{static_cast<ULONG>(value.size()), 0}});
    if (!value.empty()) std::memcpy(array.Access().data(), value.data(), value.size());
    variant_ = array.Detach().Detach();
  }
  void operator()(const ObjectReference& value) const {
    if (const auto* error = dynamic_cast<const CellError*>(value.get())) {
      variant_.vt = VT_ERROR;
      variant_.scode = ResultOf(error->number);
      return;
    }
    IDispatch* const object = AutomationObjectOf(value.get());
    if (value && !object) Raise(RuntimeError::kTypeMismatch);
    variant_.vt = VT_DISPATCH;
    variant_.pdispVal = ComPointer<IDispatch>(object).Detach();
  }

 private:
  VARIANT& variant_;
};

Value OfUnsigned(std::uint64_t number) {
  if (number <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
    return static_cast<std::int64_t>(number);
  }
  return Decimal{.low = number};
}

Value OfError(SCODE code) {
  if (code == DISP_E_PARAMNOTFOUND) return Empty();
  return ObjectReference(std::make_shared<CellError>(ErrorNumberOf(code)));
}

Value OfObject(IUnknown* object) {
  if (!object) return ObjectReference();
  const ComPointer<IDispatch> dispatch = ComPointer<IUnknown>(object).As<IDispatch>();
  if (!dispatch) Raise(RuntimeError::kTypeMismatch);
  return ObjectReference(std::make_shared<AutomationValue>(LateObject(dispatch)));
}

Value OfDecimal(const DECIMAL& number) {
  return Decimal{
      .high = number.Hi32, .low = number.Lo64, .scale = number.scale, .negative = (number.sign & DECIMAL_NEG) != 0};
}

Value OfBytes(SAFEARRAY* array) {
  if (SafeArrayGetDim(array) != 1) Raise(RuntimeError::kTypeMismatch);
  const SafeArrayAccess access(array);
  const std::byte* const bytes = access.data();
  return Binary(bytes, bytes + access.elements());
}

Variant Changed(const Variant& variant, VARTYPE type) {
  Variant changed;
  auto* const source = const_cast<VARIANT*>(&variant.get());  // which the system only reads
  Require(VariantChangeTypeEx(changed.Receive(), source, kAutomationLanguage, VARIANT_NOUSEROVERRIDE, type));
  return changed;
}

}  // namespace

Variant Variant::Missing() {
  VARIANT missing{};
  missing.vt = VT_ERROR;
  missing.scode = DISP_E_PARAMNOTFOUND;
  return Owning(missing);
}

Variant TextToVariant(TextView text) {
  constexpr std::size_t kMostUnits = std::numeric_limits<std::int32_t>::max() / 2;
  VARIANT variant{};
  if (text.size() < kMostUnits) {
    variant.bstrVal = SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()), static_cast<UINT>(text.size()));
  }
  if (!variant.bstrVal) Raise(RuntimeError::kOutOfMemory);
  variant.vt = VT_BSTR;
  return Variant::Owning(variant);
}

Variant ValueToVariant(const Value& value) {
  VARIANT variant{};
  std::visit(Filling(variant), value);
  return Variant::Owning(variant);
}

Value ToValue(const VARIANT& variant) {
  switch (variant.vt) {
    case VT_EMPTY:
      return Empty();
    case VT_NULL:
      return Null();
    case VT_BOOL:
      return variant.boolVal != VARIANT_FALSE;
    case VT_I1:
      return static_cast<std::int16_t>(static_cast<signed char>(variant.cVal));
    case VT_UI1:
      return std::uint8_t{variant.bVal};
    case VT_I2:
      return std::int16_t{variant.iVal};
    case VT_UI2:
      return std::int32_t{variant.uiVal};
    case VT_I4:
    case VT_INT:
      return std::int32_t{variant.lVal};
    case VT_UI4:
    case VT_UINT:
      return static_cast<std::int64_t>(variant.ulVal);
    case VT_I8:
      return std::int64_t{variant.llVal};
    case VT_UI8:
      return OfUnsigned(variant.ullVal);
    case VT_R4:
      return variant.fltVal;
    case VT_R8:
      return variant.dblVal;
    case VT_CY:
      return Currency{variant.cyVal.int64};
    case VT_DECIMAL:
      return OfDecimal(variant.decVal);
    case VT_DATE:
      return Date{variant.date};
    case VT_BSTR:
      return Text(FromWide(variant.bstrVal, SysStringLen(variant.bstrVal)));
    case VT_ERROR:
      return OfError(variant.scode);
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return OfObject(variant.punkVal);
    case VT_ARRAY | VT_UI1:
      return OfBytes(variant.parray);
    default:
      break;
  }
  if ((variant.vt & VT_BYREF) == 0) Raise(RuntimeError::kTypeMismatch);
  Variant referred;
  Require(VariantCopyInd(referred.Receive(), const_cast<VARIANT*>(&variant)));
  return ToValue(referred.get());
}

bool AsBoolean(const Variant& variant) {
  return Changed(variant, VT_BOOL).get().boolVal != VARIANT_FALSE;
}

std::int32_t AsLong(const Variant& variant) {
  return Changed(variant, VT_I4).get().lVal;
}

Text AsText(const Variant& variant) {
  if (variant.type() == VT_NULL) return {};
  const Variant text = Changed(variant, VT_BSTR);
  return Text(FromWide(text.get().bstrVal, SysStringLen(text.get().bstrVal)));
}

}  // namespace zorkanca::win32
