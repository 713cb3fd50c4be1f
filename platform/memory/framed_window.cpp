// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/memory/framed_window.h"

#include <algorithm>
#include <cwctype>
#include <utility>

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

platform::TreeView& FramedWindow::make_tree(const std::wstring& designer_name) {
  return make_stop<TreeView>(designer_name);
}

platform::ListView& FramedWindow::make_list_view(const std::wstring& designer_name) {
  return make_stop<ListView>(designer_name);
}

platform::Label& FramedWindow::make_label(const std::wstring& designer_name, LabelKind kind, LabelFont /*font*/) {
  auto& made = make<Label>(designer_name, kind);
  if (kind == LabelKind::link)
    made.be_stop_of(keyboard_);
  return made;
}

platform::Button& FramedWindow::make_button(const std::wstring& designer_name) {
  return make_stop<Button>(designer_name);
}

platform::PictureBox& FramedWindow::make_picture(const std::wstring& designer_name, PictureKind kind) {
  auto& made = make<PictureBox>(designer_name, files_, kind);
  if (kind == PictureKind::button)
    made.be_stop_of(keyboard_);
  return made;
}

platform::TextBox& FramedWindow::make_text_box(const std::wstring& designer_name) {
  return make_stop<TextBox>(designer_name);
}

platform::TextEntry& FramedWindow::make_text_entry(const std::wstring& designer_name) {
  return make_stop<TextEntry>(designer_name);
}

platform::ProgressBar& FramedWindow::make_progress(const std::wstring& designer_name) {
  return make<ProgressBar>(designer_name);
}

platform::Frame& FramedWindow::make_frame(const std::wstring& designer_name) {
  return make<Frame>(designer_name);
}

platform::Browser& FramedWindow::make_browser(const std::wstring& designer_name) {
  return make<Browser>(designer_name);
}

std::vector<std::wstring> FramedWindow::made_stops() const {
  std::vector<std::wstring> names;
  for (const Control* stop : keyboard_.stops())
    names.push_back(stop->name());
  return names;
}

// Showing restores a minimised window and brings it into view.
void FramedWindow::set_visible(bool visible) {
  thread_.check();
  visible_ = visible;
  if (!visible)
    keyboard_.window_active(false);
  else if (minimized_)
    user_restore();
  else
    come_into_view();
  note_sight();
}

void FramedWindow::set_caption(const std::wstring& caption) {
  thread_.check();
  caption_ = caption;
}

void FramedWindow::set_minimum(int width, int height) {
  thread_.check();
  minimum = {width, height};
}

void FramedWindow::note_sight() {
  keyboard_.window_seen(visible_ && !minimized_);
}

void FramedWindow::activate() {
  thread_.check();
  ++activated;
  if (visible_ && !minimized_)
    keyboard_.window_active(true);
  if (const auto events = std::exchange(while_activating, {}))
    events();
}

void FramedWindow::tell_size() {
  if (const auto copy = on_resize)
    copy();
}

// The system's size limits also apply to the program. A minimised or maximised window takes the size when restored.
void FramedWindow::resize(int width, int height) {
  thread_.check();
  width = std::clamp(width, 0, work_area.width);
  height = std::clamp(height, 0, work_area.height);
  rect_.width = std::max({width, minimum.first, system_minimum_width});
  rect_.height = std::max({height, minimum.second, system_minimum_height});
  move_to(place_within(screen_rect(work_area), screen_rect(rect_)));
  owed_ = !in_normal_state();
  if (in_normal_state())
    tell_size();
}

void FramedWindow::move(int left, int top) {
  thread_.check();
  rect_.left = left;
  rect_.top = top;
}

void FramedWindow::move_to(const ScreenPoint& corner) {
  rect_.left = static_cast<int>(corner.x);
  rect_.top = static_cast<int>(corner.y);
}

void FramedWindow::come_into_view() {
  const std::vector<Monitor> monitors{{screen_rect(monitor), screen_rect(work_area)}};
  if (!in_normal_state())
    return;
  if (const auto wanted = view_.correction(screen_rect(rect_), monitors, piece_to_hold, 0))
    move_to(*wanted);
}

void FramedWindow::user_minimize() {
  minimized_ = true;
  keyboard_.window_active(false);
  note_sight();
}

void FramedWindow::user_maximize() {
  minimized_ = false;
  maximized_ = true;
  note_sight();
  tell_size();
}

void FramedWindow::user_restore() {
  if (!std::exchange(minimized_, false))
    maximized_ = false;
  note_sight();
  if (in_normal_state() && std::exchange(owed_, false))
    resize(rect_.width, rect_.height);
  else
    tell_size();
  if (visible_)
    come_into_view();
}

void FramedWindow::user_move(int left, int top) {
  rect_.left = left;
  rect_.top = top;
}

void FramedWindow::user_changes_monitor(const TwipsRect& whole, const TwipsRect& without_task_bar) {
  monitor = whole;
  work_area = without_task_bar;
  view_.screen_changed();
  if (visible_)
    come_into_view();
}

void FramedWindow::user_resize(int width, int height) {
  resize(std::max(width, minimum.first), std::max(height, minimum.second));
}

void FramedWindow::user_close() {
  if (const auto copy = on_close)
    copy();
}

bool FramedWindow::user_key(FramedWindowKey key) {
  const auto copy = on_window_key;
  return keyboard_.active() && copy && copy(key);
}

std::unique_ptr<platform::FramedWindow> FramedWindowMaker::make(const std::wstring& name) {
  auto window = std::make_unique<FramedWindow>(name, files_);
  last = window.get();
  ++made;
  if (const auto copy = on_make)
    copy(*window);
  return window;
}

} // namespace lumotune::platform::memory
