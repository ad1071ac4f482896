#include "win32/forms/text_box_view.h"

#include "platform/text_edit.h"
#include "win32/forms/window_text.h"

namespace zorkanca::win32 {

TextBoxView::TextBoxView(TextBox& box, HWND parent, const Scale& scale)
    : ControlView(box, parent, scale,
                  {.windowClass = L"EDIT",
                   .style = WS_TABSTOP | ES_AUTOHSCROLL,
                   .extendedStyle = WS_EX_CLIENTEDGE,
                   .focusCode = EN_SETFOCUS}),
      box_(box) {
  Send(EM_SETLIMITTEXT, 0);  // none
}

void TextBoxView::RefreshContent() {
  showing_ = true;
  ShowText(window(), box_.text());
  showing_ = false;
  if (box_.allSelected() && !selectionShown_) Send(EM_SETSEL, 0, -1);
  selectionShown_ = box_.allSelected();
}

void TextBoxView::Notified(WORD code) {
  if (code == EN_CHANGE && !showing_) PersonEdited();
  // A text that is to be replaced by typing stays marked when a click, which will set the cursor, brings the person.
  if (code == EN_SETFOCUS && box_.allSelected()) PostMessageW(window(), EM_SETSEL, 0, -1);
}

void TextBoxView::PersonEdited() {
  const Text after = TextOf(window());
  DWORD cursor = 0;
  Send(EM_GETSEL, 0, reinterpret_cast<LPARAM>(&cursor));
  const TextEdit edit = EditBetween(box_.text(), after, cursor);
  const Text accepted = box_.Type(edit.inserted, edit.start, edit.removed);
  Refresh();
  if (TextOf(window()) == after) return;
  cursor = static_cast<DWORD>(edit.start + accepted.size());
  Send(EM_SETSEL, cursor, static_cast<LPARAM>(cursor));
}

}  // namespace zorkanca::win32
