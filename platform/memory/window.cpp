// SPDX-License-Identifier: LGPL-2.1-or-later
#include "platform/memory/window.h"

#include "platform/common/drop_record.h"
#include "platform/common/gif.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace lumotune::platform::memory {
namespace {

constexpr int twips_a_pixel = 15;

// The size of a valid picture; nothing when it is missing, too large or not a picture.
std::optional<std::pair<int, int>> gif_size(const platform::Files& files, const std::wstring& path) {
  const auto bytes = files.read(path);
  if (!bytes || static_cast<std::int64_t>(bytes->size()) > platform::PictureBox::max_bytes)
    return std::nullopt;
  const auto pixels = decode_gif(*bytes, platform::PictureBox::max_side, platform::PictureBox::max_pixels);
  return pixels ? std::optional(std::pair(pixels->width, pixels->height)) : std::nullopt;
}

} // namespace

bool PictureBox::load_picture(const std::wstring& path) {
  const auto size = gif_size(files_, path);
  if (!size)
    return false;
  picture_ = path;
  resize(size->first * twips_a_pixel, size->second * twips_a_pixel);
  return true;
}

void PictureBox::clear_picture() {
  picture_.clear();
  resize(0, 0);
}

void ListBox::clear() {
  set_items({});
}

void ListBox::add(const std::wstring& item) {
  items_.push_back(item);
  ++drawn;
}

void ListBox::set_items(const std::vector<std::wstring>& items) {
  items_ = items;
  selected_ = none;
  ++drawn;
}

std::wstring ListBox::item(std::size_t index) const {
  return index < items_.size() ? items_[index] : std::wstring();
}

void ListBox::set_colours(Colour background, Colour text) {
  background_ = background;
  text_colour_ = text;
}

// The in-memory list is never scrolled.
std::size_t ListBox::item_at(int x, int y) const {
  if (x < 0 || y < 0 || x >= rect().width || y >= rect().height)
    return none;
  const auto row = static_cast<std::size_t>(y / row_height);
  return row < items_.size() ? row : none;
}

bool ListBox::user_pick(std::size_t index) {
  if (index >= items_.size() || !take_press())
    return false;
  selected_ = index;
  return fire(on_click);
}

bool ListBox::user_arrow(bool down) {
  const std::size_t wanted = selected_ == none ? 0 : down ? selected_ + 1 : selected_ - 1; // before the first: none
  if (wanted >= items_.size())
    return true;
  selected_ = wanted;
  return fire(on_click);
}

template <typename Kind>
Kind* Window::find(const std::wstring& name) const {
  for (const auto& control : controls_) {
    if (control->name() == name)
      return dynamic_cast<Kind*>(control.get());
  }
  return nullptr;
}

PictureBox* Window::picture(const std::wstring& name) const {
  return find<PictureBox>(name);
}
Label* Window::label(const std::wstring& name) const {
  return find<Label>(name);
}
Button* Window::button(const std::wstring& name) const {
  return find<Button>(name);
}
ListBox* Window::list(const std::wstring& name) const {
  return find<ListBox>(name);
}

template <typename Kind, typename... Arguments>
Kind& Window::make(bool stop, Arguments&&... arguments) {
  auto made = std::make_unique<Kind>(std::forward<Arguments>(arguments)...);
  Kind& reference = *made;
  if (stop)
    reference.be_stop_of(keyboard_);
  else
    reference.be_in(keyboard_);
  controls_.push_back(std::move(made));
  return reference;
}

platform::PictureBox& Window::make_picture(const std::wstring& designer_name, PictureKind kind) {
  return make<PictureBox>(kind == PictureKind::button, designer_name, files_, kind);
}

platform::Label& Window::make_label(const std::wstring& designer_name, LabelKind kind, LabelFont /*font*/) {
  return make<Label>(kind == LabelKind::link, designer_name, kind);
}

platform::Button& Window::make_button(const std::wstring& designer_name) {
  return make<Button>(false, designer_name);
}

platform::ListBox& Window::make_list(const std::wstring& designer_name) {
  return make<ListBox>(true, designer_name);
}

void Window::set_caption(const std::wstring& caption) {
  thread_.check();
  caption_ = caption;
}

void Window::set_state(WindowState state) {
  thread_.check();
  state_ = state;
  note_sight();
}

