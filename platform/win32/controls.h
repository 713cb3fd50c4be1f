// SPDX-License-Identifier: LGPL-2.1-or-later
// The controls as child windows of the system's own classes.
#pragma once

#include "platform/win32/picture.h"
#include "platform/win32/win.h"
#include "platform/window.h"

#include <string>

namespace lumotune::platform::win32 {

// What the controls ask of the window they lie in.
class Surface {
public:
  Surface() = default;
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;
  virtual ~Surface() = default;

  [[nodiscard]] virtual HWND handle() const = 0;
  [[nodiscard]] virtual unsigned dpi() const = 0; // of the monitor that the window is on
  // Draws what lies behind a control, whose upper left corner is the target's origin.
  virtual void draw_behind(HDC target, HWND control) = 0;
  [[nodiscard]] virtual HFONT font(LabelFont kind, bool underline, bool bold = false) = 0;
  [[nodiscard]] virtual bool keyboard_used() const = 0; // the focus is to be seen
  virtual void set_tip(HWND control, const std::wstring& text) = 0;
};

// The part of every control that does not depend on its interface.
class ChildWindow {
public:
  ChildWindow(Surface& surface, const std::wstring& designer_name, const wchar_t* system_class, DWORD style);
  ChildWindow(const ChildWindow&) = delete;
  ChildWindow& operator=(const ChildWindow&) = delete;
  virtual ~ChildWindow();

  [[nodiscard]] HWND handle() const { return window_; }
  [[nodiscard]] bool shown() const { return shown_; }
  [[nodiscard]] const TwipsRect& place() const { return place_; }
  virtual void dpi_changed();
  // Messages that the control's class sends to its parent.
  virtual void draw(HDC /*target*/, const RECT& /*area*/) {}
  virtual void notified(WORD /*code*/) {}
  virtual void pressed_by_key() {} // Enter, or Space where the class does not know it
  [[nodiscard]] virtual bool pressable() const { return false; }
  void paint_item(const DRAWITEMSTRUCT& item); // double-buffered

protected:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR id, DWORD_PTR self);
  // True when the message is dealt with.
  [[nodiscard]] virtual bool handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result);
  virtual void mouse_moved(const MouseEvent& event) = 0;
  virtual void mouse_pressed(const MouseEvent& event) = 0;
  void show(bool visible);
  void apply_place();
  void redraw(); // and what lies over it
  void draw_focus(HDC target, const RECT& area) const;
  [[nodiscard]] MouseEvent mouse_event(WPARAM keys, LPARAM point, MouseButton pressed) const;

  Surface& surface_;
  HWND window_ = nullptr;
  TwipsRect place_;
  bool shown_ = true;
};

template <typename Interface>
class Win32Control : public Interface, public ChildWindow {
public:
  Win32Control(Surface& surface, const std::wstring& designer_name, const wchar_t* system_class, DWORD style)
      : ChildWindow(surface, designer_name, system_class, style), name_(designer_name) {}

  [[nodiscard]] const std::wstring& name() const override { return name_; }
  void set_visible(bool visible) override { show(visible); }
  [[nodiscard]] bool visible() const override { return shown_; }
  void set_enabled(bool enabled) override {
    EnableWindow(window_, enabled ? TRUE : FALSE);
    redraw();
  }
  [[nodiscard]] bool enabled() const override { return IsWindowEnabled(window_) != 0; }
  void move(int left, int top) override {
    if (place_.left == left && place_.top == top)
      return;
    place_.left = left;
    place_.top = top;
    apply_place();
  }
  void resize(int width, int height) override {
    width = width < 0 ? 0 : width;
    height = height < 0 ? 0 : height;
    if (place_.width == width && place_.height == height)
      return;
    place_.width = width;
    place_.height = height;
    apply_place();
  }
  [[nodiscard]] TwipsRect rect() const override { return place_; }
  void set_text(const std::wstring& text) override {
    if (text == text_)
      return; // nothing flickers that does not change
    text_ = text;
    SetWindowTextW(window_, text.c_str());
    redraw();
  }
  [[nodiscard]] std::wstring text() const override { return text_; }
  void set_tooltip(const std::wstring& text) override {
    if (text == tip_)
      return;
    tip_ = text;
    surface_.set_tip(window_, text);
  }
  [[nodiscard]] std::wstring tooltip() const override { return tip_; }

protected:
  void mouse_moved(const MouseEvent& event) override { fire(this->on_mouse_move, event); }
  void mouse_pressed(const MouseEvent& event) override { fire(this->on_mouse_down, event); }
  // The handler is copied first: it may replace itself.
  template <typename Handler, typename... Arguments>
  void fire(const Handler& handler, const Arguments&... arguments) {
    if (const Handler copy = handler)
      guarded([&] { copy(arguments...); });
  }

