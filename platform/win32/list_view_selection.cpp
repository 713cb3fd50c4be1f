// SPDX-License-Identifier: LGPL-2.1-or-later
// Which row of the list is selected.
#include "platform/win32/list_view.h"

namespace lumotune::platform::win32 {

void ListView::note_state(const NMLISTVIEW& change) {
  if ((change.uNewState & LVIS_SELECTED) != 0)
    last_selected_ = change.iItem;
  if ((change.uNewState & LVIS_FOCUSED) != 0)
    last_focused_ = change.iItem;
}

bool ListView::has_state(int item, UINT state) const {
  return item >= 0 && SendMessageW(window_, LVM_GETITEMSTATE, static_cast<WPARAM>(item), state) != 0;
}

// The list's own index, -1 for none. The list itself would look for it row by row, which takes Wine tens of
// milliseconds where rows are many.
LRESULT ListView::selected_item() const {
  if (SendMessageW(window_, LVM_GETSELECTEDCOUNT, 0, 0) == 0)
    return -1;
  if (has_state(last_selected_, LVIS_SELECTED))
    return last_selected_;
  return SendMessageW(window_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED);
}

std::size_t ListView::selected() const {
  const LRESULT item = selected_item();
  return item < 0 || static_cast<std::size_t>(item) >= row_count() ? 0 : static_cast<std::size_t>(item) + 1;
}

// Row by row: all at once, by index -1, takes a list as long as its rows are many.
void ListView::unselect() {
  LVITEMW state{};
  state.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  const LRESULT focused = has_state(last_focused_, LVIS_FOCUSED) ? last_focused_ : -1;
  for (const LRESULT item : {selected_item(), focused}) {
    if (item >= 0)
      SendMessageW(window_, LVM_SETITEMSTATE, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&state));
  }
}

void ListView::select(std::size_t index) {
  unselect();
  if (index == 0 || index > row_count())
    return;
  LVITEMW state{};
  state.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  state.state = LVIS_SELECTED | LVIS_FOCUSED;
  SendMessageW(window_, LVM_SETITEMSTATE, index - 1, reinterpret_cast<LPARAM>(&state));
  SendMessageW(window_, LVM_SETSELECTIONMARK, 0, static_cast<LPARAM>(index - 1));
  SendMessageW(window_, LVM_ENSUREVISIBLE, index - 1, FALSE);
}

} // namespace lumotune::platform::win32