// The mouse can reach the controls only while the window is visible.
void Window::note_sight() {
  keyboard_.window_seen(visible_ && state_ == WindowState::normal);
}

// Showing restores a minimised window and brings it into view.
void Window::set_visible(bool visible) {
  thread_.check();
  visible_ = visible;
  if (visible) {
    state_ = WindowState::normal;
    come_into_view();
  } else {
    keyboard_.window_active(false);
  }
  note_sight();
}

void Window::activate() {
  thread_.check();
  ++activated;
  if (visible_)
    keyboard_.window_active(true);
}

void Window::user_changes_monitors(std::vector<TwipsRect> wanted) {
  monitors = std::move(wanted);
  view_.screen_changed();
  if (visible_ && state_ == WindowState::normal)
    come_into_view();
}

bool Window::fire_menu() {
  if (const auto copy = on_menu)
    copy();
  return static_cast<bool>(on_menu);
}

bool Window::user_wheel(int notches, const std::wstring& control) {
  const auto* list = find<ListBox>(control);
  if (!keyboard_.seen() || (list != nullptr && list->visible() && list->scrolls()))
    return false;
  if (const auto copy = on_wheel)
    copy(notches);
  return true;
}

bool Window::user_middle_click() {
  if (!keyboard_.seen())
    return false;
  if (const auto copy = on_middle_click)
    copy();
  return true;
}

// As the controls of the system take their own keys first.
bool Window::user_key(WindowKey key) {
  if (!keyboard_.active())
    return false;
  const std::wstring at = keyboard_at();
  auto* list = find<ListBox>(at);
  if (list != nullptr && (key == WindowKey::up || key == WindowKey::down)) {
    (void)list->user_arrow(key == WindowKey::down);
    return false;
  }
  if (list == nullptr && !at.empty() && key == WindowKey::space) {
    if (auto* button = find<PictureBox>(at))
      (void)button->user_click();
    else if (auto* link = find<Label>(at))
      (void)link->user_click();
    return false;
  }
  if (const auto copy = on_key)
    copy(key);
  return true;
}

// A control that is hidden or disabled lets it through to the background.
bool Window::user_drop(Drop drop, const std::wstring& control) {
  if (!keyboard_.seen() || !can_be_dropped(drop))
    return false;
  const auto* target = find<platform::Control>(control);
  drop.over = target != nullptr && target->visible() && target->enabled() ? target : nullptr;
  if (const auto copy = on_drop)
    copy(drop);
  return true;
}

bool Window::user_menu_key() {
  if (!keyboard_.active())
    return false;
  const Control* at = keyboard_.at();
  const auto own = at == nullptr ? std::function<void()>() : at->on_menu_key;
  if (!own)
    return fire_menu();
  own();
  return true;
}

// There is no task bar: the work area is the whole monitor.
std::vector<Monitor> Window::all_monitors() const {
  std::vector<Monitor> all;
  for (const TwipsRect& monitor : monitors)
    all.push_back({screen_rect(monitor), screen_rect(monitor)});
  return all;
}

void Window::come_into_view() {
  if (const auto wanted = view_.correction(screen_rect(rect_), all_monitors(), piece_to_hold, 0))
    move(static_cast<int>(wanted->x), static_cast<int>(wanted->y));
}

void Window::move(int left, int top) {
  thread_.check();
  rect_.left = left;
  rect_.top = top;
}

void Window::resize(int width, int height) {
  thread_.check();
  rect_.width = std::max(width, 0);
  rect_.height = std::max(height, 0);
}

bool Window::on_some_monitor(int left, int top) const {
  return can_be_held(screen_rect({left, top, rect_.width, rect_.height}), all_monitors(), piece_to_hold);
}

std::int64_t Window::shown_pixels(std::string_view bytes) const {
  const auto picture = decode_gif(bytes, platform::PictureBox::max_side, platform::PictureBox::max_pixels);
  return picture ? std::int64_t{picture->width} * picture->height : 0;
}

std::int64_t Window::picture_pixels(const std::wstring& path) const {
  return gif_pixels(files_.read(path).value_or(std::string()));
}

bool Window::load_background(const std::wstring& path) {
  if (!gif_size(files_, path))
    return false;
  background_ = path;
  return true;
}

bool Window::set_topmost(bool on) {
  if (!topmost_works)
    return false;
  topmost_ = on;
  return true;
}

} // namespace lumotune::platform::memory
