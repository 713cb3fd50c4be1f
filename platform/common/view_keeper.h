// SPDX-License-Identifier: LGPL-2.1-or-later
// Where windows lie among the monitors, and when one has to come back into view. Lengths in one unit, pixels or twips.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace lumotune::platform {

struct ScreenPoint {
  std::int64_t x = 0;
  std::int64_t y = 0;
  friend bool operator==(const ScreenPoint&, const ScreenPoint&) = default;
};

struct ScreenRect {
  std::int64_t left = 0;
  std::int64_t top = 0;
  std::int64_t right = 0; // exclusive, as is bottom
  std::int64_t bottom = 0;
  friend bool operator==(const ScreenRect&, const ScreenRect&) = default;
};

struct Monitor {
  ScreenRect whole;
  ScreenRect work_area; // without the task bar and its like
};

// Whether one of the monitors shows enough of the window to take hold of it with the mouse: `piece` in both directions.
[[nodiscard]] bool can_be_held(const ScreenRect& window, const std::vector<Monitor>& monitors, std::int64_t piece);

// Whether the monitors together show at least half of the window.
[[nodiscard]] bool mostly_in_view(const ScreenRect& window, const std::vector<Monitor>& monitors);

// The monitor that shows most of the window, or else the nearest one. At least one monitor.
[[nodiscard]] const Monitor& monitor_of(const ScreenRect& window, const std::vector<Monitor>& monitors);

// The upper left corner at which the window lies within the area, from the area's own corner where it is too large.
[[nodiscard]] ScreenPoint place_within(const ScreenRect& area, const ScreenRect& window);

// Decides when a window has to move to be in view again. A position that the user has chosen stays while enough of the
// window is visible to drag it. A position that a change of the screen leaves behind is nobody's choice: half of the
// window has to be visible. User-interface thread.
class ViewKeeper {
public:
  // The system reports a change of the screen.
  void screen_changed() { changed_ = true; }
  // Compares the monitors with those of the previous call: a window manager may move a window before the system reports
  // the change.
  void look_at(const std::vector<Monitor>& monitors);
  [[nodiscard]] bool has_changed() const { return changed_; } // since the last correction was asked for

  // Where the window's upper left corner has to go; nothing when it may stay, or there is no monitor. `piece` as for
  // can_be_held.
  [[nodiscard]] std::optional<ScreenPoint> correction(const ScreenRect& window, const std::vector<Monitor>& monitors,
                                                      std::int64_t piece, std::uint32_t tick_count_ms);

  // Whether a move that the user did not make is undone: a window manager, when busy long after the correction, answers
  // the new screen with a place of its own that leaves no more than a corner in sight.
  [[nodiscard]] bool undoes(const ScreenRect& window, const std::vector<Monitor>& monitors,
                            std::uint32_t tick_count_ms) const;

private:
  std::vector<ScreenRect> seen_;
  bool changed_ = false;
  std::optional<std::uint32_t> corrected_at_; // tick count
};

} // namespace lumotune::platform
