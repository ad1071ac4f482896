#include "support/fake_excel.h"

#include <algorithm>

#include "platform/paths.h"
#include "runtime/error.h"
#include "runtime/utf8.h"

namespace zorkanca::testing {

namespace {

constexpr std::int32_t kRows = 1048576;
constexpr std::int32_t kColumns = 16384;

struct FakeArea {
  std::int32_t row = 1;
  std::int32_t column = 1;
  std::int32_t rows = 1;
  std::int32_t columns = 1;
};

void AppendCell(std::string& address, std::int32_t row, std::int32_t column) {
  address.push_back(static_cast<char>('A' + column - 1));  // tests stay below column 27
  if (row > 0) address.append(std::to_string(row));
}

std::string AddressOf(const FakeArea& area) {
  std::string address;
  if (area.columns == kColumns) {
    address.append(std::to_string(area.row)).append(":").append(std::to_string(area.row + area.rows - 1));
  } else if (area.rows == kRows) {
    AppendCell(address, 0, area.column);
  } else {
    AppendCell(address, area.row, area.column);
    if (area.rows == 1 && area.columns == 1) return address;
    address.push_back(':');
    AppendCell(address, area.row + area.rows - 1, area.column + area.columns - 1);
  }
  return address;
}

// The rows of an imported file, by the rules that the data files are written for.
FakeCells ReadCells(const Text& text) {
  FakeCells cells(1, std::vector<Text>(1));
  bool quoted = false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    Text& cell = cells.back().back();
    const TextView rest = TextView(text).substr(at);
    if (quoted && rest.starts_with(u"\"\"")) {
      cell.push_back(u'"');
      ++at;
    } else if (text[at] == u'"' && (quoted || cell.empty())) {
      quoted = !quoted;
    } else if (!quoted && text[at] == u';') {
      cells.back().emplace_back();
    } else if (!quoted && rest.starts_with(u"\r\n")) {
      cells.emplace_back(1);
      ++at;
    } else {
      cell.push_back(text[at]);
    }
  }
  cells.pop_back();  // what follows the last line end
  return cells;
}

}  // namespace

// Shared by the sheet and its ranges.
struct FakeGrid {
  FakeExcel& excel;
  FakeCells cells;
  bool isImport = false;
  std::size_t width = 0;  // of an import

  Text At(std::int32_t row, std::int32_t column) const {
    const auto rowIndex = static_cast<std::size_t>(row - 1);
    const auto columnIndex = static_cast<std::size_t>(column - 1);
    if (rowIndex >= cells.size() || columnIndex >= cells[rowIndex].size()) return Text();
    return cells[rowIndex][columnIndex];
  }
  void Put(std::int32_t row, std::int32_t column, Text text) {
    const auto rowIndex = static_cast<std::size_t>(row - 1);
    const auto columnIndex = static_cast<std::size_t>(column - 1);
    if (rowIndex >= cells.size()) cells.resize(rowIndex + 1);
    if (columnIndex >= cells[rowIndex].size()) cells[rowIndex].resize(columnIndex + 1);
    cells[rowIndex][columnIndex] = std::move(text);
  }
};

class FakeExcelApplication final : public ExcelApplication, public std::enable_shared_from_this<FakeExcelApplication> {
 public:
  explicit FakeExcelApplication(FakeExcel& excel) : excel_(excel) {}

  ExcelWorkbookReference AddWorkbook(TextView Template) override;
  void OpenText(const OpenTextArguments& arguments) override;
  ExcelWorkbookReference Workbooks(TextView name) override;
  ExcelWorkbookReference ActiveWorkbook() override { Raise(RuntimeError::kNotSupported); }

  bool Visible() const override { return visible; }
  void Visible(bool value) override { Set("visible ", visible, value); }
  bool ScreenUpdating() const override { return updating; }
  void ScreenUpdating(bool value) override { Set("updating ", updating, value); }
  void Interactive(bool value) override { Set("interactive ", interactive, value); }
  void CutCopyMode(bool) override { Note("copied forgotten"); }
  ExcelWindowState WindowState() const override { return excel_.windowState; }
  void WindowState(ExcelWindowState state) override {
    excel_.windowState = state;
    Note("window " + std::to_string(static_cast<int>(state)));
  }
  ExcelWindowState ActiveWindowState() const override { return excel_.activeWindowState; }
  void ActiveWindowState(ExcelWindowState state) override { excel_.activeWindowState = state; }
  void WindowVisible(TextView name, bool) override { Note("show " + ToUtf8(name)); }

