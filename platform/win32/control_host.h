// SPDX-License-Identifier: LGPL-2.1-or-later
// Hosts child controls: messages, focus, fonts, tooltips, the background behind them.
#pragma once

#include "platform/win32/child_window.h"
#include "platform/win32/controls.h"
#include "platform/win32/event_loop.h"

#include <array>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace lumotune::platform::win32 {

// Registers the window classes of the common controls; may be called repeatedly.
void use_common_controls();

class ControlHost : public Surface {
public:
  [[nodiscard]] HWND handle() const override { return window_; }
  [[nodiscard]] const std::wstring& window_name() const override { return name_; }
  [[nodiscard]] HWND handle_of(const Control& control) const; // nullptr when it is no control of a window

protected:
  // Texts are either 9 points, as drawings were made for them, or of the size that the user has chosen for messages.
  enum class FontSize { fixed, chosen };

  ControlHost(EventLoop& loop, std::wstring name, FontSize font_size);
  ~ControlHost() override;

  [[nodiscard]] unsigned dpi() const override { return dpi_; }
  [[nodiscard]] CaughtErrors& caught() override { return loop_.caught(); }
  void check_thread() const override { loop_.check_thread(); }
  void draw_behind(HDC target, HWND control) override;
  [[nodiscard]] HFONT font(LabelFont kind, bool underline, bool bold) override;
  [[nodiscard]] bool keyboard_used() const override;
  void set_tip(HWND control, const std::wstring& text) override;
  void keyboard_came(HWND control) override;
  void keyboard_leaves(HWND control) override;
  void keyboard_may_return(HWND control) override;

  // The window's background; the target's origin is the window's upper left corner.
  virtual void draw_ground(HDC target, const RECT& area) = 0;

  template <typename Kind, typename... Arguments>
  Kind& make_control(Arguments&&... arguments) {
    check_thread();
    auto made = std::make_unique<Kind>(*this, std::forward<Arguments>(arguments)...);
    Kind& reference = *made;
    children_.push_back(std::move(made));
    return reference;
  }
  [[nodiscard]] PictureBox& make_picture_control(const std::wstring& designer_name, PictureKind kind);
  void destroy_controls();                                // before their window
  [[nodiscard]] ChildWindow* child_of(HWND window) const; // nullptr when it is none of a control

  // Messages that controls send to their parent. True when it was one of those.
  [[nodiscard]] bool handle_child_message(UINT message, WPARAM w, LPARAM l, LRESULT& result);
  void settle_controls(); // before the window is shown
  void change_dpi(unsigned dpi);
  void renew_fonts();
  virtual void fonts_changed() {} // texts may need more or less room
  // Input for the window as a whole, before its controls see it; true when it is handled.
  [[nodiscard]] virtual bool window_input(const MSG& /*message*/) { return false; }
  // The window never keeps the focus: it passes it on to the control that had it last, initially the first one created.
  // True when the message is handled.
  [[nodiscard]] bool handle_focus_message(UINT message, WPARAM w);
  void fire(const std::function<void()>& handler);

  EventLoop& loop_;
  HWND window_ = nullptr;
  unsigned dpi_ = 96;
  unsigned system_dpi_ = 96;

private:
  [[nodiscard]] bool filter(MSG& message);
  [[nodiscard]] bool key_down(MSG& message);
  [[nodiscard]] bool tab_moves(WPARAM key);
  [[nodiscard]] bool arrow_moves(WPARAM key, const ChildWindow& from);
  [[nodiscard]] bool can_return_to(HWND control) const;
  // The controls that the keyboard can go to, and `from`, in reading order.
  [[nodiscard]] std::vector<const ChildWindow*> stops(const ChildWindow* from) const;
  [[nodiscard]] HWND stop_after(HWND control) const; // nullptr where no other one takes the keyboard
  void note_keyboard(bool used);
  [[nodiscard]] bool look_changed(UINT message, WPARAM w);
  void make_tips();
  void show_tip(HWND control, const std::wstring& text);

  std::wstring name_;
  FontSize font_size_;
  bool keyboard_used_ = false;
  HWND last_focus_ = nullptr; // had the keyboard last; a window in a control counts too
  HWND awaited_ = nullptr;    // lost the focus by being hidden or disabled; the stand-in has it meanwhile
  HWND stand_in_ = nullptr;
  std::array<GdiObject, 8> fonts_;
  HWND tips_ = nullptr;                          // created by the first mouse move
  std::map<HWND, std::wstring> tips_to_be_made_; // until then
  std::vector<std::unique_ptr<ChildWindow>> children_;
  std::vector<PictureBox*> pictures_;
};

} // namespace lumotune::platform::win32
