// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/memory/framed_window.h"

#include <algorithm>
#include <utility>

namespace lumotune::platform::memory {

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
