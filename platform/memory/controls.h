// SPDX-License-Identifier: LGPL-2.1-or-later
// Controls without a screen, with simulated user actions, for tests.
#pragma once

#include "platform/common/thread_check.h"
#include "platform/files.h"
#include "platform/memory/keyboard.h"
#include "platform/window.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace lumotune::platform::memory {

// The common part of all controls, over their interface.
template <typename Interface>
class ControlOf : public Interface {
public:
  explicit ControlOf(std::wstring designer_name) : name_(std::move(designer_name)) {}

  [[nodiscard]] const std::wstring& name() const override { return name_; }
  void set_visible(bool visible) override {
    thread_.check();
    visible_ = visible;
    if (keyboard_ != nullptr)
      keyboard_->reach_changed(*this);
  }
  [[nodiscard]] bool visible() const override { return visible_; }
  void set_enabled(bool enabled) override {
    thread_.check();
    enabled_ = enabled;
    if (keyboard_ != nullptr)
      keyboard_->reach_changed(*this);
  }
  [[nodiscard]] bool enabled() const override { return enabled_; }
  void be_in(Keyboard& keyboard) { keyboard_ = &keyboard; }
  void be_stop_of(Keyboard& keyboard) {
    be_in(keyboard);
    keyboard.add_stop(*this);
  }
  void move(int left, int top) override {
    thread_.check();
    rect_.left = left;
    rect_.top = top;
  }
  void resize(int width, int height) override {
    thread_.check();
    rect_.width = width < 0 ? 0 : width;
    rect_.height = height < 0 ? 0 : height;
    if (keyboard_ != nullptr)
      keyboard_->resized(*this, rect_.width > 0 && rect_.height > 0);
  }
  [[nodiscard]] TwipsRect rect() const override { return rect_; }
  void set_text(const std::wstring& text) override {
    thread_.check();
    text_ = text;
  }
  [[nodiscard]] std::wstring text() const override { return text_; }
  void set_tooltip(const std::wstring& text) override { tooltip_ = text; }
  [[nodiscard]] std::wstring tooltip() const override { return tooltip_; }

  // User actions: they affect only visible and enabled controls, key presses only the focused one; return whether they
  // took effect.
  bool user_click() { return in_sight() && fire(this->on_click); }
  bool user_double_click() { return in_sight() && fire(this->on_double_click); }
  bool user_mouse_move(const MouseEvent& event) { return in_sight() && fire(this->on_mouse_move, event); }
  bool user_mouse_down(const MouseEvent& event) { return in_sight() && fire(this->on_mouse_down, event); }
  bool user_menu_key() { return in_sight() && has_keyboard() && fire(this->on_menu_key); }
  // System events: a tray event reaches its control even when hidden.
  bool system_mouse_move(const MouseEvent& event) { return fire(this->on_mouse_move, event); }

protected:
  [[nodiscard]] bool in_sight() const { return visible_ && (keyboard_ == nullptr || keyboard_->seen()); }
  // A mouse press: focuses the control; false when it is not visible or not enabled.
  bool take_press() {
    if (!in_sight() || !enabled_)
      return false;
    if (keyboard_ != nullptr)
      keyboard_->pressed(*this);
    return true;
  }
  void take_focus() {
    thread_.check();
    if (keyboard_ != nullptr)
      keyboard_->take(*this);
  }
  [[nodiscard]] bool has_keyboard() const { return keyboard_ == nullptr || keyboard_->at() == this; }
  // The handler is copied first, because it may replace itself.
  template <typename Handler, typename... Arguments>
  bool fire(const Handler& handler, const Arguments&... arguments) {
    if (!enabled_)
      return false;
    if (const Handler copy = handler)
      copy(arguments...);
    return true;
  }

private:
  const ThreadCheck thread_{"user-interface thread"};
  std::wstring name_;
  bool visible_ = true;
  bool enabled_ = true;
  TwipsRect rect_;
  std::wstring text_;
  std::wstring tooltip_;
  Keyboard* keyboard_ = nullptr; // the window's
};