  void Note(std::string line) { excel_.journal.push_back("excel " + std::move(line)); }

  FakeCells copied;
  FakeArea selection;
  std::vector<ExcelWorkbookReference> workbooks;

 private:
  // Only changes are of interest.
  void Set(const char* what, bool& property, bool value) {
    if (property != value) Note(std::string(what) + (value ? "on" : "off"));
    property = value;
  }

  FakeExcel& excel_;
  bool visible = false;
  bool updating = true;
  bool interactive = true;
};

namespace {

class FakeExcelRange final : public ExcelRange {
 public:
  FakeExcelRange(FakeExcelApplication& application, FakeGrid& grid, FakeArea area)
      : application_(application), grid_(grid), area_(area) {}

  const FakeArea& area() const { return area_; }
  FakeGrid& grid() { return grid_; }

  std::int32_t RowCount() const override { return area_.rows; }
  std::int32_t ColumnCount() const override { return area_.columns; }
  std::unique_ptr<ExcelRange> CurrentRegion() override {
    if (grid_.isImport) {
      return Make(
          {.rows = static_cast<std::int32_t>(grid_.cells.size()), .columns = static_cast<std::int32_t>(grid_.width)});
    }
    FakeArea region;
    const auto blank = [&](std::int32_t row, std::int32_t column, std::int32_t rows, std::int32_t columns) {
      for (std::int32_t r = 0; r < rows; ++r) {
        for (std::int32_t c = 0; c < columns; ++c) {
          if (!grid_.At(row + r, column + c).empty()) return false;
        }
      }
      return true;
    };
    for (bool grows = true; grows;) {
      grows = false;
      if (!blank(region.rows + 1, 1, 1, region.columns + 1)) ++region.rows, grows = true;
      if (!blank(1, region.columns + 1, region.rows, 1)) ++region.columns, grows = true;
    }
    return Make(region);
  }
  std::unique_ptr<ExcelRange> Offset(std::int32_t rows, std::int32_t columns) override {
    FakeArea moved = area_;
    moved.row += rows;
    moved.column += columns;
    return Make(moved);
  }
  std::unique_ptr<ExcelRange> Resize(std::int32_t rows, std::int32_t columns) override {
    return Make({.row = area_.row, .column = area_.column, .rows = rows, .columns = columns});
  }

  zorkanca::Text Text() override { return grid_.At(area_.row, area_.column); }
  void Formula(TextView formula) override { grid_.Put(area_.row, area_.column, zorkanca::Text(formula)); }
  CellGrid FormulaR1C1() override {
    return Read([](const zorkanca::Text& text) { return Value(text); });
  }
  void FormulaR1C1(const CellGrid& contents) override {
    application_.Note("contents " + AddressOf(area_));
    for (std::int32_t row = 0; row < area_.rows; ++row) {
      for (std::int32_t column = 0; column < area_.columns; ++column) {
        const zorkanca::Text* text = std::get_if<zorkanca::Text>(&contents.At(row, column));
        grid_.Put(area_.row + row, area_.column + column, text ? *text : zorkanca::Text());
      }
    }
  }
  CellGrid Value2() override {
    return Read([&](const zorkanca::Text& text) -> Value {
      if (text.empty()) return Empty();
      if (!grid_.isImport && text.starts_with(u'=')) return 1.0;  // the result of every formula
      return text;
    });
  }

