// SPDX-License-Identifier: LGPL-2.1-or-later
// The keyboard focus among the controls of an in-memory window, with the system's rules.
#pragma once

#include "platform/controls.h"

#include <set>
#include <string>
#include <vector>

namespace lumotune::platform::memory {

class Keyboard {
public:
  Keyboard() = default;
  Keyboard(const Keyboard&) = delete;
  Keyboard& operator=(const Keyboard&) = delete;
  ~Keyboard() = default;

  void add_stop(const Control& control) { stops_.push_back(&control); } // in order of creation
  [[nodiscard]] const std::vector<const Control*>& stops() const { return stops_; }

  // The control with the focus; nullptr while the window is inactive or has no control that can take it.
  [[nodiscard]] const Control* at() const { return active_ ? at_ : nullptr; }
  void window_active(bool active);
  [[nodiscard]] bool active() const { return active_; }
  // Whether the window is visible: only then can the mouse reach its controls.
  void window_seen(bool seen) { seen_ = seen; }
  [[nodiscard]] bool seen() const { return seen_; }
  void tab(bool back);
  void pressed(const Control& stop);          // by the mouse, which also activates the window
  void take(const Control& stop);             // by the program: only if it is reachable and the window active
  void reach_changed(const Control& control); // it was shown, hidden, enabled or disabled
  void resized(const Control& control, bool to_something);

private:
  [[nodiscard]] bool reachable(const Control& control) const;
  [[nodiscard]] std::vector<const Control*> round(const Control* from) const;
  void leave(const Control& control);

  std::vector<const Control*> stops_;
  std::set<const Control*> unsized_; // resized to nothing
  const Control* at_ = nullptr;
  const Control* awaited_ = nullptr; // became unreachable while focused; gets the focus back from the stand-in
  const Control* stand_in_ = nullptr;
  bool active_ = false;
  bool seen_ = true;
};

} // namespace lumotune::platform::memory
