// Excel as the product drives it: the application and its workbooks, with exactly the members that are used, under the
// names of its object model. A member that an implementation does not support raises error 438; none returns quietly.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "platform/excel/excel_workbook.h"
#include "runtime/text.h"

namespace zorkanca {

/// Window states (`XlWindowState`).
enum class ExcelWindowState : std::int32_t { kMaximized = -4137, kMinimized = -4140, kNormal = -4143 };

/// How a column of an imported text is read (`XlColumnDataType`).
enum class ExcelColumnType : std::int32_t { kGeneral = 1, kText = 2 };

/// One pair of `FieldInfo`: a column, counted from 1, and how it is read.
struct ExcelColumnInfo {
  std::int32_t column = 0;
  ExcelColumnType type = ExcelColumnType::kGeneral;
};

/// Arguments of `Workbooks.OpenText` in their published order; the defaults are the object model's. `TextVisualLayout`
/// is never given. A call with separators is the one with 16 arguments, without them the one with 13.
struct OpenTextArguments {
  Text Filename = {};
  std::int32_t Origin = 2;         ///< 2: the ANSI code page of the system; 65001: UTF-8
  std::int32_t StartRow = 1;       ///< first line that is read
  std::int32_t DataType = 1;       ///< 1: delimited
  std::int32_t TextQualifier = 1;  ///< 1: double quote
  bool ConsecutiveDelimiter = false;
  bool Tab = false;
  bool Semicolon = false;
  bool Comma = false;
  bool Space = false;
  bool Other = false;
  Text OtherChar = {};
  std::vector<ExcelColumnInfo> FieldInfo = {};  ///< columns that are not named are general
  std::optional<Text> DecimalSeparator = {};    ///< of numbers in general columns; the system's when not given
  std::optional<Text> ThousandsSeparator = {};
};

/// The running Excel. References to it are shared; the product never quits it.
class ExcelApplication : public Object {
 public:
  /// `Workbooks.Add`: a new workbook based on a template, one with an empty sheet for an empty template. It becomes the
  /// active one.
  /// Errors: 1004 when the template is missing, 5 when it cannot be read, with a description that says why.
  virtual ExcelWorkbookReference AddWorkbook(TextView Template) = 0;
  /// `Workbooks.OpenText`: imports a text file into a new workbook of that file's name, which becomes the active one.
  /// Errors: 1004 when it is missing, has more rows or columns than a sheet, or a text beyond 32767 units; 438 for
  /// arguments other than those that the exports use.
  virtual void OpenText(const OpenTextArguments& arguments) = 0;
  /// `Workbooks(name)`, case ignored. Errors: 9 when none has that name.
  virtual ExcelWorkbookReference Workbooks(TextView name) = 0;
  /// Errors: 91 when none is open.
  virtual ExcelWorkbookReference ActiveWorkbook() = 0;

  virtual bool Visible() const = 0;
  virtual void Visible(bool visible) = 0;
  virtual bool ScreenUpdating() const = 0;
  virtual void ScreenUpdating(bool updating) = 0;
  /// Whether the user's keyboard and mouse reach the application.
  virtual void Interactive(bool interactive) = 0;
  /// `CutCopyMode` = False: forgets what was copied.
  virtual void CutCopyMode(bool mode) = 0;
  virtual ExcelWindowState WindowState() const = 0;
  virtual void WindowState(ExcelWindowState state) = 0;
  /// `ActiveWindow.WindowState`. Errors: 91 when no workbook is open.
  virtual ExcelWindowState ActiveWindowState() const = 0;
  virtual void ActiveWindowState(ExcelWindowState state) = 0;
  /// `Windows(name).Visible`: of the workbook of that name. Errors: 9 when none has that name.
  virtual void WindowVisible(TextView name, bool visible) = 0;
};
using ExcelApplicationReference = std::shared_ptr<ExcelApplication>;

}  // namespace zorkanca