  void Copy() override {
    application_.Note("copy " + AddressOf(area_));
    application_.copied = Contents();
  }
  void Copy(ExcelRange& Destination) override {
    auto& target = dynamic_cast<FakeExcelRange&>(Destination);
    application_.Note("copy " + AddressOf(area_) + " to " + AddressOf(target.area()));
    Paste(target.grid(), Contents(), target.area());
  }
  void PasteSpecial(const PasteSpecialArguments& arguments) override {
    application_.Note("paste " + std::to_string(static_cast<int>(arguments.Paste)) + " at " + AddressOf(area_));
    Paste(grid_, application_.copied, area_);
  }
  void Select() override {
    application_.Note("select " + AddressOf(area_));
    application_.selection = area_;
  }
  void HorizontalAlignment(ExcelAlignment alignment) override {
    application_.Note("align " + AddressOf(area_) + " " + std::to_string(static_cast<int>(alignment)));
  }
  void FontBold(bool) override { application_.Note("bold " + AddressOf(area_)); }
  void AutoFitColumns() override { application_.Note("fit " + AddressOf(area_)); }

  static void Paste(FakeGrid& grid, const FakeCells& cells, const FakeArea& at) {
    for (std::size_t row = 0; row < cells.size(); ++row) {
      for (std::size_t column = 0; column < cells[row].size(); ++column) {
        grid.Put(at.row + static_cast<std::int32_t>(row), at.column + static_cast<std::int32_t>(column),
                 cells[row][column]);
      }
    }
  }

 private:
  std::unique_ptr<ExcelRange> Make(FakeArea area) {
    return std::make_unique<FakeExcelRange>(application_, grid_, area);
  }

  FakeCells Contents() const {
    FakeCells contents(static_cast<std::size_t>(area_.rows));
    const std::int32_t columns = std::min(area_.columns, 26);
    for (std::int32_t row = 0; row < area_.rows; ++row) {
      for (std::int32_t column = 0; column < columns; ++column) {
        contents[static_cast<std::size_t>(row)].push_back(grid_.At(area_.row + row, area_.column + column));
      }
    }
    return contents;
  }
  template <typename Convert>
  CellGrid Read(Convert convert) const {
    CellGrid result(area_.rows, area_.columns);
    for (std::int32_t row = 0; row < area_.rows; ++row) {
      for (std::int32_t column = 0; column < area_.columns; ++column) {
        result.At(row, column) = convert(grid_.At(area_.row + row, area_.column + column));
      }
    }
    return result;
  }

  FakeExcelApplication& application_;
  FakeGrid& grid_;
  FakeArea area_;
};

class FakeWorkbook final : public ExcelWorkbook, public ExcelWorksheet {
 public:
  FakeWorkbook(FakeExcelApplication& application, Text name, FakeGrid grid)
      : application_(application), name_(std::move(name)), grid_(std::move(grid)) {}

  const FakeCells& cells() const { return grid_.cells; }

  std::shared_ptr<ExcelApplication> Application() override { return application_.shared_from_this(); }
  Text Name() const override { return name_; }
  Text FullName() const override { return name_; }
  ExcelWorksheetReference Sheets(std::int32_t index) override {
    if (index != 1) Raise(RuntimeError::kSubscriptOutOfRange);
    return ActiveSheet();
  }
  ExcelWorksheetReference ActiveSheet() override {
    return std::shared_ptr<ExcelWorksheet>(application_.Workbooks(name_), static_cast<ExcelWorksheet*>(this));
  }
  // Of the workbook as well as of its sheet.
  void Activate() override { application_.Note("activate " + ToUtf8(name_)); }
  void SaveAs(TextView, ExcelSaveFormat) override { Raise(RuntimeError::kNotSupported); }
  void ExportAsFixedFormat(const ExportWorkbookArguments& arguments) override {
    application_.Note("export " + ToUtf8(arguments.fileName));
    grid_.excel.exported = arguments;
    if (grid_.excel.refusesToExport) throw Error(5, Text(), u"no room");
  }
  void Close(bool) override {
    application_.Note("close " + ToUtf8(name_));
    std::erase_if(application_.workbooks, [&](const auto& each) { return each.get() == this; });
  }

