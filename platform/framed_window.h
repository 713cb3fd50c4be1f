// SPDX-License-Identifier: LGPL-2.1-or-later
// A resizable window with the system's frame and the controls made in it. Positions and sizes are twips.
#pragma once

#include "platform/directory_controls.h"
#include "platform/window.h"

#include <functional>
#include <memory>
#include <string>

namespace lumotune::platform {

// Made hidden. User-interface thread; handlers run there too. The controls live as long as the window; each carries the
// window property "<window name>.<designer name>", the window itself "<window name>.Form". Texts are drawn in the
// system's message font. Tab moves in reading order by where the controls lie, arrow keys as the system's controls do.
// A window that no monitor shows comes into view when it is shown and when the monitors change. After such a change
// half of it has to be in view; a place that the user has chosen since stays while there is something to take hold of.
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
  [[nodiscard]] virtual ProgressBar& make_progress(const std::wstring& designer_name) = 0;
  [[nodiscard]] virtual Frame& make_frame(const std::wstring& designer_name) = 0;
  [[nodiscard]] virtual Browser& make_browser(const std::wstring& designer_name) = 0;

  virtual void set_caption(const std::wstring& caption) = 0;
  [[nodiscard]] virtual std::wstring caption() const = 0;
  virtual void set_visible(bool visible) = 0; // showing also restores a minimised window
  [[nodiscard]] virtual bool visible() const = 0;
  [[nodiscard]] virtual bool minimized() const = 0;
  virtual void activate() = 0; // to the front, with the keyboard

  // The outer size, frame and caption included, kept between the smallest size and the monitor's room without the task
  // bar. The window stays wholly on its monitor where it can. A minimised or maximised one takes the size when it comes
  // back.
  virtual void resize(int width, int height) = 0;
  [[nodiscard]] virtual TwipsRect rect() const = 0;
  virtual void set_minimum(int width, int height) = 0; // outer size that nobody can go below
  [[nodiscard]] virtual int client_width() const = 0;  // 0 while minimised
  [[nodiscard]] virtual int client_height() const = 0;
  [[nodiscard]] virtual int frame_height() const = 0; // frame and caption of the normal window, whatever its state

  std::function<void()> on_resize; // the client area has another size or resolution: place the controls anew
  std::function<void()> on_close;  // the user closes it; nothing is destroyed by itself
};

// Makes framed windows. They are destroyed from the top level of the loop only, never inside one of their handlers.
class FramedWindowMaker {
public:
  FramedWindowMaker() = default;
  FramedWindowMaker(const FramedWindowMaker&) = delete;
  FramedWindowMaker& operator=(const FramedWindowMaker&) = delete;
  virtual ~FramedWindowMaker() = default;

  [[nodiscard]] virtual std::unique_ptr<FramedWindow> make(const std::wstring& name) = 0;
};

} // namespace lumotune::platform