  std::wstring text_;

private:
  std::wstring name_;
  std::wstring tip_;
};

class Win32Picture final : public Win32Control<PictureBox> {
public:
  Win32Picture(Surface& surface, const std::wstring& designer_name, PictureKind kind);
  [[nodiscard]] bool load_picture(const std::wstring& path) override;
  [[nodiscard]] std::wstring picture() const override { return path_; }
  void draw(HDC target, const RECT& area) override;
  void notified(WORD code) override;
  void pressed_by_key() override { fire(on_click); }
  [[nodiscard]] bool pressable() const override { return kind_ == PictureKind::button; }
  [[nodiscard]] PictureKind kind() const { return kind_; }

private:
  PictureKind kind_;
  Picture picture_;
  std::wstring path_;
};

class Win32Label final : public Win32Control<Label> {
public:
  Win32Label(Surface& surface, const std::wstring& designer_name, LabelKind kind, LabelFont font);
  void set_text_colour(Colour colour) override;
  [[nodiscard]] Colour text_colour() const override { return colour_; }
  void set_underline(bool on) override;
  [[nodiscard]] bool underline() const override { return underline_; }
  void set_bold(bool on) override;
  [[nodiscard]] bool bold() const override { return bold_; }
  void draw(HDC target, const RECT& area) override;
  void notified(WORD code) override;
  void pressed_by_key() override { fire(on_click); }
  [[nodiscard]] bool pressable() const override { return kind_ == LabelKind::link; }

private:
  [[nodiscard]] bool handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result) override;

  LabelKind kind_;
  LabelFont font_;
  Colour colour_{};
  bool underline_ = false;
  bool bold_ = false;
};

class Win32Button final : public Win32Control<Button> {
public:
  Win32Button(Surface& surface, const std::wstring& designer_name);
  void press() override;
  void notified(WORD code) override;
};

class Win32List final : public Win32Control<ListBox> {
public:
  Win32List(Surface& surface, const std::wstring& designer_name);
  void clear() override;
  void add(const std::wstring& item) override;
  [[nodiscard]] std::size_t count() const override;
  [[nodiscard]] std::wstring item(std::size_t index) const override;
  [[nodiscard]] std::size_t selected() const override;
  void select(std::size_t index) override;
  void set_shown_columns(std::size_t columns) override;
  void set_colours(Colour background, Colour text) override;
  [[nodiscard]] Colour background_colour() const override { return background_; }
  [[nodiscard]] Colour text_colour() const override { return text_colour_; }
  void notified(WORD code) override;
  void pressed_by_key() override { fire(on_double_click); }
  [[nodiscard]] bool pressable() const override { return true; }
  void dpi_changed() override;
  void draw_row(const DRAWITEMSTRUCT& item);
  [[nodiscard]] HBRUSH brush() const { return static_cast<HBRUSH>(brush_.get()); }

private:
  void set_row_height();

  std::size_t shown_columns_ = none;
  Colour background_{0xffffff};
  Colour text_colour_{};
  GdiObject brush_;
};

} // namespace lumotune::platform::win32
