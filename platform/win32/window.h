// SPDX-License-Identifier: LGPL-2.1-or-later
// The borderless main window.
#pragma once

#include "platform/win32/controls.h"
#include "platform/win32/event_loop.h"
#include "platform/win32/picture.h"
#include "platform/win32/win.h"
#include "platform/window.h"

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace lumotune::platform::win32 {

class Win32Window final : public Window, public Surface {
public:
  // `icon` is the number of the icon in the program's resources.
  Win32Window(Win32EventLoop& loop, const std::wstring& name, int icon);
  Win32Window(const Win32Window&) = delete;
  Win32Window& operator=(const Win32Window&) = delete;
  ~Win32Window() override;

  [[nodiscard]] PictureBox& make_picture(const std::wstring& designer_name, PictureKind kind) override;
  [[nodiscard]] Label& make_label(const std::wstring& designer_name, LabelKind kind, LabelFont font) override;
  [[nodiscard]] Button& make_button(const std::wstring& designer_name) override;
  [[nodiscard]] ListBox& make_list(const std::wstring& designer_name) override;

  void set_caption(const std::wstring& caption) override;
  [[nodiscard]] std::wstring caption() const override { return caption_; }
  void set_visible(bool visible) override;
  [[nodiscard]] bool visible() const override;
  void set_state(WindowState state) override;
  [[nodiscard]] WindowState state() const override;
  void move(int left, int top) override;
  void resize(int width, int height) override;
  [[nodiscard]] TwipsRect rect() const override;
  [[nodiscard]] bool on_some_monitor(int left, int top) const override;
  [[nodiscard]] double twips_per_pixel_x() const override { return 1440.0 / dpi_; }
  [[nodiscard]] bool load_background(const std::wstring& path) override;
  [[nodiscard]] std::wstring background() const override { return background_path_; }
  [[nodiscard]] bool set_topmost(bool on) override;
  [[nodiscard]] bool topmost() const override;
  void activate() override;
  void redraw() override;
  void drag_by_caption() override;

  [[nodiscard]] HWND handle() const override { return window_; }
  [[nodiscard]] HWND handle_of(const Control& control) const;
  [[nodiscard]] HICON icon() const { return icon_; }
  std::function<void()> on_shell_restart; // the notification area is new and empty

private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l);
  [[nodiscard]] LRESULT handle_message(UINT message, WPARAM w, LPARAM l);
  [[nodiscard]] bool handle_child_message(UINT message, WPARAM w, LPARAM l, LRESULT& result);
  [[nodiscard]] bool handle_system_message(UINT message, WPARAM w, LPARAM l, LRESULT& result);
  [[nodiscard]] bool filter(MSG& message);
  [[nodiscard]] ChildWindow* child_of(HWND window) const;
  void fire(const std::function<void()>& handler);
  void note_place();
  void paint(HDC target, const RECT& area);
  void change_dpi(unsigned dpi);
  void apply_size();

  [[nodiscard]] unsigned dpi() const override { return dpi_; }
  void draw_behind(HDC target, HWND control) override;
  [[nodiscard]] HFONT font(LabelFont kind, bool underline, bool bold) override;
  [[nodiscard]] bool keyboard_used() const override { return keyboard_used_; }
  void set_tip(HWND control, const std::wstring& text) override;

  Win32EventLoop& loop_;
  HWND window_ = nullptr;
  HWND tips_ = nullptr;
  HICON icon_ = nullptr;
  UINT taskbar_created_ = 0;
  unsigned dpi_ = 96;
  unsigned system_dpi_ = 96;
  POINT place_{100, 100}; // pixels of the desktop, when it was last shown normally
  int width_ = 6000;      // twips
  int height_ = 3000;
  std::wstring caption_;
  Picture background_;
  std::wstring background_path_;
  bool topmost_ = false;
  DWORD shown_at_ = 0; // tick count
  bool dragging_ = false;
  bool keyboard_used_ = false;
  std::array<GdiObject, 8> fonts_;
  std::vector<std::unique_ptr<ChildWindow>> children_;
  std::vector<Win32Picture*> pictures_;
};

} // namespace lumotune::platform::win32
