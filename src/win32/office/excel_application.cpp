#include "win32/automation/safe_array.h"
#include "win32/office/excel_objects.h"

namespace zorkanca::win32 {

namespace {

ExcelWorkbookReference WorkbookOf(LateObject workbook) {
  return std::make_shared<LateExcelWorkbook>(std::move(workbook));
}

Variant ArrayOf(std::span<Variant> elements) {
  SafeArray array(VT_VARIANT, {{static_cast<ULONG>(elements.size()), 0}});
  {
    const SafeArrayAccess access = array.Access();
    VARIANT* next = access.As<VARIANT>();
    for (Variant& element : elements) *next++ = element.Detach();
  }
  return array.Detach();
}

// An array of pairs, as scripts write them: Array(Array(1, 2), Array(2, 1)).
Variant FieldInfoOf(const std::vector<ExcelColumnInfo>& columns) {
  if (columns.empty()) return Variant::Missing();
  std::vector<Variant> pairs;
  for (const ExcelColumnInfo& info : columns) {
    Variant pair[] = {ToVariant(info.column), ToVariant(static_cast<std::int32_t>(info.type))};
    pairs.push_back(ArrayOf(pair));
  }
  return ArrayOf(pairs);
}

Variant OptionalText(const std::optional<Text>& text) {
  return text ? ToVariant(*text) : Variant::Missing();
}

}  // namespace

ExcelWorkbookReference LateExcelApplication::AddWorkbook(TextView Template) {
  const LateObject workbooks = object_.Child(u"Workbooks");
  return WorkbookOf(Template.empty() ? workbooks.Child(u"Add") : workbooks.Child(u"Add", Template));
}

void LateExcelApplication::OpenText(const OpenTextArguments& arguments) {
  std::vector<Variant> inOrder;
  inOrder.push_back(ToVariant(arguments.Filename));
  inOrder.push_back(ToVariant(arguments.Origin));
  inOrder.push_back(ToVariant(arguments.StartRow));
  inOrder.push_back(ToVariant(arguments.DataType));
  inOrder.push_back(ToVariant(arguments.TextQualifier));
  inOrder.push_back(ToVariant(arguments.ConsecutiveDelimiter));
  inOrder.push_back(ToVariant(arguments.Tab));
  inOrder.push_back(ToVariant(arguments.Semicolon));
  inOrder.push_back(ToVariant(arguments.Comma));
  inOrder.push_back(ToVariant(arguments.Space));
  inOrder.push_back(ToVariant(arguments.Other));
  inOrder.push_back(ToVariant(arguments.OtherChar));
  inOrder.push_back(FieldInfoOf(arguments.FieldInfo));
  if (arguments.DecimalSeparator || arguments.ThousandsSeparator) {
    inOrder.push_back(Variant::Missing());  // TextVisualLayout
    inOrder.push_back(OptionalText(arguments.DecimalSeparator));
    inOrder.push_back(OptionalText(arguments.ThousandsSeparator));
  }
  object_.Child(u"Workbooks").CallMember(u"OpenText", inOrder);
}

ExcelWorkbookReference LateExcelApplication::Workbooks(TextView name) {
  return WorkbookOf(object_.Item(u"Workbooks", name));
}

ExcelWorkbookReference LateExcelApplication::ActiveWorkbook() {
  return WorkbookOf(object_.Child(u"ActiveWorkbook"));
}

bool LateExcelApplication::Visible() const {
  return AsBoolean(object_.Get(u"Visible"));
}

void LateExcelApplication::Visible(bool visible) {
  object_.Put(u"Visible", visible);
}

bool LateExcelApplication::ScreenUpdating() const {
  return AsBoolean(object_.Get(u"ScreenUpdating"));
}

void LateExcelApplication::ScreenUpdating(bool updating) {
  object_.Put(u"ScreenUpdating", updating);
}

void LateExcelApplication::Interactive(bool interactive) {
  object_.Put(u"Interactive", interactive);
}

void LateExcelApplication::CutCopyMode(bool mode) {
  object_.Put(u"CutCopyMode", mode);
}

ExcelWindowState LateExcelApplication::WindowState() const {
  return static_cast<ExcelWindowState>(AsLong(object_.Get(u"WindowState")));
}

void LateExcelApplication::WindowState(ExcelWindowState state) {
  object_.Put(u"WindowState", static_cast<std::int32_t>(state));
}

ExcelWindowState LateExcelApplication::ActiveWindowState() const {
  return static_cast<ExcelWindowState>(AsLong(object_.Child(u"ActiveWindow").Get(u"WindowState")));
}

void LateExcelApplication::ActiveWindowState(ExcelWindowState state) {
  object_.Child(u"ActiveWindow").Put(u"WindowState", static_cast<std::int32_t>(state));
}

void LateExcelApplication::WindowVisible(TextView name, bool visible) {
  object_.Item(u"Windows", name).Put(u"Visible", visible);
}

}  // namespace zorkanca::win32
