#include "win32/forms/list_box_view.h"

#include "win32/forms/window_text.h"

namespace zorkanca::win32 {

ListBoxView::ListBoxView(ListBox& box, HWND parent, const Scale& scale)
    : ControlView(box, parent, scale,
                  {.windowClass = L"LISTBOX",
                   .style = WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
                   .extendedStyle = WS_EX_CLIENTEDGE,
                   .focusCode = LBN_SETFOCUS}),
      box_(box) {}

void ListBoxView::RefreshRows() {
  Send(WM_SETREDRAW, FALSE);
  Send(LB_RESETCONTENT);
  for (const Text& row : box_.rows()) Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.c_str()));
  RefreshContent();
  Send(WM_SETREDRAW, TRUE);
  InvalidateRect(window(), nullptr, TRUE);
}

void ListBoxView::RefreshContent() {
  const int row = box_.selectedRow();
  if (row != SelectedRow()) Send(LB_SETCURSEL, static_cast<WPARAM>(row));
}

void ListBoxView::Notified(WORD code) {
  if (code == LBN_SELCHANGE) {
    box_.SelectRow(SelectedRow());
  } else if (code == LBN_DBLCLK && PointsAtSelectedRow()) {
    box_.DoubleClick(SelectedRow());
  }
}

// A double click below the last row is told, too, though it is none on a row.
bool ListBoxView::PointsAtSelectedRow() const {
  const DWORD place = GetMessagePos();
  POINT point{.x = static_cast<SHORT>(LOWORD(place)), .y = static_cast<SHORT>(HIWORD(place))};
  ScreenToClient(window(), &point);
  RECT row{};
  return Send(LB_GETITEMRECT, static_cast<WPARAM>(SelectedRow()), reinterpret_cast<LPARAM>(&row)) != LB_ERR &&
         PtInRect(&row, point) != 0;
}

}  // namespace zorkanca::win32
