// SPDX-License-Identifier: LGPL-2.1-or-later
// A resizable window with the system's frame, and its controls. Positions and sizes are twips.
#pragma once

#include "platform/directory_controls.h"
#include "platform/window.h"

#include <functional>
#include <memory>
#include <string>

namespace lumotune::platform {

// Keys of the window, whichever of its controls has the focus.
enum class FramedWindowKey {
  find, // Ctrl+F
  escape
};

// Created hidden. User-interface thread, handlers too. The controls live as long as the window; each carries the window
// property "<window name>.<designer name>", the window itself "<window name>.Form". Text uses the system's message
// font. Tab follows reading order by position; arrow keys work as in the system's controls.
// A window outside all monitors is moved into view when it is shown and when the monitors change. After such a change
// at least half of it is kept in view; a position the user has chosen since is kept as long as enough of it can be
// grabbed.
class FramedWindow {
public:
  FramedWindow() = default;
  FramedWindow(const FramedWindow&) = delete;
  FramedWindow& operator=(const FramedWindow&) = delete;
  virtual ~FramedWindow() = default;

  [[nodiscard]] virtual TreeView& make_tree(const std::wstring& designer_name) = 0;
  [[nodiscard]] virtual ListView& make_list_view(const std::wstring& designer_name) = 0;
  [[nodiscard]] virtual Label& make_label(const std::wstring& designer_name, LabelKind kind, LabelFont font) = 0;
  [[nodiscard]] virtual Button& make_button(const std::wstring& designer_name) = 0;
  [[nodiscard]] virtual PictureBox& make_picture(const std::wstring& designer_name, PictureKind kind) = 0;
  [[nodiscard]] virtual TextBox& make_text_box(const std::wstring& designer_name) = 0;
  [[nodiscard]] virtual TextEntry& make_text_entry(const std::wstring& designer_name) = 0;
  [[nodiscard]] virtual ProgressBar& make_progress(const std::wstring& designer_name) = 0;
  [[nodiscard]] virtual Frame& make_frame(const std::wstring& designer_name) = 0;
  [[nodiscard]] virtual Browser& make_browser(const std::wstring& designer_name) = 0;

  virtual void set_caption(const std::wstring& caption) = 0;
  [[nodiscard]] virtual std::wstring caption() const = 0;
  virtual void set_visible(bool visible) = 0; // showing also restores a minimised window
  [[nodiscard]] virtual bool visible() const = 0;
  [[nodiscard]] virtual bool minimized() const = 0;
  virtual void activate() = 0; // to the front, with the keyboard focus

  // The outer size, including frame and caption, clamped between the minimum size and the monitor's work area. The
  // window is kept entirely on its monitor if possible. A minimised or maximised window takes the size when restored.
  virtual void resize(int width, int height) = 0;
  // The upper left corner in the normal state; showing brings the window into view.
  virtual void move(int left, int top) = 0;
  [[nodiscard]] virtual TwipsRect rect() const = 0;    // in the normal state, whatever the state
  virtual void set_minimum(int width, int height) = 0; // minimum outer size, for the user and the program
  [[nodiscard]] virtual int client_width() const = 0;  // 0 while minimised
  [[nodiscard]] virtual int client_height() const = 0;
  [[nodiscard]] virtual int frame_height() const = 0; // frame and caption in the normal state, in any state

  std::function<void()> on_resize; // the client area's size or resolution changed: lay out the controls again
  std::function<void()> on_close;  // the user closes it; nothing is destroyed automatically
  // Before the focused control gets the key. True when it is used up.
  std::function<bool(FramedWindowKey)> on_window_key;
};

// Creates framed windows. Destroy them only from the top level of the loop, never inside one of their handlers.
class FramedWindowMaker {
public:
  FramedWindowMaker() = default;
  FramedWindowMaker(const FramedWindowMaker&) = delete;
  FramedWindowMaker& operator=(const FramedWindowMaker&) = delete;
  virtual ~FramedWindowMaker() = default;

  [[nodiscard]] virtual std::unique_ptr<FramedWindow> make(const std::wstring& name) = 0;
};

} // namespace lumotune::platform
