// SPDX-License-Identifier: LGPL-2.1-or-later
// What all controls have in common: a child window of one of the system's classes, subclassed.
#pragma once

#include "platform/common/caught_errors.h"
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

  [[nodiscard]] virtual CaughtErrors& caught() = 0; // for what the system calls
  virtual void check_thread() const = 0;            // ends the program on another thread than the user interface's
  [[nodiscard]] virtual HWND handle() const = 0;
  [[nodiscard]] virtual const std::wstring& window_name() const = 0; // stands before the names of its controls
  [[nodiscard]] virtual unsigned dpi() const = 0;                    // of the monitor that the window is on
  // Draws what lies behind a control, whose upper left corner is the target's origin.
  virtual void draw_behind(HDC target, HWND control) = 0;
  [[nodiscard]] virtual HFONT font(LabelFont kind, bool underline, bool bold = false) = 0;
  // The colour of a label that was given none.
  [[nodiscard]] virtual COLORREF label_colour(LabelKind kind, bool enabled) const = 0;
  [[nodiscard]] virtual bool keyboard_used() const = 0; // focus rectangles are shown
  virtual void set_tip(HWND control, const std::wstring& text) = 0;
  virtual void keyboard_came(HWND control) = 0;
  // The control has the focus and is about to be hidden or disabled.
  virtual void keyboard_leaves(HWND control) = 0;
  // The control can take the focus again.
  virtual void keyboard_may_return(HWND control) = 0;
};

// The part of every control that does not depend on its interface. Until a control is first shown, its place and
// visibility are only stored: moving dozens of hidden windows would slow the start.
class ChildWindow {
public:
  // What a window sends to its children when it is about to be shown.
  static constexpr UINT message_settle = WM_APP + 100;

  ChildWindow(Surface& surface, const std::wstring& designer_name, const wchar_t* system_class, DWORD style,
              DWORD extended_style = 0, bool has_text = true); // without text no font is set
  ChildWindow(const ChildWindow&) = delete;
  ChildWindow& operator=(const ChildWindow&) = delete;
  virtual ~ChildWindow();

  [[nodiscard]] HWND handle() const { return window_; }
  [[nodiscard]] bool shown() const { return shown_; }
  [[nodiscard]] const TwipsRect& place() const { return place_; }
  [[nodiscard]] bool sized() const { return sized_; } // it was not made as small as nothing
  virtual void dpi_changed();                         // the fonts have changed too
  virtual void colours_changed() {}                   // those of the system
  // Messages that the control's class sends to its parent.
  virtual void draw(HDC /*target*/, const RECT& /*area*/) {}
  virtual void notified(WORD /*code*/) {}
  [[nodiscard]] virtual bool asked(NMHDR& /*header*/, LRESULT& /*result*/) { return false; }
  virtual void pressed_by_key() {} // Enter, or Space where the class does not know it
  [[nodiscard]] virtual bool pressable() const { return false; }
  [[nodiscard]] virtual bool takes_enter() const { return false; } // has a use of its own for it
  void paint_item(const DRAWITEMSTRUCT& item);                     // double-buffered

protected:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR id, DWORD_PTR self);
  // True when the message is dealt with.
  [[nodiscard]] virtual bool handle_message(UINT message, WPARAM w, LPARAM l, LRESULT& result);
  [[nodiscard]] virtual bool drawn_at_once() const { return false; } // nothing to erase before it is drawn
  [[nodiscard]] virtual bool has_hand() const { return false; }      // the pointer is a hand over it
  virtual void mouse_moved(const MouseEvent& event) = 0;
  virtual void mouse_pressed(const MouseEvent& event) = 0;
  [[nodiscard]] virtual bool menu_key_pressed() = 0; // whether somebody listens
  void show(bool visible);
  void enable(bool enabled);
  void take_focus(); // if the user can reach it and its window is active
  void apply_place();
  void reach_changed(bool within); // whether the user can reach it
  void redraw();                   // and what lies over it
  void draw_focus(HDC target, const RECT& area) const;
  void draw_buffered(HDC target, const RECT& area);
  void write_text(const std::wstring& text);
  [[nodiscard]] MouseEvent mouse_event(WPARAM keys, LPARAM point, MouseButton pressed) const;

  Surface& surface_;
  HWND window_ = nullptr;
  TwipsRect place_;
  bool shown_ = true;
  bool sized_ = true;

private:
  void settle();
  void set_font();
  void set_place(UINT how); // flags of SetWindowPos
  [[nodiscard]] bool in_sight() const { return IsWindowVisible(surface_.handle()) != 0; }

  std::wstring property_;
  bool has_text_;
  bool settled_; // the window has its place and visibility
};

template <typename Interface>
class ControlOf : public Interface, public ChildWindow {
public:
  ControlOf(Surface& surface, const std::wstring& designer_name, const wchar_t* system_class, DWORD style,
            DWORD extended_style = 0, bool has_text = true)
      : ChildWindow(surface, designer_name, system_class, style, extended_style, has_text), name_(designer_name) {}

  [[nodiscard]] const std::wstring& name() const override { return name_; }
  void set_visible(bool visible) override { show(visible); }
  [[nodiscard]] bool visible() const override { return shown_; }
  void set_enabled(bool enabled) override { enable(enabled); }
  [[nodiscard]] bool enabled() const override { return IsWindowEnabled(window_) != 0; }
  void move(int left, int top) override {
    surface_.check_thread();
    if (place_.left == left && place_.top == top)
      return;
    place_.left = left;
    place_.top = top;
    apply_place();
  }
  void resize(int width, int height) override {
    surface_.check_thread();
    width = width < 0 ? 0 : width;
    height = height < 0 ? 0 : height;
    const bool sized_before = sized_;
    sized_ = width > 0 && height > 0;
    if (place_.width != width || place_.height != height) {
      place_.width = width;
      place_.height = height;
      apply_place();
    }
    if (sized_before != sized_)
      reach_changed(sized_);
  }
  [[nodiscard]] TwipsRect rect() const override { return place_; }
  void set_text(const std::wstring& text) override {
    surface_.check_thread();
    if (text == text_)
      return; // avoids flicker
    text_ = text;
    write_text(window_text(text));
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
  // What the system's class is given, so that it shows the text as it is.
  [[nodiscard]] virtual std::wstring window_text(const std::wstring& text) const { return text; }
  void mouse_moved(const MouseEvent& event) override { fire(this->on_mouse_move, event); }
  void mouse_pressed(const MouseEvent& event) override { fire(this->on_mouse_down, event); }
  [[nodiscard]] bool menu_key_pressed() override {
    fire(this->on_menu_key);
    return static_cast<bool>(this->on_menu_key);
  }
  // The handler is copied first: it may replace itself.
  template <typename Handler, typename... Arguments>
  void fire(const Handler& handler, const Arguments&... arguments) {
    if (const Handler copy = handler)
      surface_.caught().guard([&] { copy(arguments...); });
  }

  std::wstring text_;

private:
  std::wstring name_;
  std::wstring tip_;
};

} // namespace lumotune::platform::win32