  std::unique_ptr<ExcelRange> Range(TextView address) override {
    if (address != u"A1") Raise(RuntimeError::kNotSupported);
    return Make({});
  }
  std::unique_ptr<ExcelRange> Rows(TextView address) override {
    const auto ends = Split(address, u':');
    const auto first = static_cast<std::int32_t>(std::stol(ToUtf8(ends.at(0))));
    const auto last = static_cast<std::int32_t>(std::stol(ToUtf8(ends.at(1))));
    return Make({.row = first, .rows = last - first + 1, .columns = kColumns});
  }
  std::unique_ptr<ExcelRange> Columns(std::int32_t index) override { return Make({.column = index, .rows = kRows}); }
  std::int32_t ShapeCount() override {
    if (grid_.excel.shapes < 0) Raise(RuntimeError::kNotSupported);
    return grid_.excel.shapes;
  }
  void Paste() override {
    const FakeArea& selection = application_.selection;
    application_.Note("paste at " + AddressOf(selection));
    const auto copiedRows = static_cast<std::int32_t>(application_.copied.size());
    for (std::int32_t row = 0; row < std::max(selection.rows, copiedRows); row += copiedRows) {
      FakeExcelRange::Paste(grid_, application_.copied, {.row = selection.row + row, .column = selection.column});
    }
  }

 private:
  std::unique_ptr<ExcelRange> Make(FakeArea area) {
    return std::make_unique<FakeExcelRange>(application_, grid_, area);
  }

  FakeExcelApplication& application_;
  Text name_;
  FakeGrid grid_;
};

}  // namespace

ExcelWorkbookReference FakeExcelApplication::AddWorkbook(TextView Template) {
  Note("add " + ToUtf8(Template));
  if (excel_.refusesToAdd) throw Error(1004, Text(), u"no such file");
  FakeCells cells = Template.empty() ? FakeCells() : excel_.templateCells;
  workbooks.push_back(std::make_shared<FakeWorkbook>(*this, u"Sešit1", FakeGrid{excel_, std::move(cells)}));
  return workbooks.back();
}

void FakeExcelApplication::OpenText(const OpenTextArguments& arguments) {
  std::string types;
  for (const ExcelColumnInfo& column : arguments.FieldInfo) {
    types.append(" ").append(std::to_string(column.column));
    types.append(column.type == ExcelColumnType::kText ? "t" : "g");
  }
  const bool separators = arguments.DecimalSeparator && arguments.ThousandsSeparator;
  if (separators) {
    types.append(" ").append(ToUtf8(*arguments.DecimalSeparator)).append(ToUtf8(*arguments.ThousandsSeparator));
  }
  Note(std::string("import").append(types));
  if (separators && !excel_.knowsSeparators) throw Error(449, Text(), u"Argument not optional");
  if (excel_.refusesImports) throw Error(1004, Text(), u"too much");
  const auto stream =
      excel_.files.OpenTextFile(arguments.Filename, IoMode::kForReading, /*create=*/false, TextFormat::kAnsi);
  FakeGrid grid{excel_, ReadCells(stream->ReadAll()), /*isImport=*/true};
  for (const auto& row : grid.cells) grid.width = std::max(grid.width, row.size());
  workbooks.push_back(std::make_shared<FakeWorkbook>(*this, Text(GetFileName(arguments.Filename)), std::move(grid)));
}

ExcelWorkbookReference FakeExcelApplication::Workbooks(TextView name) {
  for (const ExcelWorkbookReference& workbook : workbooks) {
    if (EqualsIgnoringCase(workbook->Name(), name)) return workbook;
  }
  Raise(RuntimeError::kSubscriptOutOfRange);
}

ExcelApplicationReference FakeExcel::AttachExcel() {
  if (!running) throw Error(attachError ? attachError : 429, Text(), u"no Excel");
  return application;
}

ExcelWorkbookReference FakeExcel::GetWorkbook(TextView path) {
  if (!running) StartExcel();
  return application->AddWorkbook(path);
}

ExcelApplicationReference FakeExcel::StartExcel() {
  journal.push_back("excel start");
  running = true;
  application = std::make_shared<FakeExcelApplication>(*this);
  return application;
}

FakeCells CellsOf(ExcelWorkbook& workbook) {
  return dynamic_cast<FakeWorkbook&>(workbook).cells();
}

}  // namespace zorkanca::testing
