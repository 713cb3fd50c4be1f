// SPDX-License-Identifier: LGPL-2.1-or-later
// The controls of a window: pictures, labels, buttons, a list box. Positions and sizes are twips (1/1440 inch).
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace lumotune::platform {

struct TwipsRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  friend bool operator==(const TwipsRect&, const TwipsRect&) = default;
};

// 0x00BBGGRR, as in skins; or a system colour, resolved when it is drawn.
enum class Colour : std::uint32_t {};
inline constexpr std::uint32_t system_colour_flag = 0x80000000; // combined with the system's colour index, 0..255

enum class MouseButton : int { none = 0, left = 1, right = 2, middle = 4 };

struct MouseEvent {
  MouseButton button = MouseButton::none; // held (move) or pressed (down)
  int x = 0;                              // twips from the control's left edge
  int y = 0;                              // twips from its top edge
};

// A real child window. Its designer name never changes. Everything on the user-interface thread; handlers may change
// anything. Setting a value from the program never fires a handler.
class Control {
public:
  Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  [[nodiscard]] virtual const std::wstring& name() const = 0;

  virtual void set_visible(bool visible) = 0;
  [[nodiscard]] virtual bool visible() const = 0; // its own flag, even while the window is hidden
  virtual void set_enabled(bool enabled) = 0;
  [[nodiscard]] virtual bool enabled() const = 0;

  virtual void move(int left, int top) = 0;
  virtual void resize(int width, int height) = 0; // below 0 counts as 0
  [[nodiscard]] virtual TwipsRect rect() const = 0;

  // The window text: a label's text, a button's caption, a picture's accessible name. Shown literally: "&" is an
  // ordinary character.
  virtual void set_text(const std::wstring& text) = 0;
  [[nodiscard]] virtual std::wstring text() const = 0;
  virtual void set_tooltip(const std::wstring& text) = 0;
  [[nodiscard]] virtual std::wstring tooltip() const = 0;

  std::function<void()> on_click; // left button, or Space and Enter while focused; never while disabled
  std::function<void()> on_double_click;
  std::function<void(const MouseEvent&)> on_mouse_move;
  std::function<void(const MouseEvent&)> on_mouse_down;
  std::function<void()> on_menu_key; // the menu key or Shift+F10, while focused
};

// An upright line. Places are twips of the window.
struct Needle {
  int middle = 0;
  int top = 0;
  int height = 0;
  Colour colour{};
  friend bool operator==(const Needle&, const Needle&) = default;
};

enum class Alignment { left, centre, right };

// Shows a GIF and takes its size. A picture button is a tab stop with a visible focus; a decoration is not. A button
// looks otherwise under the pointer, pressed, disabled and focused; all looks are made from the one picture.
class PictureBox : public Control {
public:
  // A larger picture is rejected: this many pixels take 34 MB of memory.
  static constexpr std::int64_t max_pixels = 8'500'000;
  static constexpr int max_side = 4096;                        // pixels
  static constexpr std::int64_t max_bytes = 8LL * 1024 * 1024; // of the file

  // Reads the file on every call. False when it is missing, too large or not a picture; the old picture then stays.
  [[nodiscard]] virtual bool load_picture(const std::wstring& path) = 0;
  virtual void clear_picture() = 0;                       // shows nothing; the size becomes empty
  [[nodiscard]] virtual std::wstring picture() const = 0; // path of the picture shown, empty for none
  virtual void set_neutral(bool neutral) = 0;             // a button without its red, which can still be pressed
  [[nodiscard]] virtual bool neutral() const = 0;
  virtual void set_closes(bool closes) = 0; // a button that is red under the pointer
  [[nodiscard]] virtual bool closes() const = 0;
  virtual void set_needle(const std::optional<Needle>& needle) = 0; // drawn over a decoration, cut off at its edges
  [[nodiscard]] virtual std::optional<Needle> needle() const = 0;
};

// Text on a transparent background. A link label is a tab stop and can be clicked. Words are wrapped; what does not fit
// ends in dots. A text without room for a second line glides past once before that, unless the user has turned
// animations off.
class Label : public Control {
public:
  virtual void set_text_colour(Colour colour) = 0;
  [[nodiscard]] virtual Colour text_colour() const = 0;
  virtual void set_underline(bool on) = 0;
  [[nodiscard]] virtual bool underline() const = 0;
  virtual void set_bold(bool on) = 0;
  [[nodiscard]] virtual bool bold() const = 0;
  virtual void set_alignment(Alignment alignment) = 0;
  [[nodiscard]] virtual Alignment alignment() const = 0;
  // Where there is room below the text, an arrow points to that control, if it lies below; nullptr for none. It must
  // live as long as the label.
  virtual void point_to(const Control* control) = 0;
  [[nodiscard]] virtual const Control* pointed_to() const = 0;
  virtual void announce() = 0; // screen readers announce the text, wherever the focus is
};

class Button : public Control {
public:
  // Like a mouse click: fires on_click when enabled, visible or not.
  virtual void press() = 0;
};

class ListBox : public Control {
public:
  static constexpr std::size_t none = static_cast<std::size_t>(-1);

  virtual void clear() = 0;
  virtual void add(const std::wstring& item) = 0;
  // Replaces all items; none is selected afterwards. Redraws once, whatever their number.
  virtual void set_items(const std::vector<std::wstring>& items) = 0;
  [[nodiscard]] virtual std::size_t count() const = 0;
  [[nodiscard]] virtual std::wstring item(std::size_t index) const = 0; // empty past the end
  [[nodiscard]] virtual std::size_t selected() const = 0;               // `none` when nothing is selected
  virtual void select(std::size_t index) = 0;                           // fires nothing
  // The item at a position in the control, in twips as in MouseEvent; `none` when there is none.
  [[nodiscard]] virtual std::size_t item_at(int x, int y) const = 0;
  // Only this many characters of each item are drawn; the rest is data.
  virtual void set_shown_columns(std::size_t columns) = 0;
  virtual void set_colours(Colour background, Colour text) = 0;
  // The colour of the selected row's edge and of the mark; the text's while there is none.
  virtual void set_accent(std::optional<Colour> accent) = 0;
  [[nodiscard]] virtual std::optional<Colour> accent() const = 0;
  // Marks the items whose data behind the shown columns begin with that text; none while it is empty.
  virtual void set_mark(const std::wstring& data) = 0;
  [[nodiscard]] virtual std::wstring mark() const = 0;
  [[nodiscard]] virtual Colour background_colour() const = 0;
  [[nodiscard]] virtual Colour text_colour() const = 0;
};

} // namespace lumotune::platform
