// SPDX-License-Identifier: LGPL-2.1-or-later
// Which row of the list is selected.
#include "platform/win32/list_view.h"

namespace lumotune::platform::win32 {

// The list's own index, -1 for none. Searched for among all rows only when the selected one has lost the focus (the
// user moved that alone, with Ctrl): some lists take tens of milliseconds to ask so many.
LRESULT ListView::selected_item() const {
  constexpr auto before_first = static_cast<WPARAM>(-1);
  if (SendMessageW(window_, LVM_GETSELECTEDCOUNT, 0, 0) == 0)
    return -1;
  const LRESULT item = SendMessageW(window_, LVM_GETNEXTITEM, before_first, LVNI_SELECTED | LVNI_FOCUSED);
  return item >= 0 ? item : SendMessageW(window_, LVM_GETNEXTITEM, before_first, LVNI_SELECTED);
}

std::size_t ListView::selected() const {
  const LRESULT item = selected_item();
  return item < 0 || static_cast<std::size_t>(item) >= row_count() ? 0 : static_cast<std::size_t>(item) + 1;
}

// Row by row: all at once, by index -1, takes a list as long as its rows are many.
void ListView::unselect() {
  LVITEMW state{};
  state.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  for (const LRESULT item :
       {selected_item(), SendMessageW(window_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED)}) {
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
