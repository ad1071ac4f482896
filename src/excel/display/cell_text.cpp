#include "excel/display/cell_text.h"

namespace zorkanca::excel {

Text CellTexts::Show(const CellView& cell) {
  std::unique_ptr<NumberFormat>& format = formats_[cell.style];
  if (!format) {
    format = std::make_unique<NumberFormat>(sheet_.styles().NumberFormatOf(cell.style), locale_, sheet_.is1904());
  }
  return format->Show(ValueOf(cell, texts_, sheet_.part().prefix(), sheet_.is1904()));
}

}  // namespace zorkanca::excel