class PictureBox final : public ControlOf<platform::PictureBox> {
public:
  PictureBox(std::wstring designer_name, const platform::Files& files, PictureKind kind)
      : ControlOf(std::move(designer_name)), kind_(kind), files_(files) {}
  [[nodiscard]] bool load_picture(const std::wstring& path) override;
  void clear_picture() override;
  [[nodiscard]] std::wstring picture() const override { return picture_; }
  void set_neutral(bool neutral) override { neutral_ = neutral; }
  [[nodiscard]] bool neutral() const override { return neutral_; }
  void set_closes(bool closes) override { closes_ = closes; }
  [[nodiscard]] bool closes() const override { return closes_; }
  void set_needle(const std::optional<Needle>& needle) override { needle_ = needle; }
  [[nodiscard]] std::optional<Needle> needle() const override { return needle_; }
  [[nodiscard]] PictureKind kind() const { return kind_; }
  bool user_double_click() { return user_click() && user_click(); } // it reports a double click as two clicks

private:
  PictureKind kind_;
  const platform::Files& files_;
  std::wstring picture_;
  bool neutral_ = false;
  bool closes_ = false;
  std::optional<Needle> needle_;
};

class Label final : public ControlOf<platform::Label> {
public:
  Label(std::wstring designer_name, LabelKind kind) : ControlOf(std::move(designer_name)), kind_(kind) {}
  void set_text_colour(Colour colour) override { colour_ = colour; }
  [[nodiscard]] Colour text_colour() const override { return colour_; }
  void set_underline(bool on) override { underline_ = on; }
  [[nodiscard]] bool underline() const override { return underline_; }
  void set_bold(bool on) override { bold_ = on; }
  [[nodiscard]] bool bold() const override { return bold_; }
  void set_alignment(Alignment alignment) override { alignment_ = alignment; }
  [[nodiscard]] Alignment alignment() const override { return alignment_; }
  void point_to(const Control* control) override { pointed_to_ = control; }
  [[nodiscard]] const Control* pointed_to() const override { return pointed_to_; }
  void announce() override { announced.push_back(text()); }
  [[nodiscard]] LabelKind kind() const { return kind_; }
  bool user_double_click() { return user_click() && ControlOf::user_double_click(); } // the first half is a click

  std::vector<std::wstring> announced; // what screen readers announced

private:
  LabelKind kind_;
  Colour colour_{};
  bool underline_ = false;
  bool bold_ = false;
  Alignment alignment_ = Alignment::left;
  const Control* pointed_to_ = nullptr;
};

class Button final : public ControlOf<platform::Button> {
public:
  using ControlOf::ControlOf;
  void press() override { (void)fire(on_click); } // ignored while disabled
};

class ListBox final : public ControlOf<platform::ListBox> {
public:
  using ControlOf::ControlOf;
  void clear() override;
  void add(const std::wstring& item) override;
  void set_items(const std::vector<std::wstring>& items) override;
  [[nodiscard]] std::size_t count() const override { return items_.size(); }
  [[nodiscard]] std::wstring item(std::size_t index) const override;
  [[nodiscard]] std::size_t selected() const override { return selected_; }
  void select(std::size_t index) override { selected_ = index < items_.size() ? index : none; }
  [[nodiscard]] std::size_t item_at(int x, int y) const override;
  void set_colours(Colour background, Colour text) override;
  [[nodiscard]] Colour background_colour() const override { return background_; }
  [[nodiscard]] Colour text_colour() const override { return text_colour_; }
  void set_accent(std::optional<Colour> accent) override { accent_ = accent; }
  [[nodiscard]] std::optional<Colour> accent() const override { return accent_; }
  void set_mark(const std::wstring& data) override { mark_ = data; }
  [[nodiscard]] std::wstring mark() const override { return mark_; }
  void set_shown_columns(std::size_t columns) override { shown_columns_ = columns; }
  [[nodiscard]] std::size_t shown_columns() const { return shown_columns_; }

  // The user clicks a row with the left button; presses an arrow key while it has the focus.
  bool user_pick(std::size_t index);
  bool user_arrow(bool down);
  [[nodiscard]] bool scrolls() const { return static_cast<int>(items_.size()) * row_height > rect().height; }

  int drawn = 0; // number of redraws with changed items

private:
  static constexpr int row_height = 300;
  std::vector<std::wstring> items_;
  std::size_t selected_ = none;
  Colour background_{};
  Colour text_colour_{};
  std::optional<Colour> accent_;
  std::wstring mark_;
  std::size_t shown_columns_ = none;
};

} // namespace lumotune::platform::memory
