#include "foundation/focus_move.h"

#include "foundation/argument_error.h"

namespace zorkanca {

bool sf_NextCtr(Form* frm) {
  if (frm == nullptr) ArgumentError().RaiseArgumentIsNothingError(u"frm", u"sf_NextCtr");
  const Control* active = frm->activeControl();
  if (active == nullptr || !active->tabIndex()) return false;
  Control* next = frm->NextTabStop(*active->tabIndex());
  if (next != nullptr) next->SetFocus();
  return next != nullptr;
}

}  // namespace zorkanca
