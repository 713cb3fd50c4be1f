// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/win32/tree_view.h"

#include "platform/win32/dpi.h"
#include "platform/win32/rows.h"

#include <windowsx.h>

#include <utility>

namespace lumotune::platform::win32 {
namespace {

constexpr UINT message_changes_end = WM_APP + 1;
constexpr std::size_t most_shown = 259; // characters; the system's own limit

std::wstring capitals(std::wstring text) {
  CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
  return text;
}

} // namespace

// Without drag and drop a press selects at once instead of waiting for the next mouse move.
TreeView::TreeView(Surface& surface, const std::wstring& designer_name)
    : ControlOf(surface, designer_name, WC_TREEVIEWW,
                TVS_HASLINES | TVS_HASBUTTONS | TVS_LINESATROOT | TVS_SHOWSELALWAYS | TVS_DISABLEDRAGDROP |
                    static_cast<DWORD>(WS_TABSTOP),
                WS_EX_CLIENTEDGE) {
  SendMessageW(window_, TVM_SETEXTENDEDSTYLE, TVS_EX_DOUBLEBUFFER, TVS_EX_DOUBLEBUFFER);
  set_measures();
}

// The height is first the font's own.
void TreeView::set_measures() {
  SendMessageW(window_, TVM_SETINDENT, static_cast<WPARAM>(pixels(285, surface_.dpi())), 0);
  SendMessageW(window_, TVM_SETITEMHEIGHT, static_cast<WPARAM>(-1), 0);
  const auto own = static_cast<int>(SendMessageW(window_, TVM_GETITEMHEIGHT, 0, 0));
  const int least = pixels(row_height, surface_.dpi());
  if (own < least)
    SendMessageW(window_, TVM_SETITEMHEIGHT, static_cast<WPARAM>(least), 0);
}

void TreeView::dpi_changed() {
  ControlOf::dpi_changed();
  set_measures();
}

// The tree would lay itself out anew for each node: it is kept from that until the loop comes round, or somebody wants
// to see a node.
void TreeView::begin_changes() {
  if (changing_)
    return;
  changing_ = true;
  SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
  PostMessageW(window_, message_changes_end, 0, 0);
}

void TreeView::end_changes() {
  if (!changing_)
    return;
  changing_ = false;
  SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(window_, nullptr, TRUE);
}

void TreeView::clear() {
  begin_changes();
  nodes_.clear();
  by_key_.clear();
  SendMessageW(window_, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
}

bool TreeView::add(const std::wstring& key, const std::wstring& parent_key, const std::wstring& text) {
  HTREEITEM parent = TVI_ROOT;
  if (!parent_key.empty()) {
    const auto found = by_key_.find(capitals(parent_key));
    if (found == by_key_.end())
      return false;
    parent = nodes_[found->second - 1].item;
  }
  if (!by_key_.emplace(capitals(key), nodes_.size() + 1).second)
    return false;
  begin_changes();
  std::wstring shown = text.substr(0, most_shown); // the record wants writable text
  TVINSERTSTRUCTW made{};
  made.hParent = parent;
  made.hInsertAfter = TVI_LAST;
  made.item.mask = TVIF_TEXT | TVIF_PARAM;
  made.item.pszText = shown.data();
  made.item.lParam = static_cast<LPARAM>(nodes_.size() + 1);
  const LRESULT item = SendMessageW(window_, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&made));
  nodes_.push_back({key, text, reinterpret_cast<HTREEITEM>(item)});
  return true;
}

std::wstring TreeView::key(std::size_t index) const {
  return index == 0 || index > nodes_.size() ? std::wstring() : nodes_[index - 1].key;
}

std::wstring TreeView::node_text(std::size_t index) const {
  return index == 0 || index > nodes_.size() ? std::wstring() : nodes_[index - 1].text;
}

std::size_t TreeView::index_of(HTREEITEM item) const {
  if (item == nullptr)
    return 0;
  TVITEMW asked{};
  asked.mask = TVIF_PARAM | TVIF_HANDLE;
  asked.hItem = item;
  if (SendMessageW(window_, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&asked)) == 0)
    return 0;
  const auto index = static_cast<std::size_t>(asked.lParam);
  return index <= nodes_.size() ? index : 0;
}

