// SPDX-License-Identifier: LGPL-2.1-or-later
// A top-level window and its controls. Positions and sizes are twips (1/1440 inch).
#pragma once

#include "platform/controls.h"
#include "platform/drop.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace lumotune::platform {

enum class WindowState : int { normal = 0, minimized = 1 };

// A picture control is either a button (tab stop, pressed by Space and Enter) or mere decoration.
enum class PictureKind { button, decoration };
enum class LabelKind { text, link };
enum class LabelFont { normal, heading };
// Keys that a window hears of, without Shift and Alt, and without Ctrl unless it is said.
enum class WindowKey { space, up, down, f1, f5, ctrl_c, ctrl_e };

// The borderless main window. Created hidden, with a default size. User-interface thread, handlers too. The controls
// live as long as the window. Each carries the window property "<window name>.<designer name>".
class Window {
public:
  Window() = default;
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  virtual ~Window() = default;

  // Controls created earlier are above later ones. Tab follows reading order by position; the first control created has
  // the initial focus. The focus keeps its place while the window is inactive, hidden or minimised; from a control that
  // becomes unreachable it moves on, and returns when that control becomes reachable again, unless the user has moved
  // it meanwhile.
  [[nodiscard]] virtual PictureBox& make_picture(const std::wstring& designer_name, PictureKind kind) = 0;
  [[nodiscard]] virtual Label& make_label(const std::wstring& designer_name, LabelKind kind, LabelFont font) = 0;
  [[nodiscard]] virtual Button& make_button(const std::wstring& designer_name) = 0;
  [[nodiscard]] virtual ListBox& make_list(const std::wstring& designer_name) = 0;

  virtual void set_caption(const std::wstring& caption) = 0;
  [[nodiscard]] virtual std::wstring caption() const = 0;

  // Showing restores a minimised window and moves one outside all monitors into view; the latter also happens when the
  // monitors change.
  virtual void set_visible(bool visible) = 0;
  [[nodiscard]] virtual bool visible() const = 0;
  virtual void set_state(WindowState state) = 0; // does not show a hidden window
  [[nodiscard]] virtual WindowState state() const = 0;

  // The position on the desktop at the system's own resolution, so that a saved position stays valid. For a minimised
  // or hidden window it is the position it will have when shown.
  virtual void move(int left, int top) = 0;
  virtual void resize(int width, int height) = 0;
  [[nodiscard]] virtual TwipsRect rect() const = 0;
  // Whether any current monitor would show a usable part of the window at that position.
  [[nodiscard]] virtual bool on_some_monitor(int left, int top) const = 0;
  // Twips per screen pixel, horizontally (15 at 96 dpi).
  [[nodiscard]] virtual double twips_per_pixel_x() const = 0;

  // The work area of the monitor that shows most of this window: the screen without the system's bars.
  [[nodiscard]] virtual TwipsRect work_area() const = 0;
  // Width times height from the picture file's header, without reading the rest; 0 when it is missing or not a picture.
  [[nodiscard]] virtual std::int64_t picture_pixels(const std::wstring& path) const = 0;
  // Width times height of a picture that a PictureBox can show, from its whole file; 0 for any other.
  [[nodiscard]] virtual std::int64_t shown_pixels(std::string_view bytes) const = 0;

  // The background picture, unscaled, from the upper left corner, over the window's colour; same limits and file
  // handling as PictureBox. False when the file is missing, too large or not a picture; the old one then stays.
  [[nodiscard]] virtual bool load_background(const std::wstring& path) = 0;
  virtual void clear_background() = 0; // the window's colour alone
  [[nodiscard]] virtual std::wstring background() const = 0;

  // Moves the window into or out of the topmost layer, position and size unchanged; whether the system did so.
  [[nodiscard]] virtual bool set_topmost(bool on) = 0;
  [[nodiscard]] virtual bool topmost() const = 0;

  virtual void activate() = 0; // to the front, with the keyboard focus; does not show a hidden window
  virtual void redraw() = 0;
  // Releases the mouse capture and sends the window a caption hit, so that the system moves it while the button is
  // held. A nested call during such a move does nothing.
  virtual void drag_by_caption() = 0;

  std::function<void(const MouseEvent&)> on_mouse_move; // over the background
  // The wheel over the window: whole notches, positive away from the user. A list with more rows than it shows keeps
  // it.
  std::function<void(int notches)> on_wheel;
  std::function<void()> on_middle_click; // over the window or any of its controls
  // While the window has the keyboard. Space is a button's or a link's own while that has the focus, the arrow keys are
  // a list's. A key that is held down comes once, but for the arrow keys.
  std::function<void(WindowKey)> on_key;
  // The right button over the background or over a control that is not itself clickable; or the menu key or Shift+F10,
  // unless a control handles it.
  std::function<void()> on_menu;
  // Something within the limits of `Drop` was dropped on the visible window. Comes after the other program has been
  // answered: the handler may take its time, and open boxes. Of several drops in a row the last one counts.
  std::function<void(const Drop&)> on_drop;
  std::function<void()> on_close;       // Alt+F4 or the system's close; nothing is destroyed automatically
  std::function<void()> on_session_end; // Windows ends the session: finish before returning
  std::function<void()> on_suspend;
  std::function<void()> on_resume;
};

} // namespace lumotune::platform
