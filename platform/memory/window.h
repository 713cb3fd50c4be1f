// SPDX-License-Identifier: LGPL-2.1-or-later
// A headless window, 15 twips per pixel, with simulated user actions, for tests.
#pragma once

#include "platform/common/thread_check.h"
#include "platform/common/view_keeper.h"
#include "platform/files.h"
#include "platform/memory/controls.h"
#include "platform/memory/keyboard.h"
#include "platform/window.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace lumotune::platform::memory {

[[nodiscard]] inline ScreenRect screen_rect(const TwipsRect& rect) {
  return {rect.left, rect.top, std::int64_t{rect.left} + rect.width, std::int64_t{rect.top} + rect.height};
}

// The part of a window that must stay grabbable, as on Windows.
inline constexpr std::int64_t piece_to_hold = 480; // twips

[[nodiscard]] inline std::vector<std::wstring> names_of(const std::vector<std::unique_ptr<Control>>& controls) {
  std::vector<std::wstring> names;
  for (const auto& control : controls)
    names.push_back(control->name());
  return names;
}

class Window final : public platform::Window {
public:
  explicit Window(const platform::Files& files) : files_(files) { note_sight(); }

  [[nodiscard]] platform::PictureBox& make_picture(const std::wstring& designer_name, PictureKind kind) override;
  [[nodiscard]] platform::Label& make_label(const std::wstring& designer_name, LabelKind kind, LabelFont font) override;
  [[nodiscard]] platform::Button& make_button(const std::wstring& designer_name) override;
  [[nodiscard]] platform::ListBox& make_list(const std::wstring& designer_name) override;

  void set_caption(const std::wstring& caption) override;
  [[nodiscard]] std::wstring caption() const override { return caption_; }
  void set_visible(bool visible) override;
  [[nodiscard]] bool visible() const override { return visible_; }
  void set_state(WindowState state) override;
  [[nodiscard]] WindowState state() const override { return state_; }
  void move(int left, int top) override;
  void resize(int width, int height) override;
  [[nodiscard]] TwipsRect rect() const override { return rect_; }
  [[nodiscard]] bool on_some_monitor(int left, int top) const override;
  [[nodiscard]] double twips_per_pixel_x() const override { return twips_per_pixel; }
  [[nodiscard]] TwipsRect work_area() const override { return monitors.empty() ? TwipsRect{} : monitors.front(); }
  [[nodiscard]] std::int64_t picture_pixels(const std::wstring& path) const override;
  [[nodiscard]] std::int64_t shown_pixels(std::string_view bytes) const override;
  [[nodiscard]] bool load_background(const std::wstring& path) override;
  void clear_background() override { background_.clear(); }
  [[nodiscard]] std::wstring background() const override { return background_; }
  [[nodiscard]] bool set_topmost(bool on) override;
  [[nodiscard]] bool topmost() const override { return topmost_; }
  void activate() override;
  void redraw() override { ++redrawn; }
  void drag_by_caption() override { ++dragged; }

  // The controls by name and kind; nullptr when there is none.
  [[nodiscard]] PictureBox* picture(const std::wstring& name) const;
  [[nodiscard]] Label* label(const std::wstring& name) const;
  [[nodiscard]] Button* button(const std::wstring& name) const;
  [[nodiscard]] ListBox* list(const std::wstring& name) const;
  [[nodiscard]] std::vector<std::wstring> control_names() const { return names_of(controls_); }

  // User actions: switching to another program's window; changing the monitors.
  void user_leaves() { keyboard_.window_active(false); }
  void user_changes_monitors(std::vector<TwipsRect> wanted);
  void user_tab(bool back) { keyboard_.tab(back); }
  bool user_right_click() { return visible_ && fire_menu(); } // on the background
  // The wheel, the middle button and a key; whether they reached the window. The wheel is over a control by name, or
  // over the background.
  bool user_wheel(int notches, const std::wstring& control = L"");
  bool user_middle_click();
  bool user_key(WindowKey key);
  bool user_drop(Drop drop, const std::wstring& control); // on a control by name, or on the background; whether taken
  bool user_menu_key();                                   // the focused control handles it first
  [[nodiscard]] std::wstring keyboard_at() const { return keyboard_.at() == nullptr ? L"" : keyboard_.at()->name(); }

  // Recorded calls and test settings.
  double twips_per_pixel = 15.0;
  int activated = 0;
  int redrawn = 0;
  int dragged = 0;
  bool topmost_works = true;
  std::vector<TwipsRect> monitors = {{0, 0, 1920 * 15, 1080 * 15}};

private:
  template <typename Kind>
  Kind* find(const std::wstring& name) const;
  template <typename Kind, typename... Arguments>
  Kind& make(bool stop, Arguments&&... arguments);
  bool fire_menu();
  void note_sight();
  [[nodiscard]] std::vector<Monitor> all_monitors() const;
  void come_into_view();

  const ThreadCheck thread_{"user-interface thread"};
  const platform::Files& files_;
  Keyboard keyboard_;
  std::vector<std::unique_ptr<Control>> controls_;
  std::wstring caption_;
  bool visible_ = false;
  WindowState state_ = WindowState::normal;
  TwipsRect rect_{1500, 1500, 6000, 3000};
  std::wstring background_;
  bool topmost_ = false;
  ViewKeeper view_;
};

} // namespace lumotune::platform::memory
