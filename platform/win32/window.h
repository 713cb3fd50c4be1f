// SPDX-License-Identifier: LGPL-2.1-or-later
// The borderless main window.
#pragma once

#include "platform/common/screen_recheck.h"
#include "platform/common/view_keeper.h"
#include "platform/win32/control_host.h"
#include "platform/win32/drop_target.h"
#include "platform/win32/picture.h"
#include "platform/win32/win.h"
#include "platform/window.h"

#include <functional>
#include <memory>
#include <string>

namespace lumotune::platform::win32 {

class Window final : public platform::Window, public ControlHost {
public:
  // `icon` is the number of the icon in the program's resources.
  Window(EventLoop& loop, const std::wstring& name, int icon);
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  ~Window() override;

  [[nodiscard]] platform::PictureBox& make_picture(const std::wstring& designer_name, PictureKind kind) override;
  [[nodiscard]] platform::Label& make_label(const std::wstring& designer_name, LabelKind kind, LabelFont font) override;
  [[nodiscard]] platform::Button& make_button(const std::wstring& designer_name) override;
  [[nodiscard]] platform::ListBox& make_list(const std::wstring& designer_name) override;

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
  [[nodiscard]] TwipsRect work_area() const override;
  [[nodiscard]] std::int64_t picture_pixels(const std::wstring& path) const override;
  [[nodiscard]] std::int64_t shown_pixels(std::string_view bytes) const override;
  [[nodiscard]] bool load_background(const std::wstring& path) override;
  void clear_background() override;
  [[nodiscard]] std::wstring background() const override { return background_path_; }
  [[nodiscard]] bool set_topmost(bool on) override;
  [[nodiscard]] bool topmost() const override;
  void activate() override;
  void redraw() override;
  void drag_by_caption() override;

  [[nodiscard]] HICON icon() const { return icon_; }
  std::function<void()> on_shell_restart; // the notification area is new and empty

private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l);
  [[nodiscard]] LRESULT handle_message(UINT message, WPARAM w, LPARAM l);
  [[nodiscard]] bool handle_system_message(UINT message, WPARAM w, LPARAM l, LRESULT& result);
  void note_place();
  [[nodiscard]] RECT area_at(POINT place) const; // pixels of the desktop
  void look_at_screen();
  void come_into_view();
  void paint(HDC target, const RECT& area);
  void place_first();
  void apply_size();
  void take_drops();
  void dropped(Drop drop, POINT point);
  void hand_over_drop();
  [[nodiscard]] bool window_input(const MSG& message) override;
  [[nodiscard]] bool key_pressed(const MSG& message);
  [[nodiscard]] bool wheel_turned(const MSG& message);
  void draw_ground(HDC target, const RECT& area) override;
  [[nodiscard]] COLORREF label_colour(LabelKind kind, bool enabled) const override;

  HICON icon_ = nullptr;
  UINT taskbar_created_ = 0;
  POINT place_{100, 100}; // pixels of the desktop, when it was last shown normally
  int width_ = 6000;      // twips
  int height_ = 3000;
  WindowState hidden_state_ = WindowState::normal;
  bool rounded_ = false; // the system was asked for round corners
  bool placed_ = false;  // the system knows them
  std::wstring caption_;
  Picture background_;
  std::wstring background_path_;
  bool topmost_ = false;
  DWORD settling_since_ = 0; // tick count
  ViewKeeper view_;
  ScreenRecheck recheck_;
  bool dragging_ = false;
  int wheel_rest_ = 0; // of a wheel with finer steps than notches
  Drop dropped_;       // not handed over yet
  std::unique_ptr<platform::Timer> drops_start_;
  std::unique_ptr<platform::Waker> drop_waker_;
  std::unique_ptr<DropTarget> drops_;
};

} // namespace lumotune::platform::win32
