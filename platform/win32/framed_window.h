// SPDX-License-Identifier: LGPL-2.1-or-later
// An overlapped window: caption, system menu, resizable frame, task-bar button.
#pragma once

#include "platform/common/screen_recheck.h"
#include "platform/common/view_keeper.h"
#include "platform/framed_window.h"
#include "platform/win32/control_host.h"

#include <memory>
#include <optional>
#include <string>

namespace lumotune::platform::win32 {

class FramedWindow final : public platform::FramedWindow, public ControlHost {
public:
  // `icon` is the number of the icon in the program's resources.
  FramedWindow(EventLoop& loop, const std::wstring& name, int icon);
  FramedWindow(const FramedWindow&) = delete;
  FramedWindow& operator=(const FramedWindow&) = delete;
  ~FramedWindow() override;

  [[nodiscard]] platform::TreeView& make_tree(const std::wstring& designer_name) override;
  [[nodiscard]] platform::ListView& make_list_view(const std::wstring& designer_name) override;
  [[nodiscard]] platform::Label& make_label(const std::wstring& designer_name, LabelKind kind, LabelFont font) override;
  [[nodiscard]] platform::Button& make_button(const std::wstring& designer_name) override;
  [[nodiscard]] platform::PictureBox& make_picture(const std::wstring& designer_name, PictureKind kind) override;
  [[nodiscard]] platform::TextBox& make_text_box(const std::wstring& designer_name) override;
  [[nodiscard]] platform::TextEntry& make_text_entry(const std::wstring& designer_name) override;
  [[nodiscard]] platform::ProgressBar& make_progress(const std::wstring& designer_name) override;
  [[nodiscard]] platform::Frame& make_frame(const std::wstring& designer_name) override;
  [[nodiscard]] platform::Browser& make_browser(const std::wstring& designer_name) override;

  void set_caption(const std::wstring& caption) override;
  [[nodiscard]] std::wstring caption() const override { return caption_; }
  void set_visible(bool visible) override;
  [[nodiscard]] bool visible() const override { return IsWindowVisible(window_) != 0; }
  [[nodiscard]] bool minimized() const override { return IsIconic(window_) != 0; }
  void activate() override;
  void resize(int width, int height) override;
  void move(int left, int top) override;
  [[nodiscard]] TwipsRect rect() const override;
  void set_minimum(int width, int height) override;
  [[nodiscard]] int client_width() const override;
  [[nodiscard]] int client_height() const override;
  [[nodiscard]] int frame_height() const override;

private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l);
  [[nodiscard]] LRESULT handle_message(UINT message, WPARAM w, LPARAM l);
  [[nodiscard]] bool handle_size_message(UINT message, WPARAM w, LPARAM l);
  // Pixels of the desktop, of the window when it is neither minimised nor maximised.
  [[nodiscard]] RECT normal_place() const;
  void set_normal_place(const RECT& place);
  [[nodiscard]] bool in_normal_state() const { return IsIconic(window_) == 0 && IsZoomed(window_) == 0; }
  [[nodiscard]] WINDOWPLACEMENT placement() const;
  [[nodiscard]] POINT smallest_size() const; // pixels
  void note_state(WPARAM state);             // of WM_SIZE
  void note_move();
  void come_back();
  void look_at_screen();
  void come_into_view();
  void draw_ground(HDC target, const RECT& area) override;
  [[nodiscard]] COLORREF label_colour(LabelKind kind, bool enabled) const override;
  void fonts_changed() override { fire(on_resize); }
  [[nodiscard]] bool window_input(const MSG& message) override;

  std::wstring caption_;
  RECT normal_{}; // pixels of the desktop, where it was last in its normal state
  bool was_normal_ = true;
  std::optional<SIZE> owed_; // twips, requested while it was not in that state
  ViewKeeper view_;
  ScreenRecheck recheck_;
  bool user_moves_ = false; // drags it, or changes its size
  POINT count_from_{};      // origin of the system's normal positions
  int least_width_ = 0;     // twips
  int least_height_ = 0;
};

class FramedWindowMaker final : public platform::FramedWindowMaker {
public:
  FramedWindowMaker(EventLoop& loop, int icon) : loop_(loop), icon_(icon) {}
  [[nodiscard]] std::unique_ptr<platform::FramedWindow> make(const std::wstring& name) override;

private:
  EventLoop& loop_;
  int icon_;
};

} // namespace lumotune::platform::win32
