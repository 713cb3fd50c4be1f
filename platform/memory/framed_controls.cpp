// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/memory/framed_window.h"

#include <algorithm>
#include <cwctype>

namespace lumotune::platform::memory {
namespace {

bool same_key(const std::wstring& a, const std::wstring& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](wchar_t x, wchar_t y) {
    return std::towlower(static_cast<wint_t>(x)) == std::towlower(static_cast<wint_t>(y));
  });
}

} // namespace

void TreeView::clear() {
  nodes_.clear();
  selected_ = 0;
}

std::size_t TreeView::find(const std::wstring& key) const {
  for (std::size_t i = 0; i < nodes_.size(); ++i) {
    if (same_key(nodes_[i].key, key))
      return i + 1;
  }
  return 0;
}

bool TreeView::add(const std::wstring& key, const std::wstring& parent_key, const std::wstring& text) {
  const std::size_t parent = parent_key.empty() ? 0 : find(parent_key);
  if (find(key) != 0 || (!parent_key.empty() && parent == 0))
    return false;
  nodes_.push_back({key, text, parent});
  return true;
}

std::wstring TreeView::key(std::size_t index) const {
  return index == 0 || index > nodes_.size() ? std::wstring() : nodes_[index - 1].key;
}

std::wstring TreeView::node_text(std::size_t index) const {
  return index == 0 || index > nodes_.size() ? std::wstring() : nodes_[index - 1].text;
}

std::size_t TreeView::parent(std::size_t index) const {
  return index == 0 || index > nodes_.size() ? 0 : nodes_[index - 1].parent;
}

bool TreeView::expanded(std::size_t index) const {
  return index != 0 && index <= nodes_.size() && nodes_[index - 1].expanded;
}

void TreeView::expand(std::size_t index) {
  const bool parent_of_some =
      std::any_of(nodes_.begin(), nodes_.end(), [&](const Node& node) { return index != 0 && node.parent == index; });
  if (parent_of_some)
    nodes_[index - 1].expanded = true;
}

void TreeView::select(std::size_t index) {
  if (index == 0 || index > nodes_.size())
    return;
  selected_ = index;
  for (std::size_t above = parent(index); above != 0; above = parent(above))
    nodes_[above - 1].expanded = true;
}

bool TreeView::user_expands(std::size_t index, bool expanded) {
  if (index == 0 || index > nodes_.size() || !take_press())
    return false;
  if (expanded)
    expand(index);
  else
    nodes_[index - 1].expanded = false;
  return true;
}

bool TreeView::user_pick(std::size_t index) {
  if (index == 0 || index > nodes_.size() || !take_press())
    return false;
  selected_ = index;
  return fire(on_click);
}

bool TreeView::user_arrow(std::size_t index) {
  if (index == 0 || index > nodes_.size() || !has_keyboard())
    return false;
  selected_ = index;
  return fire(on_key_up);
}

bool TreeView::user_enter() {
  return selected_ != 0 && user_arrow(selected_);
}

void ListView::add_column(const std::wstring& key, const std::wstring& caption, int width) {
  columns_.push_back({key, caption, width});
}

void ListView::set_rows(const RowModel* rows) {
  rows_ = rows;
  told_ = rows == nullptr ? 0 : rows->count();
  selected_ = 0;
}

void ListView::rows_changed() {
  set_rows(rows_);
  ++changes;
}

void ListView::select(std::size_t index) {
  selected_ = index <= count() ? index : 0;
}

std::wstring ListView::cell(std::size_t row, std::size_t column) const {
  return row == 0 || row > count() ? std::wstring() : rows_->text(row, column);
}

bool ListView::user_pick(std::size_t index, MouseButton button) {
  if (index == 0 || index > count() || !take_press())
    return false;
  (void)fire(on_mouse_down, MouseEvent{button, 0, 0});
  selected_ = index;
  return fire(on_click);
}

// The first half of a double click is a click. If its handler moves the selection, the second half is a click as well.
bool ListView::user_double_pick(std::size_t index) {
  if (!user_pick(index, MouseButton::left) || !in_sight() || !enabled())
    return false;
  if (selected() != index && !user_pick(index, MouseButton::left))
    return false;
  return in_sight() && fire(on_double_click);
}

bool ListView::user_arrow(std::size_t index) {
  if (index == 0 || index > count() || !has_keyboard())
    return false;
  selected_ = index;
  return fire(on_key_up);
}

bool TextEntry::user_writes(const std::wstring& text) {
  if (!has_keyboard())
    return false;
  const std::wstring before = this->text();
  set_text(text.substr(0, max_typed));
  return before != this->text() && fire(on_change);
}

bool TextEntry::user_enter() {
  return has_keyboard() && fire(on_enter);
}

bool ListView::user_type(wchar_t character) {
  return has_keyboard() && fire(on_key_press, character);
}

} // namespace lumotune::platform::memory
