// SPDX-License-Identifier: LGPL-2.1-or-later
// A top-level window and the controls made in it. Positions and sizes are twips (1/1440 inch).
#pragma once

#include "platform/controls.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace lumotune::platform {

enum class WindowState : int { normal = 0, minimized = 1 };

// How a picture control behaves: a button (tab stop, pressed by Space and Enter) or mere decoration.
enum class PictureKind { button, decoration };
enum class LabelKind { text, link };
enum class LabelFont { normal, heading };

// The borderless main window. Made hidden, of a default size. User-interface thread; handlers run there too. The
// controls live as long as the window. Each control carries the window property "<window name>.<designer name>".
class Window {
public:
  Window() = default;
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  virtual ~Window() = default;

  // Controls made earlier lie above those made later. Tab moves in reading order by where they lie; the one made first
  // has the keyboard at first. The keyboard keeps its place while the window is left, hidden or minimised; from a
  // control that goes out of reach it moves on, and it returns when that one comes back, unless the user has moved it
  // meanwhile.
  [[nodiscard]] virtual PictureBox& make_picture(const std::wstring& designer_name, PictureKind kind) = 0;
  [[nodiscard]] virtual Label& make_label(const std::wstring& designer_name, LabelKind kind, LabelFont font) = 0;
  [[nodiscard]] virtual Button& make_button(const std::wstring& designer_name) = 0;
  [[nodiscard]] virtual ListBox& make_list(const std::wstring& designer_name) = 0;

  virtual void set_caption(const std::wstring& caption) = 0;
  [[nodiscard]] virtual std::wstring caption() const = 0;

  // Showing restores a minimised window, and brings one that no monitor shows into view; the latter also happens when
  // the monitors change.
  virtual void set_visible(bool visible) = 0;
  [[nodiscard]] virtual bool visible() const = 0;
  virtual void set_state(WindowState state) = 0; // does not show a hidden window
  [[nodiscard]] virtual WindowState state() const = 0;

  // The place on the desktop, by the system's own resolution, so that a saved place means the same place. A minimised
  // or hidden window answers the place it will have when shown.
  virtual void move(int left, int top) = 0;
  virtual void resize(int width, int height) = 0;
  [[nodiscard]] virtual TwipsRect rect() const = 0;
  // Whether some monitor of now shows a usable piece of the window if it were moved there.
  [[nodiscard]] virtual bool on_some_monitor(int left, int top) const = 0;
  // Twips of one pixel of the screen, in the horizontal direction (15 at 96 dots an inch).
  [[nodiscard]] virtual double twips_per_pixel_x() const = 0;

  // Where windows may lie on the monitor that shows most of this one: the screen without the system's bars.
  [[nodiscard]] virtual TwipsRect work_area() const = 0;
  // Width times height as a picture's file tells them, without reading the rest; 0 when it is missing or no picture.
  [[nodiscard]] virtual std::int64_t picture_pixels(const std::wstring& path) const = 0;

  // The picture behind all controls, in its own size from the upper left corner, the window's colour beneath; as large
  // as PictureBox takes it, and read as PictureBox reads it. False when the file is missing, too large or no picture;
  // the old one then stays.
  [[nodiscard]] virtual bool load_background(const std::wstring& path) = 0;
  virtual void clear_background() = 0; // the window's colour alone
  [[nodiscard]] virtual std::wstring background() const = 0;

  // Into or out of the topmost layer, place and size unchanged; whether the system did it.
  [[nodiscard]] virtual bool set_topmost(bool on) = 0;
  [[nodiscard]] virtual bool topmost() const = 0;

  virtual void activate() = 0; // to the front, with the keyboard; does not show a hidden window
  virtual void redraw() = 0;
  // Releases the mouse and sends the window the caption hit, so that the system moves it while the button is held.
  // A nested call while the system already moves it does nothing.
  virtual void drag_by_caption() = 0;

  std::function<void(const MouseEvent&)> on_mouse_move; // over the background
  // The right button over the background or over a control that is not pressed itself, or the keyboard's key for menus,
  // or Shift and F10, where no control takes it.
  std::function<void()> on_menu;
  std::function<void()> on_close;       // Alt+F4 or the system's close; nothing is destroyed by itself
  std::function<void()> on_session_end; // Windows ends the session: finish before returning
  std::function<void()> on_suspend;
  std::function<void()> on_resume;
};

} // namespace lumotune::platform
