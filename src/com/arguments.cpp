#include "com/arguments.h"

#include <new>

#include "runtime/error.h"
#include "win32/automation/automation_object.h"
#include "win32/automation/safe_array.h"
#include "win32/wide_text.h"

namespace zorkanca::com {

namespace {

// Far more columns than a query or a sheet can have; indexes are the client's and may be anything.
constexpr std::int64_t kMostColumns = 65536;

BSTR NewString(TextView text) {
  const BSTR string = SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()), static_cast<UINT>(text.size()));
  if (!string) throw std::bad_alloc();
  return string;
}

// The array in a variant, through variants by reference; null when there is none of one dimension.
SAFEARRAY* ArrayIn(const VARIANT* variant) {
  while (variant && variant->vt == (VT_BYREF | VT_VARIANT)) variant = variant->pvarVal;
  if (!variant || !(variant->vt & VT_ARRAY)) return nullptr;
  SAFEARRAY* const array =
      (variant->vt & VT_BYREF) ? (variant->pparray ? *variant->pparray : nullptr) : variant->parray;
  return array && SafeArrayGetDim(array) == 1 ? array : nullptr;
}

// Calls `element(data, type, index)` for each element whose index is a position of a column.
template <typename Visitor>
void ForEachElement(const VARIANT* variant, const Visitor& visit) {
  SAFEARRAY* const array = ArrayIn(variant);
  VARTYPE type = VT_EMPTY;
  if (!array || FAILED(SafeArrayGetVartype(array, &type))) return;
  const win32::SafeArrayAccess access(array);
  const std::byte* element = access.data();
  std::int64_t index = array->rgsabound[0].lLbound;
  for (ULONG count = 0; count < array->rgsabound[0].cElements; ++count, ++index, element += array->cbElements) {
    if (index >= kMostColumns) return;
    if (index >= 0) visit(element, type, static_cast<std::size_t>(index));
  }
}

template <typename Element>
void Set(std::vector<Element>& elements, std::size_t index, Element element) {
  if (elements.size() <= index) elements.resize(index + 1);
  elements[index] = std::move(element);
}

win32::Variant ElementAs(const VARIANT& element, VARTYPE type) {
  win32::Variant changed;
  if (FAILED(VariantChangeTypeEx(changed.Receive(), const_cast<VARIANT*>(&element), LOCALE_USER_DEFAULT, 0, type)))
    return {};
  return changed;
}

}  // namespace

Text TextOf(BSTR text) {
  return Text(win32::FromWide(text, SysStringLen(text)));
}

std::vector<Text> TextsIn(const VARIANT* array) {
  std::vector<Text> texts;
  ForEachElement(array, [&](const std::byte* element, VARTYPE type, std::size_t index) {
    if (type == VT_BSTR) {
      Set(texts, index, TextOf(*reinterpret_cast<const BSTR*>(element)));
    } else if (type == VT_VARIANT) {
      const win32::Variant text = ElementAs(*reinterpret_cast<const VARIANT*>(element), VT_BSTR);
      if (text.type() == VT_BSTR) Set(texts, index, TextOf(text.get().bstrVal));
    }
  });
  return texts;
}

std::vector<bool> BooleansIn(const VARIANT* array) {
  std::vector<bool> marks;
  ForEachElement(array, [&](const std::byte* element, VARTYPE type, std::size_t index) {
    if (type == VT_BOOL) {
      Set(marks, index, *reinterpret_cast<const VARIANT_BOOL*>(element) != VARIANT_FALSE);
    } else if (type == VT_VARIANT) {
      const win32::Variant mark = ElementAs(*reinterpret_cast<const VARIANT*>(element), VT_BOOL);
      if (mark.type() == VT_BOOL) Set(marks, index, mark.get().boolVal != VARIANT_FALSE);
    }
  });
  return marks;
}

void TextOut(BSTR* place, TextView text) {
  if (!place || TextOf(*place) == text) return;
  const BSTR changed = NewString(text);
  SysFreeString(*place);
  *place = changed;
}

void ObjectOut(IDispatch** place, const ObjectReference& object) {
  if (!place) return;
  IDispatch* const given = win32::AutomationObjectOf(object.get());
  if (given) given->AddRef();
  if (*place) (*place)->Release();
  *place = given;
}

void TextsOut(SAFEARRAY** place, const std::vector<Text>& texts) {
  if (!place) return;
  win32::SafeArray made(VT_BSTR, {{static_cast<ULONG>(texts.size()), 0}});
  {
    const win32::SafeArrayAccess access = made.Access();
    for (std::size_t index = 0; index < texts.size(); ++index) access.As<BSTR>()[index] = NewString(texts[index]);
  }
  if (*place) SafeArrayDestroy(*place);
  *place = made.Detach().Detach().parray;
}

void TextResult(BSTR* place, TextView text) {
  if (place) *place = NewString(text);
}

}  // namespace zorkanca::com