std::size_t TreeView::selected() const {
  return index_of(reinterpret_cast<HTREEITEM>(SendMessageW(window_, TVM_GETNEXTITEM, TVGN_CARET, 0)));
}

bool TreeView::expanded(std::size_t index) const {
  if (index == 0 || index > nodes_.size())
    return false;
  const LRESULT state = SendMessageW(window_, TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(nodes_[index - 1].item),
                                     static_cast<LPARAM>(TVIS_EXPANDED));
  return (state & TVIS_EXPANDED) != 0;
}

void TreeView::expand(std::size_t index) {
  if (index != 0 && index <= nodes_.size())
    SendMessageW(window_, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(nodes_[index - 1].item));
}

void TreeView::select(std::size_t index) {
  if (index == 0 || index > nodes_.size())
    return;
  end_changes();
  const auto item = reinterpret_cast<LPARAM>(nodes_[index - 1].item);
  SendMessageW(window_, TVM_ENSUREVISIBLE, 0, item);
  SendMessageW(window_, TVM_SELECTITEM, TVGN_CARET, item);
}

std::size_t TreeView::node_at(LPARAM point) const {
  TVHITTESTINFO hit{};
  hit.pt = {GET_X_LPARAM(point), GET_Y_LPARAM(point)};
  const auto item = reinterpret_cast<HTREEITEM>(SendMessageW(window_, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
  return (hit.flags & TVHT_ONITEM) != 0 ? index_of(item) : 0;
}

bool TreeView::asked(NMHDR& header, LRESULT& result) {
  if (header.code != NM_CUSTOMDRAW)
    return false;
  result = customise(reinterpret_cast<NMTVCUSTOMDRAW&>(header));
  return true;
}

LRESULT TreeView::customise(NMTVCUSTOMDRAW& item) const {
  if (item.nmcd.dwDrawStage == CDDS_PREPAINT)
    return CDRF_NOTIFYITEMDRAW;
  if (item.nmcd.dwDrawStage == CDDS_ITEMPREPAINT && (item.nmcd.uItemState & CDIS_SELECTED) != 0 &&
      GetFocus() != window_) {
    item.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);
    item.clrText = GetSysColor(COLOR_WINDOWTEXT);
    item.clrTextBk = resting_selection();
  }
  return CDRF_DODEFAULT;
}

// The system tells of a click before it selects the node: its own part is done first here, and then the click is told.
LRESULT TreeView::press(WPARAM keys, LPARAM point) {
  const std::size_t node = node_at(point);
  const LRESULT answer = DefSubclassProc(window_, WM_LBUTTONDOWN, keys, point);
  if (node != 0 && selected() == node)
    fire(on_click);
  return answer;
}

bool TreeView::handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
  if (ControlOf::handle_message(message, w, l, result))
    return true;
  if (keys_.let_go(message, w) && selected() != 0) {
    result = DefSubclassProc(window_, message, w, l);
    fire(on_key_up);
    return true;
  }
  switch (message) {
  case message_changes_end:
    end_changes();
    return true;
  case WM_WINDOWPOSCHANGED: {
    result = DefSubclassProc(window_, message, w, l);
    RECT room{};
    GetClientRect(window_, &room);
    // What was selected before there was any room is brought into sight now.
    if (std::exchange(height_, static_cast<int>(room.bottom)) == 0 && room.bottom != 0)
      select(selected());
    return true;
  }
  case WM_LBUTTONDOWN:
    result = press(w, l);
    return true;
  case WM_CHAR: // the search for letters knows no Enter and would beep
    return w == VK_RETURN;
  default:
    return false;
  }
}

} // namespace lumotune::platform::win32
